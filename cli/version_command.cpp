#include "commands.h"
#include "iappcontext.h"
#include "json.h"
#include "output.h"
#include "text.h"

namespace Cli {

int RunVersion(const Options& options) {
  const std::string library = Utf8(GetProgInfo().GetSysVersion().GetAppVerInfo());
  if (options.json)
    Print(JsonObject().Add("qel", QEL_VERSION).Add("library", library).Line());
  else
    Print(Say(Text::Versions, {QEL_VERSION, library}) + "\n");
  return kDone;
}

}  // namespace Cli
