#include "string_tools.h"

#include <gtest/gtest.h>

#include <string>

#include "exceptions.h"
#include "support/raises.h"
#include "utf8.h"

using namespace Qel::Sys::Text;

TEST(StringToolsTest, FilterTextTrimsDropsTabsAndCollapsesBlanks) {
  const wchar_t* const rows[][2] = {
      {L"", L""},
      {L" \t\r\n\u3000", L""},
      {L"\t a   b \t", L"a b"},
      {L"a\t b \t c", L"a b c"},
      {L"a\tb", L"ab"},
      {L"\u00A0\u2028نص\u0085\u2003", L"نص"},
      {L"a\u00A0\u00A0b\nc", L"a\u00A0\u00A0b\nc"},
      {L"\u200Ba\u200F", L"\u200Ba\u200F"},
  };
  for (const auto& [before, after] : rows) {
    CString text(before);
    EXPECT_EQ(FilterText(text), after);
    EXPECT_EQ(text, after);
  }
}

// The White_Space property of Unicode, in every version since 6.3.
TEST(StringToolsTest, ExactlyTheWhiteSpaceOfUnicodeIsTrimmed) {
  const int ranges[][2] = {{0x0009, 0x000D}, {0x0020, 0x0020}, {0x0085, 0x0085}, {0x00A0, 0x00A0},
                           {0x1680, 0x1680}, {0x2000, 0x200A}, {0x2028, 0x2029}, {0x202F, 0x202F},
                           {0x205F, 0x205F}, {0x3000, 0x3000}};
  std::wstring trimmed, expected;
  for (int unit = 1; unit <= 0xFFFF; ++unit) {
    CString text(static_cast<wchar_t>(unit));
    if (FilterText(text).IsEmpty()) trimmed += static_cast<wchar_t>(unit);
  }
  for (const auto& [first, last] : ranges)
    for (int unit = first; unit <= last; ++unit) expected += static_cast<wchar_t>(unit);
  EXPECT_EQ(trimmed, expected);
}

TEST(StringToolsTest, FixFileNameRepairsPastedNames) {
  const wchar_t* const rows[][2] = {
      {LR"("\\server\share\")", LR"(\\server\share)"},
      {LR"( C:\\Data\a.txt )", LR"(C:\Data\a.txt)"},
      {LR"('"' a' "\')", L"a"},
      {LR"(\dir)", LR"(\\dir)"},
      {LR"(\\\dir)", LR"(\\\dir)"},
      {LR"(\\\\dir)", LR"(\\\dir)"},  // Kept: halved in one pass
      {LR"(\)", L""},
      {L"", L""},
      {L"//a//b/", L"//a//b/"},
  };
  for (const auto& [before, after] : rows) {
    CString name(before);
    FixFileName(name);
    EXPECT_EQ(name, after) << Qel::ToUtf8(before);
  }
}

TEST(StringToolsTest, RemoveDupLeavesOneOfEachRun) {
  const auto without = [](std::wstring text, wchar_t ch) {
    RemoveDup(text.data(), ch);
    return std::wstring(text.c_str());
  };
  EXPECT_EQ(without(L",a,,,b,,c,,", L','), L",a,b,c,");
  EXPECT_EQ(without(L",,,,", L','), L",");
  EXPECT_EQ(without(L"aabb", L','), L"aabb");
  EXPECT_EQ(without(L"aa", L'\0'), L"aa");
  RemoveDup(nullptr, L',');
}

TEST(StringToolsTest, TheFirstCharacterMakesATextArabic) {
  for (const wchar_t* text : {L"\u0600", L"\u06FFa", L"\u0750A", L"\u077F", L"\u08A0", L"\u08FF"})
    EXPECT_TRUE(StringIsArabic(text)) << Qel::ToUtf8(text);
  for (const wchar_t* text :
       {L"", L"aب", L" ب", L"\u05FF", L"\u0700", L"\u074F", L"\u0780", L"\u089F", L"\u0900"})
    EXPECT_FALSE(StringIsArabic(text)) << Qel::ToUtf8(text);
}

