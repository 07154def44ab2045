#include "setting.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "json.h"
#include "meaning.h"
#include "regkey.h"
#include "settings_store.h"
#include "string_tools.h"
#include "text.h"

namespace Cli {

namespace {

constexpr long kMissing = 2, kBroken = 1016, kTooSmall = 234, kNoMore = 259;
constexpr unsigned int kKeyNameRoom = 256, kValueNameRoom = 16384;

bool ComesFirst(const std::string& a, const std::string& b) {
  const int order = Qel::Sys::Text::pxCompStrI(Wide(a), Wide(b));
  return order != 0 ? order < 0 : a < b;
}

// Why a key could not be opened, which the key itself does not tell.
long WhyNotOpened(HKEY root, const CString& path) {
  const TRegKey whole(root, false, L"");
  if (!HKEY(whole)) {
    const long status = DescribeSettingsStore(root == HKEY(TRegKey::GetLocalMachine())).whyNotWritten;
    return status != 0 ? status : kBroken;
  }
  unsigned int size = 0;
  const long status = whole.QueryDefValue(path, nullptr, &size);
  return status != 0 ? status : kMissing;
}

long ReadEntry(const TRegKey& key, int index, Setting& entry) {
  std::vector<wchar_t> name(kValueNameRoom);
  unsigned int room = 256;
  for (long status = kTooSmall; status == kTooSmall; room *= 2) {
    entry.data.resize(room);
    unsigned int length = kValueNameRoom, size = room;
    status = key.EnumValue(index, name.data(), length, &entry.type, entry.data.data(), &size);
    if (status != 0 && status != kTooSmall) return status;
    if (status != 0) continue;
    entry.data.resize(size);
    entry.name = Utf8(CString(name.data(), static_cast<int>(length)));
    return 0;
  }
  return kTooSmall;
}

long ReadEntries(const TRegKey& key, std::vector<Setting>& entries) {
  for (int index = 0;; ++index) {
    Setting entry;
    const long status = ReadEntry(key, index, entry);
    if (status == kNoMore) break;
    if (status != 0) return status;
    entries.push_back(std::move(entry));
  }
  std::sort(entries.begin(), entries.end(),
            [](const Setting& a, const Setting& b) { return ComesFirst(a.name, b.name); });
  return 0;
}

long ReadNested(const TRegKey& key, std::vector<std::string>& nested) {
  wchar_t name[kKeyNameRoom];
  for (int index = 0;; ++index) {
    const long status = key.EnumKey(index, name, kKeyNameRoom);
    if (status == kNoMore) break;
    if (status != 0) return status;
    nested.push_back(Utf8(name));
  }
  std::sort(nested.begin(), nested.end(), ComesFirst);
  return 0;
}

std::uint64_t FirstBytes(const Setting& setting, std::size_t count) {
  std::uint64_t number = 0;
  for (std::size_t i = std::min(count, setting.data.size()); i-- > 0;) number = number << 8 | setting.data[i];
  return number;
}

// Texts one after the other, each with its terminator; the last one empty.
std::string ListShown(const CString& texts) {
  std::string shown;
  std::wstring_view rest = texts.View();
  while (!rest.empty()) {
    const std::wstring_view text = rest.substr(0, rest.find(L'\0'));
    if (text.empty()) break;
    shown += (shown.empty() ? "\"" : " \"") + Plain(Utf8(CString(text))) + "\"";
    rest.remove_prefix(std::min(text.size() + 1, rest.size()));
  }
  return shown;
}

// Whether a terminal would not show the character but obey it: controls, ends of lines, changes of direction.
bool Disturbs(wchar_t unit) {
  return unit < 0x20 || (unit >= 0x7F && unit < 0xA0) || (unit >= 0x2028 && unit <= 0x202E) ||
         (unit >= 0x2066 && unit <= 0x2069);
}

}  // namespace

HKEY RootOf(const Options& options) {
  return options.machine ? TRegKey::GetLocalMachine() : TRegKey::GetCurrentUser();
}

CString KeyOf(const std::string& section) {
  return section.empty() ? CString(kSettingsKey) : CString(kSettingsKey) + L"\\" + Wide(section);
}

long ReadSection(HKEY root, const std::string& name, Section& section) {
  const CString path = KeyOf(name);
  const TRegKey key(root, path, KEY_READ, TRegKey::OpenOnly);
  if (!HKEY(key)) return WhyNotOpened(root, path);
  section = {name, {}, {}};
  const long status = ReadEntries(key, section.entries);
  return status != 0 ? status : ReadNested(key, section.nested);
}

long ReadSections(HKEY root, const std::string& name, std::vector<Section>& sections) {
  std::vector<std::string> waiting{name};
  while (!waiting.empty()) {
    Section section;
    const std::string next = std::move(waiting.back());
    waiting.pop_back();
    const long status = ReadSection(root, next, section);
    // Somebody may have deleted one since its name was read.
    if (status == kMissing && !sections.empty()) continue;
    if (status != 0) return status;
    for (auto nested = section.nested.rbegin(); nested != section.nested.rend(); ++nested)
      waiting.push_back(next.empty() ? *nested : Joined({next, "\\", *nested}));
    sections.push_back(std::move(section));
  }
  return 0;
}

std::string SectionTyped(const std::string& typed) {
  std::string name;
  for (const char c : typed)
    if (c != '\\' || (!name.empty() && !name.ends_with('\\'))) name += c;
  if (name.ends_with('\\')) name.pop_back();
  return name;
}

std::string EntryTyped(const std::string& typed) {
  return typed == "@" ? std::string() : typed;
}
std::string EntryShown(const std::string& name) {
  return name.empty() ? "@" : Plain(name);
}

std::string TypeShown(unsigned int type) {
  constexpr const char* kNames[] = {"REG_NONE",
                                    "REG_SZ",
                                    "REG_EXPAND_SZ",
                                    "REG_BINARY",
                                    "REG_DWORD",
                                    "REG_DWORD_BIG_ENDIAN",
                                    "REG_LINK",
                                    "REG_MULTI_SZ",
                                    "REG_RESOURCE_LIST",
                                    "REG_FULL_RESOURCE_DESCRIPTOR",
                                    "REG_RESOURCE_REQUIREMENTS_LIST",
                                    "REG_QWORD"};
  if (type < std::size(kNames)) return kNames[type];
  std::string digits;
  for (unsigned int rest = type; rest != 0; rest /= 16) digits.insert(0, 1, "0123456789abcdef"[rest % 16]);
  return "hex(" + digits + ")";
}

std::string ValueShown(const Setting& setting) {
  if (setting.type == REG_DWORD && setting.data.size() == 4)
    return std::to_string(static_cast<std::int32_t>(NumberOf(setting)));
  if (setting.type == REG_QWORD && setting.data.size() == 8)
    return std::to_string(static_cast<std::int64_t>(FirstBytes(setting, 8)));
  if (setting.type == REG_MULTI_SZ) return ListShown(TextOf(setting));
  if (IsText(setting.type)) return Plain(Utf8(TextOf(setting)));
  return PairsOf(setting.data.data(), setting.data.size());
}

std::string Plain(std::string_view text) {
  const CString wide = Wide(text);
  CString plain;
  for (const wchar_t unit : wide.View()) {
    if (!Disturbs(unit)) {
      plain += unit;
      continue;
    }
    plain += L"\\u";
    for (int shift = 12; shift >= 0; shift -= 4) plain += L"0123456789ABCDEF"[unit >> shift & 15];
  }
  return Utf8(plain);
}

std::string Row(const Setting& setting, int nameWidth, int typeWidth) {
  const std::string name = EntryShown(setting.name), type = TypeShown(setting.type);
  const std::string meaning = MeaningOf(setting);
  std::string row = Joined({name, Padding(name, nameWidth), "  ", type});
  const std::string value = ValueShown(setting);
  if (!value.empty()) row += Joined({Padding(type, typeWidth), "  ", value});
  if (!meaning.empty()) row += "  (" + meaning + ")";
  return row;
}

std::string JsonRow(const std::string& section, const Setting& setting) {
  JsonObject object;
  object.Add("section", section).Add("entry", setting.name).Add("type", TypeShown(setting.type));
  if (setting.type == REG_DWORD && setting.data.size() == 4)
    object.Add("value", static_cast<int>(NumberOf(setting)));
  else if (IsText(setting.type))
    object.Add("value", Utf8(TextOf(setting)));
  else if (setting.type == REG_QWORD || setting.type == REG_MULTI_SZ)
    object.Add("value", ValueShown(setting));
  else
    object.Add("value", AllPairsOf(setting.data.data(), setting.data.size()));
  const std::string meaning = MeaningOf(setting);
  return (meaning.empty() ? object.Add("meaning", nullptr) : object.Add("meaning", meaning)).Line();
}

std::vector<unsigned char> BytesOf(const std::string& text) {
  const CString wide = Wide(text);
  std::vector<unsigned char> bytes;
  for (int i = 0; i <= wide.GetLength(); ++i) {
    const auto unit = static_cast<char16_t>(wide[i]);
    bytes.push_back(static_cast<unsigned char>(unit & 0xFF));
    bytes.push_back(static_cast<unsigned char>(unit >> 8 & 0xFF));
  }
  return bytes;
}

CString TextOf(const Setting& setting) {
  std::wstring text;
  for (std::size_t i = 0; i + 1 < setting.data.size(); i += 2)
    text += static_cast<wchar_t>(setting.data[i] | setting.data[i + 1] << 8);
  if (setting.type != REG_MULTI_SZ) text.resize(std::min(text.find(L'\0'), text.size()));
  return text;
}

bool IsText(unsigned int type) {
  return type == REG_SZ || type == REG_EXPAND_SZ;
}

unsigned int NumberOf(const Setting& setting) {
  return static_cast<unsigned int>(FirstBytes(setting, 4));
}

}  // namespace Cli
