#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <limits>
#include <string>
#include <type_traits>

#include "calendar.h"
#include "format.h"
#include "support/hijri_years.h"
#include "support/raises.h"
#include "support/slots.h"

using namespace Qel::Sys::DateTime;
using Qel::Sys::Settings::SysFormat;

namespace {

namespace chrono = std::chrono;
using chrono::days;
using chrono::sys_days;
using chrono::year_month_day;

constexpr wchar_t kMonthRule[] = L"( month > 0) && (month < 13)";
constexpr wchar_t kYearRule[] = L"year > 0";
constexpr wchar_t kDayRule[] = L"(day > 0) && (day <= max_day)";
constexpr wchar_t kEpochRule[] = L"d.Year() >= BASEDATE";

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();
constexpr int kLastNumber = 23'246'223;  // 31 December 65535: the lengths of all years from 1890 on

const TGCalendar kGregorian;
const TCalendar& kCalendar = kGregorian;

// What `body` gives, or the text that it raises.
std::wstring Outcome(const std::function<Date()>& body) {
  std::wstring text;
  const std::wstring raised = RaisedBy([&] { text = body().ToString(); });
  return raised + text;
}

void ExpectYearAndMonth(const Date& date, year_month_day civil) {
  const auto month = civil.year() / civil.month();
  const sys_days firstOfYear = civil.year() / chrono::January / 1;
  const auto lastOfMonth = unsigned{year_month_day(month / chrono::last).day()};
  ASSERT_EQ(kCalendar.GetDaysInMonth(date), lastOfMonth);
  ASSERT_EQ(kCalendar.GetDayOfYear(date), (sys_days(civil) - firstOfYear).count() + 1);
  ASSERT_EQ(kCalendar.GetDaysInYear(date), civil.year().is_leap() ? 366 : 365);
  ASSERT_EQ(kCalendar.IsLeapYear(date), civil.year().is_leap());
  ASSERT_EQ(kCalendar.StartOfMonth(date), ToDate(month / 1));
  ASSERT_EQ(kCalendar.EndOfMonth(date), ToDate(month / chrono::last));
  ASSERT_EQ(kCalendar.StartOfYear(date), ToDate(firstOfYear));
  ASSERT_EQ(kCalendar.EndOfYear(date), ToDate(civil.year() / chrono::December / 31));
}

}  // namespace

