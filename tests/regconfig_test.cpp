#include "regconfig.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "pxsf.h"
#include "regkey.h"
#include "support/golden.h"
#include "support/temp_registry.h"

namespace {

constexpr wchar_t kHome[] = L"Software\\qelmarsoft\\Qelmar\\9.0";

class RegConfigTest : public testing::Test {
 protected:
  TempRegistry m_Registry;
  TQelReg m_Settings;

  static bool HasKey(const std::wstring& below) {
    return HKEY(TRegKey(HKEY_CURRENT_USER, (kHome + below).c_str(), KEY_READ, TRegKey::OpenOnly)) != nullptr;
  }
  // The stored type and bytes.
  static std::string Stored(const wchar_t* section, const wchar_t* entry) {
    const TRegKey key(HKEY_CURRENT_USER, (kHome + std::wstring(L"\\") + section).c_str(), KEY_READ,
                      TRegKey::OpenOnly);
    const TRegValue value(key, entry);
    return std::to_string(value.GetDataType()) + ":" +
           std::string(value.GetData(), value.GetData() + value.GetDataSize());
  }
};

}  // namespace

using namespace std::string_literals;

TEST_F(RegConfigTest, EntriesHaveTheRegistrysOwnTypes) {
  EXPECT_TRUE(m_Settings.WriteString(L"s", L"text", L"a😀"));
  EXPECT_EQ(Stored(L"s", L"text"), "1:a\0\x3D\xD8\0\xDE\0\0"s);
  EXPECT_TRUE(m_Settings.WriteString(L"s", L"text", nullptr));
  EXPECT_EQ(Stored(L"s", L"text"), "1:\0\0"s);
  EXPECT_TRUE(m_Settings.WriteInteger(L"s", L"number", -2));
  EXPECT_EQ(Stored(L"s", L"number"), "4:\xFE\xFF\xFF\xFF"s);
  char data[] = "ab";
  EXPECT_TRUE(m_Settings.WriteData(L"s", L"data", data, 2));
  EXPECT_EQ(Stored(L"s", L"data"), "3:ab"s);
  EXPECT_TRUE(m_Settings.WriteString(std::wstring(200, L'n').c_str(), L"v", std::wstring(300, L'x').c_str()));
  EXPECT_EQ(Stored(std::wstring(200, L'n').c_str(), L"v").size(), 2U + 602U);
}

TEST_F(RegConfigTest, ABufferOfCharactersTakesAsManyBytes) {
  m_Settings.WriteString(L"s", L"v", L"abc");
  m_Settings.WriteInteger(L"s", L"n", 7);
  m_Settings.WriteData(L"s", L"odd", const_cast<char*>("a\0b"), 3);
  const struct {
    const wchar_t* entry;
    unsigned int size;
    const wchar_t* defaultValue;
    int result;
    std::wstring text;
  } rows[] = {
      {L"v", 8, L"d", 8, L"abc"}, {L"v", 7, L"default", 6, L"defaul"}, {L"n", 20, L"d", 4, L"\7"},
      {L"odd", 3, L"d", 3, L"a"}, {L"none", 20, L"d", 1, L"d"},        {L"none", 20, nullptr, 0, L""},
      {L"none", 1, L"d", 0, L""},
  };
  for (const auto& row : rows) {
    std::vector<wchar_t> buffer(row.size + 1, L'#');
    EXPECT_EQ(m_Settings.ReadString(L"s", row.entry, buffer.data(), row.size, row.defaultValue), row.result);
    EXPECT_EQ(buffer.data(), row.text) << row.size;
    EXPECT_EQ(buffer[row.size], L'#');
  }
  TRect rect;
  for (const auto& [text, read] :
       {std::pair(L"L=10,T=20,W=30,H=40", true), std::pair(L"L=100,T=20,W=30,H=40", false)}) {
    m_Settings.WriteString(L"s", L"r", text);
    EXPECT_EQ(m_Settings.ReadRect(L"s", L"r", rect), read);
  }
  wchar_t untouched = L'#';
  m_Settings.ReadString(L"s", L"v", &untouched, 0, L"d");
  EXPECT_EQ(untouched, L'#');
}

TEST_F(RegConfigTest, NumbersAndDataAreReadWhateverTheirType) {
  m_Settings.WriteString(L"s", L"seven", L"7");
  m_Settings.WriteString(L"s", L"123", L"123");
  m_Settings.WriteData(L"s", L"byte", const_cast<char*>("\xFF"), 1);
  EXPECT_EQ(m_Settings.ReadInteger(L"s", L"seven", 1), 55);
  EXPECT_EQ(m_Settings.ReadInteger(L"s", L"123", 1), 1);
  EXPECT_EQ(m_Settings.ReadInteger(L"s", L"byte", 1), 255);
  EXPECT_EQ(m_Settings.ReadInteger(L"s", nullptr, 5), 5);
  unsigned char data[8];
  EXPECT_TRUE(m_Settings.ReadData(L"s", L"123", data, 8));
  EXPECT_FALSE(m_Settings.ReadData(L"s", L"123", data, 7));
  EXPECT_EQ(m_Settings.ReadData2(L"s", L"byte", data, 8), 1U);
  EXPECT_EQ(m_Settings.ReadData2(L"s", L"none", data, 8), 0xFFFFFFFFU);
}

TEST_F(RegConfigTest, ReadingMakesTheSectionAndAskingForItDoesNot) {
  EXPECT_FALSE(m_Settings.SectionExists(L"s"));
  EXPECT_FALSE(HasKey(L""));
  EXPECT_FALSE(m_Settings.EraseSection(L"s"));
  EXPECT_FALSE(HasKey(L"\\s"));
  EXPECT_EQ(pxGetProfileInt(L"s", L"none", -5), 0xFFFFFFFBU);
  EXPECT_TRUE(m_Settings.SectionExists(L"s"));
}

