// Calendars: all arithmetic with days, months and years, and their names. Every operation takes and gives
// Gregorian days (date.h); a calendar decides how they are counted, split into months and years, and called.
//
//   const std::unique_ptr<TCalendar> calendar(CreateCalendar());
//   calendar->AddMonths(Date(31, 1, 2024), 1);          // 29 February 2024, or a Hijri month later
//   calendar->GetDayOfWeekName(Date(1, 1, 2000));       // "Sat"
//
// Week days: Saturday 0, Sunday 1 ... Friday 6. Days are numbered from 1 January 1890, which is 1.
// A day that cannot be raises TXAssertion with the text that Date would give it ("year > 0", ...), also where
// a count leads beyond the year 65535. Calendars have no state: instances are interchangeable and may be
// shared by threads.
#ifndef QEL_CALENDAR_H
#define QEL_CALENDAR_H

#include "date.h"
#include "qel_cstring.h"
#include "qel_export.h"

namespace Qel::Sys::DateTime {

// The year that days are counted from.
constexpr int BASEDATE = 1890;

class QEL_API TCalendar {
 public:
  // Slot order is ABI.

  // `n` days, months or years later, earlier when negative. Where the new month is too short the day becomes
  // its last one. AddDays needs a day of 1890 or later, before and after.
  virtual Date AddDays(const Date& d, int n) const = 0;
  virtual Date AddMonths(const Date& d, int n) const = 0;
  virtual Date AddYears(const Date& d, int n) const = 0;

  // The numbers of the day in this calendar.
  virtual int GetDay(const Date& d) const = 0;
  virtual int GetMonth(const Date& d) const = 0;
  virtual int GetYear(const Date& d) const = 0;

  virtual int GetDayOfWeek(const Date& d) const = 0;

  // Lengths in days. Years and months are this calendar's; a month outside 1..12 has 0 days, whatever the
  // year.
  virtual unsigned short GetDaysInMonth(const Date& d) const = 0;
  virtual unsigned short GetDaysInMonth(int year, int month) const = 0;
  virtual int GetDaysInYear(const Date& d) const = 0;
  virtual int GetDaysInYear(int year) const = 0;

  // The Gregorian leap rule. Raises "year > 0" for a year below 1.
  virtual bool IsLeapYear(const Date& d) const = 0;
  virtual bool IsLeapYear(int year) const = 0;

  // The date as numbers, and as text of a style (date_text.h), in the order that SysFormat sets.
  virtual CString ToString(const Date& d) const = 0;
  virtual CString ToAsc(const Date& d, int style) const = 0;

  virtual unsigned short GetMonthsInYear() const = 0;

  // Names in the language of the resources. A month that does not exist has an empty name.
  virtual CString GetMonthName(const Date& d) const = 0;
  virtual CString GetMonthName(int month) const = 0;
  virtual CString GetDayOfWeekName(const Date& d) const = 0;

  // 1 on the first day of the year.
  virtual int GetDayOfYear(const Date& d) const = 0;

  // One day, month or year on or back, as AddDays, AddMonths and AddYears.
  virtual Date NextDay(const Date& d) const = 0;
  virtual Date PrevDay(const Date& d) const = 0;
  virtual Date NextMonth(const Date& d) const = 0;
  virtual Date PrevMonth(const Date& d) const = 0;
  virtual Date NextYear(const Date& d) const = 0;
  virtual Date PrevYear(const Date& d) const = 0;

  // Does nothing in both calendars; the slot is taken.
  virtual void SetFormat(const wchar_t* format) = 0;

  // The first and last day of the month or year that holds `d`.
  virtual Date StartOfMonth(const Date& d) const = 0;
  virtual Date StartOfYear(const Date& d) const = 0;
  virtual Date EndOfMonth(const Date& d) const = 0;
  virtual Date EndOfYear(const Date& d) const = 0;

