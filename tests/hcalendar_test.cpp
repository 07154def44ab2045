#include "hcalendar.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "format.h"
#include "hijri_shifts.h"
#include "support/fixed_clock.h"
#include "support/hijri_years.h"
#include "support/raises.h"
#include "support/sys_format_guard.h"

using namespace Qel::Sys::DateTime;
using Qel::Sys::Settings::SysFormat;
using std::chrono::days;
using std::chrono::sys_days;

namespace {

constexpr wchar_t kNoSuchMonth[] = L"( month > 0) && (month < 13)";
constexpr wchar_t kNoSuchDay[] = L"( day > 0) && ( day < 31)";
constexpr wchar_t kNoSuchGregorianDay[] = L"(day > 0) && (day <= max_day)";
constexpr wchar_t kBeforeCount[] = L"d.Year() >= BASEDATE";

// The steps of the conversions, which the calendar keeps for calendars derived from it.
struct Steps : THCalendar {
  using THCalendar::_DayOfYear, THCalendar::_DecodeHDate, THCalendar::_EncodeDate,
      THCalendar::_GetDaysOfMonth;
  using THCalendar::BaseGregorianToHijri, THCalendar::BaseHijriToGregorian, THCalendar::CalcDaysInHijriMonth;
  using THCalendar::FixedGregorianToHijri, THCalendar::FixHijriDate;
};

// Hijri dates of any numbers: HDate checks what it is given.
HDate Hijri(int day, int month, int year) {
  return HDate(static_cast<unsigned short>(day), static_cast<unsigned short>(month),
               static_cast<unsigned short>(year));
}

std::string Text(const Date& d) {
  return std::to_string(d.Day()) + "/" + std::to_string(d.Month()) + "/" + std::to_string(d.Year());
}

// The month that holds a year's day and the day's number in it, counted month by month; 13 behind them all.
std::pair<int, int> MonthAndDay(int day, const std::array<int, 13>& lengths) {
  std::size_t month = 1;
  for (; month <= 12 && day > lengths[month]; ++month) day -= lengths[month];
  return {static_cast<int>(month), day};
}

// Removes the corrections that a test made.
class HijriCorrectionTest : public testing::Test {
 protected:
  void TearDown() override {
    for (int left = HijriShiftList().GetCount(); left > 0; --left) {
      const THijriDateShift entry = HijriShiftList()[0];
      THCalendar::SetHijriDateShift(entry.hmonth, entry.hyear, 0);
    }
  }

  // Gives a year these corrections and holds its days, both ways, to the months that they leave.
  static void Hold(int year, const std::array<int, 14>& shifts) {
    const ListedYear& listed = ListedHijriYears()[static_cast<std::size_t>(year - 1306)];
    const ListedYear& next = *(&listed + 1);
    std::array<int, 13> lengths = listed.monthLengths;
    for (std::size_t i = 1; i <= 12; ++i) {
      THCalendar::SetHijriDateShift(static_cast<int>(i), year, shifts[i]);
      lengths[i] += shifts[i + 1] - shifts[i];
    }
    sys_days start = listed.start;
    for (int month = 1; month <= 12; ++month) {
      const int length = lengths[static_cast<std::size_t>(month)];
      ASSERT_EQ(Steps::_GetDaysOfMonth(year, month), length) << month;
      for (int day = 1; day <= 30; ++day)
        ASSERT_EQ(Text(THCalendar::HtoG(Hijri(day, month, year))), Text(ToDate(start + days(day - 1))));
      start += days(length);
    }
    for (sys_days day = listed.start; day < next.start; day += days(1)) {
      SCOPED_TRACE(Text(ToDate(day)));
      HoldDay(ToDate(day), static_cast<int>((day - listed.start).count()) + 1, listed, lengths);
    }
    unsigned short length = 0;
    EXPECT_EQ(Text(THCalendar::GtoH(ToDate(next.start), &length)), "1/1/" + std::to_string(year + 1));
    EXPECT_EQ(length, next.monthLengths[1]);
    THCalendar::GtoH(ToDate(listed.start - days(1)), &length);
    EXPECT_EQ(length, (&listed - 1)->monthLengths[12]);
  }

