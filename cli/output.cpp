#include "output.h"

#include <string>

#include "platform/platform.h"

namespace Cli {

namespace {

bool s_AllPrinted = true;

}  // namespace

void Print(std::string_view text) {
  s_AllPrinted = WriteOutput(text) && s_AllPrinted;
}

void Complain(std::string_view text) {
  WriteMessage("qel: " + std::string(text) + "\n");
}

bool AllPrinted() {
  return s_AllPrinted;
}

}  // namespace Cli
