#include "commands.h"
#include "day.h"
#include "hcalendar.h"
#include "output.h"
#include "platform/platform.h"
#include "text.h"
#include "typed_date.h"

namespace Cli {

namespace {

constexpr std::string_view kSignature = "\uFEFF";  // with which some editors begin a UTF-8 file

// With `where` before a complaint. False when the text was refused.
bool ShowDate(const std::string& text, const Options& options, const std::string& where) {
  const TypedDate typed = ReadTypedDate(text);
  const bool accepted = !typed.refusal;
  const std::string explanation = options.explain ? Explanation(typed) : std::string();
  if (options.json) {
    JsonObject object =
        accepted ? AsJson(typed.text, typed.reading.date) : AsJson(typed.text, *typed.refusal);
    if (options.explain) object.Add("reading", ReadingAsJson(typed));
    Print(object.Line());
  } else if (accepted) {
    Print(DayLine(typed.reading.date) + "\n" + explanation);
  } else {
    Complain(typed, where);
    WriteMessage(explanation);
  }
  return accepted;
}

bool ShowDatesOfInput(const Options& options) {
  bool accepted = true;
  std::string line;
  for (int number = 1; ReadInputLine(line); ++number) {
    if (number == 1 && line.starts_with(kSignature)) line.erase(0, kSignature.size());
    accepted = ShowDate(line, options, Say(Text::InLine, {InUserDigits(number)})) && accepted;
  }
  return accepted;
}

}  // namespace

int RunDate(const Options& options) {
  Qel::Sys::DateTime::LoadHijriDateShifts();
  bool accepted = true;
  for (const std::string& text : options.operands)
    accepted = (text == "-" ? ShowDatesOfInput(options) : ShowDate(text, options, {})) && accepted;
  return accepted ? kDone : kUnreadable;
}

}  // namespace Cli