 private:
  static void HoldDay(const Date& day, int dayOfYear, const ListedYear& listed,
                      const std::array<int, 13>& lengths) {
    const auto [month, number] = MonthAndDay(dayOfYear, lengths);
    if (month == 13) {
      ASSERT_EQ(RaisedBy([&] { THCalendar::GtoH(day); }), kNoSuchMonth);
      return;
    }
    const auto [listedMonth, listedNumber] = MonthAndDay(dayOfYear, listed.monthLengths);
    unsigned short length = 0;
    ASSERT_EQ(Text(THCalendar::GtoH(day, &length)), Text(Hijri(listedNumber, listedMonth, listed.year)));
    ASSERT_EQ(length, lengths[static_cast<std::size_t>(month)]);
    std::string corrected;
    const std::wstring raised = RaisedBy([&] { corrected = Text(Steps::FixedGregorianToHijri(day)); });
    ASSERT_EQ(raised, number > 30 ? kNoSuchDay : L"");
    ASSERT_EQ(corrected, raised.empty() ? Text(Hijri(number, month, listed.year)) : "");
  }
};

}  // namespace

TEST(HijriCalendarTest, EveryDayMonthAndYearOfTheTableStandsWhereTheListHasIt) {
  const THCalendar calendar;
  const auto& years = ListedHijriYears();
  int count = 0;
  for (std::size_t i = 0; i < years.size(); ++i) {
    const sys_days next = i + 1 < years.size() ? years[i + 1].start : kEndOfListedYears;
    sys_days day = years[i].start;
    int dayOfYear = 0;
    for (int month = 1; month <= 12; ++month) {
      const int length = years[i].monthLengths[static_cast<std::size_t>(month)];
      const sys_days start = day, end = month < 12 ? start + days(length) : next;
      for (int number = 1; number <= length; ++number, day += days(1)) {
        const HDate h = Hijri(number, month, years[i].year);
        SCOPED_TRACE(Text(h));
        ASSERT_EQ(Text(THCalendar::HtoG(h)), Text(ToDate(day)));
        if (day == next) continue;  // 30/12/1421 is 1/1/1422
        const Date date = ToDate(day);
        unsigned short told = 0;
        ASSERT_EQ(Text(THCalendar::GtoH(date, &told)), Text(h));
        ASSERT_EQ(told, length);
        ASSERT_EQ(calendar.GetDayOfYear(date), ++dayOfYear);
        ++count;
      }
      const Date middle = ToDate(start + days(14));
      ASSERT_EQ(Text(calendar.StartOfMonth(middle)), Text(ToDate(start)));
      ASSERT_EQ(Text(calendar.EndOfMonth(middle)), Text(ToDate(end - days(1))));
      ASSERT_EQ(Text(calendar.StartOfYear(middle)), Text(ToDate(years[i].start)));
      ASSERT_EQ(Text(calendar.EndOfYear(middle)), Text(ToDate(next - days(1))));
      ASSERT_EQ(calendar.GetDaysInMonth(years[i].year, month), length);
    }
    ASSERT_EQ(calendar.GetDaysInYear(years[i].year), (day - years[i].start).count());
  }
  EXPECT_EQ(count, 68747);
}

