// What goes to the user: results on the output, messages on the message stream.
#ifndef QEL_CLI_OUTPUT_H
#define QEL_CLI_OUTPUT_H

#include <string_view>

namespace Cli {

// A result, as it stands.
void Print(std::string_view text);
// A message: "qel: " in front, a line end behind.
void Complain(std::string_view text);
// Whether everything printed so far arrived.
bool AllPrinted();

}  // namespace Cli

#endif  // QEL_CLI_OUTPUT_H