  // Reads a date as users type it (date_text.h). The first returns 1, or 0 with `d` unchanged when the text
  // cannot be read; the second then gives today.
  virtual int FromString(const wchar_t* text, Date& d) const = 0;
  virtual Date FromString(const wchar_t* text) const = 0;

  // The day that has these numbers in this calendar. Raises what the constructors of Date and HDate raise,
  // also for numbers too large for their fields.
  virtual Date SetDate(int day, int month, int year) const = 0;

  // Days from `b` to `a`, negative when `a` is earlier.
  virtual int DateDifference(const Date& a, const Date& b) const = 0;

  // The number of a day and the day of a number. Raises "d.Year() >= BASEDATE" for a day before 1890, and
  // "(day > 0) && (day <= max_day)" for a number below 1.
  virtual int DaysFromDate(const Date& d) const = 0;
  virtual Date DaysToDate(int number) const = 0;

  virtual ~TCalendar();
};

// The same vocabulary for an object that holds a date of its own. Only GetMonthsInYear says anything.
class TBaseCalendar {
 public:
  int GetDayOfYear() const { return 0; }
  unsigned short GetDaysInMonth() const { return 0; }
  int GetDaysInYear() const { return 0; }
  CString GetMonthName() const { return {}; }
  unsigned short GetMonthsInYear() const { return 12; }
  bool IsLeapYear() const { return false; }
  void NextDay() {}
  void PrevDay() {}
  void NextMonth() {}
  void PrevMonth() {}
  void NextYear() {}
  void PrevYear() {}
};

// The Gregorian calendar, and the base of the Hijri one: months, years and names reach one another through
// the virtual operations, so that a derived calendar's own months count; the number of a day is the same in
// all.
class QEL_API TGCalendar : public TCalendar {
 public:
  Date AddDays(const Date& d, int n) const override;
  Date AddMonths(const Date& d, int n) const override;
  Date AddYears(const Date& d, int n) const override;
  int GetDay(const Date& d) const override;
  int GetMonth(const Date& d) const override;
  int GetYear(const Date& d) const override;
  int GetDayOfWeek(const Date& d) const override;
  unsigned short GetDaysInMonth(const Date& d) const override;
  unsigned short GetDaysInMonth(int year, int month) const override;
  int GetDaysInYear(const Date& d) const override;
  int GetDaysInYear(int year) const override;
  bool IsLeapYear(const Date& d) const override;
  bool IsLeapYear(int year) const override;
  CString ToString(const Date& d) const override;
  CString ToAsc(const Date& d, int style) const override;
  unsigned short GetMonthsInYear() const override;
  CString GetMonthName(const Date& d) const override;
  CString GetMonthName(int month) const override;
  CString GetDayOfWeekName(const Date& d) const override;
  int GetDayOfYear(const Date& d) const override;
  Date NextDay(const Date& d) const override;
  Date PrevDay(const Date& d) const override;
  Date NextMonth(const Date& d) const override;
  Date PrevMonth(const Date& d) const override;
  Date NextYear(const Date& d) const override;
  Date PrevYear(const Date& d) const override;
  void SetFormat(const wchar_t* format) override;
  Date StartOfMonth(const Date& d) const override;
  Date StartOfYear(const Date& d) const override;
  Date EndOfMonth(const Date& d) const override;
  Date EndOfYear(const Date& d) const override;
  int FromString(const wchar_t* text, Date& d) const override;
  Date FromString(const wchar_t* text) const override;
  Date SetDate(int day, int month, int year) const override;
  int DateDifference(const Date& a, const Date& b) const override;
  int DaysFromDate(const Date& d) const override;
  Date DaysToDate(int number) const override;
};

// A new calendar for the caller to delete: the Hijri one when UseHijriDate(), else the Gregorian one. Null
// when there is no memory.
QEL_API TCalendar* CreateCalendar();

}  // namespace Qel::Sys::DateTime

#endif  // QEL_CALENDAR_H
