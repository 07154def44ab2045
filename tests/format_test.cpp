#include "format.h"

#include <gtest/gtest.h>

#include <locale>
#include <sstream>
#include <utility>

#include "digits.h"
#include "num_punct.h"
#include "support/sys_format_guard.h"

using namespace Qel::Sys::Settings;

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

TEST(FormatTest, WhatSettingsAreMovedOrAssignedFromKeepsThem) {
  Format from;
  from.Text1 = L"a text too long for the small buffer of a string";
  from.Option2 = 7;
  Format to(std::move(from));
  to = std::move(from);
  EXPECT_EQ(to.Text1, L"a text too long for the small buffer of a string");
  EXPECT_EQ(to.Option2, 7u);
  EXPECT_EQ(from.Text1, to.Text1);
  Format& same = to;
  to = same;
  EXPECT_EQ(to.Text1, from.Text1);
}

TEST(FormatTest, StreamsGroupDigitsAsTheSettingsSay) {
  const struct {
    bool group;
    const wchar_t *separator, *written;
  } rows[] = {{true, L",", L"1,234,567"},
              {true, L"\u066C", L"1\u066C234\u066C567"},
              {true, L"", L"1234567"},
              {false, L",", L"1234567"}};
  const SysFormatGuard guard;
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.separator));
    SysFormat.GroupDigits = row.group;
    SysFormat.ThousandSep[0] = row.separator[0];
    std::wostringstream stream;
    stream.imbue(std::locale(std::locale::classic(), new TNumPunct));
    stream << 1234567;
    EXPECT_EQ(stream.str(), row.written);
  }
}

TEST(DigitsTest, ThreeShapesOfDigitsFoldToAscii) {
  EXPECT_EQ(
      Qel::Sys::Text::FoldDigits(L"\u0661\u0662*\u0663 = \u06F3\u06F6, K\u0643 9/:\u065F\u066A\u06EF\u06FA"),
      L"12*3 = 36, K\u0643 9/:\u065F\u066A\u06EF\u06FA");
  EXPECT_EQ(Qel::Sys::Text::FoldDigits(nullptr), L"");
}
