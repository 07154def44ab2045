#include "hijri_shifts.h"

#include <algorithm>

#include "hcalendar.h"
#include "list.h"

namespace Qel::Sys::DateTime {

HijriShifts g_HijriShifts[kHijriRows];

namespace {

using ShiftList = List<THijriDateShift>;

ShiftList& AllShifts() {
  static ShiftList s_Shifts;
  return s_Shifts;
}

// The entry of a month or null. Leaves the list's cursor alone, so that threads may read at the same time.
THijriDateShift* FindShift(int month, int year) {
  return AllShifts().find({month, year, 0});
}

// The days of a year are given to its months in order, each to the first month whose end has not passed: an
// end moved back behind earlier ones never comes into play, which is why the ends only grow. Days of a year
// stay below 400.
void UpdateEnds(HijriShifts& year, const HijriRow& row) {
  constexpr std::int64_t kBeyondAnyDay = 400;
  year.any = std::any_of(year.shift, year.shift + 13, [](int shift) { return shift != 0; });
  std::int64_t end = 0;
  for (int m = 1; m <= 12; ++m) {
    end = std::max(end, row.monthEnds[m] + year.BeforeMonth(m + 1));
    year.monthEnds[m] = static_cast<std::uint16_t>(std::min(end, kBeyondAnyDay));
  }
}

}  // namespace

void SetHijriShift(int month, int year, int shift) {
  if (THijriDateShift* const entry = FindShift(month, year); !entry) {
    AllShifts().append({month, year, shift});
  } else if (shift == 0) {
    AllShifts().remove(*entry);
  } else {
    entry->shift = shift;
  }
  const int row = HijriRowOfYear(year);
  if (row < 0) return;
  g_HijriShifts[row].shift[month] = shift;
  UpdateEnds(g_HijriShifts[row], kHijriTable.rows[row]);
}

int GetHijriShift(int month, int year) {
  if (const int row = HijriRowOfYear(year); row >= 0) return g_HijriShifts[row].shift[month];
  const THijriDateShift* const entry = FindShift(month, year);
  return entry ? entry->shift : 0;
}

}  // namespace Qel::Sys::DateTime
