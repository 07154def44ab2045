#include "date_text.h"

#include <string>

#include "calendar.h"
#include "day_number.h"
#include "digits.h"
#include "hcalendar.h"
#include "padded_number.h"
#include "white_space.h"

namespace Qel::Sys::Text::Conversion {

using DateTime::TGCalendar;
using DateTime::THCalendar;
using DateTime::UseHijriDate;
using Settings::SysFormat;
using Rule = DateReading::Rule;

namespace {

bool IsDayFirst(Format::DATE_FORMAT format) {
  return format == Format::DF_DMY || format == Format::DF_DDMMYYYY;
}

// Reading.

constexpr int kNumbers = 3;

// What a text is read for.
struct Rules {
  bool hijri;
  bool dayFirst;  // the order to try first
};

struct Parts {
  unsigned short day = 0, month = 0, year = 0;
};

// Finds the numbers of a typed text as the pattern "%hu-%hu-%hu" does, a separator of the caller's read as
// "-".
class Scanner {
 public:
  explicit Scanner(wchar_t separator) : m_Separator(separator ? separator : L'-') {}

  // Stores what `text` gives, from numbers[0] on, and where each begins, and returns how many that were.
  // `stop` is the first character that was not read, trailing white space apart.
  int Scan(const wchar_t* text, unsigned short (&numbers)[kNumbers], const wchar_t* (&starts)[kNumbers],
           const wchar_t*& stop) const {
    for (int count = 0;; ++text) {
      const wchar_t* const start = SkipWhiteSpace(text);
      const wchar_t* const end = ReadNumber(start, numbers[count]);
      if (!end) {
        const bool openEnd = count > 0 && *start == L'\0';  // "7-3-": the last separator led nowhere
        stop = openEnd ? text - 1 : start;
        return count;
      }
      starts[count++] = start;
      text = end;
      if (count == kNumbers || At(text) != L'-') {
        stop = SkipWhiteSpace(text);
        return count;
      }
    }
  }

 private:
  wchar_t At(const wchar_t* place) const { return *place == m_Separator ? L'-' : *place; }

  const wchar_t* SkipWhiteSpace(const wchar_t* text) const {
    while (IsWhiteSpace(At(text))) ++text;
    return text;
  }

  // The end of the number that starts at `text`, its value modulo 65536; null when there is none.
  const wchar_t* ReadNumber(const wchar_t* text, unsigned short& number) const {
    const bool negative = At(text) == L'-';
    if (negative || At(text) == L'+') ++text;
    int digit = DecimalDigitValue(At(text));
    if (digit < 0) return nullptr;
    unsigned value = 0;
    for (; digit >= 0; digit = DecimalDigitValue(At(++text)))
      value = 10 * value + static_cast<unsigned>(digit);
    number = static_cast<unsigned short>(negative ? 0 - value : value);
    return text;
  }

