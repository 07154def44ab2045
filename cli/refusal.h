// Why a text was refused, and the reading of whole numbers, which many commands take.
#ifndef QEL_CLI_REFUSAL_H
#define QEL_CLI_REFUSAL_H

#include <optional>
#include <string>

#include "json.h"
#include "options.h"

namespace Cli {

struct Refusal {
  const char* rule;  // one word, for programs
  int position;      // of the first character that is wrong, from 1 on
  std::string text;  // the sentence, in the user's language
};

// {"rule", "position", "text"}
JsonObject AsJson(const Refusal& refusal);

// Says why `input` was refused; as JSON it is {"input", "error"}. Returns kUnreadable.
int Refuse(const std::string& input, const Refusal& refusal, const Options& options);

// A whole number in any digits, with an optional sign.
std::optional<Refusal> ReadCount(const std::string& typed, int& count);

// Runs over each text that was typed, with "-" over each line of the input. Returns kDone when all did.
int RunOnEach(const Options& options, int (*run)(const std::string& typed, const Options& options));

}  // namespace Cli

#endif  // QEL_CLI_REFUSAL_H
