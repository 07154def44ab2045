#include "date_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "calendar.h"
#include "hcalendar.h"
#include "support/fixed_clock.h"
#include "support/golden.h"
#include "support/hijri_years.h"
#include "support/raises.h"

using namespace Qel::Sys::DateTime;
using namespace Qel::Sys::Text::Conversion;
using Qel::Sys::Settings::SysFormat;
using enum DateReading::Rule;
using std::chrono::days;
using std::chrono::sys_days;

namespace {

constexpr bool kGreg = false, kHijri = true;
constexpr auto kDmy = Format::DF_DMY, kDdmmyy = Format::DF_DDMMYYYY, kYmd = Format::DF_YMD,
               kYyyymd = Format::DF_YYYYMMDD, kUnknown = static_cast<Format::DATE_FORMAT>(4);

// Today is 15 October 2024, which is 12/4/1446; SysFormat comes back as it was.
class DateTextTest : public testing::Test {
 protected:
  ~DateTextTest() override { SysFormat = m_Saved; }

  static void Use(Format::DATE_FORMAT format, bool hijri) {
    SysFormat.DateFmt = format;
    SysFormat.UseHijri = hijri;
    SysFormat.ResLangId = 1033;
  }

  FixedClock m_Clock{SYSTEMTIME{2024, 10, 2, 15, 10, 20, 30, 400}};

 private:
  Format m_Saved = SysFormat;
};

std::wstring Text(const Date& d) {
  return std::wstring(d.ToString());
}

// What a text is read as: the day, or "refused".
std::wstring Read(const wchar_t* text) {
  Date out(5, 5, 1955);
  if (StrToDate(text, out)) return Text(out);
  EXPECT_EQ(out, Date(5, 5, 1955)) << "changed on failure";
  return L"refused";
}

}  // namespace

TEST_F(DateTextTest, NumbersAreFoundAsTheRuntimeFindsThem) {
  Use(kDmy, kGreg);
  for (const GoldenRow& row : GoldenTable("date_scan.tsv")) {
    SCOPED_TRACE(row.where);
    const DateReading reading = ReadDateText(row.Wide("input")->c_str());
    std::string answer = std::to_string(reading.fields);
    for (int i = 0; i < reading.fields; ++i) {
      answer += i == 0 ? ' ' : ',';
      answer += std::to_string(reading.numbers[i]);
    }
    ExpectAnswer(row, answer);
  }
}

