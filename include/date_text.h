// Dates as text, typed and written, in the one order and the one calendar of the format settings (SysFormat):
//
//   SysFormat.DateFmt = Format::DF_DDMMYYYY;
//   Date due(1, 1, 1980);
//   if (StrToDate(L"7-3-24", due)) ...     // 7 March 2024; for a Hijri user the day of 7/3/1424
//   ToString(due);                         // "07-03-2024"
//
// Typed text is day-month-year or year-month-day with "-" between the numbers. Digits may be European,
// Arabic-Indic or eastern Arabic-Indic; before a number white space and a sign are skipped; numbers count
// modulo 65536; reading ends where the text stops to look so. A year below 100 is completed: 2000 is added,
// or 1400 in Hijri. Parts that the text does not give are today's.
//
// Readers never raise for bad text. They raise what the calendars raise, when a day that the text does not
// give (today, or a default handed in) has no Hijri date but needs one. Null text reads as empty.
//
// SysFormat is read without a lock; beside that the functions are free of shared state.
#ifndef QEL_DATE_TEXT_H
#define QEL_DATE_TEXT_H

#include "date.h"
#include "format.h"
#include "qel_cstring.h"
#include "qel_export.h"

namespace Qel::Sys::Text::Conversion {

using DateTime::Date;
using DateTime::HDate;
using DateTime::Time;
using Settings::Format;

// What reading a text found, for whoever has to explain it to the person who typed it.
struct DateReading {
  // What may be wrong with three numbers, in the order in which it is looked at.
  enum class Rule {
    None,   // it is a date
    Year,   // the year lies outside 1901..2099, or 1401..1499 in Hijri
    Month,  // there is no such month
    Day,    // the month has no such day
  };

  // One order tried. The second is tried only when the first gave no date, and starts from the numbers that
  // the first one left.
  struct Attempt {
    Format::DATE_FORMAT order = Format::DF_DDMMYYYY;  // or DF_YYYYMMDD
    unsigned short day = 0, month = 0, year = 0;  // as tested: the year completed, missing parts filled in
    bool yearCompleted = false;                   // the year was below 100
    Rule broken = Rule::None;
    int lastDay = 0;  // with Rule::Day: the month's last day
  };

  bool valid = false;
  Date date{1, 1, 1980};  // the day; 1 January 1980 when not valid
  bool hijri = false;     // the numbers were taken as Hijri

  int fields = 0;                  // how many numbers the text gave, 0..3
  unsigned short numbers[3] = {};  // these, in the order of the text, modulo 65536
  int starts[3] = {-1, -1, -1};    // index of each one's first character, its sign included
  int stopped = -1;  // index of the first character that is neither read nor trailing white space
  int attempts = 0;  // how many orders were tried, 0..2; an empty text tries none
  Attempt attempt[2];

  // The order that gave the day, or the last one tried.
  Format::DATE_FORMAT Order() const noexcept { return attempt[attempts > 1 ? 1 : 0].order; }
};

// Reads a date and reports how. Day-first then year-first when SysFormat.DateFmt is 0 or 1, else the other
// way round. Parts not given come from `fill`, or from today when it is null (the clock is read only then).
// An empty text gives `fill`, or 1 January 1980, and is valid.
// Kept: a text without any number, as "abc", is valid too and gives `fill` or today, because forms accept a
// part of a date and take today's for the rest. Who wants to refuse it looks at `fields` and `stopped`.
QEL_API DateReading ReadDateText(const wchar_t* text, const Date* fill = nullptr);

// Reads `text` in the order of `format` into the three numbers (those it does not give keep what they hold),
// completes a year below 100, and says whether the three are a date of the application's calendar. A format
// beyond 3 reads nothing and tests the numbers as passed in.
QEL_API bool ValidDateFormat(const wchar_t* text, Format::DATE_FORMAT format, unsigned short& day,
                             unsigned short& month, unsigned short& year);

// The day of a typed text, as ReadDateText finds it. False, `out` unchanged, when it is no date.
QEL_API bool StrToDate(const wchar_t* text, Date& out);
// The same; today when it is no date.
QEL_API Date StrToDate(const wchar_t* text);
// The same with every `separator` (unless it is 0) read as "-", and with the parts not given taken from
// `fill`, which is also the result when the text is empty or no date.
// Kept: the calendar is the application's in spite of the name, because forms in either calendar use it.
QEL_API Date StrToDateG(const wchar_t* text, wchar_t separator, Date fill);
// The Hijri date of a typed text whatever the application's calendar; today's when the text is empty or no
// date.
QEL_API HDate StrToDateH(const wchar_t* text);

// The three numbers joined by "-" in the order of SysFormat.DateFmt: 7-3-2024 (0), 07-03-2024 (1), 2024-3-7
// (2), 2024-03-07 (3). Another format gives an empty text. An HDate prints its Hijri numbers: nothing is
// converted.
QEL_API CString ToString(const Date& date);
// The same, a blank and the time of day, HH:MM:SS, also at midnight.
QEL_API CString ToString(const Time& time);
// Sets `text` to ToString(date).
QEL_API void DateToStr(const Date& date, CString& text);

// A Gregorian day for display. Style 1 is "7 March 2024" (year-first orders "2024 March 7"), 2 has the name
// of the day in front, "Thr 7 March 2024", 3 is month and year alone, 0 and any other ToString's form. Names
// come from the string resources. DateToAscH converts to Hijri first; DateToAsc does when the application
// works in Hijri dates.
QEL_API CString DateToAsc(const Date& date, int style);
QEL_API CString DateToAscG(const Date& date, int style);
QEL_API CString DateToAscH(const Date& date, int style);

// DateToAsc in style 0, " - " and the time of day, HH:MM or with `seconds` HH:MM:SS. DateTimeToStr2 has them.
QEL_API CString DateTimeToStr(const Time& time, bool seconds);
QEL_API CString DateTimeToStr2(const Time& time);

// The Gregorian day for a database, YYYY-MM-DD always: SQLdToStr in apostrophes, SQLdToStr2 bare.
QEL_API CString SQLdToStr(const Date& date);
QEL_API CString SQLdToStr2(const Date& date);
// Reads it back, every `separator` (unless it is 0) taken as "-": Gregorian, year-first and then day-first,
// parts not given from `fill`. Empty text gives `fill` and true, a text that is no date `fill` and false.
QEL_API bool SQLStrToDate(Date& out, const wchar_t* text, wchar_t separator, Date fill);

}  // namespace Qel::Sys::Text::Conversion

#endif  // QEL_DATE_TEXT_H
