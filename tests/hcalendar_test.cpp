#include "hcalendar.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>

#include "format.h"
#include "hijri_shifts.h"
#include "support/fixed_clock.h"
#include "support/hijri_years.h"
#include "support/plain_hijri.h"
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

std::string Text(const PlainHijriDate& d) {
  return std::to_string(d.day) + "/" + std::to_string(d.month) + "/" + std::to_string(d.year);
}

// Removes the corrections that a test made.
class HijriCorrectionTest : public testing::Test {
 protected:
  void Set(int month, int year, int shift) {
    THCalendar::SetHijriDateShift(month, year, shift);
    m_Plain.shifts[{year, month}] = shift;
  }

  void TearDown() override {
    for (int left = HijriShiftList().GetCount(); left > 0; --left) {
      const THijriDateShift entry = HijriShiftList()[0];
      THCalendar::SetHijriDateShift(entry.hmonth, entry.hyear, 0);
    }
  }

  // Holds every day of the year, and of the months around it, against the plain calendar, and every date
  // back.
  void CompareYear(int year) {
    const sys_days first = m_Plain.DayOf({1, 1, year}) - days(35);
    for (sys_days day = first; day < first + days(425); day += days(1)) CompareDay(day);
    for (int month = 1; month <= 12; ++month) {
      ASSERT_EQ(Steps::_GetDaysOfMonth(year, month), m_Plain.CorrectedLength(year, month)) << month;
      for (int day = 1; day <= 30; ++day)
        ASSERT_EQ(Text(THCalendar::HtoG(Hijri(day, month, year))),
                  Text(ToDate(m_Plain.DayOf({day, month, year}))));
    }
  }

  void CompareDay(sys_days day) {
    const Date date = ToDate(day);
    SCOPED_TRACE(Text(date));
    const auto told = m_Plain.Tell(day);
    if (!told) {
      ASSERT_EQ(RaisedBy([&] { THCalendar::GtoH(date); }), kNoSuchMonth);
      return;
    }
    unsigned short daysInMonth = 0;
    ASSERT_EQ(Text(THCalendar::GtoH(date, &daysInMonth)), Text(told->date));
    ASSERT_EQ(daysInMonth, told->daysInMonth);
    const auto corrected = m_Plain.Corrected(day);
    if (corrected->day > 30) {
      ASSERT_EQ(RaisedBy([&] { Steps::FixedGregorianToHijri(date); }), kNoSuchDay);
    } else {
      ASSERT_EQ(Text(Steps::FixedGregorianToHijri(date)), Text(*corrected));
    }
  }

  PlainHijri m_Plain;
};

}  // namespace

TEST(HijriCalendarTest, EveryGregorianDayOfTheTableHasItsListedDateAndComesBack) {
  const auto& years = ListedHijriYears();
  int count = 0;
  for (std::size_t i = 0; i < years.size(); ++i) {
    const sys_days end = i + 1 < years.size() ? years[i + 1].start : kEndOfListedYears;
    int day = 1, month = 1;
    for (sys_days gregorian = years[i].start; gregorian < end; gregorian += days(1), ++count) {
      const HDate expected = Hijri(day, month, years[i].year);
      unsigned short length = 0;
      const HDate h = THCalendar::GtoH(ToDate(gregorian), &length);
      ASSERT_EQ(Text(h), Text(expected));
      ASSERT_EQ(length, years[i].monthLengths[static_cast<std::size_t>(month)]) << Text(h);
      ASSERT_EQ(Text(THCalendar::HtoG(h)), Text(ToDate(gregorian)));
      if (++day > length) day = 1, ++month;
    }
  }
  EXPECT_EQ(count, 68747);
}

TEST(HijriCalendarTest, EveryHijriDayOfTheTableComesBackButTheLastOf1421) {
  for (const ListedYear& listed : ListedHijriYears())
    for (int month = 1; month <= 12; ++month)
      for (int day = 1; day <= listed.monthLengths[static_cast<std::size_t>(month)]; ++day) {
        const HDate h = Hijri(day, month, listed.year);
        const bool isFirstOf1422 = listed.year == 1421 && month == 12 && day == 30;
        ASSERT_EQ(Text(THCalendar::GtoH(THCalendar::HtoG(h))), isFirstOf1422 ? "1/1/1422" : Text(h));
      }
}

