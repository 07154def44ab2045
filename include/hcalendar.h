// The Hijri calendar. Like every calendar it takes and returns Gregorian days: for a Hijri user the next
// month or the end of the year lies on Hijri months, and what is stored is always the Gregorian day.
//
//   THCalendar::HtoG(HDate(1, 9, 1445));                       // 11 March 2024
//   THCalendar::GtoH(Date(11, 3, 2024), nullptr);              // 1/9/1445
//   THCalendar::SetHijriDateShift(9, 1445, 1);                 // Ramadan 1445 began a day later here
//
// Months come from a table of the years 1306..1499 (7 September 1888 to 26 November 2076) and from
// corrections, by which an installation moves the start of a month to follow the announced sighting. A
// correction of s days makes the month begin s days later and the month before it s days longer; on month 1
// it only takes s days from Muharram, since the table fixes the start of the year.
//
// Outside the table a Gregorian day has no Hijri date: the conversion raises "( day > 0) && ( day < 31)"
// before it and "( month > 0) && (month < 13)" behind it. A Hijri year behind it is converted with the month
// lengths of 1306 and the tabular start of the year, one before it raises "d.Year() >= BASEDATE".
//
// Kept: GtoH tells the date of the table, without corrections, and the month's length with them, while HtoG
// converts with them, because hosts show the one and store by the other. So GtoH(HtoG(h)) is not h near a
// correction.
// Kept: a positive correction of month 1 leaves the last days of its year without a date (they raise
// "( month > 0) && (month < 13)"), because the year's start is the table's. Enter negative ones only, or
// none.
// Kept: 30/12/1421 is the same day as 1/1/1422, because stored dates rest on the starts of both years: the
// months of 1421 add up to 354 days, but the next year starts after 353.
// Kept: IsLeapYear stays the Gregorian rule for whatever year it gets, because hosts ask it about the stored
// day's.
//
// Corrections are kept in the settings of the current user: section HijriShift, entries such as 1445-09 whose
// value is the shift. LoadHijriDateShifts() enters them.
//
// Corrections have no lock: set or load them while the host starts, before dates are converted. All else is free of
// shared state and may be used from several threads.
#ifndef QEL_HCALENDAR_H
#define QEL_HCALENDAR_H

#include <vector>

#include "calendar.h"
#include "date.h"
#include "qel_cstring.h"
#include "qel_export.h"

namespace Qel::Sys::DateTime {

// A correction: month 1..12, its year, and by how many days it begins later (or earlier, when negative).
struct THijriDateShift {
  int hmonth;
  int hyear;
  int shift;

  // Equal when they are for the same month, whatever the shift: a list holds at most one of them.
  friend bool operator==(const THijriDateShift& a, const THijriDateShift& b) noexcept {
    return a.hmonth == b.hmonth && a.hyear == b.hyear;
  }
};

class QEL_API THCalendar : public TGCalendar {
 public:
  // The correction of a month, 0 when it has none or there is no such month.
  static int GetHijriDateShift(int hmonth, int hyear);

  // Sets, replaces, or with a shift of 0 removes the correction of a month. Raises
  // "( hmonth > 0 ) && ( hmonth < 13 )" for any other month, and the list's "n != 0" when there is no memory.
  // Kept: a 0 for a month without correction is entered too, and the next 0 removes it, because installations
  // count the entries that they made.
  static void SetHijriDateShift(int hmonth, int hyear, int shift);

  // The Hijri date of a Gregorian day, and its month's length in `*daysInMonth` unless that is null.
  static HDate GtoH(const Date& d, unsigned short* daysInMonth = nullptr) {
    return GregorianToHijri(d, daysInMonth);
  }

  // The Gregorian day of a Hijri date.
  // Kept: day 30 of a month with 29 days is the first of the next, because an announced month may run longer
  // than the listed one.
  static Date HtoG(const HDate& h) { return FixedHijriToGregorian(h); }

  // The first and the last day of the table, and whether a day lies between them and so has a Hijri date.
  static Date FirstDay();
  static Date LastDay();
  static bool HasHijriDate(const Date& d) { return d >= FirstDay() && d <= LastDay(); }

  using TGCalendar::FromString;

