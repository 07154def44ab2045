#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "platform.h"

namespace Cli {

namespace {

bool Write(std::FILE* stream, std::string_view text) {
  return std::fwrite(text.data(), 1, text.size(), stream) == text.size() && std::fflush(stream) == 0;
}

}  // namespace

std::vector<std::string> Arguments(int argc, char** argv) {
  return argc > 0 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

std::string UserLanguage() {
  // The first that is set decides, as for every other program.
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(name);
    if (!value || !*value) continue;
    const std::string_view language(value);
    return language == "ar" || language.starts_with("ar_") || language.starts_with("ar.") ? "ar" : "en";
  }
  return "en";
}

std::string LocaleName() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"})
    if (const char* value = std::getenv(name); value && *value) return value;
  return "C";
}

unsigned NarrowCodePage() {
  return 1256;  // the library's own, there being none of the system
}

bool WriteOutput(std::string_view text) {
  return Write(stdout, text);
}
bool WriteMessage(std::string_view text) {
  return Write(stderr, text);
}

bool OutputPaints() {
  const char* const terminal = std::getenv("TERM");
  const char* const refused = std::getenv("NO_COLOR");  // by the user, for every program
  return isatty(STDOUT_FILENO) && terminal && std::string_view(terminal) != "dumb" && !(refused && *refused);
}

bool MessagesAreSeen() {
  return isatty(STDERR_FILENO) != 0;
}

bool ReadInputLine(std::string& line) {
  if (!std::getline(std::cin, line)) return false;
  if (line.ends_with('\r')) line.pop_back();
  return true;
}

}  // namespace Cli
