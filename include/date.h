// Days and times as plain values: Date (a Gregorian day), HDate (a Hijri day) and Time (a Gregorian day with
// its time of day, to the millisecond).
//
//   Date due(7, 3, 2024);
//   due.ToString();                                     // "2024-03-07"
//   Time(7, 3, 2024, 14, 30, 0, 0) - Time(7, 3, 2024, 14, 0, 0, 0);   // 1800000
//
// What is stored is always Gregorian; HDate exists only where a Hijri date is read, shown or converted. The
// values know field ranges and the leap rule; arithmetic and names are the calendars' (calendar.h), text is
// date_text.h's.
//
// A broken invariant raises TXAssertion with the text of the condition, a setter before it changes anything.
// Values are copied freely and belong to one thread at a time. They are never deleted through a base class:
// none has a virtual destructor, since the two virtual operations are all that their table of operations may
// hold.
#ifndef QEL_DATE_H
#define QEL_DATE_H

#include <compare>
#include <cstdint>

#include "platform_types.h"
#include "qel_cstring.h"
#include "qel_export.h"

namespace Qel::Sys::DateTime {

// The Gregorian leap rule, for every year, also 0 and negative ones.
constexpr bool IsLeap(int year) {
  return year % 100 == 0 ? year % 400 == 0 : year % 4 == 0;
}

// Whether the application works in Hijri dates: the UseHijri field of SysFormat (format.h).
QEL_API bool UseHijriDate();

// A Gregorian day: day 1..31, month 1..12, year 1..65535.
class QEL_API Date {
 public:
  // Today: from the application context's time provider when a context is registered, else from the system's
  // local clock. Taken as it comes, unchecked.
  Date();

  // Raises the first of these that does not hold: "( month > 0) && (month < 13)", "year > 0",
  // "(day > 0) && (day <= max_day)".
  Date(unsigned short day, unsigned short month, unsigned short year)
      : m_Day(day), m_Month(month), m_Year(year) {
    const bool inEveryMonth = day - 1U < 28 && month - 1U < 12 && year != 0;
    if (!inEveryMonth) [[unlikely]]
      Date::AssertValid();
  }

  // The day of an OLE automation date (days since 30 December 1899, the fraction is the time of day, which is
  // dropped, never rounded up). Raises "VariantTimeToSystemTime(dt, &sd) != 0" outside the years 100..9999.
  Date(const double& oleDate);

  unsigned short Day() const noexcept { return m_Day; }
  unsigned short Month() const noexcept { return m_Month; }
  unsigned short Year() const noexcept { return m_Year; }

  // Store one field, or raise "( d > 0) && ( d < 32)", "( m > 0) && ( m < 13)" or "y > 0".
  // Kept: the day is not held against the month, because callers set the three one after the other and may
  // pass through 31 February on their way.
  void SetDay(unsigned short d);
  void SetMonth(unsigned short m);
  void SetYear(unsigned short y);

  // The OLE automation date of this day at 00:00. A day beyond its month's end (after SetDay) counts on into
  // the next month. Raises "SystemTimeToVariantTime(&sd, &OleDate) != 0" outside the years 100..9999; ToDATE
  // gives 0.0 there instead.
  operator double() const;
  double ToDATE() const noexcept;

  // Slot order is ABI.
 protected:
  virtual void AssertValid() const;  // raises what the constructor raises

 public:
  // "year-month-day" with at least four, two and two digits: "2024-03-07".
  virtual CString ToString() const;

  // The value that stands for "no date": 1 January 1980.
  static Date GetNoDate();

  // By day. A Time compared with a Date counts by its day alone.
  friend bool operator==(const Date& a, const Date& b) noexcept { return a.SortKey() == b.SortKey(); }
  friend std::strong_ordering operator<=>(const Date& a, const Date& b) noexcept {
    return a.SortKey() <=> b.SortKey();
  }

 protected:
  // For the library's own values: the three numbers as they stand, without check or clock.
  struct Unchecked {};
  constexpr Date(Unchecked, unsigned short day, unsigned short month, unsigned short year) noexcept
      : m_Day(day), m_Month(month), m_Year(year) {}
  explicit Date(const SYSTEMTIME& record) noexcept;

  std::uint64_t SortKey() const noexcept {
    return std::uint64_t{m_Year} << 32 | std::uint64_t{m_Month} << 16 | m_Day;
  }

  unsigned short m_Day;
  unsigned short m_Month;
  unsigned short m_Year;
};

// A Hijri day: day 1..30, month 1..12, year 1..65535. A Date in shape alone: its numbers mean nothing to a
// calendar, which takes Gregorian days (THCalendar converts).
class QEL_API HDate : public Date {
 public:
  // Kept: today's Gregorian numbers, unconverted, because callers that want today's Hijri date convert a Date
  // (THCalendar::GtoH). Raises "m_AppContext != nullptr" when no application context is registered.
  HDate();