  wchar_t m_Separator;
};

Rules RulesOfSettings() {
  return {UseHijriDate(), IsDayFirst(SysFormat.DateFmt)};
}

void Assign(const unsigned short (&numbers)[kNumbers], int count, bool dayFirst, Parts& parts) {
  if (count > 0) (dayFirst ? parts.day : parts.year) = numbers[0];
  if (count > 1) parts.month = numbers[1];
  if (count > 2) (dayFirst ? parts.year : parts.day) = numbers[2];
}

// Whether the year had to be completed.
bool CompleteYear(unsigned short& year, bool hijri) {
  if (year >= 100) return false;
  year = static_cast<unsigned short>(year + (hijri ? 1400 : 2000));
  return true;
}

bool IsValid(const Parts& parts, bool hijri) {
  return hijri ? DateTime::ValidHDate(parts.day, parts.month, parts.year)
               : DateTime::ValidGDate(parts.day, parts.month, parts.year);
}

// Says why parts with a completed year are not valid.
void Explain(const Parts& parts, bool hijri, DateReading::Attempt& attempt) {
  const int firstYear = hijri ? 1401 : 1901, lastYear = hijri ? 1499 : 2099;
  if (parts.year < firstYear || parts.year > lastYear) {
    attempt.broken = Rule::Year;
  } else if (parts.month < 1 || parts.month > 12) {
    attempt.broken = Rule::Month;
  } else {
    attempt.broken = Rule::Day;
    attempt.lastDay = hijri ? 30 : DateTime::MonthLength(parts.year, parts.month);
  }
}

Parts PartsOf(const Date& date, bool hijri) {
  if (!hijri) return {date.Day(), date.Month(), date.Year()};
  const HDate h = THCalendar::GtoH(date);
  return {h.Day(), h.Month(), h.Year()};
}

// Tries one order. `parts` keep what they hold where the text gives nothing.
bool Try(bool dayFirst, DateReading& reading, Parts& parts) {
  DateReading::Attempt& attempt = reading.attempt[reading.attempts++];
  attempt.order = dayFirst ? Format::DF_DDMMYYYY : Format::DF_YYYYMMDD;
  Assign(reading.numbers, reading.fields, dayFirst, parts);
  attempt.yearCompleted = CompleteYear(parts.year, reading.hijri);
  attempt.day = parts.day;
  attempt.month = parts.month;
  attempt.year = parts.year;
  if (IsValid(parts, reading.hijri)) return true;
  Explain(parts, reading.hijri, attempt);
  return false;
}

DateReading Read(const wchar_t* text, wchar_t separator, Rules rules, const Date* fill) {
  DateReading reading;
  reading.hijri = rules.hijri;
  if (!text || !*text) {
    reading.valid = true;
    if (fill) reading.date = *fill;
    return reading;
  }
  const wchar_t *starts[kNumbers], *stop;
  reading.fields = Scanner(separator).Scan(text, reading.numbers, starts, stop);
  for (int i = 0; i < reading.fields; ++i) reading.starts[i] = static_cast<int>(starts[i] - text);
  if (*stop) reading.stopped = static_cast<int>(stop - text);

  Parts parts;
  if (reading.fields < kNumbers) parts = PartsOf(fill ? *fill : Date(), rules.hijri);
  // Kept: the second order starts from what the first one left in the parts, a completed year too, because
  // texts like "31" have always been refused or taken by it.
  reading.valid = Try(rules.dayFirst, reading, parts) || Try(!rules.dayFirst, reading, parts);
  if (!reading.valid) return reading;
  reading.date = rules.hijri ? THCalendar::HtoG(HDate(parts.day, parts.month, parts.year))
                             : Date(parts.day, parts.month, parts.year);
  return reading;
}

// Writing.

// A text in the making, from numbers of dates and times alone; no heap until it is done.
class Line {
 public:
  // cppcheck-suppress uninitMemberVar
  Line() : m_End(m_Text) {}  // written out, or Line() would clear the room first

  Line& operator<<(wchar_t ch) {
    *m_End++ = ch;
    return *this;
  }

  Line& Number(unsigned value, int width = 1) {
    m_End = WritePadded(m_End, value, width);
    return *this;
  }

  // Nothing for a format beyond 3.
  Line& Day(const Date& d, Format::DATE_FORMAT format) {
    const bool padded = format == Format::DF_DDMMYYYY || format == Format::DF_YYYYMMDD;
    if (format < Format::DF_DMY || format > Format::DF_YYYYMMDD) return *this;
    return IsDayFirst(format) ? Joined({d.Day(), 2}, {d.Month(), 2}, {d.Year(), 4}, padded)
                              : Joined({d.Year(), 4}, {d.Month(), 2}, {d.Day(), 2}, padded);
  }

  Line& TimeOfDay(const Time& t, bool seconds) {
    Number(t.Hour(), 2) << L':';
    Number(t.Minute(), 2);
    return seconds ? (*this << L':').Number(t.Second(), 2) : *this;
  }

  CString Text() const { return CString(std::wstring(m_Text, static_cast<std::size_t>(m_End - m_Text))); }

 private:
  struct Part {
    unsigned short value;
    int width;
  };

  Line& Joined(Part a, Part b, Part c, bool padded) {
    Number(a.value, padded ? a.width : 1) << L'-';
    Number(b.value, padded ? b.width : 1) << L'-';
    return Number(c.value, padded ? c.width : 1);
  }

