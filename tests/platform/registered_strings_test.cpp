// Built where modules do not carry resources of their own.
#include <gtest/gtest.h>

#include "string_resources.h"

using namespace Qel::Sys::Text;

TEST(RegisteredStringsTest, LaterCallsAddTextsAndCorrectThemInTheirModuleAlone) {
  static char s_Token, s_Other;
  const auto module = reinterpret_cast<HINSTANCE>(&s_Token), other = reinterpret_cast<HINSTANCE>(&s_Other);
  const StringEntry first[] = {{20, L"twenty"}, {21, L"wrong"}, {40, nullptr}};
  const StringEntry second[] = {{21, L"twenty-one"}, {19, L"x\U0001F600y"}};
  EXPECT_TRUE(AddStringTable(module, 1033, first, 3));
  EXPECT_TRUE(AddStringTable(module, 1033, second, 2));
  EXPECT_FALSE(AddStringTable(nullptr, 1033, first, 3));
  EXPECT_FALSE(AddStringTable(other, 1033, nullptr, 3));
  const struct {
    const char* name;
    HINSTANCE module;
    unsigned id;
    std::wstring text;
  } rows[] = {
      {"of the first call", module, 20, L"twenty"},
      {"corrected", module, 21, L"twenty-one"},
      {"of the second call, a character above U+FFFF in two units", module, 19, {L'x', 0xD83D, 0xDE00, L'y'}},
      {"between others", module, 22, L""},
      {"null", module, 40, L""},
      {"of another module", other, 20, L""},
  };
  for (const auto& row : rows) EXPECT_EQ(LoadString(row.id, row.module), row.text.c_str()) << row.name;
}

TEST(RegisteredStringsTest, EnglishStepsInBeforeAnyOtherLanguage) {
  static char s_Token;
  const auto module = reinterpret_cast<HINSTANCE>(&s_Token);
  constexpr int kFrench = 2;
  const StringEntry german = {20, L"zwanzig"}, english = {20, L"twenty"};
  AddStringTable(module, 1031, &german, 1);
  EXPECT_EQ(LoadString(20, module, kFrench), L"zwanzig");
  AddStringTable(module, 1033, &english, 1);
  EXPECT_EQ(LoadString(20, module, kFrench), L"twenty");
}
