// Look-ups in constant time over the table of Hijri years, and the tabular rule that the table's starts
// follow. Days are numbers as of day_number.h. Months are 1..12.
#ifndef QEL_HIJRI_TABLE_H
#define QEL_HIJRI_TABLE_H

#include <cstdint>
#include <iterator>

#include "data/hijri_years.h"

namespace Qel::Sys::DateTime {

// The tabular rule: a cycle of 30 years has 10631 days and its years 2 5 7 10 13 15 18 21 24 26 29 are leap;
// 1 Muharram of the year 1 is Julian day 1948439. In closed form k years take (10631 k + 15) / 30 days. It is
// our own on every system, since theirs depends on a setting of each user.
inline constexpr int kTabularEpoch = 1948439 - 2411368;

// The day on which `year`, 1 or more, begins.
constexpr int TabularStart(int year) noexcept {
  return kTabularEpoch + (10631 * (year - 1) + 15) / 30;
}

// The year of a day, which must be kTabularEpoch or later.
constexpr int TabularYear(int day) noexcept {
  return static_cast<int>((30 * static_cast<std::uint32_t>(day - kTabularEpoch) + 14) / 10631) + 1;
}

// A year of the table with what follows from it.
struct HijriRow {
  int start;                    // the day of 1 Muharram
  std::uint16_t longMonths;     // bit m - 1 is set when month m has 30 days
  std::uint16_t monthEnds[13];  // [m] is the number of days in months 1 to m

  constexpr int MonthLength(int month) const noexcept { return 29 + (longMonths >> (month - 1) & 1); }

  // The month of the year's day 1..355.
  constexpr int MonthOfDay(int dayOfYear) const noexcept {
    // Months have 29 or 30 days, so day d lies in month (d - 1) / 30 + 1 or in the next.
    const int month = static_cast<int>(static_cast<std::uint32_t>(dayOfYear - 1) / 30) + 1;
    return month + (dayOfYear > monthEnds[month]);
  }
};

struct HijriTable {
  HijriRow rows[std::size(kHijriYears)];
};

inline constexpr HijriTable kHijriTable = [] {
  HijriTable table{};
  HijriRow* row = table.rows;
  for (const HijriYear& year : kHijriYears) {
    row->start = year.start;
    row->longMonths = year.longMonths;
    for (int m = 1; m <= 12; ++m)
      row->monthEnds[m] = static_cast<std::uint16_t>(row->monthEnds[m - 1] + row->MonthLength(m));
    ++row;
  }
  return table;
}();

inline constexpr int kHijriRows = std::size(kHijriTable.rows);
inline constexpr int kHijriTableBegin = kHijriTable.rows[0].start;
inline constexpr int kHijriTableEnd = TabularStart(kFirstHijriYear + kHijriRows);  // the day after its last

constexpr bool InHijriTable(int day) noexcept {
  return day >= kHijriTableBegin && day < kHijriTableEnd;
}

// The index of the row of a day of the table.
constexpr int HijriRowOfDay(int day) noexcept {
  // The tabular year begins on the same day as the table's, or on the day before.
  const int row = TabularYear(day) - kFirstHijriYear;
  return row - (day < kHijriTable.rows[row].start);
}

// The index of the row of a year, or -1 when the table does not have it.
constexpr int HijriRowOfYear(int year) noexcept {
  return year >= kFirstHijriYear && year < kFirstHijriYear + kHijriRows ? year - kFirstHijriYear : -1;
}

static_assert(
    [] {
      for (int row = 0; row < kHijriRows; ++row) {
        const int late = kHijriTable.rows[row].start - TabularStart(kFirstHijriYear + row);
        if (late < 0 || late > 1) return false;
      }
      return TabularYear(kHijriTableEnd - 1) == kFirstHijriYear + kHijriRows - 1;
    }(),
    "the look-up by day relies on starts that follow the tabular rule or come one day later");

}  // namespace Qel::Sys::DateTime

#endif  // QEL_HIJRI_TABLE_H
