// The corrections of Hijri months. All are kept in one list; those of the table's years in an index beside it
// too, so that conversions never search. Not locked: see hcalendar.h.
#ifndef QEL_HIJRI_SHIFTS_H
#define QEL_HIJRI_SHIFTS_H

#include <cstdint>

#include "hcalendar.h"
#include "hijri_table.h"
#include "list.h"

namespace Qel::Sys::DateTime {

// Whether a year of the table has a correction other than 0. Apart from the corrections themselves, so that
// the years without, which is nearly all of them, do not reach for memory that was never written.
extern bool g_HijriCorrected[kHijriRows];

// The corrections of one year of the table.
struct HijriShifts {
  int shift[14];                // [month]; none for [13]: the next year's start is fixed
  std::uint16_t monthEnds[13];  // [m] is the last day of the year that belongs to one of the months 1 to m

  // By how many days the table's sum of the months before `month` changes.
  std::int64_t BeforeMonth(int month) const noexcept { return std::int64_t{shift[month]} - shift[1]; }

  // By how many days the month's length changes.
  std::int64_t OfMonth(int month) const noexcept { return std::int64_t{shift[month + 1]} - shift[month]; }

  // The month of the year's day 1..355, or 13 when the corrected months end before it.
  int MonthOfDay(int dayOfYear) const noexcept;
};

// Of the years with a correction; the others have zeros.
extern HijriShifts g_HijriShifts[kHijriRows];

// All corrections in the order in which they were entered, at most one a month.
List<THijriDateShift>& HijriShiftList();

// What SetHijriDateShift and GetHijriDateShift of the calendar do, for a month 1..12 of any year.
void SetHijriShift(int month, int year, int shift);
int GetHijriShift(int month, int year);

}  // namespace Qel::Sys::DateTime

#endif  // QEL_HIJRI_SHIFTS_H
