// One text of `qel`, in its two languages.
#ifndef QEL_CLI_TEXT_ENTRY_H
#define QEL_CLI_TEXT_ENTRY_H

#include "text.h"

namespace Cli {

struct TextEntry {
  Text id;
  const char* english;
  const char* arabic;
};

}  // namespace Cli

#endif  // QEL_CLI_TEXT_ENTRY_H
