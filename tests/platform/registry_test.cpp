#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "platform/platform.h"
#include "support/golden.h"
#include "support/temp_registry.h"

namespace {

constexpr BYTE kUntouched = 0xEE;  // fills what a call may write
constexpr DWORD kUnset = 0xDEAD;

// Replays the steps of tests/data/registry.tsv, whose handles live from one to the next.
//
// Arguments are `name=value` pairs: `key` and `to` name handles, {A*255} is that many of a text, `size` and `chars`
// are the rooms, `buf=<null>` is no buffer. Answers are the status and what the outputs hold.
class Script {
 public:
  std::string Answer(const GoldenRow& row) {
    m_Arguments.clear();
    const std::string& fields = row["arguments"];
    for (std::size_t at = 0; at < fields.size();) {
      const std::size_t end = std::min(fields.find(' ', at), fields.size());
      const std::size_t sign = fields.find('=', at);
      m_Arguments.fields[fields.substr(at, sign - at)] = fields.substr(sign + 1, end - sign - 1);
      at = end + 1;
    }
    return kCalls.at(row["function"])(*this);
  }

 private:
  struct Arguments : GoldenRow {
    void clear() { fields.clear(); }
    bool Has(const std::string& name) const { return fields.count(name) != 0; }
    DWORD Number(const std::string& name, DWORD otherwise) const {
      return Has(name) ? static_cast<DWORD>(std::stoll((*this)[name], nullptr, 0)) : otherwise;
    }
    // {A*3} is AAA.
    std::optional<std::wstring> Text(const std::string& name) const {
      const std::string& field = (*this)[name];
      if (field.front() != '{') return Wide(name);
      const std::size_t star = field.find('*');
      return std::wstring(std::stoul(field.substr(star + 1)), static_cast<wchar_t>(field[1]));
    }
  };

  // A text argument as the pointer that a call takes.
  struct TextArgument {
    TextArgument(const Arguments& arguments, const std::string& name)
        : text(arguments.Has(name) ? arguments.Text(name) : std::nullopt) {}
    operator const wchar_t*() const { return text ? text->c_str() : nullptr; }
    std::optional<std::wstring> text;
  };

  static std::string Field(const char* name, DWORD value) {
    return std::string(" ") + name + "=" + Count(value);
  }
  static std::string Count(DWORD value) { return value == kUnset ? "untouched" : std::to_string(value); }
  static std::string Status(LONG status) { return std::to_string(status); }

  HKEY Key() const {
    static const std::map<std::string, HKEY> kRoots{
        {"HKCU", HKEY_CURRENT_USER},
        {"HKLM", HKEY_LOCAL_MACHINE},
        {"HKCC", HKEY_CURRENT_CONFIG},
        {"HKDD", HKEY_DYN_DATA},
        {"NULL", nullptr},
        {"BAD", reinterpret_cast<HKEY>(0x12344)},
        {"ROOT7", reinterpret_cast<HKEY>(std::uintptr_t{0x80000007})},
    };
    const std::string& name = m_Arguments["key"];
    const auto root = kRoots.find(name);
    return root != kRoots.end() ? root->second : m_Handles.at(name);
  }

  std::string Opened(LONG status, HKEY result, const std::string& disposition) {
    const HKEY untouched = reinterpret_cast<HKEY>(std::uintptr_t{kUnset});
    if (result && result != untouched) m_Handles[m_Arguments["to"]] = result;
    const char* const what = !result ? "null" : result == untouched ? "untouched" : "handle";
    return Status(status) + " result=" + what + disposition;
  }

  std::string Open() {
    HKEY result = reinterpret_cast<HKEY>(std::uintptr_t{kUnset});
    const LONG status = RegOpenKeyExW(Key(), TextArgument(m_Arguments, "sub"), m_Arguments.Number("opt", 0),
                                      m_Arguments.Number("access", KEY_ALL_ACCESS), &result);
    return Opened(status, result, "");
  }

  std::string Create() {
    HKEY result = reinterpret_cast<HKEY>(std::uintptr_t{kUnset});
    DWORD disposition = kUnset;
    const LONG status =
        RegCreateKeyExW(Key(), TextArgument(m_Arguments, "sub"), 0, nullptr, 0,
                        m_Arguments.Number("access", KEY_ALL_ACCESS), nullptr, &result, &disposition);
    return Opened(status, result, Field("disp", disposition));
  }

