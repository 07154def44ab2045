#include "date.h"

#include <cmath>

#include "day_number.h"
#include "exceptions.h"
#include "format.h"
#include "iappcontext.h"
#include "padded_number.h"
#include "platform/platform.h"
#include "px_format.h"

#define QEL_SOURCE L"src/date"

namespace Qel::Sys::DateTime {

using Text::WritePadded;

namespace {

// The years that have an OLE date. The system itself would read 0..99 as years of this or the last century.
constexpr int kFirstOleYear = 100;
constexpr int kLastOleYear = 9999;

SYSTEMTIME Now() {
  if (IAppContext::IsValidAppContext()) return GetTimeProvider()->GetTickCount();
  SYSTEMTIME now;
  GetLocalTime(&now);
  return now;
}

// False, `oleDate` unchanged, outside the years that have one.
bool ToOleDate(const Date& date, double& oleDate) noexcept {
  if (date.Year() < kFirstOleYear || date.Year() > kLastOleYear) return false;
  SYSTEMTIME record{};
  record.wYear = date.Year();
  record.wMonth = date.Month();
  record.wDay = date.Day();
  return SystemTimeToVariantTime(&record, &oleDate) != 0;
}

// The system rounds to the second, which near midnight is the next day, so it is given the whole day alone.
bool FromOleDate(double oleDate, SYSTEMTIME& record) noexcept {
  return std::isfinite(oleDate) && VariantTimeToSystemTime(std::trunc(oleDate), &record) != 0;
}

constexpr int kLongestDateText = 32;

wchar_t* WriteDate(wchar_t* out, const Date& date) {
  out = WritePadded(out, date.Year(), 4);
  *out++ = L'-';
  out = WritePadded(out, date.Month(), 2);
  *out++ = L'-';
  return WritePadded(out, date.Day(), 2);
}

CString TextBetween(const wchar_t* begin, const wchar_t* end) {
  return CString(begin, static_cast<int>(end - begin));
}

}  // namespace

bool UseHijriDate() {
  return Settings::SysFormat.UseHijri;
}

Date::Date() : Date(Now()) {}

Date::Date(const SYSTEMTIME& record) noexcept : Date(Unchecked{}, record.wDay, record.wMonth, record.wYear) {}

Date::Date(const double& oleDate) : Date(Unchecked{}, 0, 0, 0) {
  SYSTEMTIME record{};
  QEL_REQUIRE(FromOleDate(oleDate, record), L"VariantTimeToSystemTime(dt, &sd) != 0");
  *this = Date(record);
}

void Date::SetDay(unsigned short d) {
  QEL_REQUIRE(d > 0 && d < 32, L"( d > 0) && ( d < 32)");
  m_Day = d;
}

void Date::SetMonth(unsigned short m) {
  QEL_REQUIRE(m > 0 && m < 13, L"( m > 0) && ( m < 13)");
  m_Month = m;
}

void Date::SetYear(unsigned short y) {
  QEL_REQUIRE(y > 0, L"y > 0");
  m_Year = y;
}

Date::operator double() const {
  double oleDate = 0.0;
  QEL_REQUIRE(ToOleDate(*this, oleDate), L"SystemTimeToVariantTime(&sd, &OleDate) != 0");
  return oleDate;
}

double Date::ToDATE() const noexcept {
  double oleDate = 0.0;
  ToOleDate(*this, oleDate);
  return oleDate;
}

void Date::AssertValid() const {
  QEL_REQUIRE(m_Month > 0 && m_Month < 13, L"( month > 0) && (month < 13)");
  QEL_REQUIRE(m_Year > 0, L"year > 0");
  QEL_REQUIRE(m_Day > 0 && m_Day <= MonthLength(m_Year, m_Month), L"(day > 0) && (day <= max_day)");
}

CString Date::ToString() const {
  wchar_t text[kLongestDateText];
  return TextBetween(text, WriteDate(text, *this));
}

Date Date::GetNoDate() {
  return Date(1, 1, 1980);
}

HDate::HDate() : Date(GetTimeProvider()->GetTickCount()) {}

void HDate::AssertValid() const {
  QEL_REQUIRE(m_Day > 0 && m_Day < 31, L"( day > 0) && ( day < 31)");
  QEL_REQUIRE(m_Month > 0 && m_Month < 13, L"( month > 0) && (month < 13)");
  QEL_REQUIRE(m_Year > 0, L"year > 0");
}

Time::Time() : Time(Now()) {}

Time::Time(const SYSTEMTIME& record) noexcept
    : Date(record),
      m_Hour(record.wHour),
      m_Minute(record.wMinute),
      m_Second(record.wSecond),
      m_MSec(record.wMilliseconds) {}

Time::Time(unsigned short hour, unsigned short minute, unsigned short second, std::uint32_t msec)
    : m_Hour(hour), m_Minute(minute), m_Second(second), m_MSec(msec) {
  AssertValid2();
}

Time& Time::operator=(const Date& date) noexcept {
  Date::operator=(date);
  m_Hour = m_Minute = m_Second = 0;
  m_MSec = 0;
  return *this;
}

void Time::SetHour(unsigned short h) {
  QEL_REQUIRE(h < 24, L"h < 24");
  m_Hour = h;
}

void Time::SetMinute(unsigned short m) {
  QEL_REQUIRE(m < 60, L"m < 60");
  m_Minute = m;
}

void Time::SetSecond(unsigned short s) {
  QEL_REQUIRE(s < 60, L"s < 60");
  m_Second = s;
}

void Time::SetMSec(std::uint32_t ms) {
  QEL_REQUIRE(ms < 1000, L"ms < 1000");
  m_MSec = ms;
}

void Time::AssertValid2() const {
  QEL_REQUIRE(m_Hour < 24, L"hour < 24");
  QEL_REQUIRE(m_Minute < 60, L"minute < 60");
  QEL_REQUIRE(m_Second < 60, L"second < 60");
  QEL_REQUIRE(m_MSec < 1000, L"msec < 1000");
}

CString Time::ToString() const {
  wchar_t text[2 * kLongestDateText];
  wchar_t* end = WriteDate(text, *this);
  if (m_Hour == 0 && m_Minute == 0 && m_Second == 0) return TextBetween(text, end);
  *end++ = L' ';
  end = WritePadded(end, m_Hour, 2);
  *end++ = L':';
  end = WritePadded(end, m_Minute, 2);
  *end++ = L':';
  return TextBetween(text, WritePadded(end, m_Second, 2));
}

std::int64_t Time::operator-(const Time& other) const noexcept {
  const auto minus = [](std::int64_t a, std::int64_t b) { return a - b; };
  std::int64_t span = minus(m_Year, other.m_Year) * 365;
  span += minus(m_Month, other.m_Month);
  span = span * 30 + minus(m_Day, other.m_Day);
  span = span * 24 + minus(m_Hour, other.m_Hour);
  span = span * 60 + minus(m_Minute, other.m_Minute);
  span = span * 60 + minus(m_Second, other.m_Second);
  return span * 1000 + minus(m_MSec, other.m_MSec);
}

Time Time::GetNoDateTime(bool zeroTime) {
  Time time;
  if (zeroTime) {
    time = GetNoDate();
  } else {
    static_cast<Date&>(time) = GetNoDate();
  }
  return time;
}

void Time::SetEndDayTime(Time& t) noexcept {
  t.m_Hour = 23;
  t.m_Minute = 59;
  t.m_Second = 59;
  t.m_MSec = 998;
}

bool ValidDate(unsigned short day, unsigned short month, unsigned short year) {
  return UseHijriDate() ? ValidHDate(day, month, year) : ValidGDate(day, month, year);
}

bool ValidGDate(unsigned short day, unsigned short month, unsigned short year) {
  if (year > 99 && (year < 1901 || year > 2099)) return false;
  return ValidDate2(day, month, year);
}

bool ValidHDate(unsigned short day, unsigned short month, unsigned short year) {
  if (year > 99 && (year < 1401 || year > 1499)) return false;
  return ValidHDate2(day, month, 1);  // every year that got here will do, also a typed 0..99
}

}  // namespace Qel::Sys::DateTime

bool ValidDate2(unsigned short day, unsigned short month, unsigned short year) {
  if (day < 1 || month < 1 || month > 12 || year == 0) return false;
  return day < 29 || day <= Qel::Sys::DateTime::MonthLength(year, month);
}

bool ValidHDate2(unsigned short day, unsigned short month, unsigned short year) {
  return day > 0 && day < 31 && month > 0 && month < 13 && year > 0;
}

bool CheckDate(int day, int month, int year) {
  if (day > 0 && day < 32 && month > 0 && month < 13 && year > 0) return true;
  QEL_RAISE(qel_exception, Qel::Sys::Text::pxFormat(L"Invalid date: %d-%d-%d", day, month, year));
}
