#include <algorithm>

#include "calendar.h"
#include "date_text.h"
#include "day_number.h"
#include "exceptions.h"
#include "format.h"
#include "string_resources.h"

#define QEL_SOURCE L"src/gcalendar"

namespace Qel::Sys::DateTime {

namespace {

// The numbers of the texts in the library's string resources.
constexpr unsigned kSunday = 155;
constexpr unsigned kJanuary = 195;
constexpr unsigned kAlternativeJanuary = 230;

constexpr int kLastDayNumber = DayNumber(65'535, 12, 31);

CString OwnText(unsigned id) {
  return Text::LibResStr(id, Text::GetLibraryResourceInstance());
}

}  // namespace

TCalendar::~TCalendar() = default;

Date TGCalendar::AddDays(const Date& d, int n) const {
  return DaysToDate(SaturatedCount(static_cast<long long>(DaysFromDate(d)) + n));
}

Date TGCalendar::AddMonths(const Date& d, int n) const {
  const int monthsInYear = GetMonthsInYear();
  const long long total = d.Month() + static_cast<long long>(d.Year()) * monthsInYear + n;
  int month = static_cast<int>(total % monthsInYear);
  int year = static_cast<int>(total / monthsInYear);
  if (month == 0) {
    month = monthsInYear;
    --year;
  }
  const int day = std::min<int>(d.Day(), GetDaysInMonth(year, month));
  return Date(Narrow16(day), Narrow16(month), Narrow16(year));
}

Date TGCalendar::AddYears(const Date& d, int n) const {
  constexpr int kBeyondAllYears = 100'000;  // as far as any number, and its months fit in 32 bits
  return AddMonths(d, std::clamp(n, -kBeyondAllYears, kBeyondAllYears) * GetMonthsInYear());
}

int TGCalendar::GetDay(const Date& d) const {
  return d.Day();
}
int TGCalendar::GetMonth(const Date& d) const {
  return d.Month();
}
int TGCalendar::GetYear(const Date& d) const {
  return d.Year();
}

// Zeller's congruence: counted from March, the lengths of the months add 2m + 3(m + 1) / 5 days of the week.
int TGCalendar::GetDayOfWeek(const Date& d) const {
  constexpr int kFromMonday[] = {2, 3, 4, 5, 6, 0, 1};
  const int shift = d.Month() < 3 ? 1 : 0;
  const int month = d.Month() + 12 * shift;
  const int year = d.Year() - shift;
  const int fromMonday =
      (d.Day() + 2 * month + 3 * (month + 1) / 5 + year + year / 4 - year / 100 + year / 400) % 7;
  return kFromMonday[fromMonday];
}

unsigned short TGCalendar::GetDaysInMonth(const Date& d) const {
  return GetDaysInMonth(d.Year(), d.Month());
}

unsigned short TGCalendar::GetDaysInMonth(int year, int month) const {
  if (month < 1 || month > 12) return 0;
  return kMonthLengths[IsLeapYear(year)][month];
}

int TGCalendar::GetDaysInYear(const Date& d) const {
  return GetDaysInYear(d.Year());
}
int TGCalendar::GetDaysInYear(int year) const {
  return IsLeapYear(year) ? 366 : 365;
}

bool TGCalendar::IsLeapYear(const Date& d) const {
  return IsLeapYear(d.Year());
}

bool TGCalendar::IsLeapYear(int year) const {
  QEL_REQUIRE(year > 0, L"year > 0");
  return IsLeap(year);
}

CString TGCalendar::ToString(const Date& d) const {
  return Text::Conversion::ToString(d);
}
CString TGCalendar::ToAsc(const Date& d, int style) const {
  return Text::Conversion::DateToAscG(d, style);
}

unsigned short TGCalendar::GetMonthsInYear() const {
  return TBaseCalendar().GetMonthsInYear();
}

CString TGCalendar::GetMonthName(const Date& d) const {
  return GetMonthName(d.Month());
}

CString TGCalendar::GetMonthName(int month) const {
  if (month < 1 || month > 12) return {};
  const unsigned january = Settings::SysFormat.AltGMonthNames ? kAlternativeJanuary : kJanuary;
  return OwnText(january + static_cast<unsigned>(month) - 1);
}

CString TGCalendar::GetDayOfWeekName(const Date& d) const {
  const int fromSunday = (GetDayOfWeek(d) + 6) % 7;
  return OwnText(kSunday + static_cast<unsigned>(fromSunday));
}

int TGCalendar::GetDayOfYear(const Date& d) const {
  int day = d.Day();
  for (int month = 1; month < d.Month(); ++month) day += GetDaysInMonth(d.Year(), month);
  return day;
}

Date TGCalendar::NextDay(const Date& d) const {
  return AddDays(d, 1);
}
Date TGCalendar::PrevDay(const Date& d) const {
  return AddDays(d, -1);
}
Date TGCalendar::NextMonth(const Date& d) const {
  return AddMonths(d, 1);
}
Date TGCalendar::PrevMonth(const Date& d) const {
  return AddMonths(d, -1);
}
Date TGCalendar::NextYear(const Date& d) const {
  return AddYears(d, 1);
}
Date TGCalendar::PrevYear(const Date& d) const {
  return AddYears(d, -1);
}

void TGCalendar::SetFormat(const wchar_t*) {}

Date TGCalendar::StartOfMonth(const Date& d) const {
  Date start = d;
  start.SetDay(1);
  return start;
}

Date TGCalendar::StartOfYear(const Date& d) const {
  Date start = d;
  start.SetDay(1);
  start.SetMonth(1);
  return start;
}

Date TGCalendar::EndOfMonth(const Date& d) const {
  Date end = d;
  end.SetDay(GetDaysInMonth(d.Year(), d.Month()));
  return end;
}

Date TGCalendar::EndOfYear(const Date& d) const {
  Date lastMonth = d;
  lastMonth.SetDay(1);
  lastMonth.SetMonth(GetMonthsInYear());
  return EndOfMonth(lastMonth);
}

int TGCalendar::FromString(const wchar_t* text, Date& d) const {
  return Text::Conversion::StrToDate(text, d) ? 1 : 0;
}
Date TGCalendar::FromString(const wchar_t* text) const {
  return Text::Conversion::StrToDate(text);
}

Date TGCalendar::SetDate(int day, int month, int year) const {
  return Date(Narrow16(day), Narrow16(month), Narrow16(year));
}

int TGCalendar::DateDifference(const Date& a, const Date& b) const {
  return DaysFromDate(a) - DaysFromDate(b);
}

int TGCalendar::DaysFromDate(const Date& d) const {
  QEL_REQUIRE(d.Year() >= BASEDATE, L"d.Year() >= BASEDATE");
  return DayNumber(d);
}

Date TGCalendar::DaysToDate(int number) const {
  if (number < 1) return Date(0, 1, BASEDATE);        // raises the text of the day
  if (number > kLastDayNumber) return Date(1, 1, 0);  // and that of the year
  return DateFromDayNumber(number);
}

}  // namespace Qel::Sys::DateTime
