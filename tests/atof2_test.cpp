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

TEST(Atof2Test, ReadsWhatUsersType) {
  const SysFormatGuard guard;
  constexpr double kInf = std::numeric_limits<double>::infinity();
  const struct {
    const wchar_t* text;
    double value;
  } rows[] = {
      {nullptr, 0},      {L"", 0},          {L"abc", 0},      {L"1,234.5", 1234.5}, {L"12*3", 36},
      {L"2k", 2000},     {L"3d", 36},       {L"2.5 K", 2500}, {L"3 D", 36},         {L"2ك", 2000},
      {L"3 د", 36},      {L"1 + 2", 1},     {L"-2k", -2},     {L"+2k", 2},          {L"5*2k", 5},
      {L"5/0", 5},       {L"1 234k", 1000}, {L"1e3k", 1000},  {L"k2", 0},           {L"2\tk", 2},
      {L" 7 ", 7},       {L"1.2.3", 1.2},   {L"5%", 5},       {L"1.5,2k", 1520},    {L"inf", 0},
      {L"-nan", 0},      {L"0x10", 0},      {L"1e-999", 0},   {L"1e999", kInf},     {L"-1e999", -kInf},
      {L"١٢.۵k", 12500}, {L"٣*٤", 3},       {L"1٢", 12},      {L"\uFF11", 0},
  };
  for (const auto& row : rows) EXPECT_EQ(ATOF2(row.text), row.value) << testing::PrintToString(row.text);
}

TEST(Atof2Test, TheFirstCharacterOfTheSeparatorIsLeftOut) {
  const struct {
    const wchar_t *separator, *text;
    double value;
  } rows[] = {
      {L"", L"1,234.5", 1},    {L".", L"1.234,5", 1234}, {L" ", L"1 234k", 1234000},
      {L"'x", L"1'234", 1234}, {L"1", L"1213", 23},
  };
  const SysFormatGuard guard;
  for (const auto& row : rows) {
    std::wcscpy(SysFormat.ThousandSep, row.separator);
    EXPECT_EQ(ATOF2(row.text), row.value) << testing::PrintToString(row.text);
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
    EXPECT_EQ(reading.refusal, NumberReading::Refusal::None);
    EXPECT_EQ(reading.ignoredAt, static_cast<int>(start.size()) + 6);
    EXPECT_EQ(ATOF2((start + L"12k4").c_str()), 12000);
    EXPECT_EQ(ReadNumberText((start + L"12k4").c_str()).ignoredAt, static_cast<int>(start.size()) + 3);
  }
}

TEST(Atof2Test, TheReadingTellsWhatWasRefusedAndWhatWasIgnored) {
  using Refusal = NumberReading::Refusal;
  constexpr auto kNone = Refusal::None, kNoText = Refusal::EmptyText, kAlien = Refusal::ForeignCharacter,
                 kZero = Refusal::DivisionByZero, kPoint = Refusal::SecondPoint;
  const SysFormatGuard guard;
  const struct {
    const wchar_t* text;
    Refusal refusal;
    int refusedAt, consumed;
    wchar_t suffix;
    double factor;
    int ignoredAt;
  } rows[] = {
      {L"1,234.5", kNone, -1, 0, 0, 1, -1},      {nullptr, kNoText, -1, 0, 0, 1, -1},
      {L",", kNoText, -1, 0, 0, 1, -1},          {L"2k", kAlien, 1, 1, L'k', 1000, -1},
      {L"1,0 K ", kAlien, 3, 3, L'K', 1000, -1}, {L"3 dz", kAlien, 1, 1, L'd', 12, 3},
      {L"5%", kAlien, 1, 1, L'%', 1, -1},        {L"5/0", kZero, 2, 1, L'/', 1, 2},
      {L"1,000/0", kZero, 6, 5, L'/', 1, 6},     {L"5/,", kZero, 3, 1, L'/', 1, -1},
      {L"1.2.3", kPoint, 3, 3, 0, 1, 3},         {L"1 234k", kAlien, 1, 1, L'k', 1000, 2},
      {L"1e3k", kAlien, 1, 3, L'e', 1, 3},       {L"-2k", kAlien, 2, 2, L'-', 1, 2},
      {L" \t7", kAlien, 0, 3, L'\t', 1, -1},     {L"abc", kAlien, 0, 0, L'a', 1, 1},
      {L"k2", kAlien, 0, 0, L'k', 1000, 1},
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