TEST_F(HijriCorrectionTest, EveryCorrectionActsAloneAndTogether) {
  for (const int year : {1421, 1445})
    for (std::size_t month = 1; month <= 12; ++month)
      for (const int shift : {-2, -1, 1, 2, 0}) {
        SCOPED_TRACE(std::to_string(month) + "/" + std::to_string(year) + " by " + std::to_string(shift));
        std::array<int, 14> shifts{};
        shifts[month] = shift;
        ASSERT_NO_FATAL_FAILURE(Hold(year, shifts));
      }
  const struct {
    const char* name;
    std::array<int, 14> shifts;
  } rows[] = {
      {"neighbours against each other", {0, 0, 0, 0, 1, -1, 2, -2}},
      {"every month", {0, -1, 1, 1, -2, 2, 1, -1, -1, 2, 2, -2, 1}},
      {"months that vanish", {0, 0, 0, 40, 0, 0, -70, 0, 0, 5, -90, 31, 0}},
      {"a year cut short at both ends", {0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, -60}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    ASSERT_NO_FATAL_FAILURE(Hold(1446, row.shifts));
  }
}

TEST_F(HijriCorrectionTest, ACorrectionLengthensTheMonthBefore) {
  const THCalendar calendar;
  // 2/1446 has 30 days from 5 August 2024 on; the correction adds 4 September to them.
  THCalendar::SetHijriDateShift(3, 1446, 1);
  const Date inside(20, 8, 2024);
  EXPECT_EQ(calendar.GetDaysInMonth(1446, 2), 31);
  EXPECT_EQ(calendar.GetDaysInMonth(inside), 31);
  EXPECT_EQ(Text(calendar.EndOfMonth(inside)), "4/9/2024");
  EXPECT_EQ(calendar.GetDaysInYear(1446), 354);

  // Kept: the numbers of a day are the table's, so the start of its month may lie behind it.
  EXPECT_EQ(Text(THCalendar::GtoH(Date(4, 9, 2024))), "1/3/1446");
  EXPECT_EQ(Text(calendar.StartOfMonth(Date(4, 9, 2024))), "5/9/2024");
}

TEST_F(HijriCorrectionTest, APositiveCorrectionOfMuharramLeavesTheLastDaysWithoutADate) {
  THCalendar::SetHijriDateShift(1, 1445, 2);
  EXPECT_EQ(Text(THCalendar::GtoH(Date(4, 7, 2024))), "28/12/1445");
  EXPECT_EQ(RaisedBy([&] { THCalendar::GtoH(Date(5, 7, 2024)); }), kNoSuchMonth);
}

TEST_F(HijriCorrectionTest, YearsBehindTheTableHaveTheMonthsOf1306AndCorrectionsOfTheirOwn) {
  const sys_days start1500 = std::chrono::year(2076) / 11 / 27, start1517 = std::chrono::year(2093) / 5 / 26;
  const struct {
    int year, shiftOfMonth5;
    sys_days start;
  } rows[] = {{1500, 0, start1500}, {1500, 3, start1500}, {1517, 0, start1517}};
  for (const auto& row : rows) {
    if (row.shiftOfMonth5 != 0) THCalendar::SetHijriDateShift(5, row.year, row.shiftOfMonth5);
    sys_days day = row.start + days(6);
    for (int month = 1; month <= 12; ++month) {
      const int shift = month == 5 ? row.shiftOfMonth5 : 0;
      EXPECT_EQ(Text(THCalendar::HtoG(Hijri(7, month, row.year))), Text(ToDate(day + days(shift))));
      day += days(ListedHijriYears()[0].monthLengths[static_cast<std::size_t>(month)]);
    }
  }
}

TEST_F(HijriCorrectionTest, ATabularDayIsMovedByTheCorrectionOfItsMonth) {
  THCalendar::SetHijriDateShift(9, 1445, 2);
  THCalendar::SetHijriDateShift(10, 1445, 1);
  EXPECT_EQ(Steps::CalcDaysInHijriMonth(Hijri(1, 9, 1445)), 30);  // as listed, without corrections
  Date day(20, 3, 2024);
  unsigned short daysInMonth = 30;
  Steps::FixHijriDate(day, &daysInMonth, 1);
  EXPECT_EQ(Text(day), "18/3/2024");
  EXPECT_EQ(daysInMonth, 29);
  Steps::FixHijriDate(day, nullptr, -1);
  EXPECT_EQ(Text(day), "20/3/2024");
}

TEST_F(HijriCorrectionTest, CorrectionsOfAnySizeRaiseAndNeverWrap) {
  constexpr int kLeast = std::numeric_limits<int>::min();
  THCalendar::SetHijriDateShift(2, 1445, kLeast);  // all days of the year are of month 2
  EXPECT_EQ(RaisedBy([] { THCalendar().EndOfMonth(Date(20, 7, 2023)); }), kNoSuchGregorianDay);
  EXPECT_EQ(RaisedBy([] { THCalendar::HtoG(Hijri(1, 2, 1445)); }), kNoSuchGregorianDay);
  THCalendar::SetHijriDateShift(1, 1445, kLeast);
  Date day(20, 7, 2023);
  EXPECT_EQ(RaisedBy([&] { Steps::FixHijriDate(day, nullptr, 1); }), L"year > 0");
}

TEST_F(HijriCorrectionTest, ZeroRemovesACorrectionInsideAndOutsideTheTable) {
  for (const int year : {1445, 1200, 1500, -3})
    for (const int shift : {1, 2, 0}) {
      SCOPED_TRACE(std::to_string(year) + " by " + std::to_string(shift));
      THCalendar::SetHijriDateShift(9, year, shift);
      if (shift == 1) THCalendar::SetHijriDateShift(8, year, -2);
      EXPECT_EQ(THCalendar::GetHijriDateShift(9, year), shift);
      EXPECT_EQ(THCalendar::GetHijriDateShift(8, year), -2);
    }
  EXPECT_EQ(HijriShiftList().GetCount(), 4);
  for (const int count : {5, 4}) {  // Kept: a 0 is entered where there is nothing to remove
    THCalendar::SetHijriDateShift(9, 1445, 0);
    EXPECT_EQ(HijriShiftList().GetCount(), count);
  }
  for (const int month : {0, 13, -1}) {
    EXPECT_EQ(THCalendar::GetHijriDateShift(month, 1445), 0);
    EXPECT_EQ(RaisedBy([&] { THCalendar::SetHijriDateShift(month, 1445, 1); }),
              L"( hmonth > 0 ) && ( hmonth < 13 )");
  }
}

TEST(HijriCalendarTest, OutsideTheTableConversionsSayWhatIsWrong) {
  constexpr wchar_t kNoOleDay[] = L"SystemTimeToVariantTime(&sd, &OleDate) != 0";
  constexpr wchar_t kBeforeHijri[] =
      L"VarUdateFromDate( tempdt, VAR_DATEVALUEONLY | VAR_CALENDAR_HIJRI, &dt ) == S_OK";
  constexpr wchar_t kBehindOle[] =
      L"VarDateFromUdate( &dt, VAR_DATEVALUEONLY | VAR_CALENDAR_HIJRI, &date ) == S_OK";
  const struct {
    const wchar_t* raised;
    std::vector<Date> days;
  } gregorian[] = {
      {L"", {{7, 9, 1888}, {26, 11, 2076}}},
      {kNoSuchDay, {{6, 9, 1888}, {5, 9, 1888}, {3, 4, 1709}}},  // the last 65536 days before the table
      {kNoSuchMonth, {{27, 11, 2076}, {1, 1, 2177}, {31, 12, 9999}}},
      {kNoOleDay, {{1, 1, 10000}, {31, 12, 99}}},
      {kBeforeHijri, {{17, 7, 622}}},
  };
  for (const auto& row : gregorian)
    for (const Date& day : row.days) {
      SCOPED_TRACE(Text(day));
      EXPECT_EQ(RaisedBy([&] { THCalendar::GtoH(day); }), row.raised);
      EXPECT_EQ(THCalendar::HasHijriDate(day), *row.raised == 0);
    }
  // The eve of the table counts as day 0, which becomes the first.
  EXPECT_EQ(Text(Steps::FixedGregorianToHijri(Date(6, 9, 1888))), "1/1/1304");
  const struct {
    int year;
    const wchar_t* raised;
    const char* start;  // of the year, when it has one
  } years[] = {
      {1, kBeforeCount, ""},    {99, kBeforeCount, ""},   {1305, kBeforeCount, ""}, {1500, L"", "27/11/2076"},
      {1889, L"", "28/4/2454"}, {9666, L"", "1/10/9999"}, {9999, kBehindOle, ""},   {65535, kBehindOle, ""},
  };
  for (const auto& row : years) {
    SCOPED_TRACE(row.year);
    std::string start;
    EXPECT_EQ(RaisedBy([&] { start = Text(THCalendar::HtoG(Hijri(1, 1, row.year))); }), row.raised);
    EXPECT_EQ(start, row.start);
  }
}

TEST(HijriCalendarTest, TheTabularRuleRepeatsEveryThirtyYears) {
  const std::set<int> leapYears = {2, 5, 7, 10, 13, 15, 18, 21, 24, 26, 29};
  sys_days gregorian(days(1948439 - 2440588));  // 1/1/1 as a Julian day, less that of 1 January 1970
  for (int year = 1; year <= 61; ++year)
    for (int month = 1; month <= 12; ++month) {
      const bool isLong = month % 2 == 1 || (month == 12 && leapYears.count((year - 1) % 30 + 1));
      for (int day = 1; day <= 29 + isLong; ++day, gregorian += days(1)) {
        ASSERT_EQ(Text(Steps::BaseGregorianToHijri(ToDate(gregorian))), Text(Hijri(day, month, year)));
        ASSERT_EQ(Text(Steps::BaseHijriToGregorian(Hijri(day, month, year))), Text(ToDate(gregorian)));
      }
    }
}

TEST(HijriCalendarTest, ArithmeticCountsHijriMonths) {
  constexpr int kMin = std::numeric_limits<int>::min(), kMax = std::numeric_limits<int>::max();
  const THCalendar calendar;
  const struct {
    int day, month, year, months;
    const char* to;
    const wchar_t* raised;
  } rows[] = {
      {10, 1, 1445, 0, "10/1/1445", L""},     {10, 1, 1445, 3, "10/4/1445", L""},
      {10, 1, 1445, 11, "10/12/1445", L""},   {10, 12, 1445, 1, "10/1/1446", L""},
      {10, 1, 1445, -1, "10/12/1444", L""},   {30, 2, 1446, 3, "29/5/1446", L""},
      {30, 2, 1446, 1, "30/3/1446", L""},     {1, 1, 1306, 2327, "1/12/1499", L""},
      {1, 1, 1306, 2328, "", kNoSuchMonth},   {1, 1, 1306, -1, "", kBeforeCount},
      {12, 1, 1445, -17340, "", L"year > 0"}, {12, 1, 1445, -17341, "", L"year > 0"},
      {12, 1, 1445, kMin, "", kNoSuchMonth},  {12, 1, 1445, kMax, "", L"year > 0"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.months);
    std::string to;
    const Date from = THCalendar::HtoG(Hijri(row.day, row.month, row.year));
    EXPECT_EQ(RaisedBy([&] { to = Text(THCalendar::GtoH(calendar.AddMonths(from, row.months))); }),
              row.raised);
    EXPECT_EQ(to, row.to);
  }
  EXPECT_EQ(Text(THCalendar::GtoH(calendar.AddYears(THCalendar::HtoG(Hijri(30, 2, 1446)), 1))), "29/2/1447");
}

TEST(HijriCalendarTest, AMonthOfTheClockThatIsNoneCountsFromTheStartOfItsYear) {
  for (const int number : {1419, 1420, 1446}) {  // 1420 starts a day later than the tabular year
    const WORD year = static_cast<WORD>(number);
    SCOPED_TRACE(year);
    FixedClock clock({year, 0, 0, 3, 0, 0, 0, 0});
    EXPECT_EQ(THCalendar::HtoG(HDate()), THCalendar::HtoG(Hijri(3, 1, year)));
    clock.Set({year, 13, 0, 3, 0, 0, 0, 0});
    EXPECT_EQ(THCalendar::HtoG(HDate()), THCalendar::HtoG(Hijri(3, 1, year + 1)));
    clock.Set({year, 14, 0, 3, 0, 0, 0, 0});
    EXPECT_EQ(RaisedBy([] { THCalendar::HtoG(HDate()); }), kNoSuchMonth);
  }
}

TEST(HijriCalendarTest, NamesAndTextsAreHijriButTheReaderWithAResultFollowsTheApplication) {
  const SysFormatGuard guard;
  SysFormat.ResLangId = 1033;
  const THCalendar calendar;
  const Date date(7, 3, 2024);  // 26/8/1445, a Thursday
  EXPECT_TRUE(calendar.IsLeapYear(date) && !calendar.IsLeapYear(1445)) << "Kept: the Gregorian rule";
  EXPECT_EQ(calendar.GetMonthName(date), L"Shaban");
  EXPECT_EQ(calendar.GetMonthName(1), L"Muharram");
  EXPECT_EQ(calendar.GetDayOfWeekName(date), L"Thr");
  EXPECT_EQ(calendar.ToString(date), L"26-8-1445");
  EXPECT_EQ(calendar.ToAsc(date, 3), L"Shaban 1445");
  EXPECT_EQ(calendar.GetDaysInYear(date), 355);
  for (const int month : {0, 13}) {
    EXPECT_EQ(calendar.GetMonthName(month), L"");
    EXPECT_EQ(RaisedBy([&] { calendar.GetDaysInMonth(1445, month); }), kNoSuchMonth);
  }

  Date read(1, 1, 2000);
  EXPECT_EQ(calendar.FromString(L"7-3-24", read), 1);
  EXPECT_EQ(Text(read), "7/3/2024");  // Kept: not 7/3/1424
  SysFormat.UseHijri = true;
  EXPECT_EQ(calendar.FromString(L"7-3-24", read), 1);
  EXPECT_EQ(Text(read), "8/5/2003");
}

TEST(HijriCalendarTest, SetDateTakesHijriNumbersAndRefusesWhatIsNone) {
  const THCalendar calendar;
  const struct {
    int day, month, year;
    const wchar_t* raised;
  } rows[] = {
      {30, 12, 1445, L""},          {31, 1, 1445, kNoSuchDay},         {0, 0, 0, kNoSuchDay},
      {1, 13, 1445, kNoSuchMonth},  {1, 65537, 1445, kNoSuchMonth},    {1, 1, 0, L"year > 0"},
      {65537, 1, 1445, kNoSuchDay}, {1, 1, 65536 + 1445, L"year > 0"}, {1, 1, -1445, L"year > 0"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::to_string(row.day) + "/" + std::to_string(row.month) + "/" + std::to_string(row.year));
    EXPECT_EQ(RaisedBy([&] { calendar.SetDate(row.day, row.month, row.year); }), row.raised);
  }
  EXPECT_EQ(Text(calendar.SetDate(1, 9, 1445)), "11/3/2024");
  Date beyond(1, 2, 2024);
  beyond.SetDay(31);  // 2 March 2024
  EXPECT_EQ(Text(THCalendar::GtoH(beyond)), "21/8/1445");
}
