#include <algorithm>
#include <string_view>

#include "hcalendar.h"
#include "hijri_table.h"
#include "regkey.h"
#include "settings_store.h"

namespace Qel::Sys::DateTime {

namespace {

constexpr int kMostDays = 2;
constexpr DWORD kInteger = REG_DWORD;

struct Month {
  int month = 0, year = 0;
};

// The number in `text`, or -1 when not all of it is ASCII digits.
int NumberOf(std::wstring_view text) {
  int number = 0;
  for (const wchar_t unit : text) {
    if (unit < L'0' || unit > L'9') return -1;
    number = number * 10 + static_cast<int>(unit - L'0');
  }
  return number;
}

// "1445-09"; the month is below 1 when it is none.
Month MonthOf(std::wstring_view entry) {
  if (entry.size() != 7 || entry[4] != L'-') return {};
  const int year = NumberOf(entry.substr(0, 4)), month = NumberOf(entry.substr(5));
  return year < 0 ? Month() : Month{month, year};
}

// Enters what is stored in `value`, unless there is something wrong with it.
THijriShiftFault Take(const TRegValue& value) {
  const Month month = MonthOf(value.GetName());
  const bool integer = value.GetDataType() == kInteger && value.GetDataSize() == sizeof(int);
  const int shift = integer ? static_cast<int>(static_cast<unsigned int>(value)) : 0;
  const THijriShiftFault fault = CheckHijriDateShift(month.month, month.year, shift);
  if (fault != THijriShiftFault::None) return fault;
  if (!integer) return THijriShiftFault::NotAnInteger;
  // Setting the 0 of a month without correction would enter and remove it by turns.
  if (shift != THCalendar::GetHijriDateShift(month.month, month.year))
    THCalendar::SetHijriDateShift(month.month, month.year, shift);
  return THijriShiftFault::None;
}

}  // namespace

THijriShiftFault CheckHijriDateShift(int hmonth, int hyear, int shift) noexcept {
  if (hmonth < 1 || hmonth > 12) return THijriShiftFault::NotAMonth;
  if (HijriRowOfYear(hyear) < 0) return THijriShiftFault::YearOutside;
  if (shift < -kMostDays || shift > kMostDays) return THijriShiftFault::ShiftOutside;
  return hmonth == 1 && shift > 0 ? THijriShiftFault::LateStartOfYear : THijriShiftFault::None;
}

std::vector<THijriShiftSkipped> LoadHijriDateShifts() {
  const CString path = CString(kSettingsKey) + L"\\" + kHijriShiftSection;
  const TRegKey section(HKEY_CURRENT_USER, path, KEY_READ, TRegKey::OpenOnly);
  std::vector<THijriShiftSkipped> skipped;
  for (TRegValueIterator at(section); at; ++at) {
    const TRegValue value(at);
    const THijriShiftFault fault = Take(value);
    if (fault != THijriShiftFault::None) skipped.push_back({value.GetName(), fault});
  }
  return skipped;
}

}  // namespace Qel::Sys::DateTime
