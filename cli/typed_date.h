// A date that the user typed: read by the library, and refused where the library would take today for what is
// missing.
#ifndef QEL_CLI_TYPED_DATE_H
#define QEL_CLI_TYPED_DATE_H

#include <optional>
#include <string>

#include "date_text.h"
#include "refusal.h"

namespace Cli {

struct TypedDate {
  std::string text;
  Qel::Sys::Text::Conversion::DateReading reading;
  std::optional<Refusal> refusal;
};

TypedDate ReadTypedDate(const std::string& text);

// Says why; `where` goes in front.
void Complain(const TypedDate& typed, const std::string& where = {});

// How the text was read, a line for each step, indented.
std::string Explanation(const TypedDate& typed);

// {"input", "date", "gregorian", "hijri", "weekday", "error"}; what is not known is null.
JsonObject AsJson(const std::string& input, const Qel::Sys::DateTime::Date& day);
JsonObject AsJson(const std::string& input, const Refusal& refusal);
// The members of an explanation.
JsonObject ReadingAsJson(const TypedDate& typed);

}  // namespace Cli

#endif  // QEL_CLI_TYPED_DATE_H
