// Commands that make one document of one text: from a file or the input, to a file or the output.
#ifndef QEL_CLI_DOCUMENT_H
#define QEL_CLI_DOCUMENT_H

#include <string>
#include <vector>

#include "options.h"

namespace Cli {

// What `write` makes of the lines of the text, followed by a line feed. An exit code, with the reason said, when the
// text cannot be read or the document not be written.
int RunOnText(const Options& options,
              std::string (*write)(const std::vector<std::string>& lines, const Options& options));

}  // namespace Cli

#endif  // QEL_CLI_DOCUMENT_H