TEST(HijriCalendarTest, MonthsAndYearsStartAndEndWhereTheListHasThem) {
  const THCalendar calendar;
  const auto& years = ListedHijriYears();
  for (std::size_t i = 0; i < years.size(); ++i) {
    sys_days start = years[i].start;
    const sys_days next = i + 1 < years.size() ? years[i + 1].start : kEndOfListedYears;
    int yearLength = 0;
    for (int month = 1; month <= 12; ++month) {
      SCOPED_TRACE(std::to_string(month) + "/" + std::to_string(years[i].year));
      const int length = years[i].monthLengths[static_cast<std::size_t>(month)];
      const sys_days end = month < 12 ? start + days(length) : next;
      const Date middle = ToDate(start + days(14));
      ASSERT_EQ(Text(calendar.StartOfMonth(middle)), Text(ToDate(start)));
      ASSERT_EQ(Text(calendar.EndOfMonth(middle)), Text(ToDate(end - days(1))));
      ASSERT_EQ(Text(calendar.StartOfYear(middle)), Text(ToDate(years[i].start)));
      ASSERT_EQ(Text(calendar.EndOfYear(middle)), Text(ToDate(next - days(1))));
      ASSERT_EQ(calendar.GetDaysInMonth(years[i].year, month), length);
      ASSERT_EQ(calendar.GetDayOfYear(middle), yearLength + 15);
      yearLength += length;
      start = end;
    }
    ASSERT_EQ(calendar.GetDaysInYear(years[i].year), yearLength);
    ASSERT_TRUE(yearLength == 354 || yearLength == 355) << years[i].year;
  }
}

TEST_F(HijriCorrectionTest, EveryCorrectionActsAsThePlainCalendarSays) {
  for (const int year : {1421, 1445})
    for (int month = 1; month <= 12; ++month)
      for (const int shift : {-2, -1, 1, 2, 0}) {
        SCOPED_TRACE(std::to_string(month) + "/" + std::to_string(year) + " by " + std::to_string(shift));
        Set(month, year, shift);
        ASSERT_NO_FATAL_FAILURE(CompareYear(year));
      }
}

