#include "html.h"

#include <gtest/gtest.h>

TEST(HtmlTest, FragmentsWrapTheTextAsItIs) {
  EXPECT_EQ(HTMLBold(L"a<b"), L"<b>a<b</b>");
  EXPECT_EQ(HTMLBold(nullptr), L"<b></b>");
  EXPECT_EQ(HTMLColor(L"t", 0xC0C0C0), L"<font color=\"#C0C0C0\">t</font>");
  EXPECT_EQ(HTMLLTRPara(L"t"), L"<p dir=\"ltr\">t</p>");
  EXPECT_EQ(HTMLRTLPara(L"ت"), L"<p dir=\"rtl\">ت</p>");
  EXPECT_EQ(HTMLFixBr(L"a\nb\n"), L"a<BR>\nb<BR>\n");
  EXPECT_EQ(HTMLCapVal(L"Line", L"42"), L"Line: <b>42</b>");
  EXPECT_EQ(HTMLCapVal(L"c", L"v", 0x1, 0xABCDEF),
            L"<font color=\"#000001\">c: </font><font color=\"#ABCDEF\"><b>v</b></font>");
  EXPECT_EQ(HTMLCapVal(L"c", L"v", 0xFFFFFFFF, 0), L"c: <font color=\"#000000\"><b>v</b></font>");
  EXPECT_EQ(HTMLCapVal(L"a: b:\n", L"v"), L"a: b<b>v</b>");  // Kept: cut before its last colon
  EXPECT_EQ(HTMLCapVal(L"a\n", L"v"), L"a\n<b>v</b>");
}

TEST(HtmlTest, AColourIsItsLow24Bits) {
  EXPECT_EQ(ColorToHex(0xFFC0ABCDUL), L"C0ABCD");
  EXPECT_EQ(ColorToHex(0), L"000000");
}