TEST_F(DateTextTest, AReadingTellsWhereEachNumberStandsAndWhatWasNotRead) {
  const struct {
    const wchar_t* text;
    int fields, stopped, first, second, third;
  } rows[] = {
      {L"7-3-24", 3, -1, 0, 2, 4},  {L"7-3-24 \t", 3, -1, 0, 2, 4}, {L" 07- +3-\t-24", 3, -1, 1, 5, 9},
      {L"7-3-24 x", 3, 7, 0, 2, 4}, {L"7-3-24-5", 3, 6, 0, 2, 4},   {L"7/3/24", 1, 1, 0, -1, -1},
      {L"7-x-24", 1, 2, 0, -1, -1}, {L"7 -3", 1, 2, 0, -1, -1},     {L"7-", 1, 1, 0, -1, -1},
      {L"7-3-", 2, 3, 0, 2, -1},    {L"7-3- ", 2, 3, 0, 2, -1},     {L"7-3-+", 2, 4, 0, 2, -1},
      {L"  abc", 0, 2, -1, -1, -1}, {L"-", 0, 0, -1, -1, -1},       {L" ", 0, -1, -1, -1, -1},
      {L"", 0, -1, -1, -1, -1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    const DateReading reading = ReadDateText(row.text);
    EXPECT_EQ(reading.fields, row.fields);
    EXPECT_EQ(reading.stopped, row.stopped);
    EXPECT_THAT(reading.starts, testing::ElementsAre(row.first, row.second, row.third));
  }
}

// Today is 15 October 2024, 12/4/1446: what a text does not give is today's. An empty text is the day that stands
// for none, and another format than the four reads year-first.
// Kept: day 30 of a Hijri month with 29 days is the first of the next, as in 30/1/1446. The second order starts
// from what the first one left: "31" in a month of 30 days is refused.
TEST_F(DateTextTest, ATypedTextGivesItsDay) {
  const struct {
    const wchar_t* text;
    Format::DATE_FORMAT format;
    bool hijri;
    const wchar_t* day;
  } rows[] = {
      {L"7-3-24", kDmy, kGreg, L"2024-03-07"},    {L"7-3-24", kDdmmyy, kHijri, L"2003-05-08"},
      {L"٧-٣-١٤٤٦", kDmy, kHijri, L"2024-09-10"}, {L"2024-03-07", kDmy, kGreg, L"2024-03-07"},
      {L"07-03-24", kYmd, kGreg, L"2007-03-24"},  {L"24-3-7", kYyyymd, kGreg, L"2024-03-07"},
      {L"7-3-2024", kYmd, kGreg, L"2024-03-07"},  {L"7-3-24", kUnknown, kGreg, L"2007-03-24"},
      {L"0-3-24", kYmd, kGreg, L"2000-03-24"},    {L"29-2-23", kDmy, kGreg, L"2029-02-23"},
      {L"29-2-24", kDmy, kGreg, L"2024-02-29"},   {L"30-1-1446", kDmy, kHijri, L"2024-08-05"},
      {L"31-1-1446", kDmy, kHijri, L"refused"},   {L"", kDmy, kGreg, L"1980-01-01"},
      {nullptr, kDmy, kHijri, L"1980-01-01"},     {L"abc", kDmy, kGreg, L"2024-10-15"},
      {L" ", kDmy, kHijri, L"2024-10-15"},        {L"7/3/24", kDmy, kGreg, L"2024-10-07"},
      {L"7", kDmy, kHijri, L"2024-10-10"},        {L"7-3", kDmy, kGreg, L"2024-03-07"},
      {L"7-3", kYmd, kGreg, L"2007-03-15"},       {L"31-2", kDmy, kGreg, L"refused"},
      {L"45-2", kDmy, kGreg, L"refused"},         {L"1999", kDmy, kGreg, L"refused"},
      {L"1-1-0", kDmy, kGreg, L"2000-01-01"},     {L"31-12-99", kDmy, kGreg, L"2099-12-31"},
      {L"30-12-99", kDmy, kHijri, L"2076-11-27"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text ? row.text : L"null");
    Use(row.format, row.hijri);
    EXPECT_EQ(Read(row.text), row.day);
  }
}

TEST_F(DateTextTest, ARefusedTextSaysWhichRuleBroke) {
  const struct {
    const wchar_t* text;
    bool hijri;
    DateReading::Rule dayFirst, yearFirst;  // the first rule broken in each order
    int lastDay;                            // of the month, for a day refused day-first
  } rows[] = {
      {L"31-2-2026", kGreg, Day, Day, 28},   {L"31-2-2024", kGreg, Day, Day, 29},
      {L"0-2-2026", kGreg, Day, Day, 28},    {L"1-13-2026", kGreg, Month, Month, 0},
      {L"1-0-2026", kGreg, Month, Month, 0}, {L"1-1-100", kGreg, Year, Day, 0},
      {L"1-1-1900", kGreg, Year, Day, 0},    {L"1-1-2100", kGreg, Year, Day, 0},
      {L"1-1-65535", kGreg, Year, Day, 0},   {L"2100-1-1", kGreg, Day, Year, 31},
      {L"31-1-1446", kHijri, Day, Day, 30},  {L"1-13-1446", kHijri, Month, Month, 0},
      {L"1-1-1306", kHijri, Year, Day, 0},   {L"1-1-0", kHijri, Year, Day, 0},
      {L"1-1-1500", kHijri, Year, Day, 0},   {L"1-1-2024", kHijri, Year, Day, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    Use(kDmy, row.hijri);
    EXPECT_EQ(Read(row.text), L"refused");
    const DateReading reading = ReadDateText(row.text);
    EXPECT_FALSE(reading.valid);
    EXPECT_EQ(reading.hijri, row.hijri);
    ASSERT_EQ(reading.attempts, 2);
    EXPECT_EQ(reading.attempt[0].broken, row.dayFirst);
    EXPECT_EQ(reading.attempt[1].broken, row.yearFirst);
    EXPECT_EQ(reading.attempt[0].lastDay, row.lastDay);
  }
}

TEST_F(DateTextTest, AReadingTellsHowItCameToItsDay) {
  Use(kDmy, kGreg);
  const DateReading reading = ReadDateText(L"2024-3-7");
  EXPECT_TRUE(reading.valid);
  EXPECT_EQ(reading.date, Date(7, 3, 2024));
  ASSERT_EQ(reading.attempts, 2);
  EXPECT_EQ(reading.Order(), Format::DF_YYYYMMDD);
  // Day-first the year was 7, completed; the month has no day 2024.
  EXPECT_TRUE(reading.attempt[0].yearCompleted);
  EXPECT_EQ(reading.attempt[0].year, 2007);
  EXPECT_EQ(reading.attempt[0].broken, Day);
  EXPECT_FALSE(reading.attempt[1].yearCompleted);
  EXPECT_EQ(reading.attempt[1].broken, None);
}

TEST_F(DateTextTest, TheClockIsReadOnlyForPartsThatTheTextDoesNotGive) {
  Use(kDmy, kHijri);
  const Date fill(20, 3, 2010);
  Read(L"7-3-24");
  Read(L"31-2-2026");
  Read(L"");
  ReadDateText(L"7", &fill);
  EXPECT_EQ(m_Clock.Readings(), 0);
  Read(L"7-3");
  EXPECT_EQ(m_Clock.Readings(), 1);
}

TEST_F(DateTextTest, EachReaderHasItsOwnFillIn) {
  const Date fill(20, 3, 2010);  // 4/4/1431
  const struct {
    const wchar_t* text;
    wchar_t separator;
    bool hijri;
    const wchar_t *general, *sql;
    bool sqlTaken;
  } rows[] = {
      {L"7/3/24", L'/', kGreg, L"2024-03-07", L"2007-03-24", true},
      {L"7/3/24", 0, kGreg, L"2010-03-07", L"2007-03-20", true},
      {L"2024.3.7", L'.', kGreg, L"2024-03-07", L"2024-03-07", true},
      {L"7 3 24", L' ', kGreg, L"2024-03-07", L"2007-03-24", true},
      {L"7  3 24", L' ', kGreg, L"2010-03-20", L"2010-03-20", false},
      {L"7x3x24", L'x', kHijri, L"2003-05-08", L"2007-03-24", true},
      {L"7", 0, kHijri, L"2010-03-23", L"2007-03-20", true},
      {L"", L'/', kGreg, L"2010-03-20", L"2010-03-20", true},
      {nullptr, L'/', kHijri, L"2010-03-20", L"2010-03-20", true},
      {L"abc", L'/', kGreg, L"2010-03-20", L"2010-03-20", true},
      {L"31-2-2026", 0, kGreg, L"2010-03-20", L"2010-03-20", false},
      {L"30-12-1446", 0, kHijri, L"2025-06-26", L"2010-03-20", false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text ? row.text : L"null");
    Use(kDmy, row.hijri);
    EXPECT_EQ(Text(StrToDateG(row.text, row.separator, fill)), row.general);
    Date out(5, 5, 1955);
    EXPECT_EQ(SQLStrToDate(out, row.text, row.separator, fill), row.sqlTaken);
    EXPECT_EQ(Text(out), row.sql);
  }
}

TEST_F(DateTextTest, HijriReaderAndTodaysDateForWhatIsNone) {
  const struct {
    const wchar_t* text;
    const wchar_t* hijri;
  } rows[] = {
      {L"7-3-24", L"1424-03-07"}, {L"1446-3-7", L"1446-03-07"},  {L"7", L"1446-04-07"},
      {L"", L"1446-04-12"},       {nullptr, L"1446-04-12"},      {L"31-1-1446", L"1446-04-12"},
      {L"abc", L"1446-04-12"},    {L"30-1-1446", L"1446-01-30"},
  };
  for (const bool hijri : {kGreg, kHijri}) {
    Use(kDmy, hijri);
    for (const auto& row : rows) {
      SCOPED_TRACE(row.text ? row.text : L"null");
      EXPECT_EQ(Text(StrToDateH(row.text)), row.hijri);
      EXPECT_EQ(Text(THCalendar().FromString(row.text)), Text(THCalendar::HtoG(StrToDateH(row.text))));
    }
  }
  EXPECT_EQ(Text(StrToDate(L"31-2-2026")), L"2024-10-15");
}

TEST_F(DateTextTest, ValidDateFormatReadsInTheOrderAskedFor) {
  const struct {
    const wchar_t* text;
    int format;
    bool hijri, valid;
    const char* after;  // 9/8/1999 before
  } rows[] = {
      {L"7-3-24", 0, kGreg, true, "7/3/2024"},    {L"7-3-24", 1, kHijri, true, "7/3/1424"},
      {L"24-3-7", 2, kGreg, true, "7/3/2024"},    {L"24-3-7", 3, kGreg, true, "7/3/2024"},
      {L"32-3-7", 1, kGreg, false, "32/3/2007"},  {L"7", 1, kGreg, true, "7/8/1999"},
      {L"7", 3, kGreg, true, "9/8/2007"},         {L"", 1, kGreg, true, "9/8/1999"},
      {nullptr, 1, kGreg, true, "9/8/1999"},      {L"7-3-24", 4, kGreg, true, "9/8/1999"},
      {L"7-3-24", -1, kHijri, false, "9/8/1999"}, {L"1-1-0", 1, kHijri, false, "1/1/1400"},
      {L"1-1-100", 1, kGreg, false, "1/1/100"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text ? row.text : L"null");
    Use(kDmy, row.hijri);
    unsigned short day = 9, month = 8, year = 1999;
    EXPECT_EQ(ValidDateFormat(row.text, static_cast<Format::DATE_FORMAT>(row.format), day, month, year),
              row.valid);
    EXPECT_EQ(std::to_string(day) + "/" + std::to_string(month) + "/" + std::to_string(year), row.after);
  }
  // Also a year that the text did not give is completed.
  Use(kDmy, kGreg);
  unsigned short day = 29, month = 2, year = 24;
  EXPECT_TRUE(ValidDateFormat(L"7-3-23", kUnknown, day, month, year));
  EXPECT_EQ(year, 2024);
}

TEST_F(DateTextTest, WrittenDatesFollowTheFormat) {
  const Time time(7, 3, 2024, 4, 5, 6, 789);  // 26/8/1445, a Thursday
  const struct {
    int format;
    const wchar_t* plain;
  } rows[] = {{0, L"7-3-2024"},   {1, L"07-03-2024"}, {2, L"2024-3-7"},
              {3, L"2024-03-07"}, {4, L""},           {-1, L""}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.format);
    Use(static_cast<Format::DATE_FORMAT>(row.format), kGreg);
    const Date date = time.GetDate();
    const bool dayFirst = row.format == 0 || row.format == 1;
    const CString named = dayFirst ? L"7 March 2024" : L"2024 March 7";
    EXPECT_EQ(ToString(date), row.plain);
    EXPECT_EQ(ToString(time), CString(row.plain) + L" 04:05:06");
    EXPECT_EQ(DateTimeToStr(time, false), CString(row.plain) + L" - 04:05");
    EXPECT_EQ(DateTimeToStr2(time), CString(row.plain) + L" - 04:05:06");
    EXPECT_EQ(DateToAsc(date, 1), named);
    EXPECT_EQ(DateToAsc(date, 2), L"Thr " + named);
    EXPECT_EQ(DateToAsc(date, 3), dayFirst ? L"March 2024" : L"2024 March");
    EXPECT_EQ(DateToAscH(date, 1), dayFirst ? L"26 Shaban 1445" : L"1445 Shaban 26");
    EXPECT_EQ(SQLdToStr(date), L"'2024-03-07'");
    EXPECT_EQ(SQLdToStr2(date), L"2024-03-07");
  }
}

TEST_F(DateTextTest, DisplayedDatesFollowCalendarAndStyle) {
  const Date date(7, 3, 2024);
  Use(kDmy, kHijri);
  EXPECT_EQ(DateToAsc(date, 0), L"26-8-1445");
  EXPECT_EQ(DateToAsc(date, 2), L"Thr 26 Shaban 1445");
  EXPECT_EQ(DateToAsc(date, 3), L"Shaban 1445");
  EXPECT_EQ(DateToAscG(date, 3), L"March 2024");
  EXPECT_EQ(DateToAscG(date, 4), L"7-3-2024");
  EXPECT_EQ(DateTimeToStr(Time(7, 3, 2024, 23, 59, 0, 0), false), L"26-8-1445 - 23:59");
  EXPECT_EQ(ToString(date), L"7-3-2024");  // the numbers of the object, whatever the calendar
  EXPECT_EQ(ToString(HDate(26, 8, 1445)), L"26-8-1445");
  EXPECT_EQ(ToString(Time(7, 3, 2024, 0, 0, 0, 0)), L"7-3-2024 00:00:00");
  EXPECT_EQ(SQLdToStr2(Date(7, 3, 24)), L"0024-03-07");
  SysFormat.ResLangId = 0x2801;
  EXPECT_EQ(DateToAsc(date, 1), L"26 \u0634\u0639\u0628\u0627\u0646 1445");
}

TEST_F(DateTextTest, EveryDayComesBackFromItsTextInEveryFormat) {
  const struct {
    bool hijri;
    sys_days first, end;
  } rows[] = {{kGreg, std::chrono::year(1901) / 1 / 1, std::chrono::year(2100) / 1 / 1},
              {kHijri, ListedHijriYears()[1401 - 1306].start, kEndOfListedYears}};
  for (const auto& row : rows)
    for (int format = 0; format < 4; ++format) {
      Use(static_cast<Format::DATE_FORMAT>(format), row.hijri);
      for (sys_days day = row.first; day < row.end; day += days(1)) {
        const Date date = ToDate(day);
        const CString text = row.hijri ? THCalendar().ToString(date) : ToString(date);
        Date back(5, 5, 1955);
        ASSERT_TRUE(StrToDate(text, back)) << text.GetString();
        ASSERT_EQ(back, date) << text.GetString();
      }
    }
  EXPECT_EQ(m_Clock.Readings(), 0);
}

TEST_F(DateTextTest, OverlongTextReadsLikeAShortOne) {
  Use(kDmy, kGreg);
  const std::wstring zeros(100'000, L'0');
  EXPECT_EQ(Read((zeros + L"7-" + zeros + L"3-24" + std::wstring(100'000, L' ') + L"x").c_str()),
            L"2024-03-07");
  EXPECT_EQ(Read((L"7-3-2" + zeros).c_str()), L"2000-03-07");  // 2 times a power of ten is 0 modulo 65536
}

TEST_F(DateTextTest, CreateCalendarFollowsTheSwitch) {
  for (const bool hijri : {kGreg, kHijri}) {
    Use(kDmy, hijri);
    const std::unique_ptr<TCalendar> calendar(CreateCalendar());
    EXPECT_EQ(calendar->GetYear(Date(7, 3, 2024)), hijri ? 1445 : 2024);
    EXPECT_EQ(calendar->ToString(Date(7, 3, 2024)), hijri ? L"26-8-1445" : L"7-3-2024");
  }
}
