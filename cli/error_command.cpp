#include "commands.h"
#include "exceptions.h"
#include "json.h"
#include "output.h"
#include "text.h"

#define QEL_SOURCE L"cli/error_command"

namespace Cli {

namespace {

void OpenLog() {
  QEL_RAISE(file_exception, L"a.log", L"Error creating/opening file:\n");
}

void ShowReports(const std::string& plain, const std::string& html) {
  Print(Say(Text::PlainReport) + "\n\n" + plain + "\n" + Say(Text::HtmlReport) + "\n\n" + html + "\n");
}

}  // namespace

int RunError(const Options& options) {
  try {
    OpenLog();
  } catch (Qel::Sys::Exceptions::qel_exception* e) {
    const std::string message = Utf8(e->GetError());
    const std::string plain = Utf8(e->GetErrorDetails());
    const std::string html = Utf8(e->GetErrorDetailsAsHTML());
    e->Delete();
    if (options.json)
      Print(JsonObject().Add("message", message).Add("plain", plain).Add("html", html).Line());
    else
      ShowReports(plain, html);
  }
  return kDone;
}

}  // namespace Cli