  wchar_t m_Text[64];  // six numbers of five digits at most and what joins them
  wchar_t* m_End;
};

// The styles 1 to 3 of DateToAsc.
CString WithNames(const Date& numbers, const CString& month, const CString& dayName, int style) {
  const bool dayFirst = IsDayFirst(SysFormat.DateFmt);
  const CString day = Line().Number(numbers.Day()).Text();
  const CString year = Line().Number(numbers.Year()).Text();
  if (style == 3) return dayFirst ? month + L" " + year : year + L" " + month;
  const CString text = dayFirst ? day + L" " + month + L" " + year : year + L" " + month + L" " + day;
  return style == 2 ? dayName + L" " + text : text;
}

bool HasNames(int style) {
  return style >= 1 && style <= 3;
}

}  // namespace

DateReading ReadDateText(const wchar_t* text, const Date* fill) {
  return Read(text, 0, RulesOfSettings(), fill);
}

bool ValidDateFormat(const wchar_t* text, Format::DATE_FORMAT format, unsigned short& day,
                     unsigned short& month, unsigned short& year) {
  Parts parts{day, month, year};
  const bool known = format >= Format::DF_DMY && format <= Format::DF_YYYYMMDD;
  if (known && text) {
    unsigned short numbers[kNumbers];
    const wchar_t *starts[kNumbers], *stop;
    const int count = Scanner(0).Scan(text, numbers, starts, stop);
    Assign(numbers, count, IsDayFirst(format), parts);
  }
  CompleteYear(parts.year, UseHijriDate());
  day = parts.day;
  month = parts.month;
  year = parts.year;
  return IsValid(parts, UseHijriDate());
}

bool StrToDate(const wchar_t* text, Date& out) {
  const DateReading reading = ReadDateText(text);
  if (reading.valid) out = reading.date;
  return reading.valid;
}

Date StrToDate(const wchar_t* text) {
  const DateReading reading = ReadDateText(text);
  return reading.valid ? reading.date : Date();
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): hosts know it so
Date StrToDateG(const wchar_t* text, wchar_t separator, Date fill) {
  const DateReading reading = Read(text, separator, RulesOfSettings(), &fill);
  return reading.valid ? reading.date : fill;
}

HDate StrToDateH(const wchar_t* text) {
  const DateReading reading = Read(text, 0, {true, IsDayFirst(SysFormat.DateFmt)}, nullptr);
  if (!reading.valid || reading.attempts == 0) return THCalendar::GtoH(Date());
  const DateReading::Attempt& read = reading.attempt[reading.attempts - 1];
  return HDate(read.day, read.month, read.year);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): hosts know it so
bool SQLStrToDate(Date& out, const wchar_t* text, wchar_t separator, Date fill) {
  const DateReading reading = Read(text, separator, {false, false}, &fill);
  out = reading.valid ? reading.date : fill;
  return reading.valid;
}

CString ToString(const Date& date) {
  return Line().Day(date, SysFormat.DateFmt).Text();
}

CString ToString(const Time& time) {
  return (Line().Day(time, SysFormat.DateFmt) << L' ').TimeOfDay(time, true).Text();
}

void DateToStr(const Date& date, CString& text) {
  text = ToString(date);
}

CString DateToAsc(const Date& date, int style) {
  return UseHijriDate() ? DateToAscH(date, style) : DateToAscG(date, style);
}

CString DateToAscG(const Date& date, int style) {
  if (!HasNames(style)) return ToString(date);
  const TGCalendar calendar;
  return WithNames(date, calendar.GetMonthName(date), calendar.GetDayOfWeekName(date), style);
}

CString DateToAscH(const Date& date, int style) {
  const HDate h = THCalendar::GtoH(date);
  if (!HasNames(style)) return ToString(h);
  const THCalendar calendar;
  return WithNames(h, calendar.GetMonthName(h.Month()), calendar.GetDayOfWeekName(date), style);
}

CString DateTimeToStr(const Time& time, bool seconds) {
  return DateToAsc(time, 0) + L" - " + Line().TimeOfDay(time, seconds).Text();
}

CString DateTimeToStr2(const Time& time) {
  return DateTimeToStr(time, true);
}

CString SQLdToStr(const Date& date) {
  return ((Line() << L'\'').Day(date, Format::DF_YYYYMMDD) << L'\'').Text();
}

CString SQLdToStr2(const Date& date) {
  return Line().Day(date, Format::DF_YYYYMMDD).Text();
}

}  // namespace Qel::Sys::Text::Conversion