TEST_F(HijriCorrectionTest, CorrectionsActTogether) {
  const struct {
    const char* name;
    int shifts[13];
  } rows[] = {
      {"neighbours against each other", {0, 0, 0, 0, 1, -1, 2, -2, 0, 0, 0, 0, 0}},
      {"every month", {0, -1, 1, 1, -2, 2, 1, -1, -1, 2, 2, -2, 1}},
      {"months that vanish", {0, 0, 0, 40, 0, 0, -70, 0, 0, 5, -90, 31, 0}},
      {"a year cut short at both ends", {0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, -60}},
      {"none again", {}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    for (int month = 1; month <= 12; ++month) Set(month, 1446, row.shifts[month]);
    ASSERT_NO_FATAL_FAILURE(CompareYear(1446));
  }
}

TEST_F(HijriCorrectionTest, ACorrectionLengthensTheMonthBefore) {
  const THCalendar calendar;
  Set(9, 1445, 1);
  EXPECT_EQ(Steps::_GetDaysOfMonth(1445, 8), 30);
  EXPECT_EQ(Steps::_GetDaysOfMonth(1445, 9), 29);

  // 2/1446 has 30 days from 5 August 2024 on; the correction adds 4 September to them.
  Set(3, 1446, 1);
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
  Set(1, 1445, 2);
  EXPECT_EQ(Text(THCalendar::GtoH(Date(4, 7, 2024))), "28/12/1445");
  EXPECT_EQ(RaisedBy([&] { THCalendar::GtoH(Date(5, 7, 2024)); }), kNoSuchMonth);
  EXPECT_EQ(RaisedBy([&] { THCalendar::GtoH(Date(6, 7, 2024)); }), kNoSuchMonth);
  EXPECT_EQ(Text(THCalendar::GtoH(Date(7, 7, 2024))), "1/1/1446");
}

TEST_F(HijriCorrectionTest, YearsBehindTheTableHaveTheMonthsOf1306AndCorrectionsOfTheirOwn) {
  for (const int shift : {0, 3}) {
    if (shift != 0) Set(5, 1500, shift);
    for (const int year : {1500, 1517})
      for (int month = 1; month <= 12; ++month)
        EXPECT_EQ(Text(THCalendar::HtoG(Hijri(7, month, year))),
                  Text(ToDate(m_Plain.DayOf({7, month, year}))));
  }
}

TEST_F(HijriCorrectionTest, ATabularDayIsMovedByTheCorrectionOfItsMonth) {
  Set(9, 1445, 2);
  Set(10, 1445, 1);
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
  Set(2, 1445, kLeast);  // all days of the year are of month 2
  EXPECT_EQ(RaisedBy([] { THCalendar().EndOfMonth(Date(20, 7, 2023)); }), kNoSuchGregorianDay);
  EXPECT_EQ(RaisedBy([] { THCalendar::HtoG(Hijri(1, 2, 1445)); }), kNoSuchGregorianDay);
  Set(1, 1445, kLeast);
  EXPECT_EQ(RaisedBy([] {
              Date day(20, 7, 2023);
              Steps::FixHijriDate(day, nullptr, 1);
            }),
            L"year > 0");
}

TEST_F(HijriCorrectionTest, ZeroRemovesACorrectionInsideAndOutsideTheTable) {
  for (const int year : {1445, 1200, 1500, -3}) {
    SCOPED_TRACE(year);
    EXPECT_EQ(THCalendar::GetHijriDateShift(9, year), 0);
    Set(9, year, 1);
    Set(8, year, -2);
    EXPECT_EQ(THCalendar::GetHijriDateShift(9, year), 1);
    Set(9, year, 2);
    EXPECT_EQ(THCalendar::GetHijriDateShift(9, year), 2);
    Set(9, year, 0);
    EXPECT_EQ(THCalendar::GetHijriDateShift(9, year), 0);
    EXPECT_EQ(THCalendar::GetHijriDateShift(8, year), -2);
  }
  EXPECT_EQ(HijriShiftList().GetCount(), 4);
  THCalendar::SetHijriDateShift(9, 1445, 0);
  EXPECT_EQ(HijriShiftList().GetCount(), 5);  // Kept: a 0 is entered where there is nothing to remove
  THCalendar::SetHijriDateShift(9, 1445, 0);
  EXPECT_EQ(HijriShiftList().GetCount(), 4);
  for (const int month : {0, 13, -1}) {
    EXPECT_EQ(THCalendar::GetHijriDateShift(month, 1445), 0);
    EXPECT_EQ(RaisedBy([&] { THCalendar::SetHijriDateShift(month, 1445, 1); }),
              L"( hmonth > 0 ) && ( hmonth < 13 )");
  }
}

TEST(HijriCalendarTest, OutsideTheTableConversionsSayWhatIsWrong) {
  const struct {
    const char* name;
    Date day;
    const wchar_t* raised;
  } gregorian[] = {
      {"first day", Date(7, 9, 1888), L""},
      {"last day", Date(26, 11, 2076), L""},
      {"the day before", Date(6, 9, 1888), kNoSuchDay},
      {"two days before", Date(5, 9, 1888), kNoSuchDay},
      {"65536 days before", Date(3, 4, 1709), kNoSuchDay},
      {"the day behind", Date(27, 11, 2076), kNoSuchMonth},
      {"a century behind", Date(1, 1, 2177), kNoSuchMonth},
      {"the last OLE day", Date(31, 12, 9999), kNoSuchMonth},
      {"beyond OLE days", Date(1, 1, 10000), L"SystemTimeToVariantTime(&sd, &OleDate) != 0"},
      {"before OLE days", Date(31, 12, 99), L"SystemTimeToVariantTime(&sd, &OleDate) != 0"},
      {"before the Hijri years", Date(17, 7, 622),
       L"VarUdateFromDate( tempdt, VAR_DATEVALUEONLY | VAR_CALENDAR_HIJRI, &dt ) == S_OK"},
  };
  for (const auto& row : gregorian) {
    SCOPED_TRACE(row.name);
    const std::wstring raised = RaisedBy([&] { THCalendar::GtoH(row.day); });
    EXPECT_EQ(raised, row.raised);
    EXPECT_EQ(THCalendar::HasHijriDate(row.day), raised.empty());
  }
  // The eve of the table counts as day 0, which becomes the first.
  EXPECT_EQ(Text(Steps::FixedGregorianToHijri(Date(6, 9, 1888))), "1/1/1304");
  const struct {
    int year;
    const wchar_t* raised;
    const char* start;  // of the year, when it has one
  } years[] = {
      {1, kBeforeCount, ""},
      {99, kBeforeCount, ""},
      {100, kBeforeCount, ""},
      {1305, kBeforeCount, ""},
      {1306, L"", "7/9/1888"},
      {1499, L"", "8/12/2075"},
      {1500, L"", "27/11/2076"},  // with the months of 1306
      {1889, L"", "28/4/2454"},
      {9666, L"", "1/10/9999"},
      {9999, L"VarDateFromUdate( &dt, VAR_DATEVALUEONLY | VAR_CALENDAR_HIJRI, &date ) == S_OK", ""},
      {65535, L"VarDateFromUdate( &dt, VAR_DATEVALUEONLY | VAR_CALENDAR_HIJRI, &date ) == S_OK", ""},
  };
  for (const auto& row : years) {
    SCOPED_TRACE(row.year);
    std::string start;
    EXPECT_EQ(RaisedBy([&] { start = Text(THCalendar::HtoG(Hijri(1, 1, row.year))); }), row.raised);
    EXPECT_EQ(start, row.start);
  }
}

TEST(HijriCalendarTest, ADayBeyondTheEndOfItsMonthCountsOn) {
  Date d(1, 2, 2024);
  d.SetDay(31);  // 2 March 2024
  EXPECT_EQ(Text(THCalendar::GtoH(d)), "21/8/1445");
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
  const THCalendar calendar;
  const auto day = [](int d, int m, int y) { return THCalendar::HtoG(Hijri(d, m, y)); };
  const struct {
    const char* name;
    HDate from;
    int months;
    const char* to;
    const wchar_t* raised;
  } rows[] = {
      {"within a year", Hijri(10, 1, 1445), 3, "10/4/1445", L""},
      {"none", Hijri(10, 1, 1445), 0, "10/1/1445", L""},
      {"to month 12", Hijri(10, 1, 1445), 11, "10/12/1445", L""},
      {"over the year", Hijri(10, 12, 1445), 1, "10/1/1446", L""},
      {"back over the year", Hijri(10, 1, 1445), -1, "10/12/1444", L""},
      {"cut to 29 days", Hijri(30, 2, 1446), 3, "29/5/1446", L""},
      {"30 days stay", Hijri(30, 2, 1446), 1, "30/3/1446", L""},
      {"to the last month", Hijri(1, 1, 1306), 193 * 12 + 11, "1/12/1499", L""},
      {"beyond the table", Hijri(1, 1, 1306), 194 * 12, "", kNoSuchMonth},
      {"before the table", Hijri(1, 1, 1306), -1, "", kBeforeCount},
      {"to year 0", Hijri(12, 1, 1445), -1445 * 12, "", L"year > 0"},
      {"below year 0", Hijri(12, 1, 1445), -1445 * 12 - 1, "", L"year > 0"},
      {"far below", Hijri(12, 1, 1445), -2147483647 - 1, "", kNoSuchMonth},
      {"far beyond", Hijri(12, 1, 1445), 2147483647, "", L"year > 0"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    std::string to;
    const Date from = THCalendar::HtoG(row.from);
    EXPECT_EQ(RaisedBy([&] { to = Text(THCalendar::GtoH(calendar.AddMonths(from, row.months))); }),
              row.raised);
    EXPECT_EQ(to, row.to);
  }
  EXPECT_EQ(Text(calendar.AddYears(day(30, 2, 1446), 1)), Text(day(29, 2, 1447)));
  EXPECT_EQ(Text(calendar.NextMonth(day(1, 9, 1445))), Text(day(1, 10, 1445)));
  EXPECT_EQ(Text(calendar.PrevYear(day(1, 9, 1445))), Text(day(1, 9, 1444)));
}

TEST(HijriCalendarTest, TheLeapTestStaysGregorian) {
  const THCalendar calendar;
  EXPECT_TRUE(calendar.IsLeapYear(Date(11, 3, 2024)));
  EXPECT_FALSE(calendar.IsLeapYear(1445));  // a Hijri year of 355 days
}

TEST(HijriCalendarTest, AMonthOfTheClockThatIsNoneCountsFromTheStartOfItsYear) {
  for (const int year : {1419, 1420, 1446}) {  // 1420 starts a day later than the tabular year
    SCOPED_TRACE(year);
    const auto number = static_cast<WORD>(year);
    FixedClock clock({number, 0, 0, 3, 0, 0, 0, 0});
    EXPECT_EQ(Text(THCalendar::HtoG(HDate())), Text(THCalendar::HtoG(Hijri(3, 1, year))));
    clock.Set({number, 13, 0, 3, 0, 0, 0, 0});
    EXPECT_EQ(Text(THCalendar::HtoG(HDate())), Text(THCalendar::HtoG(Hijri(3, 1, year + 1))));
    clock.Set({number, 14, 0, 3, 0, 0, 0, 0});
    EXPECT_EQ(RaisedBy([] { THCalendar::HtoG(HDate()); }), kNoSuchMonth);
  }
}

TEST(HijriCalendarTest, NamesAndTextsAreHijriButTheReaderWithAResultFollowsTheApplication) {
  const SysFormatGuard guard;
  SysFormat.ResLangId = 1033;
  const THCalendar calendar;
  const Date date(7, 3, 2024);  // 26/8/1445, a Thursday
  EXPECT_EQ(calendar.GetMonthName(date), L"Shaban");
  EXPECT_EQ(calendar.GetMonthName(1), L"Muharram");
  for (const int month : {0, 13}) EXPECT_EQ(calendar.GetMonthName(month), L"");
  EXPECT_EQ(calendar.GetDayOfWeekName(date), L"Thr");
  EXPECT_EQ(calendar.ToString(date), L"26-8-1445");
  EXPECT_EQ(calendar.ToAsc(date, 3), L"Shaban 1445");
  EXPECT_EQ(calendar.GetDaysInYear(date), 355);
  for (const int month : {0, 13})
    EXPECT_EQ(RaisedBy([&] { calendar.GetDaysInMonth(1445, month); }), kNoSuchMonth);

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
}
