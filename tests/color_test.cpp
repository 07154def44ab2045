#include "color.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace {

// Every way to say the same raw value; those that do not compile are the fault looked for.
template <class Integer>
void ExpectSameWord(Integer value, const TColor& colour) {
  EXPECT_TRUE(TColor(value) == colour && colour == value && value == colour);
  const TColor other = TColor::LtCyan;
  EXPECT_TRUE(other != value && value != other && other != colour);
}

int Distance(const TColor& a, const TColor& b) {
  return std::max(
      {std::abs(a.Red() - b.Red()), std::abs(a.Green() - b.Green()), std::abs(a.Blue() - b.Blue())});
}

}  // namespace

TEST(ColorTest, EveryKindOfNumberIsAStoredWord) {
  ExpectSameWord(0x1234, TColor(0x34, 0x12, 0));
  ExpectSameWord(-0x1000000, TColor::None);
  ExpectSameWord(0xFF000000, TColor::None);
  ExpectSameWord(0xFF000000L, TColor::None);
  ExpectSameWord(0xFF000000UL, TColor::None);
  EXPECT_TRUE(TColor(0) == 0 && 0 == TColor() && TColor(0L) == 0L && TColor(0UL) != 1UL && TColor(0U) != 1U);
}

TEST(ColorTest, PartsGoToTheirPlacesFromEveryRecord) {
  EXPECT_EQ(TColor(0x101, -1, 0x1FE, 0x1C0), 0xC0FEFF01);
  EXPECT_EQ(TColor(PALETTEENTRY{1, 2, 3, 4}), 0x04030201);
  EXPECT_EQ(TColor(RGBTRIPLE{3, 2, 1}), 0x030201);
  const TRgbQuad quad(RGBQUAD{3, 2, 1, 9});
  EXPECT_EQ(quad, 0x030201ul);
  EXPECT_EQ(quad.rgbReserved, 9);
  EXPECT_EQ(TRgbQuad(TColor(1, 2, 3, 0x40)), quad);
  EXPECT_EQ(TRgbQuad(0x101, 2, 3), quad);
}

TEST(ColorTest, KindAndPartsAreReadFromTheWord) {
  EXPECT_EQ(TColor(0x7F030201).Flags(), 0x7F);
  EXPECT_EQ(TColor(0x7F030201).Index(), 0x0201);
  EXPECT_EQ(TColor(0x7F030201).PalIndex(), 0x01000201u);
  EXPECT_EQ(TColor(0x7F030201).PalRelative(), 0x02030201u);
  for (const unsigned word : {0x7F000000u, 0x8F000000u, 0x90000000u, 0xEF000000u, 0xF0000000u}) {
    EXPECT_EQ(TColor(word).IsSysColor(), word == 0x8F000000u) << word;
    EXPECT_EQ(TColor(word).IsSpecialColor(), word == 0xF0000000u) << word;
  }
}

TEST(ColorTest, SystemColoursAreResolvedWhereChannelsAreRead) {
  const TColor face = TColor::Sys3dFace, plain = face.Rgb();
  EXPECT_TRUE(face != plain && face.GetValue() == plain && plain == face.GetValue());
  EXPECT_EQ(face.Merge(TColor::Black), TColor(plain.Red() / 2, plain.Green() / 2, plain.Blue() / 2));
  EXPECT_EQ(face.Lighten(4), plain.Lighten(4));
  EXPECT_EQ(face.Rgb2Hls(), plain.Rgb2Hls());
  EXPECT_EQ(TRgbQuad(face), plain);
  for (const unsigned unknown : {25u, 26u, 0xFFFFu}) EXPECT_EQ(TColor(0x80000000u + unknown).GetValue(), 0u);
}

TEST(ColorTest, LightnessIsMovedChannelByChannel) {
  EXPECT_EQ(TColor(230, 10, 0).Lighten(40), TColor(255, 50, 40));
  EXPECT_EQ(TColor(230, 10, 0).Darken(40), TColor(190, 0, 0));
  EXPECT_EQ(TColor(215, 216, 254).Lighten(40), TColor(255, 255, 255));
  EXPECT_EQ(TColor(255, 0, 1).Merge(TColor::Black), TColor(127, 0, 0));
  EXPECT_EQ(TColor::None.Lighten(1), TColor(1, 1, 1));
}

// By hand: 1/3 of the circle is 85; lightness (max + min) / 2; saturation of the second row 100 / 210.
TEST(ColorTest, HueLightnessAndSaturationAreTheUsualModel) {
  const struct {
    TColor colour;
    unsigned long hls;
  } rows[] = {
      {TColor::LtRed, 0xFF8000},   {TColor(200, 100, 100), 0x799600}, {TColor(100, 50, 75), 0x554BEA},
      {TColor::LtGreen, 0xFF8055}, {TColor::LtBlue, 0xFF80AA},        {TColor(7, 7, 7), 0x000700},
  };
  for (const auto& row : rows) EXPECT_EQ(row.colour.Rgb2Hls(), row.hls) << row.colour.GetValue();
  TColor target = TColor::None;
  EXPECT_EQ(target.Hls2Rgb(0xAB799600), TColor(200, 100, 100));
  EXPECT_EQ(target, TColor(200, 100, 100));
}

TEST(ColorTest, ThereAndBackStaysWithinFour) {
  int worst = 0, within1 = 0, all = 0;
  for (int red = 0; red < 256; red += 5)
    for (int green = 0; green < 256; green += 3)
      for (int blue = 0; blue < 256; ++blue, ++all) {
        const TColor colour(red, green, blue);
        const int distance = Distance(colour.HlsTransform(0, 0), colour);
        worst = std::max(worst, distance);
        within1 += distance <= 1;
        EXPECT_TRUE(distance == 0 || red != green || green != blue) << red;
      }
  EXPECT_EQ(worst, 4);
  EXPECT_GT(within1, all * 0.84);
}

// (200, 100, 100) is hue 0, lightness 150, saturation 121.
TEST(ColorTest, PercentagesAreOfTheRoomThereIs) {
  const struct {
    const char* name;
    int lightness, saturation;
    unsigned long hls;
  } rows[] = {
      {"up", 20, 30, 0xA1AB00},  // 150 + 105 * 20 / 100, 121 + 134 * 30 / 100
      {"down, truncated", -21, -50, 0x3C7600},
      {"to the ends", 100, -100, 0x00FF00},
      {"above 100 wraps", 200, 0, 0x796800},
      {"below -100 wraps", -120, 0, 0x79E200},
      {"beyond 32 bits", 2147483647, 0, 0x79FB00},
  };
  for (const auto& row : rows)
    EXPECT_EQ(TColor(200, 100, 100).HlsTransform(row.lightness, row.saturation), TColor().Hls2Rgb(row.hls))
        << row.name;
}
