// Built where modules do not carry resources of their own.
#include <gtest/gtest.h>

#include "string_resources.h"

using namespace Qel::Sys::Text;

namespace {

// Static, since what is registered stays.
HINSTANCE ModuleAt(char& token) {
  return reinterpret_cast<HINSTANCE>(&token);
}

}  // namespace

TEST(RegisteredStringsTest, LaterCallsAddTextsAndCorrectThem) {
  static char token;
  const HINSTANCE module = ModuleAt(token);
  const StringEntry first[] = {{20, L"twenty"}, {21, L"wrong"}, {40, nullptr}};
  const StringEntry second[] = {{21, L"twenty-one"}, {19, L"nineteen"}};
  EXPECT_TRUE(AddStringTable(module, 1033, first, 3));
  EXPECT_TRUE(AddStringTable(module, 1033, second, 2));
  const struct {
    unsigned id;
    const wchar_t* text;
  } rows[] = {{19, L"nineteen"}, {20, L"twenty"}, {21, L"twenty-one"}, {22, L""}, {40, L""}};
  for (const auto& row : rows) EXPECT_EQ(LoadString(row.id, module), row.text) << row.id;
}

TEST(RegisteredStringsTest, ModulesDoNotSeeEachOthersTexts) {
  static char token, other;
  const StringEntry entry = {20, L"twenty"};
  AddStringTable(ModuleAt(token), 1033, &entry, 1);
  EXPECT_EQ(LoadString(20, ModuleAt(other)), L"");
}

TEST(RegisteredStringsTest, ACharacterAboveTheUnitsBecomesTwo) {
  static char token;
  const StringEntry entries[] = {{1, L"x\U0001F600y"}, {2, L"next"}};
  AddStringTable(ModuleAt(token), 1033, entries, 2);
  EXPECT_EQ(LoadString(1, ModuleAt(token)), (std::wstring{L'x', 0xD83D, 0xDE00, L'y'}));
  EXPECT_EQ(LoadString(2, ModuleAt(token)), L"next");
}

TEST(RegisteredStringsTest, NothingIsTakenWithoutModuleOrTable) {
  static char token;
  const StringEntry entry = {20, L"twenty"};
  EXPECT_FALSE(AddStringTable(nullptr, 1033, &entry, 1));
  EXPECT_FALSE(AddStringTable(ModuleAt(token), 1033, nullptr, 1));
}
