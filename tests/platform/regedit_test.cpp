// The system's own editor as a second reader and writer of the text form.
#include <gtest/gtest.h>

#include <cstdlib>

#include "regtools.h"
#include "support/documents.h"
#include "support/registry_dump.h"
#include "support/temp_registry.h"
#include "utf8.h"

namespace {

// Values of every type and of awkward names. Texts that are not terminated, once and at their end, are left out: Wine's
// editor changes them.
void Fill(const TRegKey& key) {
  using namespace std::string_literals;
  const struct {
    const wchar_t* name;
    unsigned int type;
    std::string data;
  } values[] = {
      {L"", REG_SZ, "d\0\0\0"s},
      {L"quote \" and \\", REG_SZ, "\"\0\\\0\x27\x06\0\0"s},
      {L"lines", REG_SZ, "a\0\r\0\n\0\0\0"s},
      {L"list", REG_MULTI_SZ, "a\0\0\0b\0\0\0\0\0"s},
      {L"عدد", REG_DWORD, "\x04\x03\x02\x01"s},
      {L"long", REG_BINARY, std::string(100, '\xAB')},
      {L"own", 0xFFFF0001, "x"},
  };
  for (const auto& value : values) {
    const auto* const data = reinterpret_cast<const unsigned char*>(value.data.data());
    ASSERT_EQ(key.SetValue(value.name, value.type, data, static_cast<unsigned int>(value.data.size())), 0);
  }
  TRegKey(key, L"sub]\\empty", KEY_READ, TRegKey::CreateOK);
}

std::set<std::wstring> Dump(const std::wstring& path) {
  return RegistryDump(TRegKey(HKEY_CURRENT_USER, path.c_str(), KEY_READ, TRegKey::OpenOnly));
}

}  // namespace

// The editor sees the registry without what leads this process to a place of its own: what it calls by that place's
// name is what stands at the root here, and a text that it wrote is read into that place within the place.
TEST(RegEditTest, BothReadWhatTheOtherWrote) {
  const TempRegistry registry;
  const TempFolder folder;
  const std::string theirs = (folder.Path() / "theirs.reg").string(),
                    ours = (folder.Path() / "ours.reg").string();
  const std::wstring outside =
      Qel::FromUtf8(registry.Place()).GetString() + std::wstring(L"\\user\\Software\\x");
  Fill(TRegKey(HKEY_CURRENT_USER, outside.c_str(), KEY_ALL_ACCESS, TRegKey::CreateOK));
  EXPECT_EQ(ExportRegistry((L"HKEY_CURRENT_USER\\" + outside).c_str(), Qel::FromUtf8(ours)), 0);
  ASSERT_EQ(std::system(("regedit /S " + ours).c_str()), 0);
  EXPECT_EQ(Dump(L"Software\\x"), Dump(outside));

  ASSERT_EQ(std::system(("regedit /E " + theirs + " HKEY_CURRENT_USER\\" + Qel::ToUtf8(outside)).c_str()), 0);
  ASSERT_EQ(TRegKey::GetCurrentUser().NukeKey(outside.c_str()), 0);
  TRegImportReport report;
  EXPECT_EQ(ImportRegistry(Qel::FromUtf8(theirs), report), 0) << report.line << ":" << report.column;
  EXPECT_EQ(Dump(outside), Dump(L"Software\\x"));
}
