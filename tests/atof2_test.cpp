#include "atof2.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "decimal_prefix.h"
#include "support/golden.h"
#include "support/literal_atof2.h"
#include "support/sys_format_guard.h"

using namespace Qel::Sys::Text::Conversion;
using Qel::Sys::Settings::SysFormat;
using Refusal = NumberReading::Refusal;

TEST(Atof2Test, ReadsWhatUsersType) {
  const SysFormatGuard guard;
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const struct {
    const wchar_t* text;
    double value;
  } rows[] = {
      {nullptr, 0},
      {L"", 0},
      {L"abc", 0},
      {L"1,234.5", 1234.5},
      {L"12*3", 36},
      {L"2k", 2000},
      {L"3d", 36},
      {L"2.5 K", 2500},
      {L"3 D", 36},
      {L"2\u0643", 2000},
      {L"3 \u062F", 36},
      {L"1 + 2", 1},
      {L"-2k", -2},
      {L"+2k", 2},
      {L"5*2k", 5},
      {L"5/0", 5},
      {L"1 234k", 1000},
      {L"1e3k", 1000},
      {L"k2", 0},
      {L"2\tk", 2},
      {L" 7 ", 7},
      {L"1.2.3", 1.2},
      {L"5%", 5},
      {L"1.5,2k", 1520},
      {L"inf", 0},
      {L"-nan", 0},
      {L"0x10", 0},
      {L"1e999", kInfinity},
      {L"-1e999", -kInfinity},
      {L"1e-999", 0},
      {L"\u0661\u0662.\u06F5k", 12500},
      {L"\u0663*\u0664", 3},
      {L"1\u0662", 12},
      {L"\uFF11", 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.text));
    EXPECT_EQ(ATOF2(row.text), row.value);
  }
}

TEST(Atof2Test, TheFirstCharacterOfTheSeparatorIsLeftOut) {
  const struct {
    const wchar_t* separator;
    const wchar_t* text;
    double value;
  } rows[] = {
      {L"", L"1,234.5", 1},    {L".", L"1.234,5", 1234}, {L" ", L"1 234k", 1234000},
      {L"'x", L"1'234", 1234}, {L"1", L"1213", 23},
  };
  const SysFormatGuard guard;
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.text));
    std::wcscpy(SysFormat.ThousandSep, row.separator);
    EXPECT_EQ(ATOF2(row.text), row.value);
  }
}

TEST(Atof2Test, OnlyAHundredCharactersBesideSeparatorsCount) {
  const SysFormatGuard guard;
  const std::wstring zeros(97, L'0');
  std::wstring separated;
  for (const wchar_t zero : zeros) separated.append(1, zero).append(L",");
  for (const std::wstring& start : {zeros, separated}) {
    EXPECT_EQ(ReadNumberText((start + L"123,").c_str()).ignoredAt, -1);
    const auto reading = ReadNumberText((start + L"12,3,,456").c_str());
    EXPECT_NEAR(reading.value, 123, 1e-9);
    EXPECT_EQ(reading.refusal, Refusal::None);
    EXPECT_EQ(reading.ignoredAt, static_cast<int>(start.size()) + 6);
    EXPECT_EQ(ATOF2((start + L"12k4").c_str()), 12000);
    EXPECT_EQ(ReadNumberText((start + L"12k4").c_str()).ignoredAt, static_cast<int>(start.size()) + 3);
  }
}

TEST(Atof2Test, TheReadingTellsWhatWasRefusedAndWhatWasIgnored) {
  const SysFormatGuard guard;
  const struct {
    const wchar_t* text;
    Refusal refusal;
    int refusedAt, consumed;
    wchar_t suffix;
    double factor;
    int ignoredAt;
  } rows[] = {
      {L"1,234.5", Refusal::None, -1, 0, 0, 1, -1},
      {nullptr, Refusal::EmptyText, -1, 0, 0, 1, -1},
      {L",", Refusal::EmptyText, -1, 0, 0, 1, -1},
      {L"2k", Refusal::ForeignCharacter, 1, 1, L'k', 1000, -1},
      {L"1,000 K ", Refusal::ForeignCharacter, 5, 5, L'K', 1000, -1},
      {L"3 dz", Refusal::ForeignCharacter, 1, 1, L'd', 12, 3},
      {L"5%", Refusal::ForeignCharacter, 1, 1, L'%', 1, -1},
      {L"5/0", Refusal::DivisionByZero, 2, 1, L'/', 1, 2},
      {L"1,000/0", Refusal::DivisionByZero, 6, 5, L'/', 1, 6},
      {L"5/,", Refusal::DivisionByZero, 3, 1, L'/', 1, -1},
      {L"1.2.3", Refusal::SecondPoint, 3, 3, 0, 1, 3},
      {L"1 234k", Refusal::ForeignCharacter, 1, 1, L'k', 1000, 2},
      {L"1e3k", Refusal::ForeignCharacter, 1, 3, L'e', 1, 3},
      {L"-2k", Refusal::ForeignCharacter, 2, 2, L'-', 1, 2},
      {L" \t7", Refusal::ForeignCharacter, 0, 3, L'\t', 1, -1},
      {L"abc", Refusal::ForeignCharacter, 0, 0, L'a', 1, 1},
      {L"k2", Refusal::ForeignCharacter, 0, 0, L'k', 1000, 1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.text));
    const auto reading = ReadNumberText(row.text);
    EXPECT_EQ(reading.refusal, row.refusal);
    EXPECT_EQ(reading.refusedAt, row.refusedAt);
    EXPECT_EQ(reading.consumed, row.consumed);
    EXPECT_EQ(reading.suffix, row.suffix);
    EXPECT_EQ(reading.factor, row.factor);
    EXPECT_EQ(reading.ignoredAt, row.ignoredAt);
  }
}

// The table's infinities and NaNs are refused on purpose.
TEST(Atof2Test, TheFallBackReadsDecimalNumbersAsTheSystemDoes) {
  for (const auto& row : GoldenTable("decimal_prefix.tsv")) {
    SCOPED_TRACE(row.where);
    const auto prefix = Qel::Sys::Text::ReadDecimalPrefix(row.Wide("input").value());
    EXPECT_EQ(std::bit_cast<std::uint64_t>(prefix.value), std::stoull(row["bits"], nullptr, 16));
    EXPECT_EQ(static_cast<int>(prefix.length), row.Int("end"));
  }
}

// Every text of up to four characters from an alphabet that reaches all the rules.
TEST(Atof2Test, ShortTextsReadAsTheStepsWrittenDownOneByOne) {
  const SysFormatGuard guard;
  const std::wstring alphabet = L"05.+-*/ ,ke\u0663";
  const auto size = alphabet.size();
  for (std::size_t number = 0; number < size * size * size * size; ++number) {
    std::wstring text;
    for (std::size_t rest = number; rest > 0; rest /= size) text += alphabet[rest % size];
    const double ours = static_cast<double>(ATOF2(text.c_str()));
    ASSERT_EQ(std::bit_cast<std::uint64_t>(ours),
              std::bit_cast<std::uint64_t>(literal::ATOF2(text.c_str(), L',')))
        << testing::PrintToString(text);
  }
}
