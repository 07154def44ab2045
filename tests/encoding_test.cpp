#include "encoding.h"

#include <gtest/gtest.h>

#include "code_page.h"
#include "qel_cstring.h"
#include "utf8.h"

using namespace Qel::Sys::Text::Encoding;

// Every byte of the page in one text and each alone is the business of the platform's own tests.
TEST(EncodingTest, NarrowAndWideTextAreTheSameInTheArabicPage) {
  const struct {
    const char* narrow;
    const wchar_t* wide;
  } rows[] = {{nullptr, nullptr},
              {"", L""},
              {"Qelmar 9.0", L"Qelmar 9.0"},
              {"\xC7\xE1\xE1\xDB\xC9\xFF\x01\x80", L"اللغة\u06D2\x01\u20AC"}};
  for (const auto& row : rows) {
    const std::string narrow = row.narrow ? row.narrow : "";
    const std::wstring wide = row.wide ? row.wide : L"";
    SCOPED_TRACE(narrow);
    EXPECT_EQ(ConvertA2W(row.narrow), wide);
    EXPECT_EQ(ConvertA2N(row.narrow), wide.c_str());
    EXPECT_EQ(Convert2W(row.narrow), wide);
    EXPECT_EQ(Convert2W(row.wide), wide);
    EXPECT_EQ(ConvertW2N(row.wide), wide.c_str());
    EXPECT_EQ(ConvertW2A(row.wide), narrow);
    EXPECT_EQ(Convert2A(row.wide), narrow);
    EXPECT_EQ(Convert2A(row.narrow), narrow);
  }
}

TEST(EncodingTest, WhatThePageLacksBecomesItsBestFitOrAQuestionMark) {
  EXPECT_EQ(ConvertW2A(L"À١٢\u4E2D"), "A12?");
  EXPECT_EQ(ConvertW2A(L"x\U0001F600y"), "x??y");  // two units, so two marks
}

TEST(EncodingTest, LongTextsConvertWhole) {
  for (const std::size_t length : {127u, 128u, 129u, 1000u, 100'000u}) {
    const std::string narrow(length, '\xC8');
    const std::wstring wide(length, L'ب');
    EXPECT_EQ(ConvertA2W(narrow.c_str()), wide) << length;
    EXPECT_EQ(ConvertW2A(wide.c_str()), narrow) << length;
  }
}

TEST(EncodingTest, AFailureOfThePlatformIsThrownAsItsResult) {
  try {
    Decode(54321, "of no such page");
    ADD_FAILURE() << "nothing thrown";
  } catch (HRESULT result) {
    EXPECT_EQ(static_cast<DWORD>(result), 0x80070057u);  // 87, an invalid parameter
  }
}

// The thread's page differs between systems; all agree on ASCII.
TEST(EncodingTest, TheThreadsPageServesCStrings) {
  EXPECT_EQ(GetCStringFromStdString("plain"), L"plain");
  EXPECT_EQ(GetCStringFromStdString(std::string("cut\0off", 7)), L"cut");
  EXPECT_EQ(GetStdStringFromCString(CString(L"plain")), "plain");
  EXPECT_EQ(GetStdStringFromCString(CString()), "");
  EXPECT_EQ(CString("plain"), L"plain");
  EXPECT_EQ(CString(static_cast<const char*>(nullptr)), L"");
}

TEST(Utf8Test, TextGoesBothWays) {
  const struct {
    std::string utf8;
    std::wstring wide;
  } rows[] = {{"", L""},
              {"\xD9\xA1\xD8\xA8", L"١ب"},
              {std::string("a\0b", 3), std::wstring(L"a\0b", 3)},
              {"\xF0\x9F\x98\x80", L"\xD83D\xDE00"}};
  for (const auto& row : rows) {
    EXPECT_EQ(Qel::ToUtf8(row.wide), row.utf8);
    EXPECT_EQ(Qel::FromUtf8(row.utf8).View(), row.wide);
  }
  EXPECT_EQ(Qel::ToUtf8(std::wstring(200, L'م')).size(), 400u);
  EXPECT_EQ(Qel::ToUtf8(nullptr), "");
  EXPECT_EQ(Qel::FromUtf8(nullptr), L"");  // as getenv may answer
  EXPECT_EQ(Qel::ToUtf8(CString(L"ب")), "\xD8\xA8");
}

TEST(Utf8Test, BrokenTextIsReplacedAndTheRestKept) {
  EXPECT_EQ(Qel::ToUtf8(L"a\xD800z"), "a\xEF\xBF\xBDz");
  EXPECT_EQ(Qel::ToUtf8(L"\xDC00\xD800"), "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(Qel::FromUtf8("a\xC3(z"), L"a\uFFFD(z");
  EXPECT_EQ(Qel::FromUtf8("\xE2\x82"), L"\uFFFD");
}

TEST(Utf8Test, PathsGetTheSystemsSeparator) {
  const CString native = Qel::ToNativePath(L"\\Log\\a b/c");
  EXPECT_TRUE(native == L"/Log/a b/c" || native == L"\\Log\\a b/c") << Qel::ToUtf8(native);
  EXPECT_EQ(Qel::ToNativePath(nullptr), L"");
}