  // A buffer for data. In front of its end stands what the call has written.
  struct Buffer {
    Buffer(bool absent, DWORD room) : null(absent), bytes(room + 16, kUntouched) {}
    BYTE* Data() { return null ? nullptr : bytes.data(); }
    std::string Answer() const {
      std::size_t end = bytes.size();
      while (end > 0 && bytes[end - 1] == kUntouched) --end;
      if (null) return "";
      return " data=" +
             (end == 0 ? "untouched" : SpelledBytes({reinterpret_cast<const char*>(bytes.data()), end}));
    }
    bool null;
    std::vector<BYTE> bytes;
  };

  std::string QueryValue(bool withSize) {
    const bool sized = withSize && m_Arguments["size"] != "<null>";
    DWORD size = sized ? m_Arguments.Number("size", 0) : 0;
    Buffer buffer(m_Arguments.Has("buf"), size);
    DWORD type = kUnset;
    const LONG status =
        RegQueryValueExW(Key(), TextArgument(m_Arguments, "name"), nullptr,
                         m_Arguments.Has("type") ? nullptr : &type, buffer.Data(), sized ? &size : nullptr);
    if (!withSize) return Status(status);
    return Status(status) + Field("type", type) + " size=" + (sized ? std::to_string(size) : "<null>") +
           buffer.Answer();
  }

  std::string SetValue() {
    std::vector<BYTE> bytes;
    bool null = false;
    if (m_Arguments.Has("text")) {
      const std::wstring text = m_Arguments.Text("text").value();
      bytes.resize(2 * text.size() + 2);
      BytesFromUnits(bytes.data(), static_cast<DWORD>(bytes.size()), text.c_str(), text.size() + 1);
    } else if (const auto hex = m_Arguments.Bytes("hex")) {
      bytes.assign(hex->begin(), hex->end());
    } else {
      null = true;
    }
    const DWORD size = m_Arguments.Number("size", static_cast<DWORD>(bytes.size()));
    bytes.insert(bytes.end(), 8, kUntouched);
    return Status(RegSetValueExW(Key(), TextArgument(m_Arguments, "name"), 0, m_Arguments.Number("type", 1),
                                 null ? nullptr : bytes.data(), size));
  }

  std::string SetDefault() {
    return Status(RegSetValueW(Key(), TextArgument(m_Arguments, "sub"), m_Arguments.Number("type", 1),
                               TextArgument(m_Arguments, "text"), m_Arguments.Number("size", 0)));
  }

  std::string QueryDefault() {
    const bool sized = m_Arguments["size"] != "<null>";
    const bool null = m_Arguments.Has("buf");
    const auto room = static_cast<LONG>(sized ? m_Arguments.Number("size", 0) : 0);
    LONG size = room;
    std::wstring text(static_cast<std::size_t>(room) / 2 + 8, static_cast<wchar_t>(kUnset));
    const LONG status = RegQueryValueW(Key(), TextArgument(m_Arguments, "sub"), null ? nullptr : text.data(),
                                       sized ? &size : nullptr);
    const std::size_t end = text.find(static_cast<wchar_t>(kUnset));
    return Status(status) + " size=" + (sized ? std::to_string(size) : "<null>") +
           (null ? ""
                 : " text=" + (end == 0 ? "untouched" : Spelled(std::wstring_view(text).substr(0, end))));
  }

  static std::string NameAnswer(const std::wstring& name) {
    if (name.front() == static_cast<wchar_t>(kUnset)) return "untouched";
    const std::size_t length = std::wcslen(name.c_str());
    return length > 300 ? std::string("(") + std::to_string(length) + " chars)" : Spelled(name.c_str());
  }

  std::string EnumKey() {
    std::wstring name(400, static_cast<wchar_t>(kUnset));
    const LONG status =
        RegEnumKeyW(Key(), m_Arguments.Number("index", 0), name.data(), m_Arguments.Number("chars", 300));
    return Status(status) + " name=" + NameAnswer(name);
  }

