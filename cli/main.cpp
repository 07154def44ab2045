// `qel`: the library from the command line. It holds no rule of its own: what it shows, the library does.
#include "command_line.h"
#include "exceptions.h"
#include "output.h"
#include "platform/platform.h"
#include "session.h"
#include "text.h"

namespace {

using namespace Cli;

int RunRequest(const Request& request) {
  if (!request.help.empty()) {
    Print(request.help);
    return kDone;
  }
  if (!request.complaint.empty()) {
    Complain(request.complaint);
    return kUsage;
  }
  return StartSession(request.options) ? request.run(request.options) : kUsage;
}

}  // namespace

int main(int argc, char** argv) {
  int exit = kNotWritten;
  try {
    exit = RunRequest(ReadCommandLine(Arguments(argc, argv), UserLanguage()));
  } catch (Qel::Sys::Exceptions::qel_exception* e) {
    // Commands handle what input can cause: this is a fault of ours, for whoever gets the report.
    Complain(Utf8(e->GetErrorDetails()));
    e->Delete();
  }
  if (AllPrinted()) return exit;
  Complain(Say(Text::OutputLost));
  return kNotWritten;
}
