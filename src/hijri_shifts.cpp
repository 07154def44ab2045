#include "hijri_shifts.h"

#include <algorithm>

namespace Qel::Sys::DateTime {

bool g_HijriCorrected[kHijriRows];
HijriShifts g_HijriShifts[kHijriRows];

namespace {

// The entry of a month or null. Leaves the list's cursor alone, so that threads may read at the same time.
THijriDateShift* FindShift(int month, int year) {
  return HijriShiftList().find({month, year, 0});
}

// The days of a year are given to its months in order, each to the first month whose end has not passed: an
// end moved back behind earlier ones never comes into play, which is why the ends only grow. Days of a year
// stay below 400.
void UpdateEnds(HijriShifts& year, const HijriRow& row) {
  constexpr std::int64_t kBeyondAnyDay = 400;
  std::int64_t end = 0;
  for (int m = 1; m <= 12; ++m) {
    end = std::max(end, row.monthEnds[m] + year.BeforeMonth(m + 1));
    year.monthEnds[m] = static_cast<std::uint16_t>(std::min(end, kBeyondAnyDay));
  }
}

}  // namespace

List<THijriDateShift>& HijriShiftList() {
  static List<THijriDateShift> s_Shifts;
  return s_Shifts;
}

int HijriShifts::MonthOfDay(int dayOfYear) const noexcept {
  int month = (dayOfYear - 1) / 30 + 1;  // near enough to search from
  while (month > 1 && dayOfYear <= monthEnds[month - 1]) --month;
  while (month < 13 && dayOfYear > monthEnds[month]) ++month;
  return month;
}

void SetHijriShift(int month, int year, int shift) {
  if (THijriDateShift* const entry = FindShift(month, year); !entry) {
    HijriShiftList().append({month, year, shift});
  } else if (shift == 0) {
    HijriShiftList().remove(*entry);
  } else {
    entry->shift = shift;
  }
  const int row = HijriRowOfYear(year);
  if (row < 0) return;
  HijriShifts& shifts = g_HijriShifts[row];
  shifts.shift[month] = shift;
  UpdateEnds(shifts, kHijriTable.rows[row]);
  g_HijriCorrected[row] = std::any_of(shifts.shift, shifts.shift + 13, [](int s) { return s != 0; });
}

int GetHijriShift(int month, int year) {
  if (const int row = HijriRowOfYear(year); row >= 0) return g_HijriShifts[row].shift[month];
  const THijriDateShift* const entry = FindShift(month, year);
  return entry ? entry->shift : 0;
}

}  // namespace Qel::Sys::DateTime
