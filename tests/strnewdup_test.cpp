#include "strnewdup.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

// The buffer as text, zeros included, after it was freed the way its owners free it.
template <class Char>
std::basic_string<Char> Taken(Char* buffer, std::size_t size) {
  std::basic_string<Char> text(buffer, size);
  ::operator delete(buffer);
  return text;
}

}  // namespace

TEST(StrnewdupTest, TheBufferHoldsTheTextAndZerosBehindIt) {
  const struct {
    const char* name;
    const char* narrow;
    const wchar_t* wide;
    unsigned size;
    std::size_t elements;
  } rows[] = {
      {"null", nullptr, nullptr, 0, 1},
      {"room to spare", "ab", L"ab", 5, 5},
      {"just enough", "ab", L"ab", 3, 3},
      {"too small a size", "abc", L"abc", 2, 4},
      {"bytes of no valid sequence", "\xD8\xFF", L"\xD800\xFFFF", 0, 3},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    std::string narrow = row.narrow ? row.narrow : "";
    std::wstring wide = row.wide ? row.wide : L"";
    narrow.resize(row.elements);
    wide.resize(row.elements);
    EXPECT_EQ(Taken(strnewdup(row.narrow, row.size), row.elements), narrow);
    EXPECT_EQ(Taken(strnewdup(row.wide, row.size), row.elements), wide);
  }
}
