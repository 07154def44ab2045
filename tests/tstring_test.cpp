#include "tstring.h"

#include <gtest/gtest.h>

#include <string>

using Qel::Sys::TString;

TEST(TStringTest, EveryWayInCopiesTheTextAndTakesNullAsEmpty) {
  const wchar_t* const none = nullptr;
  for (const TString& text :
       {TString(), TString(none), TString(L"abc", -1), TString(none, 3), TString(L'x', -1),
        TString(static_cast<const char*>(nullptr)), TString(_bstr_t())})
    EXPECT_EQ(text.View(), L"");
  for (const TString& text :
       {TString(L"abc"), TString(L"abcdef", 3), TString("abc"), TString(_bstr_t(L"abc")),
        TString(CString(L"abc")), TString(boost::basic_string_ref<wchar_t>(L"abcdef", 3))})
    EXPECT_EQ(text.View(), L"abc");
  EXPECT_EQ(TString(L'x', 3).View(), L"xxx");
}

TEST(TStringTest, TheViewEndsAtTheFirstZero) {
  const TString text(L"ab\0cd", 5);
  const boost::basic_string_ref<wchar_t> view = text;
  EXPECT_EQ(text.GetLength(), 5);
  EXPECT_EQ(view.size(), 2u);
  EXPECT_EQ(view.data(), text.GetString());
}