  std::string EnumValue() {
    std::wstring name(20000, static_cast<wchar_t>(kUnset));
    DWORD type = kUnset;
    DWORD chars = m_Arguments.Number("chars", 300);
    const bool sized = m_Arguments.Has("size");
    DWORD size = m_Arguments.Number("size", 0);
    Buffer buffer(!sized || m_Arguments.Has("buf"), size);
    const LONG status = RegEnumValueW(Key(), m_Arguments.Number("index", 0), name.data(), &chars, nullptr,
                                      &type, buffer.Data(), sized ? &size : nullptr);
    return Status(status) + " name=" + NameAnswer(name) + Field("chars", chars) + Field("type", type) +
           (sized ? Field("size", size) + buffer.Answer() : "");
  }

  // All names, from a call that gives the name at an index.
  static std::string Names(const std::function<LONG(DWORD, wchar_t*)>& enumerate) {
    std::string names;
    wchar_t name[400];
    LONG status = 0;
    for (DWORD i = 0; (status = enumerate(i, name)) == 0; ++i) names += std::string(" ") + Spelled(name);
    return Status(status) + names;
  }
  std::string AllKeys() {
    return Names([this](DWORD i, wchar_t* name) { return RegEnumKeyW(Key(), i, name, 400); });
  }
  std::string AllValues() {
    return Names([this](DWORD i, wchar_t* name) {
      DWORD chars = 400;
      return RegEnumValueW(Key(), i, name, &chars, nullptr, nullptr, nullptr, nullptr);
    });
  }

  std::string Info() {
    DWORD subKeys = 0, maxSub = 0, maxClass = 0, values = 0, maxName = 0, maxData = 0;
    const LONG status = RegQueryInfoKeyW(Key(), nullptr, nullptr, nullptr, &subKeys, &maxSub, &maxClass,
                                         &values, &maxName, &maxData, nullptr, nullptr);
    if (status != 0) return Status(status);
    return Status(status) + Field("subkeys", subKeys) + Field("maxsub", maxSub) +
           Field("maxclass", maxClass) + Field("values", values) + Field("maxname", maxName) +
           Field("maxdata", maxData);
  }
  std::string ClassOf() {
    wchar_t text[8] = L"?";
    DWORD chars = 8;
    const LONG status = RegQueryInfoKeyW(Key(), text, &chars, nullptr, nullptr, nullptr, nullptr, nullptr,
                                         nullptr, nullptr, nullptr, nullptr);
    return Status(status) + " class=" + Spelled(text) + Field("chars", chars);
  }

  using Call = std::string (*)(Script&);
  // A call of which only the status is known, whose arguments are the key and a text.
  template <auto kFunction>
  static std::string OfText(Script& script) {
    const char* const name = script.m_Arguments.Has("sub") ? "sub" : "name";
    return Status(kFunction(script.Key(), TextArgument(script.m_Arguments, name)));
  }
  template <auto kFunction>
  static std::string OfKey(Script& script) {
    return Status(kFunction(script.Key()));
  }

  static inline const std::map<std::string, Call> kCalls{
      {"RegOpenKeyExW", [](Script& s) { return s.Open(); }},
      {"RegCreateKeyExW", [](Script& s) { return s.Create(); }},
      {"RegCloseKey", OfKey<RegCloseKey>},
      {"RegFlushKey", OfKey<RegFlushKey>},
      {"RegDeleteKeyW", OfText<RegDeleteKeyW>},
      {"RegDeleteValueW", OfText<RegDeleteValueW>},
      {"RegQueryValueExW", [](Script& s) { return s.QueryValue(true); }},
      {"RegQueryValueExW.nosize", [](Script& s) { return s.QueryValue(false); }},
      {"RegSetValueExW", [](Script& s) { return s.SetValue(); }},
      {"RegSetValueW", [](Script& s) { return s.SetDefault(); }},
      {"RegQueryValueW", [](Script& s) { return s.QueryDefault(); }},
      {"RegEnumKeyW", [](Script& s) { return s.EnumKey(); }},
      {"RegEnumValueW", [](Script& s) { return s.EnumValue(); }},
      {"EnumAllKeys", [](Script& s) { return s.AllKeys(); }},
      {"EnumAllValues", [](Script& s) { return s.AllValues(); }},
      {"RegQueryInfoKeyW", [](Script& s) { return s.Info(); }},
      {"RegQueryInfoKeyW.class", [](Script& s) { return s.ClassOf(); }},
  };

