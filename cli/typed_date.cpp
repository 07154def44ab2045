#include "typed_date.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "calendar.h"
#include "day.h"
#include "digits.h"
#include "exceptions.h"
#include "format.h"
#include "output.h"
#include "text.h"

namespace Cli {

namespace {

using namespace Qel::Sys::DateTime;
using Qel::Sys::Settings::Format;
using Qel::Sys::Settings::SysFormat;
using Qel::Sys::Text::DecimalDigitValue;
using Qel::Sys::Text::Conversion::DateReading;
using Qel::Sys::Text::Conversion::ReadDateText;
using Rule = DateReading::Rule;

std::string Order(Format::DATE_FORMAT order) {
  return Say(order == Format::DF_DDMMYYYY ? Text::DayFirst : Text::YearFirst);
}

bool IsComplete(const DateReading& reading) {
  return reading.valid && reading.fields == 3 && reading.stopped < 0;
}

// The runs of digits in the text joined by "-", when that is a date: "7/3/24" becomes "7-3-24".
CString WithHyphens(const CString& text) {
  std::wstring joined;
  bool inRun = false;
  for (const wchar_t unit : text.View()) {
    const bool digit = DecimalDigitValue(unit) >= 0;
    if (digit && !inRun && !joined.empty()) joined += L'-';
    if (digit) joined += unit;
    inRun = digit;
  }
  return IsComplete(ReadDateText(joined.c_str())) ? CString(joined) : CString();
}

// A date in the order and the calendar that the user asked for.
std::string Example() {
  const std::string day = "7-3", year = SysFormat.UseHijri ? "1446" : "2024";
  return InUserDigits(SysFormat.DateFmt == Format::DF_YYYYMMDD ? year + "-3-7" : day + "-" + year);
}

std::string WhatToWrite(const CString& text) {
  const CString better = WithHyphens(text);
  return better.IsEmpty() ? Say(Text::WriteDate, {Example()}) : Say(Text::WriteInstead, {Utf8(better)});
}

// The attempt that the user is likely to have meant: in a full date a number that can be no day stands for the year.
const DateReading::Attempt& Meant(const DateReading& reading) {
  constexpr int kLongestMonth = 31;
  const DateReading::Attempt &first = reading.attempt[0], &second = reading.attempt[1];
  const int yearIndex = second.order == Format::DF_DDMMYYYY ? 2 : 0;
  return reading.fields == 3 && reading.numbers[yearIndex] > kLongestMonth ? second : first;
}

// One of the three numbers of an attempt, and where it came from.
struct Part {
  std::string shown;  // as typed
  std::string where;  // " (position 4)", or that it is today's
  int position;
};

// `index` counts in the order of the text. The second attempt starts from what the first one left.
Part PartAt(const CString& text, const DateReading& reading, const DateReading::Attempt& attempt, int index,
            int value) {
  const Text origin = &attempt == &reading.attempt[0] ? Text::OfToday : Text::OfFirstOrder;
  if (index >= reading.fields) return {InUserDigits(value), Say(origin), text.GetLength() + 1};
  const int start = reading.starts[index];
  int end = start + 1;
  while (end < text.GetLength() && DecimalDigitValue(text[end]) >= 0) ++end;
  const int position = start + 1;
  return {Utf8(text.Mid(start, end - start)), Say(Text::AtPosition, {InUserDigits(position)}), position};
}

Refusal BrokenYear(const Part& year, const DateReading::Attempt& attempt, bool hijri) {
  std::string sentence = Say(Text::YearOutside, {year.shown, year.where, InUserDigits(hijri ? 1401 : 1901),
                                                 InUserDigits(hijri ? 1499 : 2099)});
  const bool otherCalendar = hijri ? ValidGDate(1, 1, attempt.year) : ValidHDate(1, 1, attempt.year);
  if (otherCalendar) sentence += Say(hijri ? Text::LeaveHijriOut : Text::AddHijri);
  return {"year", year.position, sentence};
}

Refusal BrokenDay(const Part& day, const DateReading::Attempt& attempt, bool hijri) {
  const std::string last = InUserDigits(attempt.lastDay);
  if (hijri) return {"day", day.position, Say(Text::NoSuchHijriDay, {day.shown, day.where, last})};
  const std::string month = Utf8(TGCalendar().GetMonthName(attempt.month));
  return {"day", day.position,
          Say(Text::NoSuchDay, {day.shown, day.where, month, InUserDigits(attempt.year), last})};
}

Refusal Broken(const CString& text, const DateReading& reading, const DateReading::Attempt& attempt) {
  const bool dayFirst = attempt.order == Format::DF_DDMMYYYY;
  if (attempt.broken == Rule::Year)
    return BrokenYear(PartAt(text, reading, attempt, dayFirst ? 2 : 0, attempt.year), attempt, reading.hijri);
  if (attempt.broken == Rule::Day)
    return BrokenDay(PartAt(text, reading, attempt, dayFirst ? 0 : 2, attempt.day), attempt, reading.hijri);
  const Part month = PartAt(text, reading, attempt, 1, attempt.month);
  return {"month", month.position,
          Say(Text::NoSuchMonth, {month.shown, month.where, InUserDigits(1), InUserDigits(12)})};
}

std::optional<Refusal> WhyRefused(const CString& text, const DateReading& reading) {
  if (reading.fields == 0)
    return Refusal{"empty", 1, Say(Text::TwoClauses, {Say(Text::NoNumber), WhatToWrite(text)})};
  if (reading.stopped >= 0) {
    const std::string read = Utf8(text.Left(reading.stopped).TrimRight());
    const std::string stop = Utf8(text.Mid(reading.stopped, 1));
    const std::string position = InUserDigits(reading.stopped + 1);
    return Refusal{"left_over", reading.stopped + 1,
                   Say(Text::TwoClauses, {Say(Text::StoppedAt, {read, stop, position}), WhatToWrite(text)})};
  }
  if (reading.valid) return std::nullopt;
  return Broken(text, reading, Meant(reading));
}

// Today has no Hijri date, and the text needs one to be completed.
TypedDate WithoutToday(const std::string& text) {
  TypedDate typed;
  typed.text = text;
  typed.refusal = Refusal{"no_hijri_date", 1, Say(Text::TodayHasNone) + HijriName(Date())};
  return typed;
}

std::string Line(const std::string& text) {
  return "  " + text + "\n";
}

// What was read, as typed: "7-3".
std::string ReadText(const TypedDate& typed) {
  const CString text = Wide(typed.text);
  const int stopped = typed.reading.stopped;
  return Utf8((stopped < 0 ? CString(text) : text.Left(stopped)).Trim());
}

}  // namespace

TypedDate ReadTypedDate(const std::string& text) {
  const CString wide = Wide(text);
  TypedDate typed;
  typed.text = Utf8(wide);
  try {
    typed.reading = ReadDateText(wide);
    typed.refusal = WhyRefused(wide, typed.reading);
  } catch (Qel::Sys::Exceptions::qel_exception* e) {
    e->Delete();
    return WithoutToday(typed.text);
  }
  return typed;
}

void Complain(const TypedDate& typed, const std::string& where) {
  Complain(Joined({where, "\"", typed.text, "\": ", typed.refusal->text}));
}

std::string Explanation(const TypedDate& typed) {
  const DateReading& reading = typed.reading;
  if (reading.fields == 0) return {};
  std::string lines;
  for (int i = 0; i < reading.attempts; ++i) {
    const DateReading::Attempt& attempt = reading.attempt[i];
    if (attempt.broken == Rule::None)
      lines += Line(Say(Text::ReadAs, {ReadText(typed), Order(attempt.order)}));
    else
      lines +=
          Line(Say(Text::Rejected, {Order(attempt.order), Broken(Wide(typed.text), reading, attempt).text}));
  }
  if (reading.fields < 3) lines += Line(Say(Text::FromToday));
  const DateReading::Attempt& last = reading.attempt[reading.attempts > 1 ? 1 : 0];
  if (last.yearCompleted) lines += Line(Say(Text::YearCompleted, {InUserDigits(last.year)}));
  return lines + Line(Say(reading.hijri ? Text::AsHijri : Text::AsGregorian));
}

JsonObject AsJson(const std::string& input, const Date& day) {
  JsonObject object;
  object.Add("input", input);
  AddDay(object, day);
  return object.Add("error", nullptr);
}

JsonObject AsJson(const std::string& input, const Refusal& refusal) {
  JsonObject object;
  object.Add("input", input).Add("date", nullptr).Add("gregorian", nullptr).Add("hijri", nullptr);
  return object.Add("weekday", nullptr).Add("error", AsJson(refusal));
}

JsonObject ReadingAsJson(const TypedDate& typed) {
  const DateReading& reading = typed.reading;
  const DateReading::Attempt& last = reading.attempt[reading.attempts > 1 ? 1 : 0];
  JsonObject object;
  object.Add("fields", reading.fields).Add("calendar", reading.hijri ? "hijri" : "gregorian");
  object.Add("order", last.order == Format::DF_DDMMYYYY ? "dmy" : "ymd");
  object.Add("day", last.day).Add("month", last.month).Add("year", last.year);
  object.Add("year_completed", last.yearCompleted);
  return reading.stopped < 0 ? object.Add("stopped", nullptr) : object.Add("stopped", reading.stopped + 1);
}

}  // namespace Cli
