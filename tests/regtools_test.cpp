#include "regtools.h"

#include <gmock/gmock.h>

#include <fstream>
#include <thread>

#include "support/documents.h"
#include "support/registry_dump.h"
#include "support/temp_registry.h"
#include "utf8.h"

namespace {

using Problem = TRegImportProblem;
using Dump = std::set<std::wstring>;
using namespace std::string_literals;

class RegToolsTest : public testing::Test {
 protected:
  // The path of a file in a folder of the test's own.
  CString Path(const char* name) const { return Qel::FromUtf8((m_Folder.Path() / name).string()); }
  void WriteBytes(const std::string& bytes) const {
    std::ofstream(m_Folder.Path() / "in.reg", std::ios::binary) << bytes;
  }
  long Import(const std::wstring& text, TRegImportReport& report) const {
    std::string bytes = "\xFF\xFE";
    for (const wchar_t unit : text) {
      bytes += static_cast<char>(unit & 0xFF);
      bytes += static_cast<char>(unit >> 8);
    }
    WriteBytes(bytes);
    return ImportRegistry(Path("in.reg"), report);
  }
  std::string Exported() const {
    EXPECT_EQ(ExportRegistry(L"hkcu\\Software\\\\x\\", Path("out.reg")), 0);
    std::ifstream file(m_Folder.Path() / "out.reg", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  static Dump All() {
    return RegistryDump(TRegKey(HKEY_CURRENT_USER, L"Software\\x", KEY_READ, TRegKey::OpenOnly));
  }

  const TempFolder m_Folder;
  TempRegistry m_Registry;
};

constexpr wchar_t kStart[] =
    L"Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\Software\\x]\r\n";

}  // namespace

TEST_F(RegToolsTest, EveryFormOfALineIsRead) {
  const struct {
    const wchar_t* lines;
    Dump expected;
  } rows[] = {
      {L"\"a\\\\\\\"]\"=\"x\\\\\\\"\\n\"", {L"\\a\\\"]=1:78005c0022000a000000"}},
      {L" @ = \"\" ; note", {L"\\=1:0000"}},
      {L"\"m\"=\"a\r\nb\"", {L"\\m=1:61000d000a0062000000"}},
      {L"\"d\"=DWORD:1A2b", {L"\\d=4:2b1a0000"}},
      {L"\"h\"=hex:1,\\ ; note\r\n  fF,02\n\"e\"=hex(7):", {L"\\h=3:01ff02", L"\\e=7:"}},
      {L"\"t\"=hex(1):61,00\r\"q\"=hex(b):01", {L"\\t=1:6100", L"\\q=11:01"}},
      {L"\"o\"=hex(FFFFFFFF):00", {L"\\o=4294967295:00"}},
      {L"\"d\"=dword: 7\n\"h\"=hex:1,\\\r\n\r\n ; note\r\n2", {L"\\d=4:07000000", L"\\h=3:0102"}},
      {L"\"d\"=dword:1\n\"D\"=-\n@=-\n", {}},
      {L"[HKCU\\Software\\x\\y]z] ; ]", {L"\\y]z] ; \\"}},
      {L"[HKLM\\Software\\x\\y]\n\"a\"=\"\"\n[HKCU\\Software\\x]", {}},
      {L"[hkcu\\software\\X\\y\\z]\n[-HKEY_CURRENT_USER\\Software\\x\\y]\n[-HKCU\\none]", {}},
  };
  for (const auto& row : rows) {
    const TempRegistry registry;
    TRegImportReport report;
    EXPECT_EQ(Import(std::wstring(kStart) + row.lines, report), 0) << report.line << ":" << report.column;
    Dump expected = row.expected;
    expected.insert(L"\\");
    EXPECT_EQ(All(), expected) << Qel::ToUtf8(row.lines);
  }
}

TEST_F(RegToolsTest, ABadLineIsNamedAndNothingIsDone) {
  const struct {
    const wchar_t* lines;
    Problem problem;
    int line, column;  // from the line behind that of the first value
  } rows[] = {
      {L"[HKCU\\x", Problem::BadKey, 0, 1},
      {L"[HKCX\\x]", Problem::BadKey, 0, 2},
      {L"[-HKCU]", Problem::BadKey, 0, 3},
      {L"[HKCU\\a\\\\b]", Problem::BadKey, 0, 2},
      {L"[HKCU\\a] x", Problem::BadKey, 0, 10},
      {L"[-HKCU\\a]\n\"v\"=\"\"", Problem::ValueWithoutKey, 1, 1},
      {L"v=1", Problem::BadName, 0, 1},
      {L"\r\n\n\r  \"v\"\"\"", Problem::BadName, 3, 6},
      {L"\"v\n\"=\"\"", Problem::UnclosedText, 0, 1},
      {L"\"v\"=text", Problem::BadValue, 0, 5},
      {L"\"v\"=\"C:\\Temp\"", Problem::BadValue, 0, 8},
      {L"\"v\"=\"a\n\"w\"=\"b\"", Problem::UnclosedText, 0, 5},
      {L"\"v\"=dword:", Problem::BadValue, 0, 11},
      {L"\"v\"=dword:123456789", Problem::BadValue, 0, 19},
      {L"\"v\"=hex:1,\\\n  ,2", Problem::BadValue, 1, 3},
  };
  for (const auto& row : rows) {
    TRegImportReport report;
    EXPECT_EQ(Import(std::wstring(kStart) + L"\"first\"=dword:1\r\n" + row.lines, report), 13);
    EXPECT_EQ(report.problem, row.problem) << Qel::ToUtf8(row.lines);
    EXPECT_EQ(std::make_pair(report.line - 5, report.column), std::make_pair(row.line, row.column))
        << Qel::ToUtf8(row.lines);
    EXPECT_EQ(HKEY(TRegKey(HKEY_CURRENT_USER, L"Software\\x", KEY_READ, TRegKey::OpenOnly)), nullptr);
  }
}

TEST_F(RegToolsTest, FilesThatAreNoRegistryTextAreRefused) {
  TRegImportReport report;
  EXPECT_EQ(ImportRegistry(Path("none.reg"), report), 2);
  EXPECT_EQ(Import(L"REGEDIT4\r\n", report), 13);
  EXPECT_EQ(report.line, 1);
  for (const std::string& bytes : {""s, "\xFF\xFE\0"s, "Windows Registry Editor Version 5.00"s}) {
    WriteBytes(bytes);
    EXPECT_EQ(ImportRegistry(Path("in.reg"), report), 13);
    EXPECT_EQ(report.problem, Problem::NotRegistryText);
  }
}

// Key HKCU\Software\x with: a text, one that is not terminated, one with a line break, 30 bytes, a sub-key.
TEST_F(RegToolsTest, TheTextIsThatOfTheSystemsEditor) {
  const TRegKey key(HKEY_CURRENT_USER, L"Software\\x", KEY_ALL_ACCESS, TRegKey::CreateOK);
  unsigned char bytes[30];
  for (unsigned char i = 0; i < 30; ++i) bytes[i] = i;
  key.SetValue(L"\"\\", REG_SZ, reinterpret_cast<const unsigned char*>("a\0\\\0\0\0"), 6);
  TRegKey(key, L"1\\2", KEY_READ, TRegKey::CreateOK);
  const TRegKey inner(key, L"1", KEY_ALL_ACCESS, TRegKey::OpenOnly);
  inner.SetValue(L"", REG_BINARY, bytes, 30);
  const TRegKey innermost(inner, L"2", KEY_ALL_ACCESS, TRegKey::OpenOnly);
  innermost.SetValue(L"", REG_SZ, reinterpret_cast<const unsigned char*>("\n\0\0\0"), 4);
  const std::wstring expected =
      std::wstring(kStart) + L"\"\\\"\\\\\"=\"a\\\\\"\r\n\r\n" +
      L"[HKEY_CURRENT_USER\\Software\\x\\1]\r\n"
      L"@=hex:00,01,02,03,04,05,06,07,08,09,0a,0b,0c,0d,0e,0f,10,11,12,13,14,15,16,17,\\\r\n"
      L"  18,19,1a,1b,1c,1d\r\n\r\n"
      L"[HKEY_CURRENT_USER\\Software\\x\\1\\2]\r\n@=hex(1):0a,00,00,00\r\n\r\n";
  std::string file = "\xFF\xFE";
  for (const wchar_t unit : expected) file += std::string{static_cast<char>(unit), '\0'};
  EXPECT_EQ(Exported(), file);
}

TEST_F(RegToolsTest, WhatIsExportedImportsToTheSame) {
  const TRegKey key(HKEY_CURRENT_USER, L"Software\\x\\مفتاح]", KEY_ALL_ACCESS, TRegKey::CreateOK);
  const unsigned int types[] = {REG_NONE,  REG_SZ,       REG_EXPAND_SZ, REG_BINARY,
                                REG_DWORD, REG_MULTI_SZ, REG_QWORD,     99};
  for (const unsigned int type : types)
    for (const unsigned int size : {0U, 1U, 2U, 4U, 8U, 5000U}) {
      const std::string data = (size == 4 ? "a\0\0\0"s : std::string(size, '\x41')) + "##";
      const std::wstring name = L"\"\\\n\r=" + std::to_wstring(type) + L";" + std::to_wstring(size);
      ASSERT_EQ(key.SetValue(name.c_str(), type, reinterpret_cast<const unsigned char*>(data.data()), size),
                0);
    }
  const Dump before = All();
  Exported();
  ASSERT_EQ(TRegKey::GetCurrentUser().NukeKey(L"Software\\x"), 0);
  TRegImportReport report;
  EXPECT_EQ(ImportRegistry(Path("out.reg"), report), 0);
  EXPECT_EQ(std::make_pair(report.keys, report.values), std::make_pair(2, 48));
  EXPECT_EQ(All(), before);
  // 77 units, whatever wide characters are here.
  TRegKey(HKEY_CURRENT_USER, L"Software\\x\\😀", KEY_READ, TRegKey::CreateOK);
  EXPECT_EQ(ExportRegistry(L"HKCU\\Software\\x\\😀", Path("out.reg")), 0);
  EXPECT_EQ(std::filesystem::file_size(m_Folder.Path() / "out.reg"), 156U);
}

TEST_F(RegToolsTest, AnExportThatFailsLeavesTheFile) {
  EXPECT_EQ(ExportRegistry(L"HKCU\\none", Path("out.reg")), 2);
  EXPECT_EQ(ExportRegistry(L"HKXX\\none", Path("out.reg")), 161);
  const TRegKey made(HKEY_CURRENT_USER, L"Software\\x", KEY_ALL_ACCESS, TRegKey::CreateOK);
  EXPECT_EQ(ExportRegistry(L"HKCU", Path("no folder/out.reg")), 3);
  const std::string first = Exported();
  EXPECT_EQ(Exported(), first);
  TRegKey(made, L"a\nb", KEY_READ, TRegKey::CreateOK);
  EXPECT_EQ(ExportRegistry(L"HKCU", Path("out.reg")), 13);
  EXPECT_EQ(std::filesystem::file_size(m_Folder.Path() / "out.reg"), first.size());
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_Folder.Path()), {}), 1);
}

TEST_F(RegToolsTest, AWaitEndsWithAChange) {
  const TRegKey key(HKEY_CURRENT_USER, L"Software\\x", KEY_ALL_ACCESS, TRegKey::CreateOK);
  EXPECT_EQ(WaitForRegistryChange(key, 1), 258);
  std::thread writer([] {
    TRegKey(HKEY_CURRENT_USER, L"Software\\x\\y", KEY_ALL_ACCESS, TRegKey::CreateOK).SetValue(L"v", 1);
  });
  EXPECT_EQ(WaitForRegistryChange(key, 30000), 0);
  writer.join();
}
