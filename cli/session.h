// The program as a host of the library: its context, and the settings that the command line asks for.
#ifndef QEL_CLI_SESSION_H
#define QEL_CLI_SESSION_H

#include "options.h"

namespace Cli {

// Registers the program's context and writes SysFormat. False, with the reason said, when the day to pretend
// is none.
bool StartSession(const Options& options);

}  // namespace Cli

#endif  // QEL_CLI_SESSION_H
