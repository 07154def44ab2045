// Days and times of day as old settings hold them. New code uses date.h; these two are for TConfigFile's entries.
//
//   TDate(7, 3, 2024).AsString()      "March 7, 2024"; after TDate::SetPrintOption(2) "03/07/2024"
#ifndef QEL_LEGACYDATE_H
#define QEL_LEGACYDATE_H

#include <iosfwd>

#include "qel_cstring.h"
#include "qel_export.h"

// A Gregorian day of the years 1 to 9999, or none.
class QEL_API TDate {
 public:
  // No day.
  TDate() noexcept = default;
  // That day, or none when there is no such day.
  TDate(int day, int month, int year) noexcept;
  // Reads "month/day/year" in numbers, "-" or "." doing for "/", after white space; the stream is left behind the
  // year. No day when the text is none. The stream's locale does not matter.
  explicit TDate(std::wistream& stream);

  bool IsValid() const noexcept { return m_Day != 0; }
  // 0 each when there is no day.
  int Day() const noexcept { return m_Day; }
  int Month() const noexcept { return m_Month; }
  int Year() const noexcept { return m_Year; }

  // In English, by the print option; empty when there is no day.
  CString AsString() const;

  // How AsString writes: 0 "March 7, 2024", 1 "7-Mar-2024", 2 "03/07/2024"; any other number as 0, which is what
  // a process starts with. Returns the option before. One for the process, without a lock.
  static int SetPrintOption(int option) noexcept;

  bool operator==(const TDate&) const = default;

 private:
  int m_Day = 0, m_Month = 0, m_Year = 0;
};

// A time of day as three numbers. Nothing is checked.
class TTime {
 public:
  constexpr TTime() noexcept = default;
  constexpr TTime(unsigned hour, unsigned minute, unsigned second) noexcept
      : m_Hour(hour), m_Minute(minute), m_Second(second) {}

  constexpr unsigned Hour() const noexcept { return m_Hour; }
  constexpr unsigned Minute() const noexcept { return m_Minute; }
  constexpr unsigned Second() const noexcept { return m_Second; }

  bool operator==(const TTime&) const = default;

 private:
  unsigned m_Hour = 0, m_Minute = 0, m_Second = 0;
};

#endif  // QEL_LEGACYDATE_H
