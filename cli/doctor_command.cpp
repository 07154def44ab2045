#include "commands.h"
#include "iappcontext.h"
#include "json.h"
#include "output.h"
#include "platform/platform.h"
#include "setting.h"
#include "settings.h"
#include "settings_store.h"
#include "text.h"

namespace Cli {

namespace {

// Of the machine's settings it is in order that only their owner writes them.
bool IsInOrder(const StoreReport& store, bool machine) {
  return store.access != StoreReport::Access::Unreadable && store.integrity == L"ok" &&
         (machine || store.whyNotWritten == 0);
}

const char* AccessName(StoreReport::Access access) {
  switch (access) {
    case StoreReport::Access::Missing:
      return "missing";
    case StoreReport::Access::Shared:
      return "shared";
    case StoreReport::Access::Copy:
      return "copy";
    default:
      return "unreadable";
  }
}

Text AccessText(StoreReport::Access access) {
  switch (access) {
    case StoreReport::Access::Missing:
      return Text::AccessMissing;
    case StoreReport::Access::Shared:
      return Text::AccessShared;
    case StoreReport::Access::Copy:
      return Text::AccessCopy;
    default:
      return Text::AccessUnreadable;
  }
}

std::string Utf8Of(const std::wstring& text) {
  return Plain(Utf8(CString(text)));
}

void Line(const std::string& name, const std::string& value) {
  constexpr int kWidth = 14;
  Print(Joined({"  ", name, Padding(name, kWidth), "  ", value, "\n"}));
}

std::string WritingShown(const StoreReport& store) {
  constexpr long kBroken = 1016;
  if (store.access == StoreReport::Access::Unreadable && store.whyNotWritten == kBroken)
    return Say(Text::WritingFresh);
  return store.whyNotWritten == 0 ? Say(Text::WritingPossible) : StoreStatusText(store.whyNotWritten);
}

void PrintStore(const StoreReport& store, bool machine) {
  Print(Say(machine ? Text::MachineStore : Text::UserStore) + "\n");
  Line(Say(Text::StorePath), Utf8Of(store.path));
  Line(Say(Text::StoreAccess), Say(AccessText(store.access)));
  Line(Say(Text::StoreIntegrity), store.integrity == L"ok" ? Say(Text::InOrder) : Utf8Of(store.integrity));
  Line(Say(Text::StoreWriting), WritingShown(store));
  if (store.version > 0) Line(Say(Text::StoreLayout), InUserDigits(store.version));
  for (const StoreReport::Event& event : store.events) Line(Utf8Of(event.time), Utf8Of(event.text));
}

void PrintStoreJson(const StoreReport& store, bool machine) {
  const char* const name = machine ? "machine" : "user";
  Print(JsonObject()
            .Add("settings", name)
            .Add("store", Utf8(CString(store.path)))
            .Add("access", AccessName(store.access))
            .Add("integrity", Utf8(CString(store.integrity)))
            .Add("writable", store.whyNotWritten == 0)
            .Add("status", static_cast<int>(store.whyNotWritten))
            .Add("layout", store.version)
            .Add("inOrder", IsInOrder(store, machine))
            .Line());
  for (const StoreReport::Event& event : store.events)
    Print(JsonObject()
              .Add("settings", name)
              .Add("time", Utf8(CString(event.time)))
              .Add("event", Utf8(CString(event.text)))
              .Line());
}

void PrintProgram(bool json) {
  const std::string library = Utf8(GetProgInfo().GetSysVersion().GetAppVerInfo());
  const int codePage = static_cast<int>(NarrowCodePage());
  if (json) {
    Print(JsonObject()
              .Add("qel", QEL_VERSION)
              .Add("library", library)
              .Add("codePage", codePage)
              .Add("locale", LocaleName())
              .Line());
    return;
  }
  Print(Say(Text::Program) + "\n");
  Line(Say(Text::ProgramVersions), Say(Text::Versions, {QEL_VERSION, library}));
  Line(Say(Text::ProgramCodePage), std::to_string(codePage));
  Line(Say(Text::ProgramLocale), LocaleName());
}

}  // namespace

int RunDoctor(const Options& options) {
  bool inOrder = true;
  for (const bool machine : {false, true}) {
    const StoreReport store = DescribeSettingsStore(machine);
    inOrder = IsInOrder(store, machine) && inOrder;
    options.json ? PrintStoreJson(store, machine) : PrintStore(store, machine);
  }
  PrintProgram(options.json);
  if (!inOrder) Complain(Say(Text::NotInOrder));
  return inOrder ? kDone : kStore;
}

}  // namespace Cli
