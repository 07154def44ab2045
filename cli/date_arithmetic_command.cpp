#include <memory>
#include <optional>

#include "calendar.h"
#include "commands.h"
#include "day.h"
#include "exceptions.h"
#include "hcalendar.h"
#include "output.h"
#include "text.h"
#include "typed_date.h"

namespace Cli {

namespace {

using namespace Qel::Sys::DateTime;

constexpr int kLastYear = 65535;  // that a date can hold

int RefuseDate(const std::string& input, const Refusal& refusal, const Options& options) {
  if (options.json)
    Print(AsJson(input, refusal).Line());
  else
    Complain(Joined({"\"", input, "\": ", refusal.text}));
  return kUnreadable;
}

// The date, or nothing after having said why.
std::optional<Date> ReadOrComplain(const std::string& text, const Options& options) {
  const TypedDate typed = ReadTypedDate(text);
  if (!typed.refusal) return typed.reading.date;
  RefuseDate(typed.text, *typed.refusal, options);
  return std::nullopt;
}

using Addition = Date (TCalendar::*)(const Date&, int) const;

Addition AdditionOf(const std::string& unit) {
  if (unit == "days" || unit == "day") return &TCalendar::AddDays;
  if (unit == "months" || unit == "month") return &TCalendar::AddMonths;
  if (unit == "years" || unit == "year") return &TCalendar::AddYears;
  return nullptr;
}

// Nothing when the calendar does not reach so far. Hijri months are known only for the years of the table.
std::optional<Date> Add(const Date& day, Addition add, int count) {
  try {
    const std::unique_ptr<const TCalendar> calendar(CreateCalendar());
    const Date sum = (calendar.get()->*add)(day, count);
    if (UseHijriDate() && !THCalendar::HasHijriDate(sum)) return std::nullopt;
    return sum;
  } catch (Qel::Sys::Exceptions::qel_exception* e) {
    e->Delete();
    return std::nullopt;
  }
}

std::string OutsideText() {
  if (!UseHijriDate()) return Say(Text::OutsideCalendar, {InUserDigits(BASEDATE), InUserDigits(kLastYear)});
  return Say(Text::OutsideTable,
             {GregorianName(THCalendar::FirstDay()), GregorianName(THCalendar::LastDay())});
}

}  // namespace

int RunDateAdd(const Options& options) {
  LoadHijriDateShifts();
  const std::string &text = options.operands[0], &number = options.operands[1], &unit = options.operands[2];
  const Addition add = AdditionOf(unit);
  if (!add) {
    Complain(Say(Text::NotOneOf, {unit, "days, months, years"}));
    return kUsage;
  }
  const std::optional<Date> day = ReadOrComplain(text, options);
  if (!day) return kUnreadable;
  int count = 0;
  if (const auto refusal = ReadCount(number, count)) return RefuseDate(number, *refusal, options);
  const std::optional<Date> sum = Add(*day, add, count);
  if (!sum) return RefuseDate(text, {"outside", 1, OutsideText()}, options);
  Print(options.json ? AsJson(text, *sum).Line() : DayLine(*sum) + "\n");
  return kDone;
}

int RunDateDiff(const Options& options) {
  LoadHijriDateShifts();
  const std::optional<Date> a = ReadOrComplain(options.operands[0], options);
  const std::optional<Date> b = ReadOrComplain(options.operands[1], options);
  if (!a || !b) return kUnreadable;
  const int days = TGCalendar().DateDifference(*a, *b);
  if (options.json)
    Print(JsonObject().Add("a", StoredForm(*a)).Add("b", StoredForm(*b)).Add("days", days).Line());
  else
    Print(std::to_string(days) + "\n");
  return kDone;
}

}  // namespace Cli