// The order itself is held to the recorded pairs by the platform's own tests.
TEST(StringToolsTest, ComparisonsAnswerWithTheirOwnSigns) {
  const struct {
    const wchar_t *a, *b;
    int exact, ignoringCase, lettersOnly;
  } rows[] = {
      {L"abc", L"abc", 0, 0, 0},     {L"abc", L"ABC", -1, 0, 0}, {L"كتاب", L"كِتاب", -1, -1, 0},
      {L"احمد", L"أحمد", -1, -1, 0}, {L"ب", L"ا", 1, 1, 1},      {L"ab", L"abc", -1, -1, -1},
      {nullptr, L"a", -1, -1, -1},   {L"a", nullptr, 1, -1, -1}, {nullptr, nullptr, 0, -1, -1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    const int exact = pxCompStr(row.a, row.b);
    EXPECT_EQ((exact > 0) - (exact < 0), row.exact);
    EXPECT_EQ(pxCompStrI(row.a, row.b), row.ignoringCase);
    EXPECT_EQ(CompStr(row.a, row.b), row.ignoringCase == 0);
    EXPECT_EQ(StrCompare(row.a, row.b, -1), row.lettersOnly);
  }
}

TEST(StringToolsTest, StrCompareLooksAtNoMoreThanNUnits) {
  const struct { int n, expected; } rows[] = {{-1, -1}, {0, 0}, {3, 0}, {4, -1}, {1000, -1}};
  for (const auto& row : rows) EXPECT_EQ(StrCompare(L"abcd", L"ABCE", row.n), row.expected) << row.n;
  EXPECT_EQ(StrCompare(L"abc", L"abcd", 1000), -1);
  EXPECT_EQ(StrCompare(nullptr, L"a", 1), -1);
}

TEST(StringToolsTest, GetHexKnowsTheAsciiDigitsAndRaisesForTheRest) {
  const std::string digits = "0123456789ABCDEFabcdef";
  for (unsigned c = 1; c < 256; ++c) {
    const auto at = digits.find(static_cast<char>(c));
    unsigned char value = 99;
    const std::wstring raised = RaisedBy([&] { value = GetHex(static_cast<unsigned char>(c)); });
    if (at == std::string::npos)
      EXPECT_EQ(raised, L"!c") << c;
    else
      EXPECT_EQ(value, at < 16 ? at : at - 6) << c;
  }
  EXPECT_EQ(GetHex(0), 0);
  const auto e = Raised([] { GetHex('g'); });
  EXPECT_EQ(e->GetFile(), L"src/string_tools");
  EXPECT_EQ(e->GetLineNumber(), 395);
}

TEST(StringToolsTest, EscapesTouchTheirOwnCharactersOnly) {
  EXPECT_EQ(EscapeSQLQuote(L"'it''s' \"\\"), L"''it''''s'' \"\\");
  EXPECT_EQ(EscapeSQLQuote(nullptr), L"");
  EXPECT_EQ(FixStringForWeb(L"<a href=\"x\">'R&D'\n&amp;ب"),
            L"&lt;a href=&quot;x&quot;&gt;&apos;R&amp;D&apos;\n&amp;amp;ب");
  EXPECT_EQ(FixStringForWeb(nullptr), L"");
}

TEST(StringToolsTest, IncCodeCountsUpAtTheEnd) {
  const wchar_t* const rows[][2] = {
      {L"A009", L"A010"}, {L"A99", L"A100"},   {L"999", L"1000"}, {L"", L"1"},     {L"AB", L"AB1"},
      {L"9A", L"9A1"},    {L"A1B9", L"A1B10"}, {L"0", L"1"},      {L"A٩", L"A٩1"}, {nullptr, L"1"},
  };
  for (const auto& [code, next] : rows) EXPECT_EQ(IncCode(code), next);
  EXPECT_EQ(IncCode(L"99999999999999999999"), L"100000000000000000000");
}

TEST(StringToolsTest, AccountsAreShownAsCodeAndName) {
  EXPECT_EQ(AccCodeName(L"11", L"Cash"), L"11-Cash");
  EXPECT_EQ(AccCodeName(L"Name", L"Code-Name"), L"Name-Code-Name");
  EXPECT_EQ(AccCodeName(L"", L"Cash"), L"Cash");
  EXPECT_EQ(AccCodeName(L"11", nullptr), L"11");
  EXPECT_EQ(AccCodeName(nullptr, L""), L"");
}

TEST(StringToolsTest, TheComputerHasAName) {
  const CString name = GetCurComputerName();
  EXPECT_FALSE(name.IsEmpty());
  EXPECT_NE(name, L"GetCurComputerName_Error");
}