TEST(GregorianCalendarTest, EveryDayOf210YearsIsCountedAndPlaced) {
  int number = 1;
  for (sys_days day = chrono::year{1890} / 1 / 1; day < sys_days(chrono::year{2100} / 1 / 1);
       ++day, ++number) {
    const Date date = ToDate(day);
    SCOPED_TRACE(number);
    ASSERT_EQ(kCalendar.DaysFromDate(date), number);
    ASSERT_EQ(kCalendar.DaysToDate(number), date);
    ASSERT_EQ(kCalendar.GetDayOfWeek(date), (chrono::weekday(day).c_encoding() + 1) % 7);
    ASSERT_EQ(kCalendar.NextDay(date), ToDate(day + days(1)));
    ASSERT_EQ(kCalendar.DateDifference(date, Date(1, 1, 1900)), number - 3653);
    if (number > 1) {
      ASSERT_EQ(kCalendar.PrevDay(date), ToDate(day - days(1)));
    }
    ASSERT_NO_FATAL_FAILURE(ExpectYearAndMonth(date, day));
  }
  EXPECT_EQ(number - 1, 76'701);
}

TEST(GregorianCalendarTest, DaysFarAwayAreCountedAsWell) {
  const sys_days end = chrono::year{32767} / 12 / 31;
  for (sys_days day = chrono::year{2100} / 1 / 1; day < end; day += days(97)) {
    const int number = static_cast<int>((day - sys_days(chrono::year{1889} / 12 / 31)).count());
    ASSERT_EQ(kCalendar.DaysFromDate(ToDate(day)), number);
    ASSERT_EQ(kCalendar.DaysToDate(number), ToDate(day));
  }
}

TEST(GregorianCalendarTest, MonthsAreAddedWithTheDayCutToTheLengthOfTheMonth) {
  for (sys_days day = chrono::year{2023} / 1 / 1; day < sys_days(chrono::year{2025} / 1 / 1); ++day) {
    const year_month_day civil = day;
    for (int n = -60; n <= 60; ++n) {
      year_month_day expected = civil + chrono::months(n);
      if (!expected.ok()) expected = expected.year() / expected.month() / chrono::last;
      ASSERT_EQ(kCalendar.AddMonths(ToDate(civil), n), ToDate(expected)) << n;
      if (n % 12 == 0) {
        ASSERT_EQ(kCalendar.AddYears(ToDate(civil), n / 12), ToDate(expected)) << n;
      }
    }
  }
  const Date leapDay(29, 2, 2024);
  EXPECT_EQ(kCalendar.NextYear(leapDay), Date(28, 2, 2025));
  EXPECT_EQ(kCalendar.PrevYear(leapDay), Date(28, 2, 2023));
  EXPECT_EQ(kCalendar.NextMonth(Date(31, 1, 2024)), leapDay);
  EXPECT_EQ(kCalendar.PrevMonth(Date(31, 3, 2024)), leapDay);
}

TEST(GregorianCalendarTest, WhatLeadsOutOfTheYearsRaisesAndNeverWraps) {
  using C = TCalendar;
  const Date before(31, 12, 1889), first(1, 1, 1890), august(1, 8, 2024), last(31, 12, 65535),
      newYear(1, 1, 1);
  constexpr int kWraps = 1'431'655'766;  // years whose months are 12 in 32 bits
  const struct {
    Date (C::*add)(const Date&, int) const;
    Date from;
    int n;
    const wchar_t* outcome;
  } sums[] = {
      {&C::AddDays, before, 1, kEpochRule},     {&C::AddDays, first, -1, kDayRule},
      {&C::AddDays, last, 1, kYearRule},        {&C::AddDays, last, kMax, kYearRule},
      {&C::AddMonths, newYear, -1, kYearRule},  {&C::AddMonths, newYear, -24, kMonthRule},
      {&C::AddMonths, newYear, -13, kYearRule}, {&C::AddMonths, last, 1, kYearRule},
      {&C::AddMonths, last, kMax, kYearRule},   {&C::AddYears, first, kWraps, kYearRule},
      {&C::AddYears, first, kMax, kYearRule},   {&C::AddYears, first, kMin, kMonthRule},
      {&C::AddYears, august, kMin, kMonthRule}, {&C::AddYears, last, kMin, kYearRule},
  };
  for (const auto& row : sums)
    EXPECT_EQ(Outcome([&] { return (kCalendar.*row.add)(row.from, row.n); }), row.outcome)
        << row.from.ToString().GetString() << " and " << row.n;
  for (const int number : {0, -65535})  // which is 1 in 16 bits
    EXPECT_EQ(Outcome([&] { return kCalendar.DaysToDate(number); }), kDayRule);
  EXPECT_EQ(kCalendar.AddMonths(last, -786'419), Date(31, 1, 1));
  EXPECT_EQ(kCalendar.DaysToDate(kLastNumber), last);
  EXPECT_EQ(kCalendar.DaysFromDate(last), kLastNumber);
  EXPECT_EQ(Outcome([] { return kCalendar.DaysToDate(kLastNumber + 1); }), kYearRule);
  EXPECT_EQ(kCalendar.SetDate(7, 3, 2024), Date(7, 3, 2024));
  EXPECT_EQ(Outcome([] { return kCalendar.SetDate(65537, 1, 2024); }), kDayRule);
  EXPECT_EQ(Outcome([] { return kCalendar.SetDate(1, -65535, 2024); }), kMonthRule);
  EXPECT_EQ(Outcome([] { return kCalendar.SetDate(1, 1, 65537); }), kYearRule);
}

TEST(GregorianCalendarTest, YearsBelowOneRaiseUnlessTheMonthIsNoneAnyway) {
  EXPECT_EQ(RaisedBy([] { kCalendar.IsLeapYear(0); }), kYearRule);
  EXPECT_EQ(RaisedBy([] { kCalendar.IsLeapYear(-4); }), kYearRule);
  EXPECT_EQ(RaisedBy([] { kCalendar.GetDaysInYear(0); }), kYearRule);
  EXPECT_EQ(RaisedBy([] { kCalendar.GetDaysInMonth(0, 1); }), kYearRule);
  for (const int month : {0, 13, -1, kMin, kMax}) EXPECT_EQ(kCalendar.GetDaysInMonth(0, month), 0);
  EXPECT_FALSE(kCalendar.IsLeapYear(1900));
  EXPECT_TRUE(kCalendar.IsLeapYear(70000));
}

TEST(GregorianCalendarTest, NamesComeFromTheResources) {
  const auto language = SysFormat.ResLangId;
  SysFormat.ResLangId = 1033;
  const wchar_t* const days[] = {L"Sat", L"Sun", L"Mon", L"Tus", L"Wed", L"Thr", L"Fri"};
  for (unsigned short d = 1; d <= 7; ++d)  // 1 January 2000 was a Saturday
    EXPECT_EQ(kCalendar.GetDayOfWeekName(Date(d, 1, 2000)), days[d - 1]);
  EXPECT_EQ(kCalendar.GetMonthName(Date(31, 12, 2024)), L"December");
  for (const int month : {0, 13, kMin, kMax}) EXPECT_EQ(kCalendar.GetMonthName(month), L"");

  SysFormat.ResLangId = 0x2801;
  EXPECT_EQ(kCalendar.GetMonthName(2), L"\u0634\u0628\u0627\u0637");
  SysFormat.AltGMonthNames = true;
  EXPECT_EQ(kCalendar.GetMonthName(2), L"\u0641\u0628\u0631\u0627\u064A\u0631");
  SysFormat.AltGMonthNames = false;
  SysFormat.ResLangId = language;
}

TEST(GregorianCalendarTest, TextFollowsTheSettings) {
  Date read(1, 1, 2000);
  EXPECT_EQ(kCalendar.ToString(Date(7, 3, 2024)), L"7-3-2024");
  EXPECT_EQ(kCalendar.ToAsc(Date(7, 3, 2024), 0), L"7-3-2024");
  EXPECT_EQ(kCalendar.FromString(L"31-2-2024", read), 0);
  EXPECT_EQ(read, Date(1, 1, 2000));
  EXPECT_EQ(kCalendar.FromString(L"29-2-24", read), 1);
  EXPECT_EQ(read, Date(29, 2, 2024));
  EXPECT_EQ(kCalendar.FromString(L"29-2-24"), Date(29, 2, 2024));
}

// A calendar of thirteen months with ten days each: what counts months must ask it, what numbers days must
// not.
TEST(GregorianCalendarTest, ADerivedCalendarsMonthsCountEverywhereButInTheNumbersOfDays) {
  class TenDayMonths : public TGCalendar {
   public:
    using TGCalendar::GetDaysInMonth;
    unsigned short GetDaysInMonth(int, int month) const override { return month > 13 ? 0 : 10; }
    unsigned short GetMonthsInYear() const override { return 13; }
  };
  const TenDayMonths calendar;
  EXPECT_EQ(calendar.GetDaysInMonth(Date(1, 2, 2024)), 10);
  EXPECT_EQ(calendar.EndOfMonth(Date(1, 2, 2024)), Date(10, 2, 2024));
  EXPECT_EQ(calendar.GetDayOfYear(Date(5, 12, 2024)), 115);
  EXPECT_EQ(calendar.AddMonths(Date(20, 2, 2024), 13), Date(10, 2, 2025));
  EXPECT_EQ(calendar.PrevYear(Date(7, 2, 2024)), Date(7, 2, 2023));
  EXPECT_EQ(RaisedBy([&] { calendar.EndOfYear(Date(1, 2, 2024)); }), L"( m > 0) && ( m < 13)");
  EXPECT_EQ(calendar.DaysFromDate(Date(1, 1, 1891)), 366);
  EXPECT_EQ(calendar.AddDays(Date(1, 1, 2024), 366), Date(1, 1, 2025));
}

#ifdef __x86_64__
TEST(GregorianCalendarTest, SlotsKeepTheirOrder) {
  using C = TCalendar;
  using D = const Date&;
  using Text = const wchar_t*;
  ExpectSlotsFrom(
      0, &C::AddDays, &C::AddMonths, &C::AddYears, &C::GetDay, &C::GetMonth, &C::GetYear, &C::GetDayOfWeek,
      Of<unsigned short(D) const>(&C::GetDaysInMonth), Of<unsigned short(int, int) const>(&C::GetDaysInMonth),
      Of<int(D) const>(&C::GetDaysInYear), Of<int(int) const>(&C::GetDaysInYear),
      Of<bool(D) const>(&C::IsLeapYear), Of<bool(int) const>(&C::IsLeapYear), &C::ToString, &C::ToAsc,
      &C::GetMonthsInYear, Of<CString(D) const>(&C::GetMonthName), Of<CString(int) const>(&C::GetMonthName),
      &C::GetDayOfWeekName, &C::GetDayOfYear, &C::NextDay, &C::PrevDay, &C::NextMonth, &C::PrevMonth,
      &C::NextYear, &C::PrevYear, &C::SetFormat, &C::StartOfMonth, &C::StartOfYear, &C::EndOfMonth,
      &C::EndOfYear, Of<int(Text, Date&) const>(&C::FromString), Of<Date(Text) const>(&C::FromString),
      &C::SetDate, &C::DateDifference, &C::DaysFromDate, &C::DaysToDate);
  static_assert(std::has_virtual_destructor_v<C> && !std::has_virtual_destructor_v<Date>);
}
#endif
