#include "tstring.h"

#include <gtest/gtest.h>

#include <string>

using Qel::Sys::TString;

TEST(TStringTest, EveryWayInCopiesTheTextAndTakesNullAsEmpty) {
  const struct {
    const char* name;
    TString text;
    std::wstring expected;
  } rows[] = {
      {"default", TString(), L""},
      {"wide", TString(L"نص"), L"نص"},
      {"wide null", TString(static_cast<const wchar_t*>(nullptr)), L""},
      {"counted", TString(L"abcdef", 3), L"abc"},
      {"counted, negative", TString(L"abc", -1), L""},
      {"counted null", TString(nullptr, 3), L""},
      {"narrow", TString("abc"), L"abc"},
      {"narrow null", TString(static_cast<const char*>(nullptr)), L""},
      {"COM string", TString(_bstr_t(L"abc")), L"abc"},
      {"COM string without text", TString(_bstr_t()), L""},
      {"repeated", TString(L'x', 3), L"xxx"},
      {"repeated, negative", TString(L'x', -1), L""},
      {"CString", TString(CString(L"abc")), L"abc"},
      {"view", TString(boost::basic_string_ref<wchar_t>(L"abcdef", 2)), L"ab"},
  };
  for (const auto& row : rows) EXPECT_EQ(row.text.View(), row.expected) << row.name;
}

TEST(TStringTest, TheViewEndsAtTheFirstZero) {
  const TString text(L"ab\0cd", 5);
  const boost::basic_string_ref<wchar_t> view = text;
  EXPECT_EQ(text.GetLength(), 5);
  EXPECT_EQ(view.size(), 2u);
  EXPECT_EQ(view.data(), text.GetString());
}