  Arguments m_Arguments;
  std::map<std::string, HKEY> m_Handles;
};

}  // namespace

TEST(RegistryTest, StepsAnswerAsRecorded) {
  const TempRegistry registry;
  Script script;
  for (const auto& row : GoldenTable("registry.tsv")) ExpectAnswer(row, script.Answer(row));
}

// Windows leaves it to the caller to count the terminator.
TEST(RegistryTest, TheTerminatorThatFollowsIsStoredWithItsText) {
  const TempRegistry registry;
  const BYTE text[] = {'a', 0, 'b', 0, 0, 0};
  const struct {
    DWORD type, size, stored;
  } rows[] = {
      {REG_SZ, 4, 6},        {REG_SZ, 2, 2},       {REG_SZ, 3, 3},     {REG_SZ, 6, 6},
      {REG_EXPAND_SZ, 4, 6}, {REG_MULTI_SZ, 4, 6}, {REG_BINARY, 4, 4},
  };
  for (const auto& row : rows) {
    DWORD size = 0;
    EXPECT_EQ(RegSetValueExW(HKEY_CURRENT_USER, L"text", 0, row.type, text, row.size), 0);
    EXPECT_EQ(RegQueryValueExW(HKEY_CURRENT_USER, L"text", nullptr, nullptr, nullptr, &size), 0);
    EXPECT_EQ(size, row.stored) << row.type << " " << row.size;
  }
}

TEST(RegistryTest, BytesAndUnitsTurnIntoEachOther) {
  wchar_t units[8] = L"";
  const BYTE bytes[] = {0x41, 0x00, 0x45, 0x06, 0x3D, 0xD8, 0x7F};
  EXPECT_EQ(UnitsFromBytes(units, 8, bytes, 7), 3u);
  EXPECT_EQ(std::wstring(units), std::wstring({0x41, 0x645, static_cast<wchar_t>(0xD83D)}));
  EXPECT_EQ(UnitsFromBytes(units, 2, bytes, 7), 2u);
  std::copy(std::begin(bytes), std::end(bytes), reinterpret_cast<BYTE*>(units));
  EXPECT_EQ(UnitsFromBytes(units, 8, reinterpret_cast<BYTE*>(units), 6), 3u) << "in place";
  EXPECT_EQ(units[2], static_cast<wchar_t>(0xD83D));
  BYTE back[8] = {};
  EXPECT_EQ(BytesFromUnits(back, 8, units, 3), 6u);
  EXPECT_TRUE(std::equal(back, back + 6, bytes));
  EXPECT_EQ(BytesFromUnits(back, 3, units, 3), 3u);
}

TEST(RegistryTest, OpeningCountsInOneStep) {
  const TempRegistry registry;
  HKEY key = HKEY_CURRENT_USER;
  DWORD subKeys = 9, values = 9;
  EXPECT_EQ(OpenKeyAndCount(HKEY_CURRENT_USER, L"Counted", KEY_READ, false, &key, &subKeys, &values), 2);
  EXPECT_EQ(key, nullptr);
  EXPECT_EQ(subKeys + values, 0u);
  ASSERT_EQ(OpenKeyAndCount(HKEY_CURRENT_USER, L"Counted\\a", KEY_ALL_ACCESS, true, &key, &subKeys, &values),
            0);
  for (const wchar_t* const name : {L"x", L"y", L"X"}) RegSetValueExW(key, name, 0, REG_SZ, nullptr, 0);
  RegCloseKey(key);
  const struct {
    const wchar_t* path;
    REGSAM access;
    DWORD subKeys, values;
  } rows[] = {
      {L"Counted", KEY_READ, 1, 0}, {L"Counted\\a", KEY_READ, 0, 2}, {L"Counted\\a", KEY_WRITE, 0, 0}};
  for (const auto& row : rows) {
    ASSERT_EQ(OpenKeyAndCount(HKEY_CURRENT_USER, row.path, row.access, false, &key, &subKeys, &values), 0);
    if (row.access == KEY_WRITE && RunsUnderWine()) continue;  // which counts there nevertheless
    EXPECT_EQ(subKeys, row.subKeys);
    EXPECT_EQ(values, row.values);
    RegCloseKey(key);
  }
}

