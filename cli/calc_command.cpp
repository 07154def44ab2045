#include <charconv>
#include <optional>

#include "atof2.h"
#include "commands.h"
#include "digits.h"
#include "json.h"
#include "output.h"
#include "text.h"
#include "typed_date.h"

namespace Cli {

namespace {

using Qel::Sys::Text::Conversion::NumberReading;

// For people: what a double can tell of a decimal number, so that 0.3 looks like 0.3. Programs get every
// digit.
std::string Shown(double value) {
  constexpr int kSignificant = 15;
  char digits[32];
  const auto end =
      std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, kSignificant);
  return std::string(digits, end.ptr);
}

Refusal Stopped(const CString& text, int index) {
  const std::string position = InUserDigits(index + 1);
  return {"left_over", index + 1, Say(Text::NumberStopped, {Utf8(text.Mid(index, 1)), position})};
}

// Why a text was not read as a whole; nothing when it was.
std::optional<Refusal> WhyNotWhole(const CString& text, const NumberReading& reading) {
  using Reason = NumberReading::Refusal;
  const int position = reading.refusedAt + 1;
  const bool whole = reading.consumed > 0 && reading.ignoredAt < 0;
  if (reading.refusal == Reason::None || whole) return std::nullopt;
  if (reading.refusal == Reason::DivisionByZero)
    return Refusal{"division_by_zero", position, Say(Text::DivisionByZero, {InUserDigits(position)})};
  if (reading.refusal == Reason::SecondPoint)
    return Refusal{"second_point", position, Say(Text::SecondPoint, {InUserDigits(position)})};
  if (reading.consumed == 0) return Refusal{"empty", 1, Say(Text::NumberEmpty)};
  return Stopped(text, reading.ignoredAt);
}

JsonObject AsJson(const std::string& input, double value, const std::optional<Refusal>& refusal) {
  JsonObject object;
  object.Add("input", input).Add("value", value);
  return refusal ? object.Add("error", AsJson(*refusal)) : object.Add("error", nullptr);
}

// False when the text was not read as a whole.
bool Calculate(const std::string& typed, const Options& options) {
  const CString text = Qel::Sys::Text::FoldDigits(Wide(typed));
  const NumberReading reading = Qel::Sys::Text::Conversion::ReadNumberText(text);
  const std::optional<Refusal> refusal = WhyNotWhole(text, reading);
  const double value = reading.value + 0.0;  // a negative zero shows as 0
  if (options.json) {
    Print(AsJson(typed, value, refusal).Line());
  } else {
    Print(Shown(value) + "\n");
    if (refusal) Complain(Joined({"\"", typed, "\": ", refusal->text}));
  }
  return !refusal;
}

}  // namespace

int RunCalc(const Options& options) {
  bool whole = true;
  for (const std::string& text : options.operands) whole = Calculate(text, options) && whole;
  return whole ? kDone : kUnreadable;
}

}  // namespace Cli
