// A second Hijri calendar, slow and plain: every step of the conversions taken one day, month and year at a
// time, to hold the fast one against. It shares nothing with the library but the list of years.
#ifndef QEL_TESTS_PLAIN_HIJRI_H
#define QEL_TESTS_PLAIN_HIJRI_H

#include <chrono>
#include <map>
#include <optional>
#include <utility>

struct PlainHijriDate {
  int day, month, year;
  bool operator==(const PlainHijriDate&) const = default;
};

class PlainHijri {
 public:
  // Corrections by (year, month).
  std::map<std::pair<int, int>, int> shifts;

  struct Answer {
    PlainHijriDate date;
    int daysInMonth;
    bool operator==(const Answer&) const = default;
  };

  // The date of a day with corrections; nothing when the corrected months end before it.
  std::optional<PlainHijriDate> Corrected(std::chrono::sys_days day) const;

  // What the calendar tells of a day: the date without corrections and the length of the month with them.
  std::optional<Answer> Tell(std::chrono::sys_days day) const;

  // The day of a date, with corrections.
  std::chrono::sys_days DayOf(const PlainHijriDate& date) const;

  int CorrectedLength(int year, int month) const;
};

#endif  // QEL_TESTS_PLAIN_HIJRI_H