TEST(RegistryTest, WaitingEndsWithAChangeBelowTheKey) {
  const TempRegistry registry;
  HKEY key = nullptr, below = nullptr, beside = nullptr;
  ASSERT_EQ(
      RegCreateKeyExW(HKEY_CURRENT_USER, L"Watched", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
      0);
  ASSERT_EQ(RegCreateKeyExW(key, L"a\\b", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &below, nullptr), 0);
  ASSERT_EQ(
      RegCreateKeyExW(HKEY_CURRENT_USER, L"x", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &beside, nullptr), 0);
  const auto write = [](HKEY where, BYTE value) { RegSetValueExW(where, L"v", 0, REG_BINARY, &value, 1); };
  EXPECT_EQ(WaitForKeyChange(key, 0), 258) << "nothing since the first call";
  write(below, 1);
  EXPECT_EQ(WaitForKeyChange(key, 2000), 0) << "a change between two calls counts";
  write(beside, 1);
  EXPECT_EQ(WaitForKeyChange(key, 150), 258) << "a change elsewhere";
  std::thread writer([&] { write(below, 2); });
  EXPECT_EQ(WaitForKeyChange(key, 5000), 0);
  writer.join();
  EXPECT_EQ(WaitForKeyChange(nullptr, 0), 6);
}

// Long runs of random calls on few names, beside a plain model of what must be there: whatever is kept in memory must
// never differ from what was written.
TEST(RegistryTest, RandomCallsAnswerAsAPlainModelDoes) {
  const TempRegistry registry;
  std::map<std::wstring, std::map<std::wstring, DWORD>> model{{L"", {}}};
  std::mt19937 random(20240307);
  const auto pick = [&](unsigned below) { return static_cast<unsigned>(random() % below); };
  const std::wstring keys[] = {L"", L"a", L"a\\b", L"a\\c", L"d"};
  const std::wstring names[] = {L"one", L"two", L"three"};
  for (int i = 0; i < 2000; ++i) {
    const std::wstring& path = keys[pick(5)];
    const std::wstring& name = names[pick(3)];
    HKEY key = nullptr;
    DWORD subKeys = 0, values = 0;
    SCOPED_TRACE(i);
    if (pick(12) == 0 && !path.empty()) {
      const bool parent = path == L"a" && (model.count(L"a\\b") || model.count(L"a\\c"));
      const LONG expected = model.count(path) == 0 ? 2 : parent ? 5 : 0;
      ASSERT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, (L"Model\\" + path).c_str()), expected);
      if (expected == 0) model.erase(path);
      continue;
    }
    const bool create = path.empty() || pick(3) == 0;
    const LONG opened = OpenKeyAndCount(HKEY_CURRENT_USER, (L"Model\\" + path).c_str(), KEY_ALL_ACCESS,
                                        create, &key, &subKeys, &values);
    ASSERT_EQ(opened, create || model.count(path) ? 0 : 2);
    if (opened != 0) continue;
    if (path.size() == 3) model[L"a"];
    std::map<std::wstring, DWORD>& entries = model[path];
    ASSERT_EQ(values, entries.size());
    const DWORD number = pick(1000);
    if (const unsigned act = pick(4); act == 0) {
      ASSERT_EQ(RegSetValueExW(key, name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), 4),
                0);
      entries[name] = number;
    } else if (act == 1) {
      ASSERT_EQ(RegDeleteValueW(key, name.c_str()), entries.erase(name) ? 0 : 2);
    }
    for (const auto& asked : names) {
      DWORD found = 0, size = sizeof found;
      const LONG status =
          RegQueryValueExW(key, asked.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(&found), &size);
      ASSERT_EQ(status, entries.count(asked) ? 0 : 2);
      ASSERT_EQ(found, status == 0 ? entries[asked] : 0);
    }
    std::map<std::wstring, DWORD> listed;
    wchar_t text[16];
    for (DWORD at = 0, size = 16;
         RegEnumValueW(key, at, text, &size, nullptr, nullptr, nullptr, nullptr) == 0; ++at, size = 16)
      listed[text] = entries[text];
    ASSERT_EQ(listed, entries);
    RegCloseKey(key);
  }
}
