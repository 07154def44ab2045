#include <algorithm>

#include "commands.h"
#include "json.h"
#include "output.h"
#include "regkey.h"
#include "settings.h"
#include "settings_store.h"
#include "text.h"

namespace Cli {

namespace {

void PrintSection(const Section& section, const Options& options) {
  int nameWidth = 0, typeWidth = 0;
  for (const Setting& entry : section.entries) {
    nameWidth = std::max(nameWidth, Columns(EntryShown(entry.name)));
    typeWidth = std::max(typeWidth, Columns(TypeShown(entry.type)));
  }
  if (!options.json) Print(Joined({"[", Plain(section.name), "]\n"}));
  for (const Setting& entry : section.entries)
    Print(options.json ? JsonRow(section.name, entry)
                       : Joined({"  ", Row(entry, nameWidth, typeWidth), "\n"}));
}

bool IsEmpty(const std::vector<Section>& sections) {
  return std::all_of(sections.begin(), sections.end(), [](const Section& one) {
    return one.entries.empty() && one.name.empty() && one.nested.empty();
  });
}

void PrintEntry(const std::string& section, const Setting& entry, const Options& options) {
  Print(options.json ? JsonRow(section, entry) : Row(entry) + "\n");
}

constexpr long kMissing = 2;

// The entry of this name; null when the section has none.
const Setting* Find(const Section& section, const std::string& name) {
  const CString wanted = Wide(name);
  for (const Setting& entry : section.entries)
    if (wanted.CompareNoCase(Wide(entry.name)) == 0) return &entry;
  return nullptr;
}

// Shows what is in the store now: that is what was kept of what was typed.
int ShowStored(const std::string& section, const std::string& name, const Options& options) {
  Section stored;
  const long status = ReadSection(RootOf(options), section, stored);
  if (status != 0) return NotRead(status, section, options);
  const Setting* const entry = Find(stored, name);
  if (!entry) return NoSuchEntry(stored, name, options);
  PrintEntry(stored.name, *entry, options);
  return kDone;
}

int UnsetSection(const std::string& name, const Options& options) {
  const std::size_t end = name.rfind('\\');
  const std::string outer = end == name.npos ? "" : name.substr(0, end);
  TRegKey key(RootOf(options), KeyOf(outer), KEY_ALL_ACCESS, TRegKey::OpenOnly);
  const long status = HKEY(key) ? key.NukeKey(Wide(name.substr(end + 1))) : 0;
  return HKEY(key) && status == 0 ? kDone : NotStored(status, options);
}

int UnsetEntry(const Section& section, const std::string& name, const Options& options) {
  const TRegKey key(RootOf(options), KeyOf(section.name), KEY_SET_VALUE, TRegKey::OpenOnly);
  const long status = HKEY(key) ? key.DeleteValue(Wide(name)) : 0;
  if (status == kMissing) return NoSuchEntry(section, name, options);
  return HKEY(key) && status == 0 ? kDone : NotStored(status, options);
}

}  // namespace

int RunSettingsList(const Options& options) {
  const std::string wanted = options.operands.empty() ? "" : SectionTyped(options.operands[0]);
  std::vector<Section> sections;
  const long status = ReadSections(RootOf(options), wanted, sections);
  if (status != 0 && !(status == kMissing && wanted.empty())) return NotRead(status, wanted, options);
  // Whether the suite's own key was ever made makes no difference to whoever asks.
  if (IsEmpty(sections)) {
    Complain(Say(Text::NothingStored));
    return kDone;
  }
  for (const Section& section : sections)
    if (!section.entries.empty() || section.nested.empty()) PrintSection(section, options);
  return kDone;
}

int RunSettingsGet(const Options& options) {
  return ShowStored(SectionTyped(options.operands[0]), EntryTyped(options.operands[1]), options);
}

int RunSettingsSet(const Options& options) {
  const std::string section = SectionTyped(options.operands[0]);
  Setting setting;
  setting.name = EntryTyped(options.operands[1]);
  if (const int exit = ReadTypedValue(options.operands[2], options, setting); exit != kDone) return exit;
  const TRegKey key(RootOf(options), KeyOf(section), KEY_SET_VALUE, TRegKey::CreateOK);
  if (!HKEY(key)) return NotStored(0, options);
  const auto size = static_cast<unsigned int>(setting.data.size());
  setting.data.insert(setting.data.end(), 2, 0);  // read, not stored: texts have their terminator
  const long status = key.SetValue(Wide(setting.name), setting.type, setting.data.data(), size);
  return status == 0 ? ShowStored(section, setting.name, options) : NotStored(status, options);
}

int RunSettingsUnset(const Options& options) {
  const std::string section = SectionTyped(options.operands[0]);
  const bool one = options.operands.size() > 1;
  if (one == options.all || (!one && section.empty())) {
    Complain(Say(one ? Text::UnsetBoth : Text::UnsetWhich));
    return kUsage;
  }
  Section stored;
  const long status = ReadSection(RootOf(options), section, stored);
  if (status != 0) return NotRead(status, section, options);
  if (!one) return UnsetSection(section, options);
  return UnsetEntry(stored, EntryTyped(options.operands[1]), options);
}

int RunSettingsPath(const Options& options) {
  const std::string root = options.machine ? "HKEY_LOCAL_MACHINE\\" : "HKEY_CURRENT_USER\\";
  const std::string key = root + Utf8(kSettingsKey);
  const std::string store = Utf8(CString(DescribeSettingsStore(options.machine).path));
  Print(options.json ? JsonObject().Add("store", store).Add("key", key).Line() : store + "\n" + key + "\n");
  return kDone;
}

}  // namespace Cli
