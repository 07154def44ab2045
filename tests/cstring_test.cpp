#include "qel_cstring.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "support/raises.h"

// The ways in are held by tstring_test.cpp, which goes through them all.
TEST(CStringTest, PartsAreClippedToTheText) {
  const CString text(L"abcdef");
  EXPECT_EQ(text.Left(2), L"ab");
  EXPECT_EQ(text.Left(INT_MAX), L"abcdef");
  EXPECT_EQ(text.Left(-1), L"");
  EXPECT_EQ(text.Right(2), L"ef");
  EXPECT_EQ(text.Right(INT_MAX), L"abcdef");
  EXPECT_EQ(text.Right(INT_MIN), L"");
  EXPECT_EQ(text.Mid(2, 3), L"cde");
  EXPECT_EQ(text.Mid(4), L"ef");
  EXPECT_EQ(text.Mid(INT_MIN, 2), L"ab");
  EXPECT_EQ(text.Mid(6, 1), L"");
  EXPECT_EQ(text.Mid(INT_MAX, INT_MAX), L"");
  EXPECT_EQ(text.Mid(2, -1), L"");
}

TEST(CStringTest, ReplaceGoesOnceFromLeftToRight) {
  const struct {
    const wchar_t *text, *from, *to, *result;
    int count;
  } rows[] = {
      {L"aaa", L"aa", L"a", L"aa", 1},    {L"a-b-c", L"-", L"--", L"a--b--c", 2},
      {L"abc", L"", L"x", L"abc", 0},     {L"abc", L"x", L"y", L"abc", 0},
      {L"abab", L"ab", L"", L"", 2},      {L"abc", L"b", nullptr, L"ac", 1},
      {L"abc", nullptr, L"y", L"abc", 0},
  };
  for (const auto& row : rows) {
    CString text(row.text);
    EXPECT_EQ(text.Replace(row.from, row.to), row.count);
    EXPECT_EQ(text, row.result);
  }
  CString slashes(L"/a/");
  EXPECT_EQ(slashes.Replace(L'/', L'\\'), 2);
  EXPECT_EQ(slashes, L"\\a\\");
}

TEST(CStringTest, FindGivesPositionsOrMinusOne) {
  const CString text(L"abcabc");
  EXPECT_EQ(text.Find(L"bc"), 1);
  EXPECT_EQ(text.Find(L"bc", 2), 4);
  EXPECT_EQ(text.Find(L'c', 3), 5);
  EXPECT_EQ(text.Find(L'c', 6), -1);
  EXPECT_EQ(text.Find(L"x"), -1);
  EXPECT_EQ(text.Find(L"a", INT_MIN), 0);
  EXPECT_EQ(text.Find(L"a", INT_MAX), -1);
}

TEST(CStringTest, UnitsAreReadUpToTheTerminatorAndWrittenBeforeIt) {
  CString text(L"ab");
  EXPECT_EQ(text[2], L'\0');
  text.SetAt(1, L'x');
  EXPECT_EQ(text, L"ax");
  for (const int index : {-1, 3})
    EXPECT_EQ(RaisedBy([&] { text.GetAt(index); }), L"index >= 0 && index <= GetLength()");
  for (const int index : {-1, 2})
    EXPECT_EQ(RaisedBy([&] { text.SetAt(index, L'x'); }), L"index >= 0 && index < GetLength()");
}

TEST(CStringTest, TokenizeGivesTheRunsBetweenSeparators) {
  const auto tokens = [](const CString& text, const wchar_t* separators) {
    std::vector<std::wstring> found;
    int start = 0;
    for (CString token = text.Tokenize(separators, start); start >= 0;
         token = text.Tokenize(separators, start))
      found.emplace_back(token);
    return found;
  };
  using Tokens = std::vector<std::wstring>;
  EXPECT_EQ(tokens(L",,a,;b;,", L",;"), (Tokens{L"a", L"b"}));
  EXPECT_EQ(tokens(L"ab", L","), Tokens{L"ab"});
  EXPECT_EQ(tokens(L",,", L","), Tokens{});
  EXPECT_EQ(tokens(L"", L","), Tokens{});
  EXPECT_EQ(tokens(L"a,b", nullptr), Tokens{L"a,b"});
}

TEST(CStringTest, TextsCompareByUnitOrWithoutCase) {
  EXPECT_LT(CString(L"Z"), CString(L"a"));
  EXPECT_LT(CString(L"a"), L"ab");
  EXPECT_EQ(CString(L"b").Compare(L"a"), 1);
  EXPECT_EQ(CString(L"").Compare(nullptr), 0);
  EXPECT_EQ(CString(L"aBc").CompareNoCase(L"AbC"), 0);
  EXPECT_EQ(CString(L"a").CompareNoCase(nullptr), 1);
  EXPECT_EQ(CString(L"a") + L"b" + L'c', L"abc");
}
