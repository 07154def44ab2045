#include "html.h"

#include <gtest/gtest.h>

TEST(HtmlTest, FragmentsWrapTheTextAsItIs) {
  const struct {
    const char* name;
    CString html;
    const wchar_t* expected;
  } rows[] = {
      {"bold", HTMLBold(L"a<b"), L"<b>a<b</b>"},
      {"bold, null", HTMLBold(nullptr), L"<b></b>"},
      {"colour", HTMLColor(L"t", 0xC0C0C0), L"<font color=\"#C0C0C0\">t</font>"},
      {"left to right", HTMLLTRPara(L"t"), L"<p dir=\"ltr\">t</p>"},
      {"right to left", HTMLRTLPara(L"ت"), L"<p dir=\"rtl\">ت</p>"},
      {"line feeds", HTMLFixBr(L"a\nb\n"), L"a<BR>\nb<BR>\n"},
      {"caption and value", HTMLCapVal(L"Line", L"42"), L"Line: <b>42</b>"},
      {"each in its colour", HTMLCapVal(L"c", L"v", 0x1, 0xABCDEF),
       L"<font color=\"#000001\">c: </font><font color=\"#ABCDEF\"><b>v</b></font>"},
      {"no colour in 32 bits", HTMLCapVal(L"c", L"v", 0xFFFFFFFF, 0),
       L"c: <font color=\"#000000\"><b>v</b></font>"},
      {"caption cut at its last colon", HTMLCapVal(L"a: b:\n", L"v"), L"a: b<b>v</b>"},
      {"caption without a colon", HTMLCapVal(L"a\n", L"v"), L"a\n<b>v</b>"},
  };
  for (const auto& row : rows) EXPECT_EQ(row.html, row.expected) << row.name;
}

TEST(HtmlTest, AColourIsItsLow24Bits) {
  EXPECT_EQ(ColorToHex(0xFFC0ABCDUL), L"C0ABCD");
  EXPECT_EQ(ColorToHex(0), L"000000");
}
