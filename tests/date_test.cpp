#include "date.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <limits>
#include <memory>
#include <string>

#include "format.h"
#include "platform/platform.h"
#include "support/fixed_clock.h"
#include "support/fresh_process.h"
#include "support/hijri_years.h"
#include "support/raises.h"

using namespace Qel::Sys::DateTime;
using Qel::Sys::Settings::SysFormat;

namespace {

constexpr wchar_t kFine[] = L"";
constexpr wchar_t kNoMon[] = L"( month > 0) && (month < 13)";
constexpr wchar_t kNoYear[] = L"year > 0";
constexpr wchar_t kNoDay[] = L"(day > 0) && (day <= max_day)";
constexpr wchar_t kNoHDay[] = L"( day > 0) && ( day < 31)";

// 7 March 2024, 23:59:58.997.
constexpr SYSTEMTIME kNow = {2024, 3, 4, 7, 23, 59, 58, 997};

std::wstring TextOf(const Time& time) {
  return std::wstring(time.ToString()) + L"." + std::to_wstring(time.MSec());
}

}  // namespace

TEST(DateTest, ConstructorsReportTheFirstBrokenRule) {
  const struct {
    unsigned short day, month, year;
    const wchar_t *date, *hijri;
  } rows[] = {
      {29, 2, 2000, kFine, kFine},    {1, 1, 1, kFine, kFine},       {31, 12, 65535, kFine, kNoHDay},
      {29, 2, 1900, kNoDay, kFine},   {30, 2, 2024, kNoDay, kFine},  {31, 4, 2024, kNoDay, kNoHDay},
      {32, 1, 2024, kNoDay, kNoHDay}, {0, 1, 2024, kNoDay, kNoHDay}, {1, 13, 2020, kNoMon, kNoMon},
      {1, 0, 2020, kNoMon, kNoMon},   {1, 1, 0, kNoYear, kNoYear},   {0, 13, 0, kNoMon, kNoHDay},
      {31, 2, 0, kNoYear, kNoHDay},   {1, 13, 0, kNoMon, kNoMon},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.day << "-" << row.month << "-" << row.year);
    EXPECT_EQ(RaisedBy([&] { Date(row.day, row.month, row.year); }), row.date);
    EXPECT_EQ(RaisedBy([&] { Time(row.day, row.month, row.year, 99, 99, 99, 9999); }), row.date);
    EXPECT_EQ(RaisedBy([&] { HDate(row.day, row.month, row.year); }), row.hijri);
  }
}

