#include "format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "digits.h"

using namespace Qel::Sys::Settings;
using Evaluator = Format::NumericEvaluator;
using Refusal = Evaluator::Refusal;

TEST(FormatTest, DefaultsAreThoseThatHostsRelyOn) {
  const Format format;
  EXPECT_EQ(format.RoundPrec, 0);
  EXPECT_STREQ(format.ZeroText, L"--");
  EXPECT_EQ(format.Option8, 6u);
  EXPECT_EQ(format.PercentDecimals, 2u);
  EXPECT_EQ(format.QuantityDecimals, 2u);
  EXPECT_EQ(format.CurrencyDecimals, 5u);
  EXPECT_TRUE(format.GroupDigits);
  EXPECT_STREQ(format.ThousandSep, L",");
  EXPECT_FALSE(format.UseHijri);
  EXPECT_EQ(format.ResLangId, 0x2801);
  EXPECT_EQ(SysFormat.DateFmt, Format::DF_DMY);
}

TEST(FormatTest, InitKeepsDateOrderRoundingModeAndOption7) {
  Format format;
  format.DateFmt = Format::DF_YYYYMMDD;
  format.RoundType = Format::RT_HALF_EVEN;
  format.Option7 = 6;
  format.Text2 = L"note";
  format.ThousandSep[0] = L'.';
  format.Init();
  EXPECT_EQ(format.DateFmt, Format::DF_YYYYMMDD);
  EXPECT_EQ(format.RoundType, Format::RT_HALF_EVEN);
  EXPECT_EQ(format.Option7, 6u);
  EXPECT_TRUE(format.Text2.IsEmpty());
  EXPECT_STREQ(format.ThousandSep, L",");
}

TEST(FormatTest, AssignmentToItselfKeepsTheTexts) {
  Format format;
  format.Text1 = L"a text too long for the small buffer of a string";
  Format& same = format;
  format = same;
  EXPECT_EQ(format.Text1, L"a text too long for the small buffer of a string");
}

TEST(DigitsTest, ThreeShapesOfDigitsFoldToAscii) {
  EXPECT_EQ(
      Qel::Sys::Text::FoldDigits(L"\u0661\u0662*\u0663 = \u06F3\u06F6, K\u0643 9/:\u065F\u066A\u06EF\u06FA"),
      L"12*3 = 36, K\u0643 9/:\u065F\u066A\u06EF\u06FA");
  EXPECT_EQ(Qel::Sys::Text::FoldDigits(nullptr), L"");
}
