#include <chrono>
#include <cmath>

#include "platform/platform.h"

namespace {

using namespace std::chrono;

constexpr sys_days kDayZero = year{1899} / December / 30;
constexpr double kFirstDay = -657'434;  // 1 January 100
constexpr double kLastDay = 2'958'465;  // 31 December 9999
constexpr int kSecondsPerDay = 86'400;

// What the system adds to the time of day before it rounds, so that a fraction which stands for half a second
// does not fall short of it by its last bits.
constexpr double kSlack = 1e-11;

template <class Number>
WORD Word(Number value) {
  return static_cast<WORD>(value);
}

int FullYear(int year) {
  if (year >= 100) return year;
  return year + (year < 30 ? 2000 : 1900);
}

// In seconds. The fields are signed in the system: 65535 hours are one hour before midnight.
int TimeOfDay(const SYSTEMTIME& time) {
  const auto signedField = [](WORD value) { return static_cast<std::int16_t>(value); };
  return signedField(time.wHour) * 3600 + signedField(time.wMinute) * 60 + signedField(time.wSecond);
}

}  // namespace

int VariantTimeToSystemTime(double date, SYSTEMTIME* time) {
  const bool inRange = date > kFirstDay - 1 && date < kLastDay + 1;
  if (!inRange) return 0;
  const double whole = std::trunc(date);
  const int seconds = static_cast<int>(std::lround((std::abs(date - whole) + kSlack) * kSecondsPerDay));
  const sys_days unrounded = kDayZero + days(static_cast<int>(whole));
  const year_month_day day = unrounded + days(seconds / kSecondsPerDay);
  // Rounding up to midnight moves the day on, but not the day of the week.
  *time = {Word(static_cast<int>(day.year())),
           Word(static_cast<unsigned>(day.month())),
           Word(weekday(unrounded).c_encoding()),
           Word(static_cast<unsigned>(day.day())),
           Word(seconds % kSecondsPerDay / 3600),
           Word(seconds / 60 % 60),
           Word(seconds % 60),
           0};
  return 1;
}

int SystemTimeToVariantTime(SYSTEMTIME* time, double* date) {
  if (time->wYear > 9999 || time->wMonth > 12 || time->wDay > 31) return 0;
  const year_month month = year{FullYear(time->wYear)} / January + months(time->wMonth - 1);
  const sys_seconds instant = sys_days(month / 1) + days(time->wDay - 1) + seconds(TimeOfDay(*time));
  const sys_days day = floor<days>(instant);
  const hh_mm_ss ofDay(instant - day);
  const double whole = static_cast<double>((day - kDayZero).count());
  // Days before day 0 count their time away from it as well. Added part by part, as the system does: the last
  // bit of the sum depends on it.
  const double sign = whole < 0 ? -1 : 1;
  *date = whole + sign * static_cast<double>(ofDay.hours().count()) / 24 +
          sign * static_cast<double>(ofDay.minutes().count()) / 1440 +
          sign * static_cast<double>(ofDay.seconds().count()) / kSecondsPerDay;
  return 1;
}
