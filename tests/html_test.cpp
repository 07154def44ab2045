#include "html.h"

#include <gtest/gtest.h>

TEST(HtmlTest, FragmentsWrapTheTextAsItIs) {
  EXPECT_EQ(HTMLBold(L"a<b"), L"<b>a<b</b>");
  EXPECT_EQ(HTMLBold(nullptr), L"<b></b>");
  EXPECT_EQ(HTMLColor(L"t", 0xC0C0C0), L"<font color=\"#C0C0C0\">t</font>");
  EXPECT_EQ(HTMLLTRPara(L"t"), L"<p dir=\"ltr\">t</p>");
  EXPECT_EQ(HTMLRTLPara(L"ت"), L"<p dir=\"rtl\">ت</p>");
  EXPECT_EQ(HTMLFixBr(L"a\nb\r\n"), L"a<BR>\nb\r<BR>\n");
  EXPECT_EQ(HTMLCapVal(L"Line", L"42"), L"Line: <b>42</b>");
  EXPECT_EQ(HTMLCapVal(L"c", L"v", 0x1, 0xABCDEF),
            L"<font color=\"#000001\">c: </font><font color=\"#ABCDEF\"><b>v</b></font>");
  EXPECT_EQ(HTMLCapVal(L"c", L"v", 0xFFFFFFFF, 0), L"c: <font color=\"#000000\"><b>v</b></font>");
  // Kept: cut behind its last colon
  EXPECT_EQ(HTMLCapVal(L"a: b: c\n", L"v", 1), L"<font color=\"#000001\">a: b:</font><b>v</b>");
  EXPECT_EQ(HTMLCapVal(L"a\n", L"v"), L"a<b>v</b>");
}

TEST(HtmlTest, EscapedTextIsShownAsItIs) {
  EXPECT_EQ(HTMLEscape(L"<a href=\"x\">R&D's</a> ت"),
            L"&lt;a href=&quot;x&quot;&gt;R&amp;D&#39;s&lt;/a&gt; ت");
  EXPECT_EQ(HTMLEscape(L"\x1\x1F\t\r\n\x7F\x85\x9F\xA0"), L"\t\r\n\xA0");
  EXPECT_EQ(HTMLEscape(nullptr), L"");
}

TEST(HtmlTest, AColourIsItsLow24Bits) {
  EXPECT_EQ(ColorToHex(0xFFC0ABCDUL), L"C0ABCD");
  EXPECT_EQ(ColorToHex(0), L"000000");
}
