#include "support/plain_hijri.h"

#include "support/hijri_years.h"

using std::chrono::days;
using std::chrono::sys_days;

namespace {

// 1 Muharram of the year 1 is Julian day 1948439; 1 January 1970 is 2440588. To save time, from 43 cycles of
// 10631 days later on.
constexpr int kFirstYear = 43 * 30 + 1;
constexpr sys_days kStart(days(1948439 - 2440588 + 43 * 10631));

days TabularLength(int year) {
  for (const int leap : {2, 5, 7, 10, 13, 15, 18, 21, 24, 26, 29})
    if ((year - 1) % 30 + 1 == leap) return days(355);
  return days(354);
}

sys_days TabularStart(int year) {
  sys_days start = kStart;
  for (int y = kFirstYear; y < year; ++y) start += TabularLength(y);
  return start;
}

int TabularYear(sys_days day) {
  int year = kFirstYear;
  for (sys_days end = kStart + TabularLength(year); end <= day; end += TabularLength(year)) ++year;
  return year;
}

const ListedYear& Row(int year) {
  for (const ListedYear& listed : ListedHijriYears())
    if (listed.year == year) return listed;
  return ListedHijriYears().front();
}

bool StartsADayLater(int year) {
  for (const int late : {1420, 1421, 1423, 1427, 1428, 1429, 1430, 1431, 1434, 1436})
    if (year == late) return true;
  return false;
}

}  // namespace

int PlainHijri::CorrectedLength(int year, int month) const {
  const auto shift = [&](int m) {
    const auto found = shifts.find({year, m});
    return found == shifts.end() ? 0 : found->second;
  };
  const int next = month < 12 ? shift(month + 1) : 0;
  return Row(year).monthLengths[static_cast<std::size_t>(month)] - shift(month) + next;
}

std::optional<PlainHijriDate> PlainHijri::Corrected(sys_days day) const {
  int year = TabularYear(day);
  if (day < Row(year).start) --year;
  int left = static_cast<int>((day - Row(year).start).count()) + 1;
  for (int month = 1; month <= 12; ++month) {
    const int length = CorrectedLength(year, month);
    if (left <= length) return PlainHijriDate{left, month, year};
    left -= length;
  }
  return {};
}

std::optional<PlainHijri::Answer> PlainHijri::Tell(sys_days day) const {
  const auto corrected = Corrected(day);
  if (!corrected) return {};
  const ListedYear& row = Row(corrected->year);
  PlainHijriDate date{static_cast<int>((day - row.start).count()) + 1, 1, row.year};
  for (; date.month < 12 && date.day > row.monthLengths[static_cast<std::size_t>(date.month)]; ++date.month)
    date.day -= row.monthLengths[static_cast<std::size_t>(date.month)];
  return Answer{date, CorrectedLength(corrected->year, corrected->month)};
}

sys_days PlainHijri::DayOf(const PlainHijriDate& date) const {
  sys_days day = TabularStart(date.year) + days(date.day - 1);
  if (StartsADayLater(date.year)) day += days(1);
  for (int month = date.month - 1; month >= 1; --month) day += days(CorrectedLength(date.year, month));
  return day;
}