TEST(DateTest, TheTimeOfDayReportsTheFirstBrokenRule) {
  const struct {
    unsigned short hour, minute, second;
    unsigned msec;
    const wchar_t* raised;
  } rows[] = {
      {23, 59, 59, 999, L""},
      {24, 60, 60, 1000, L"hour < 24"},
      {23, 60, 60, 1000, L"minute < 60"},
      {23, 59, 60, 1000, L"second < 60"},
      {23, 59, 59, 1000, L"msec < 1000"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(RaisedBy([&] { Time(row.hour, row.minute, row.second, row.msec); }), row.raised);
    const Time unchecked(7, 3, 2024, row.hour, row.minute, row.second, row.msec);
    EXPECT_EQ(RaisedBy([&] { unchecked.AssertValid2(); }), row.raised);
  }
}

TEST(DateTest, SettersStoreWhatIsValidAndLeaveTheValueWhenTheyRaise) {
  const struct {
    std::function<void(Time&, unsigned short)> set;
    unsigned short good;
    const wchar_t* text;  // of 7 March 2024, 05:06:07.008 with `good`
    unsigned short refused[2];
    const wchar_t* raised;
  } rows[] = {
      {&Time::SetDay, 31, L"2024-03-31 05:06:07.8", {0, 32}, L"( d > 0) && ( d < 32)"},
      {&Time::SetMonth, 12, L"2024-12-07 05:06:07.8", {0, 13}, L"( m > 0) && ( m < 13)"},
      {&Time::SetYear, 65535, L"65535-03-07 05:06:07.8", {0, 0}, L"y > 0"},
      {&Time::SetHour, 23, L"2024-03-07 23:06:07.8", {24, 65535}, L"h < 24"},
      {&Time::SetMinute, 59, L"2024-03-07 05:59:07.8", {60, 65535}, L"m < 60"},
      {&Time::SetSecond, 0, L"2024-03-07 05:06:00.8", {60, 65535}, L"s < 60"},
      {&Time::SetMSec, 999, L"2024-03-07 05:06:07.999", {1000, 65535}, L"ms < 1000"},
  };
  for (const auto& row : rows) {
    Time time(7, 3, 2024, 5, 6, 7, 8);
    for (const unsigned short value : row.refused) {
      EXPECT_EQ(RaisedBy([&] { row.set(time, value); }), row.raised);
      EXPECT_EQ(TextOf(time), L"2024-03-07 05:06:07.8");
    }
    row.set(time, row.good);
    EXPECT_EQ(TextOf(time), row.text);
  }
}

TEST(DateTest, SetDayDoesNotLookAtTheMonthButTheNextCheckDoes) {
  struct Checked : Date {
    using Date::AssertValid;
    using Date::Date;
  };
  Checked date(1, 2, 2024);
  date.SetDay(31);
  EXPECT_EQ(date.ToString(), L"2024-02-31");
  EXPECT_EQ(RaisedBy([&] { date.AssertValid(); }), kNoDay);
}

TEST(DateTest, TypedDatesAreTakenByTheRulesOfTheirCalendar) {
  const struct {
    unsigned short day, month, year;
    bool gregorian, hijri, anyGregorian, anyHijri;
  } rows[] = {
      {1, 1, 1900, false, false, true, true},   {1, 1, 1901, true, false, true, true},
      {31, 12, 2099, true, false, true, false}, {1, 1, 2100, false, false, true, true},
      {29, 2, 2100, false, false, false, true}, {29, 2, 4, true, true, true, true},
      {29, 2, 99, false, true, false, true},    {28, 2, 100, false, false, true, true},
      {1, 1, 0, false, true, false, false},     {1, 1, 45, true, true, true, true},
      {1, 1, 1400, false, false, true, true},   {1, 1, 1401, false, true, true, true},
      {30, 12, 1440, false, true, true, true},  {31, 1, 1440, false, false, true, false},
      {30, 2, 1499, false, true, false, true},  {1, 1, 1500, false, false, true, true},
      {0, 1, 2024, false, false, false, false}, {32, 1, 24, false, false, false, false},
      {1, 0, 24, false, false, false, false},   {1, 13, 24, false, false, false, false},
      {1, 1, 65535, false, false, true, true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.day << "-" << row.month << "-" << row.year);
    EXPECT_EQ(ValidGDate(row.day, row.month, row.year), row.gregorian);
    EXPECT_EQ(ValidHDate(row.day, row.month, row.year), row.hijri);
    EXPECT_EQ(ValidDate2(row.day, row.month, row.year), row.anyGregorian);
    EXPECT_EQ(ValidHDate2(row.day, row.month, row.year), row.anyHijri);
    EXPECT_EQ(ValidDate(row.day, row.month, row.year), row.gregorian);
    SysFormat.UseHijri = true;
    EXPECT_EQ(ValidDate(row.day, row.month, row.year), row.hijri);
    SysFormat.UseHijri = false;
  }
}

TEST(DateTest, EveryMonthHasItsLengthInEveryYear) {
  using namespace std::chrono;
  for (unsigned short y = 1; y <= 9999; ++y)
    for (unsigned short m = 1; m <= 12; ++m)
      for (unsigned short d = 28; d <= 32; ++d)
        ASSERT_EQ(ValidDate2(d, m, y), (year{y} / month{m} / day{d}).ok()) << d << "-" << m << "-" << y;
}

TEST(DateTest, CheckDateNamesTheNumbersThatItRefuses) {
  EXPECT_TRUE(CheckDate(31, 2, 70000));
  const int refused[][3] = {{0, 1, 2024}, {32, 1, 2024}, {1, 13, 2024}, {1, 0, 2024}, {1, 1, 0}};
  for (const auto& [day, month, year] : refused)
    EXPECT_EQ(RaisedBy([d = day, m = month, y = year] { CheckDate(d, m, y); }).substr(0, 14),
              L"Invalid date: ");
  EXPECT_EQ(RaisedBy([] { CheckDate(-5, -6, std::numeric_limits<int>::min()); }),
            L"Invalid date: -5--6--2147483648");
}

TEST(DateTest, AValueIsOneReadingOfTheContextsClock) {
  const struct {
    const char* name;
    std::function<std::wstring()> value;
    const wchar_t* text;
    int readings;
  } rows[] = {
      {"Date", [] { return std::wstring(Date().ToString()); }, L"2024-03-07", 1},
      {"Time", [] { return TextOf(Time()); }, L"2024-03-07 23:59:58.997", 1},
      {"Time of day", [] { return TextOf(Time(1, 2, 3, 4)); }, L"2024-03-07 01:02:03.4", 1},
      {"no date, now", [] { return TextOf(Time::GetNoDateTime(false)); }, L"1980-01-01 23:59:58.997", 1},
      {"no date, no time", [] { return TextOf(Time::GetNoDateTime(true)); }, L"1980-01-01.0", 1},
      {"HDate keeps Gregorian numbers", [] { return std::wstring(HDate().ToString()); }, L"2024-03-07", 1},
      {"HDate given", [] { return std::wstring(HDate(30, 2, 1445).ToString()); }, L"1445-02-30", 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const FixedClock clock(kNow);
    EXPECT_EQ(row.value(), row.text);
    EXPECT_EQ(clock.Readings(), row.readings);
  }
}

TEST(DateTest, WithoutAContextTheSystemsClockServesAllButTheHijriDate) {
  EXPECT_IN_FRESH_PROCESS({
    const auto systemNow = [] {
      SYSTEMTIME now;
      GetLocalTime(&now);
      return Time(now.wDay, now.wMonth, now.wYear, now.wHour, now.wMinute, now.wSecond, now.wMilliseconds);
    };
    const Time before = systemNow();
    const Date date;
    const Time time;
    const Time after = systemNow();
    EXPECT_LE(before.GetDate(), date);
    EXPECT_LE(date, after.GetDate());
    EXPECT_LE(before, time);
    EXPECT_LE(time, after);
    EXPECT_EQ(RaisedBy([] { HDate(1, 1, 1445); }), L"");
    EXPECT_EQ(RaisedBy([] { HDate(); }), L"m_AppContext != nullptr");
  });
}

TEST(DateTest, OleDatesAreCutToTheirDay) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const struct {
    double ole;
    const wchar_t* day;
  } rows[] = {
      {+0.25, L"1899-12-30"},          {-0.5, L"1899-12-30"},         {-1.25, L"1899-12-29"},
      {29221.999999, L"1980-01-01"},   {45000.999999, L"2023-03-15"}, {-657434.9, L"0100-01-01"},
      {2958465.999999, L"9999-12-31"},
  };
  for (const auto& row : rows) EXPECT_EQ(Date(row.ole).ToString(), row.day) << row.ole;
  for (const double none : {-657435.0, 2958466.0, 1e300, kInfinity, -kInfinity, kInfinity - kInfinity})
    EXPECT_EQ(RaisedBy([&] { Date{none}; }), L"VariantTimeToSystemTime(dt, &sd) != 0") << none;
}

TEST(DateTest, EveryDayHasItsOleDateWithinTheYearsThatHaveOne) {
  using namespace std::chrono;
  const sys_days zero = year{1899} / December / 30;
  for (sys_days day = year{1888} / 1 / 1; day < sys_days(year{2100} / 1 / 1); day += days(1)) {
    const Date date = ToDate(day);
    ASSERT_EQ(static_cast<double>(date), (day - zero).count());
    ASSERT_EQ(Date(date.ToDATE()), date);
  }
  Date rolling(1, 2, 2024);
  rolling.SetDay(30);
  EXPECT_EQ(static_cast<double>(rolling), 45352);  // 1 March
  for (const int outside : {1, 99, 10000, 65535}) {
    const Date date(1, 1, static_cast<unsigned short>(outside));
    EXPECT_EQ(RaisedBy([&] { static_cast<void>(static_cast<double>(date)); }),
              L"SystemTimeToVariantTime(&sd, &OleDate) != 0");
    EXPECT_EQ(date.ToDATE(), 0.0);
  }
  EXPECT_EQ(Date(1, 1, 100).ToDATE(), -657434);
  EXPECT_EQ(Date(31, 12, 9999).ToDATE(), 2958465);
}

TEST(DateTest, TextLeavesOutMidnightAndMilliseconds) {
  EXPECT_EQ(Time(7, 3, 2024, 0, 0, 0, 500).ToString(), L"2024-03-07");
  EXPECT_EQ(Time(7, 3, 2024, 0, 0, 1, 0).ToString(), L"2024-03-07 00:00:01");
  EXPECT_EQ(Time(7, 3, 2024, 0, 10, 0, 0).ToString(), L"2024-03-07 00:10:00");
  EXPECT_EQ(Time(31, 12, 987, 23, 59, 59, 999).ToString(), L"0987-12-31 23:59:59");
  EXPECT_EQ(Time(1, 1, 65535, 65535, 65535, 65535, 0).ToString(), L"65535-01-01 65535:65535:65535");
}

TEST(DateTest, TimesAreOrderedFieldByField) {
  const Time rising[] = {
      Time(31, 12, 2023, 23, 59, 59, 999), Time(1, 1, 2024, 0, 0, 0, 0), Time(1, 1, 2024, 0, 0, 0, 70000),
      Time(1, 1, 2024, 0, 0, 1, 0),        Time(1, 1, 2024, 0, 1, 0, 0), Time(1, 1, 2024, 1, 0, 0, 0),
      Time(2, 1, 2024, 0, 0, 0, 0),        Time(1, 2, 2024, 0, 0, 0, 0), Time(1, 1, 2025, 0, 0, 0, 0),
  };
  for (const Time& a : rising)
    for (const Time& b : rising) {
      EXPECT_EQ(a <=> b, &a <=> &b);
      EXPECT_EQ(a == b, &a == &b);
      const bool sameDay = a.ToString().Left(10) == b.ToString().Left(10);
      EXPECT_EQ(a == b.GetDate(), sameDay) << "a Time counts by its day beside a Date";
      EXPECT_EQ(a.GetDate() <= b.GetDate(), sameDay || &a < &b);
    }
}

TEST(DateTest, DifferencesCountYearsOf365MonthsAndMonthsOf30Days) {
  constexpr std::int64_t kDay = 86'400'000;
  const Time noon(7, 3, 2024, 12, 0, 0, 0);
  const struct {
    Time other;
    std::int64_t difference;  // to noon of 7 March 2024
  } rows[] = {
      {Time(7, 2, 2024, 12, 0, 0, 0), 30 * kDay},
      {Time(7, 3, 2023, 12, 0, 0, 0), 365 * 30 * kDay},
      {Time(31, 12, 2023, 12, 0, 0, 0), (365 - 9) * 30 * kDay - 24 * kDay},
      {Time(6, 3, 2024, 23, 59, 59, 999), kDay / 2 + 1},
      {Time(7, 3, 2024, 11, 30, 0, 1), 1'799'999},
      {Time(7, 3, 2024, 12, 0, 0, 4'294'967'295), -4'294'967'295},
      {Time(7, 3, 1, 12, 0, 0, 0), 2023 * 365LL * 30 * kDay},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(noon - row.other, row.difference);
    EXPECT_EQ(row.other - noon, -row.difference);
  }
}

TEST(DateTest, TheEndOfADayIs998AndADateSetsTheTimeToZero) {
  Time time(7, 3, 2024, 1, 2, 3, 4);
  Time::SetEndDayTime(time);
  EXPECT_EQ(TextOf(time), L"2024-03-07 23:59:59.998");
  time = Date(8, 3, 2024);
  EXPECT_EQ(TextOf(time), L"2024-03-08.0");
}
