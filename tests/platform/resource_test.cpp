#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "platform/platform.h"
#include "support/golden.h"
#include "support/test_strings.h"

namespace {

constexpr DWORD kUnset = 0xDEAD;

const wchar_t* Number(int number) {
  return reinterpret_cast<const wchar_t*>(static_cast<std::uintptr_t>(number));
}

// The text of `id` in a block, walked as the format says; the whole block must hold sixteen texts and no
// more.
std::wstring TextOf(HINSTANCE module, HRSRC found, int id) {
  const auto* at = static_cast<const wchar_t*>(LockResource(LoadResource(module, found)));
  const wchar_t* const end = at + SizeofResource(module, found) / 2;
  std::wstring text;
  for (int index = 0; index < 16 && at < end; at += 1 + *at, ++index)
    if (index == id % 16) text.assign(at + 1, static_cast<std::size_t>(*at));
  EXPECT_EQ(at, end);
  return text;
}

// The text found, or the error.
std::string Answer(const GoldenRow& row) {
  const int id = row.Int("id");
  SetLastError(kUnset);
  const HRSRC found = FindResourceExW(TestStrings(), Number(row.Int("type")), Number(id / 16 + 1),
                                      static_cast<WORD>(row.Int("language")));
  const DWORD error = GetLastError();
  if (!found) return std::to_string(error);
  EXPECT_EQ(error, kUnset);
  return Spelled(TextOf(TestStrings(), found, id));
}

}  // namespace

// Left out of the table is what Windows answers by the language of the user.
TEST(ResourceTest, BlocksAnswerByLanguageAsRecorded) {
  ASSERT_NE(TestStrings(), nullptr);
  for (const auto& row : GoldenTable("resource.tsv")) {
    SCOPED_TRACE(row.where);
    ExpectAnswer(row, Answer(row));
  }
  EXPECT_EQ(LockResource(LoadResource(TestStrings(), nullptr)), nullptr);
}

// Every language of the product, and every block that its numbers fall into.
TEST(ResourceTest, TheLibraryHasEveryTextInEveryLanguage) {
  const struct { int first, last; } ranges[] = {{155, 161}, {195, 218}, {230, 241}};
  for (const int language : {1033, 0x2801, 1036, 1049, 1050, 1055, 1046, 2052})
    for (const auto& range : ranges)
      for (int id = range.first; id <= range.last; ++id) {
        SCOPED_TRACE(std::to_string(language) + " " + std::to_string(id));
        const HRSRC found =
            FindResourceExW(LibraryModule(), Number(6), Number(id / 16 + 1), static_cast<WORD>(language));
        ASSERT_NE(found, nullptr);
        EXPECT_NE(TextOf(LibraryModule(), found, id), L"");
      }
}
