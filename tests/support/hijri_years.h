// The published list of Hijri years, read from tests/data/hijri_years.csv, with days as std::chrono counts
// them.
#ifndef QEL_TESTS_HIJRI_YEARS_H
#define QEL_TESTS_HIJRI_YEARS_H

#include <array>
#include <chrono>
#include <vector>

#include "date.h"

struct ListedYear {
  int year;
  std::chrono::sys_days start;       // 1 Muharram
  std::array<int, 13> monthLengths;  // [1] to [12]
};

// All 194 years, 1306 to 1499. A list that is missing or damaged ends the test program.
const std::vector<ListedYear>& ListedHijriYears();

// The day after the last of 1499.
inline constexpr std::chrono::sys_days kEndOfListedYears = std::chrono::year(2076) / 11 / 27;

inline Qel::Sys::DateTime::Date ToDate(std::chrono::sys_days day) {
  const std::chrono::year_month_day d(day);
  const auto narrow = [](auto value) { return static_cast<unsigned short>(value); };
  return {narrow(static_cast<unsigned>(d.day())), narrow(static_cast<unsigned>(d.month())),
          narrow(static_cast<int>(d.year()))};
}

#endif  // QEL_TESTS_HIJRI_YEARS_H