TEST_F(RegConfigTest, ListsKeepTheirCount) {
  const auto list = [&](std::vector<std::wstring> names, unsigned int size) {
    m_Settings.EraseSection(L"s");
    for (const auto& name : names) m_Settings.WriteInteger(L"s", name.c_str(), 1);
    std::wstring buffer(size + 1, L'#');
    const int result = m_Settings.ReadSection(L"s", buffer.data(), size);
    EXPECT_EQ(buffer[size], L'#');
    return std::make_pair(result, buffer.substr(0, buffer.find(L"\0\0"s) + 2));
  };
  std::vector<std::wstring> ones, fours;
  for (wchar_t ch = L'a'; ch < L'k'; ++ch) ones.emplace_back(1, ch);
  for (int i = 0; i < 30; ++i) fours.push_back(L"n" + std::to_wstring(100 + i));
  EXPECT_EQ(list({L"a", L"bb", L"cccc"}, 20), std::make_pair(11, L"a\0bb\0cccc\0\0"s));
  EXPECT_EQ(list({L"a", L"bb", L"cccc"}, 4), std::make_pair(6, L"a\0\0"s));
  EXPECT_EQ(list(ones, 3), std::make_pair(21, L"a\0\0"s));
  EXPECT_EQ(list(fours, 20), std::make_pair(31, L"n100\0n101\0n102\0\0"s));
  CString first;
  EXPECT_EQ(m_Settings.ReadSection(CString(L"s"), first), 151);
  EXPECT_EQ(m_Settings.ReadSections(first), 3);
  EXPECT_EQ(first, L"s");
}

TEST_F(RegConfigTest, ProfileTextsAreWrittenErasedAndReadBack) {
  EXPECT_EQ(pxWriteProfileString(L"s\\deep", L"v", L"text"), 1);
  EXPECT_EQ(GetString(L"s\\deep", L"v", L""), L"text");
  CString value;
  EXPECT_EQ(pxGetProfileString(L"s\\deep", L"v", nullptr, value), 10);
  EXPECT_EQ(pxWriteProfileString(L"s\\deep", L"v", nullptr), 1);
  EXPECT_EQ(GetString(L"s\\deep", L"v", L"gone"), L"gone");
  EXPECT_EQ(pxWriteProfileString(L"s", nullptr, L"default"), 1);
  EXPECT_EQ(GetString(L"s", L"", L""), L"default");
  EXPECT_EQ(pxWriteProfileString(L"s", nullptr, nullptr), 1);
  EXPECT_FALSE(HasKey(L"\\s"));
  EXPECT_EQ(pxWriteProfileString(L"", nullptr, nullptr), 0);
  EXPECT_TRUE(HasKey(L""));
}

TEST_F(RegConfigTest, RecordsAreReadBackUpToWhatATextMayHold) {
  const struct { int size, read; } rows[] = {{3, 1}, {1997, 1}, {1998, 0}, {3997, 0}};
  for (const auto& row : rows) {
    const std::vector<unsigned char> data(static_cast<std::size_t>(row.size), 0xA5);
    std::vector<unsigned char> read(data.size());
    EXPECT_EQ(pxWriteProfileStruct(L"s", L"v", data.data(), row.size), 1);
    EXPECT_EQ(pxReadProfileStruct(L"s", L"v", read.data(), row.size), row.read) << row.size;
    EXPECT_EQ(read == data, row.read == 1);
  }
  unsigned char other[4] = {9, 9, 9, 9};
  pxWriteProfileString(L"s", L"v", L"00030010fF");
  EXPECT_EQ(ReadStruct(L"s", L"v", other, 4), 0);
  EXPECT_EQ(ReadStruct(L"s", L"none", other, 0), 0);
  EXPECT_EQ(other[0], 9);
  EXPECT_EQ(ReadStruct(L"s", L"v", other, 3), 1);
  EXPECT_EQ(other[2], 0xFF);
}

TEST_F(RegConfigTest, WithoutAStoreThereAreDefaults) {
  if (RunsOnWindows()) GTEST_SKIP() << "the registry is always there";
  std::filesystem::remove_all(m_Registry.Place());
  std::ofstream(m_Registry.Place()) << "no folder";
  EXPECT_EQ(pxGetProfileInt(L"s", L"v", 5), 5U);
  EXPECT_EQ(pxWriteProfileInt(L"s", L"v", 1), 0);
  EXPECT_EQ(GetString(L"s", L"v", L"default"), L"default");
}

TEST_F(RegConfigTest, RootsAreApartAndMustBeKeys) {
  EXPECT_THROW(TRegConfigFile(L"Acme", nullptr), const wchar_t*);
  TQelReg machine(true);
  EXPECT_TRUE(machine.WriteInteger(L"s", L"v", 2));
  EXPECT_EQ(m_Settings.ReadInteger(L"s", L"v", 1), 1);
}

TEST_F(RegConfigTest, ValuesOfATextStoreMoveByTheirBytes) {
  TRegConfigFile source(L"Acme", HKEY_CURRENT_USER);
  source.WriteString(L"s", L"word", L" over here ");
  source.WriteString(L"s", L"7", L"7");
  source.WriteString(L"s", L"123", L"123");
  m_Settings.LoadValues(source);
  EXPECT_EQ(GetString(L"s", L"word", L""), L"over here");
  EXPECT_EQ(m_Settings.ReadInteger(L"s", L"7", 0), 55);
  EXPECT_EQ(m_Settings.ReadInteger(L"s", L"123", 1), 1);
}