  // Raises the first of these that does not hold: "( day > 0) && ( day < 31)", "( month > 0) && (month <
  // 13)", "year > 0".
  HDate(unsigned short day, unsigned short month, unsigned short year) : Date(Unchecked{}, day, month, year) {
    const bool valid = day - 1U < 30 && month - 1U < 12 && year != 0;
    if (!valid) [[unlikely]]
      HDate::AssertValid();
  }

 private:
  void AssertValid() const override;  // raises what the constructor raises
};

// A Gregorian day with its time of day.
class QEL_API Time : public Date {
 public:
  // Now, from the source that Date() has; all seven fields are of one reading of the clock.
  Time();

  // Raises what Date raises. The time of day is taken unchecked.
  Time(unsigned short day, unsigned short month, unsigned short year, unsigned short hour,
       unsigned short minute, unsigned short second, std::uint32_t msec)
      : Date(day, month, year), m_Hour(hour), m_Minute(minute), m_Second(second), m_MSec(msec) {}

  // Today at that time. Raises the first of "hour < 24", "minute < 60", "second < 60", "msec < 1000" that
  // does not hold.
  Time(unsigned short hour, unsigned short minute, unsigned short second, std::uint32_t msec);

  Time(const Time&) = default;
  Time& operator=(const Time&) = default;
  // That day at 00:00:00.000.
  Time& operator=(const Date& date) noexcept;

  unsigned short Hour() const noexcept { return m_Hour; }
  unsigned short Minute() const noexcept { return m_Minute; }
  unsigned short Second() const noexcept { return m_Second; }
  std::uint32_t MSec() const noexcept { return m_MSec; }

  // Store one field, or raise "h < 24", "m < 60", "s < 60" or "ms < 1000".
  void SetHour(unsigned short h);
  void SetMinute(unsigned short m);
  void SetSecond(unsigned short s);
  void SetMSec(std::uint32_t ms);

  // The day alone. Raises what Date raises.
  Date GetDate() const { return Date(m_Day, m_Month, m_Year); }

  // Raises the first of "hour < 24", "minute < 60", "second < 60", "msec < 1000" that does not hold.
  void AssertValid2() const;

  // The text of the day, then " HH:MM:SS" unless hour, minute and second are all 0. Milliseconds are never
  // shown.
  CString ToString() const override;

  // The difference in milliseconds. Kept: a year weighs 365 months and a month 30 days, because intervals are
  // stored on this scale; so it is the true one only within a month.
  std::int64_t operator-(const Time& other) const noexcept;

  friend bool operator==(const Time& a, const Time& b) noexcept { return (a <=> b) == 0; }
  friend std::strong_ordering operator<=>(const Time& a, const Time& b) noexcept {
    const auto byDay = a.SortKey() <=> b.SortKey();
    return byDay != 0 ? byDay : a.TimeKey() <=> b.TimeKey();
  }

  // The day that stands for "no date", at 00:00:00.000 or at the present time of day.
  static Time GetNoDateTime(bool zeroTime);

  // Moves `t` to the end of its day. Kept: 23:59:59.998, one millisecond short, because ranges are stored
  // with it and compared for equality.
  static void SetEndDayTime(Time& t) noexcept;

 private:
  explicit Time(const SYSTEMTIME& record) noexcept;

  // Wide enough for fields that were stored unchecked.
  struct DayTimeKey {
    std::uint64_t hourMinuteSecond;
    std::uint32_t msec;
    auto operator<=>(const DayTimeKey&) const = default;
  };
  DayTimeKey TimeKey() const noexcept {
    return {std::uint64_t{m_Hour} << 32 | std::uint64_t{m_Minute} << 16 | m_Second, m_MSec};
  }

  unsigned short m_Hour;
  unsigned short m_Minute;
  unsigned short m_Second;
  std::uint32_t m_MSec;
};

// Whether a typed date is one that the application takes; none of them raises. ValidDate is ValidHDate when
// UseHijriDate(), else ValidGDate.
QEL_API bool ValidDate(unsigned short day, unsigned short month, unsigned short year);
// A day of its month in a year 1901..2099, or in a year 1..99 taken as it stands.
QEL_API bool ValidGDate(unsigned short day, unsigned short month, unsigned short year);
// Day 1..30, month 1..12, year 1401..1499 or 0..99.
QEL_API bool ValidHDate(unsigned short day, unsigned short month, unsigned short year);

}  // namespace Qel::Sys::DateTime

// A day of its month, in any year but 0. Never raises.
QEL_API bool ValidDate2(unsigned short day, unsigned short month, unsigned short year);

// Day 1..30, month 1..12, any year but 0. Never raises.
QEL_API bool ValidHDate2(unsigned short day, unsigned short month, unsigned short year);

// True for day 1..31, month 1..12 and a year of 1 or more; the month's length does not count. Anything else
// raises qel_exception "Invalid date: day-month-year".
QEL_API bool CheckDate(int day, int month, int year);

#endif  // QEL_DATE_H
