#include "refusal.h"

#include <charconv>

#include "digits.h"
#include "output.h"
#include "platform/platform.h"
#include "text.h"

namespace Cli {

JsonObject AsJson(const Refusal& refusal) {
  return JsonObject().Add("rule", refusal.rule).Add("position", refusal.position).Add("text", refusal.text);
}

int Refuse(const std::string& input, const Refusal& refusal, const Options& options) {
  if (options.json)
    Print(JsonObject().Add("input", input).Add("error", AsJson(refusal)).Line());
  else
    Complain(Joined({"\"", input, "\": ", refusal.text}));
  return kUnreadable;
}

std::optional<Refusal> ReadCount(const std::string& typed, int& count) {
  const std::string text = Utf8(Qel::Sys::Text::FoldDigits(Wide(typed)));
  const char* const first = text.c_str() + (text.starts_with('+') ? 1 : 0);
  const char* const end = text.c_str() + text.size();
  const auto [stop, status] = std::from_chars(first, end, count);
  const int position = static_cast<int>(stop - text.c_str()) + 1;
  if (status == std::errc::result_out_of_range)
    return Refusal{"count", 1, Say(Text::CountTooLarge, {InUserDigits(2147483647)})};
  if (status != std::errc() || stop != end)
    return Refusal{"count", position, Say(Text::NotACount, {InUserDigits(position), InUserDigits(30)})};
  return std::nullopt;
}

int RunOnEach(const Options& options, int (*run)(const std::string&, const Options&)) {
  int exit = kDone;
  const auto one = [&](const std::string& typed) {
    if (run(typed, options) != kDone) exit = kUnreadable;
  };
  for (const std::string& typed : options.operands) {
    if (typed != "-") {
      one(typed);
      continue;
    }
    for (std::string line; ReadInputLine(line);) one(line);
  }
  return exit;
}

}  // namespace Cli
