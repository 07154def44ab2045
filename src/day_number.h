// Days counted: day 1 is 1 January 1890, the calendars' epoch; earlier days count down through 0 to negative
// numbers. Both directions are closed forms. Years are counted from March: the leap day then comes last, and
// the months' lengths lie on a straight line (153 days in five months, 979/32 in one). Nothing is checked
// here: callers know their ranges.
#ifndef QEL_DAY_NUMBER_H
#define QEL_DAY_NUMBER_H

#include <algorithm>
#include <limits>

#include "date.h"

namespace Qel::Sys::DateTime {

// Days from 1 March of year 0 to the last day of 1889, which is day 0.
constexpr int kDayZero = 690'248;

constexpr unsigned kDaysIn4Years = 1'461;
constexpr unsigned kDaysIn400Years = 146'097;

// By leap year (0 or 1) and month (1..12).
constexpr unsigned short kMonthLengths[2][13] = {{0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
                                                 {0, 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31}};

// The length of a month 1..12.
constexpr int MonthLength(int year, int month) {
  return kMonthLengths[IsLeap(year)][month];
}

// The number of a day: year 1..65535, month 1..12. A day beyond the month's end counts on into the next
// month.
constexpr int DayNumber(int year, int month, int day) {
  const unsigned lastYears = month < 3;  // a number, since a branch would be mispredicted
  const unsigned y = static_cast<unsigned>(year) - lastYears;
  const unsigned m = static_cast<unsigned>(month) + 12 * lastYears;
  const unsigned century = y / 100;
  const unsigned start = y * kDaysIn4Years / 4 - century + century / 4 + (979 * m - 2919) / 32;
  return static_cast<int>(start) + day - 1 - kDayZero;
}

inline int DayNumber(const Date& d) {
  return DayNumber(d.Year(), d.Month(), d.Day());
}

struct CivilDay {
  unsigned year, month, day;
};

// The day of a number, from 1 March of year 0 (-kDayZero) to a million years on (4e8).
constexpr CivilDay CivilFromDayNumber(int number) {
  const unsigned quarters = 4 * static_cast<unsigned>(number + kDayZero) + 3;
  const unsigned century = quarters / kDaysIn400Years;
  const unsigned centuryQuarters = quarters % kDaysIn400Years | 3;
  const unsigned yearOfCentury = centuryQuarters / kDaysIn4Years;
  const unsigned dayOfYear = centuryQuarters % kDaysIn4Years / 4;
  const unsigned fifths = 5 * dayOfYear + 461;
  const unsigned month = fifths / 153;  // 3..14: January and February belong to the year before
  const unsigned day = fifths % 153 / 5 + 1;
  const unsigned year = 100 * century + yearOfCentury;
  return month > 12 ? CivilDay{year + 1, month - 12, day} : CivilDay{year, month, day};
}

static_assert(DayNumber(1890, 1, 1) == 1 && DayNumber(0, 3, 1) == -kDayZero);

// For a count of days: one beyond 32 bits leads beyond every year as well as the largest that they hold. Room
// is left to take one day off.
constexpr int SaturatedCount(long long count) {
  constexpr int kMost = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp<long long>(count, -kMost, kMost));
}

// For the fields of a date: a number too large or too small for them becomes 0, which no field may be, so
// that the constructor refuses it with its own text.
constexpr unsigned short Narrow16(long long value) {
  return value >= 0 && value <= 65'535 ? static_cast<unsigned short>(value) : static_cast<unsigned short>(0);
}

// The day of a number as a Date. Raises "year > 0" beyond the year 65535.
inline Date DateFromDayNumber(int number) {
  const CivilDay day = CivilFromDayNumber(number);
  return Date(Narrow16(day.day), Narrow16(day.month), Narrow16(day.year));
}

}  // namespace Qel::Sys::DateTime

#endif  // QEL_DAY_NUMBER_H
