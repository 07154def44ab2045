// From the arguments to the command they ask for.
#ifndef QEL_CLI_COMMAND_LINE_H
#define QEL_CLI_COMMAND_LINE_H

#include <string>
#include <vector>

#include "options.h"

namespace Cli {

struct Request {
  int (*run)(const Options& options) = nullptr;
  Options options;
  // When there is nothing to run: help that was asked for, or what is wrong with the command line.
  std::string help;
  std::string complaint;
};

// Texts are in the language that the arguments ask for, else in `language`.
Request ReadCommandLine(std::vector<std::string> arguments, const std::string& language);

}  // namespace Cli

#endif  // QEL_CLI_COMMAND_LINE_H
