#include "hcalendar.h"

#include <algorithm>
#include <cstdint>
#include <new>

#include "date_text.h"
#include "day_number.h"
#include "exceptions.h"
#include "hijri_shifts.h"
#include "hijri_table.h"
#include "string_resources.h"

#define QEL_SOURCE L"src/hcalendar"

namespace Qel::Sys::DateTime {

namespace {

constexpr int kMonthNames = 206;  // the resource before the name of month 1
constexpr int kOleDayZero = DayNumber(1899, 12, 30);
constexpr int kLastOleDay = DayNumber(9999, 12, 31);

bool IsMonth(int month) noexcept {
  return month > 0 && month < 13;
}

HDate MakeHDate(std::int64_t day, std::int64_t month, std::int64_t year) {
  return HDate(Narrow16(day), Narrow16(month), Narrow16(year));
}

// The row of a year; the first for a year that the table does not have.
const HijriRow& RowOrFirst(int year) noexcept {
  return kHijriTable.rows[std::max(HijriRowOfYear(year), 0)];
}

// The table reaches back before 1890, where the calendars' count of days begins.
Date DateOfDay(int day) {
  return InHijriTable(day) ? DateFromDayNumber(day) : TGCalendar().DaysToDate(day);
}

// Tells the length of the month that holds a day of the table by the corrections; `month` holds it without
// them. Raises when the corrected months of the year end before the day.
QEL_NOINLINE void TellLength(int row, int dayOfYear, int month, unsigned short* daysInMonth) {
  const HijriShifts& shifts = g_HijriShifts[row];
  if (g_HijriCorrected[row]) month = shifts.MonthOfDay(dayOfYear);
  const HDate first = MakeHDate(1, month, kFirstHijriYear + row);
  if (!daysInMonth) return;
  const int length = kHijriTable.rows[row].MonthLength(first.Month());
  *daysInMonth = static_cast<unsigned short>(length + shifts.OfMonth(first.Month()));
}

}  // namespace

Date THCalendar::FirstDay() {
  return DateFromDayNumber(kHijriTableBegin);
}
Date THCalendar::LastDay() {
  return DateFromDayNumber(kHijriTableEnd - 1);
}

int THCalendar::GetHijriDateShift(int hmonth, int hyear) {
  return IsMonth(hmonth) ? GetHijriShift(hmonth, hyear) : 0;
}

void THCalendar::SetHijriDateShift(int hmonth, int hyear, int shift) {
  QEL_REQUIRE(IsMonth(hmonth), L"( hmonth > 0 ) && ( hmonth < 13 )");
  SetHijriShift(hmonth, hyear, shift);
}

HDate THCalendar::BaseGregorianToHijri(const Date& d, unsigned short* daysInMonth) {
  const int day = static_cast<int>(static_cast<double>(d)) + kOleDayZero;
  QEL_REQUIRE(day >= kTabularEpoch,
              L"VarUdateFromDate( tempdt, VAR_DATEVALUEONLY | VAR_CALENDAR_HIJRI, &dt ) == S_OK");
  const int year = TabularYear(day);
  const int dayOfYear = day - TabularStart(year);
  // Months of 30 and 29 days in turn, the last of 30 in a leap year.
  const int month = std::min(2 * dayOfYear / 59, 11);
  HDate h = MakeHDate(dayOfYear - (59 * month + 1) / 2 + 1, month + 1, year);
  if (daysInMonth) *daysInMonth = CalcDaysInHijriMonth(h);
  return h;
}

Date THCalendar::BaseHijriToGregorian(const HDate& h) {
  const int day = TabularStart(h.Year()) + (59 * (h.Month() - 1) + 1) / 2 + h.Day() - 1;
  QEL_REQUIRE(h.Year() > 0 && day <= kLastOleDay,
              L"VarDateFromUdate( &dt, VAR_DATEVALUEONLY | VAR_CALENDAR_HIJRI, &date ) == S_OK");
  return DateFromDayNumber(day);
}

unsigned short THCalendar::CalcDaysInHijriMonth(const HDate& h) {
  const HDate first(1, h.Month(), h.Year());  // raises for what a clock that is wrong gave HDate()
  return static_cast<unsigned short>(RowOrFirst(first.Year()).MonthLength(first.Month()));
}

void THCalendar::FixHijriDate(Date& d, unsigned short* daysInMonth, int sign) {
  const HDate h = BaseGregorianToHijri(d);
  const std::int64_t shift = GetHijriDateShift(h.Month(), h.Year());
  d = TGCalendar().AddDays(d, SaturatedCount(-shift * sign));
  if (!daysInMonth) return;
  const int next = GetHijriDateShift(h.Month() + 1, h.Year());
  *daysInMonth = static_cast<unsigned short>(*daysInMonth - shift + next);
}

// The steps below work for every day and year. Conversions take them only outside the table and for a month
// that is none; inside it GregorianToHijri and _EncodeDate look the same results up.

int THCalendar::_DayOfYear(const Date& d, int& year) {
  const int day = DayNumber(d);
  year = BaseGregorianToHijri(d).Year();
  if (day < RowOrFirst(year).start) --year;
  return day - RowOrFirst(year).start + 1;
}

void THCalendar::_DecodeHDate(int year, int dayOfYear, int& day, int& month) {
  std::int64_t rest = dayOfYear;
  month = 1;
  for (int length; rest > (length = _GetDaysOfMonth(year, month)); ++month) rest -= length;
  day = rest == 0 ? 1 : static_cast<int>(rest);
}

int THCalendar::_GetDaysOfMonth(int year, int month) {
  const HDate h = MakeHDate(1, month, year);  // raises when there is no such month
  const std::int64_t length = CalcDaysInHijriMonth(h);
  return static_cast<int>(length - GetHijriDateShift(month, year) + GetHijriDateShift(month + 1, year));
}

HDate THCalendar::FixedGregorianToHijri(const Date& d) {
  int year, month, day;
  const int dayOfYear = _DayOfYear(d, year);
  _DecodeHDate(year, dayOfYear, day, month);
  return MakeHDate(day, month, year);
}

HDate THCalendar::GregorianToHijri(const Date& d, unsigned short* daysInMonth) {
  const int day = DayNumber(d);
  if (!IsMonth(d.Month()) || !InHijriTable(day)) [[unlikely]] {
    // Raises but for the eve of the table, which counts as day 0: no date either.
    const HDate corrected = FixedGregorianToHijri(d);
    return HDate(0, corrected.Month(), corrected.Year());
  }
  const int index = HijriRowOfDay(day);
  const HijriRow& row = kHijriTable.rows[index];
  const int dayOfYear = day - row.start + 1;
  const int month = row.MonthOfDay(dayOfYear);
  const auto field = [](int value) { return static_cast<unsigned short>(value); };
  HDate h(field(dayOfYear - row.monthEnds[month - 1]), field(month), field(kFirstHijriYear + index));
  if (g_HijriCorrected[index] || daysInMonth) TellLength(index, dayOfYear, month, daysInMonth);
  return h;
}

int THCalendar::_EncodeDate(const HDate& h) {
  const int month = h.Month();
  const int index = HijriRowOfYear(h.Year());
  std::int64_t day = h.Day() - 1;
  if (index >= 0 && IsMonth(month)) [[likely]] {
    const HijriRow& row = kHijriTable.rows[index];
    day += row.start + row.monthEnds[month - 1];
    if (g_HijriCorrected[index]) day += g_HijriShifts[index].BeforeMonth(month);
  } else {
    day += index >= 0 ? kHijriTable.rows[index].start
                      : TGCalendar().DaysFromDate(BaseHijriToGregorian(HDate(1, 1, h.Year())));
    for (int m = month - 1; m > 0; --m) day += _GetDaysOfMonth(h.Year(), m);
  }
  return SaturatedCount(day);
}

Date THCalendar::FixedHijriToGregorian(const HDate& h) {
  return DateOfDay(_EncodeDate(h));
}

Date THCalendar::AddMonths(const Date& d, int n) const {
  const HDate h = GregorianToHijri(d, nullptr);
  const int monthsInYear = GetMonthsInYear();
  const std::int64_t total = h.Month() + std::int64_t{h.Year()} * monthsInYear + n;
  std::int64_t month = total % monthsInYear;
  std::int64_t year = total / monthsInYear;
  if (month == 0) {
    month = monthsInYear;
    --year;
  }
  const HDate first = MakeHDate(1, month, year);
  const int day = std::min(h.Day(), GetDaysInMonth(first.Year(), first.Month()));
  return FixedHijriToGregorian(MakeHDate(day, first.Month(), first.Year()));
}

int THCalendar::GetDay(const Date& d) const {
  return GregorianToHijri(d, nullptr).Day();
}
int THCalendar::GetMonth(const Date& d) const {
  return GregorianToHijri(d, nullptr).Month();
}
int THCalendar::GetYear(const Date& d) const {
  return GregorianToHijri(d, nullptr).Year();
}

unsigned short THCalendar::GetDaysInMonth(const Date& d) const {
  unsigned short days = 0;
  GregorianToHijri(d, &days);
  return days;
}

unsigned short THCalendar::GetDaysInMonth(int year, int month) const {
  const HDate first = MakeHDate(1, month, year);
  const int index = HijriRowOfYear(year);
  if (index >= 0 && !g_HijriCorrected[index]) return CalcDaysInHijriMonth(first);
  return GetDaysInMonth(FixedHijriToGregorian(first));
}

int THCalendar::GetDaysInYear(const Date& d) const {
  return GetDaysInYear(GetYear(d));
}

int THCalendar::GetDaysInYear(int year) const {
  int days = 0;
  for (int month = 1; month <= GetMonthsInYear(); ++month) days += GetDaysInMonth(year, month);
  return days;
}

CString THCalendar::ToString(const Date& d) const {
  return Text::Conversion::ToString(GregorianToHijri(d, nullptr));
}

CString THCalendar::ToAsc(const Date& d, int style) const {
  return Text::Conversion::DateToAscH(d, style);
}

CString THCalendar::GetMonthName(const Date& d) const {
  return GetMonthName(GetMonth(d));
}

CString THCalendar::GetMonthName(int month) const {
  if (!IsMonth(month)) return {};
  return Text::LibResStr(static_cast<unsigned>(kMonthNames + month), Text::GetLibraryResourceInstance());
}

int THCalendar::GetDayOfYear(const Date& d) const {
  const HDate h = GregorianToHijri(d, nullptr);
  int days = h.Day();
  for (int month = 1; month < h.Month(); ++month) days += GetDaysInMonth(h.Year(), month);
  return days;
}

Date THCalendar::StartOfMonth(const Date& d) const {
  const HDate h = GregorianToHijri(d, nullptr);
  return FixedHijriToGregorian(HDate(1, h.Month(), h.Year()));
}

Date THCalendar::StartOfYear(const Date& d) const {
  return SetDate(1, 1, GetYear(d));
}

// Months and years end on the day before the next one starts: a corrected month may have 31 days, which no
// HDate can say, and the days of 1421 do not add up to the start of 1422.
Date THCalendar::EndOfMonth(const Date& d) const {
  const HDate h = GregorianToHijri(d, nullptr);
  if (h.Month() == GetMonthsInYear()) return EndOfYear(d);
  return DateOfDay(_EncodeDate(MakeHDate(1, h.Month() + 1, h.Year())) - 1);
}

Date THCalendar::EndOfYear(const Date& d) const {
  return DateOfDay(_EncodeDate(MakeHDate(1, 1, GetYear(d) + 1)) - 1);
}

Date THCalendar::FromString(const wchar_t* text) const {
  return FixedHijriToGregorian(Text::Conversion::StrToDateH(text));
}

Date THCalendar::SetDate(int day, int month, int year) const {
  return FixedHijriToGregorian(MakeHDate(day, month, year));
}

TCalendar* CreateCalendar() {
  if (UseHijriDate()) return new (std::nothrow) THCalendar;
  return new (std::nothrow) TGCalendar;
}

}  // namespace Qel::Sys::DateTime