  Date AddMonths(const Date& d, int n) const override;
  int GetDay(const Date& d) const override;
  int GetMonth(const Date& d) const override;
  int GetYear(const Date& d) const override;
  // With corrections: of the month that holds the day by them, which need not be GetMonth(d).
  unsigned short GetDaysInMonth(const Date& d) const override;
  // Raises what HDate raises when there is no such month.
  unsigned short GetDaysInMonth(int year, int month) const override;
  int GetDaysInYear(const Date& d) const override;
  int GetDaysInYear(int year) const override;
  CString ToString(const Date& d) const override;
  CString ToAsc(const Date& d, int style) const override;
  CString GetMonthName(const Date& d) const override;
  CString GetMonthName(int month) const override;
  int GetDayOfYear(const Date& d) const override;
  // With a correction the start of a month may lie behind the day asked for.
  Date StartOfMonth(const Date& d) const override;
  Date StartOfYear(const Date& d) const override;
  Date EndOfMonth(const Date& d) const override;
  Date EndOfYear(const Date& d) const override;
  // Reads a Hijri date, always. Today when the text is empty or no date.
  // Kept: FromString(text, out) follows the application's calendar instead, because forms with a calendar of
  // their own use this one.
  Date FromString(const wchar_t* text) const override;
  Date SetDate(int day, int month, int year) const override;

 protected:
  // The steps of the conversions, for calendars derived from this one. Years are Hijri, days of a year count
  // from 1. They raise what HDate raises for numbers that are no date.
  // NOLINTBEGIN(bugprone-reserved-identifier): names that derived calendars of hosts use

  // The tabular rule alone. Raise
  // "VarUdateFromDate( tempdt, VAR_DATEVALUEONLY | VAR_CALENDAR_HIJRI, &dt ) == S_OK" for a day before the
  // first Hijri year, "VarDateFromUdate( &dt, VAR_DATEVALUEONLY | VAR_CALENDAR_HIJRI, &date ) == S_OK" for
  // one behind the Gregorian year 9999. The length of the month is the table's.
  static HDate BaseGregorianToHijri(const Date& d, unsigned short* daysInMonth = nullptr);
  static Date BaseHijriToGregorian(const HDate& h);
  // The length of a month by the table, without corrections. Years outside the table have the months of 1306.
  static unsigned short CalcDaysInHijriMonth(const HDate& h);
  // Moves `d` by the correction of its tabular month, `sign` telling the direction, and `*daysInMonth` with
  // it.
  static void FixHijriDate(Date& d, unsigned short* daysInMonth, int sign);
  // The Hijri date with corrections.
  static HDate FixedGregorianToHijri(const Date& d);
  static Date FixedHijriToGregorian(const HDate& h);
  static Date HijriToGregorian(const HDate& h) { return FixedHijriToGregorian(h); }
  // The Hijri date without corrections, the length of the month that holds the day with them.
  static HDate GregorianToHijri(const Date& d, unsigned short* daysInMonth);
  // The year of a day and the day's place in it.
  static int _DayOfYear(const Date& d, int& year);
  // Day and month of a place in a year, with corrections.
  static void _DecodeHDate(int year, int dayOfYear, int& day, int& month);
  // The number of the Gregorian day, as DaysFromDate.
  static int _EncodeDate(const HDate& h);
  // The length of a month with corrections.
  static int _GetDaysOfMonth(int year, int month);
  // NOLINTEND(bugprone-reserved-identifier)
};

// The section of the settings, and what is wrong with a correction that is stored there.
inline constexpr const wchar_t* kHijriShiftSection = L"HijriShift";
enum class THijriShiftFault {
  None,
  NotAMonth,        // the entry's name is no year and month such as 1445-09
  YearOutside,      // the year is not in the table
  NotAnInteger,     // the value is not stored as one
  ShiftOutside,     // it is more than two days
  LateStartOfYear,  // Muharram cannot begin later than the table says
};
struct THijriShiftSkipped {
  CString entry;
  THijriShiftFault fault;
};

// What a correction would be skipped for.
QEL_API THijriShiftFault CheckHijriDateShift(int hmonth, int hyear, int shift) noexcept;

// Enters the stored corrections; those that are set and not stored stay. Returns what was skipped. Reads alone: no
// section is made, and settings that cannot be read count as empty.
QEL_API std::vector<THijriShiftSkipped> LoadHijriDateShifts();

}  // namespace Qel::Sys::DateTime

#endif  // QEL_HCALENDAR_H
