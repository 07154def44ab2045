// What the command line asked for, and what a command answers with.
#ifndef QEL_CLI_OPTIONS_H
#define QEL_CLI_OPTIONS_H

#include <string>
#include <vector>

namespace Cli {

enum ExitCode : int {
  kDone = 0,
  kNo = 1,
  kNotWritten = 1,
  kUsage = 2,
  kUnreadable = 3,
  kNetwork = 4,
  kStore = 5
};

struct Options {
  std::string language;         // "en" or "ar"
  std::string today;            // YYYY-MM-DD, or empty for the real one
  std::string order = "dmy";    // or "ymd"
  std::string weekStart;        // "sat", "sun", "mon", or empty for what the language suggests
  std::string swatch = "auto";  // or "always", "never"
  std::string size;             // bytes of a record, or empty
  std::string type;             // of a setting, or empty for what its value suggests
  std::string from;             // an encoding, or empty for what files say or look like
  std::string to = "utf-8";     // an encoding
  std::string seconds;          // to wait, or empty for ever
  std::string output;           // a file, or empty for the output
  std::string user;             // "name:password", or empty
  std::string timeout;          // milliseconds of each step, or empty for the client's own
  std::string data;             // to send; "-" is the input
  std::string authority;        // a file of certificates, or empty for the system's
  std::vector<std::string> headers;
  std::vector<std::string> operands;
  bool hijri = false;
  bool both = false;
  bool explain = false;
  bool json = false;
  bool machine = false;
  bool all = false;
  bool once = false;
  bool reserved = false;
  bool fragment = false;
  bool verbose = false;
};

}  // namespace Cli

#endif  // QEL_CLI_OPTIONS_H
