#include "richtext.h"

#include <gmock/gmock.h>

#include <string>

#include "iappcontext.h"
#include "support/fresh_process.h"
#include "support/golden.h"
#include "theme.h"

namespace {

using namespace Qel::UI;

constexpr wchar_t kHeader[] =
    L"{\\rtf1\\fbidis\\ansi\\ansicpg1256\\deff0\\deflang10241{\\fonttbl{\\f0\\fswiss\\fcharset178 Tahoma;}}"
    L"\\viewkind4\\uc1\\pard\\ltrpar\\f0\\fs16 ";

// What `add` makes of a new document, without what all begin and end with.
template <class Add>
std::wstring Written(Add add) {
  TRichText pane;
  add(pane);
  const std::wstring document = pane.GetString().GetString();
  EXPECT_TRUE(document.starts_with(kHeader) && document.ends_with(L'}'));
  const std::size_t start = std::size(kHeader) - 1;
  return document.substr(start, document.size() - start - 1);
}

constexpr unsigned long kSame = static_cast<unsigned long>(-1);

}  // namespace

TEST(RichTextTest, RunsSayWhatChanges) {
  const struct {
    const char* name;
    void (*add)(TRichText& pane);
    const wchar_t* written;
  } rows[] = {
      {"nothing", [](TRichText&) {}, L""},
      {"normal text says its colour and size once",
       [](TRichText& pane) { pane.AddNormalText(L"a"), pane.AddNormalText(L"b"); },
       L"{\\colortbl ;\\red0\\green0\\blue0;}\\cf1\\fs16 a\\par\nb\\par\n"},
      {"a title is bold up to its text", [](TRichText& pane) { pane.Add2Text(L"t", nullptr); },
       L"{\\colortbl ;\\red0\\green0\\blue128;\\red0\\green0\\blue0;}\\cf1\\fs16\\b t: \\cf2\\b0 \\par\n"},
      {"every kind of line, colours in the order of first use",
       [](TRichText& pane) {
         pane.AddMainHdrText(L"m"), pane.AddSubHdrText(L"s"), pane.AddErrorText(L"e"),
             pane.AddMainHdrText(L"m");
       },
       L"{\\colortbl ;\\red0\\green51\\blue153;\\red0\\green85\\blue170;\\red192\\green0\\blue0;}"
       L"\\cf1\\fs29\\b m\\par\n\\cf2\\fs20 s\\par\n\\cf3\\fs16\\b0 e\\par\n\\cf1\\fs29\\b m\\par\n"},
      {"red is the highest of three bytes, flags count as another colour",
       [](TRichText& pane) {
         pane.AddString(L"a", 0x123456, 9, 0, 0), pane.AddString(L"b", 0x1123456, 9, 0, 0);
       },
       L"{\\colortbl ;\\red18\\green52\\blue86;\\red18\\green52\\blue86;}\\cf1\\fs9 a\\cf2 b"},
      {"no colour and no size are the normal ones, however wide all ones are",
       [](TRichText& pane) {
         pane.AddString(L"a", kSame, 0, 0, 0), pane.AddString(L"b", 0xFFFFFFFF, 16, 0, 0);
       },
       L"{\\colortbl ;\\red0\\green0\\blue0;}\\cf1\\fs16 ab"},
      {"Kept: the bold argument decides how underline is switched",
       [](TRichText& pane) {
         pane.AddString(L"1", kSame, 0, true, true), pane.AddString(L"2", kSame, 0, true, false);
         pane.AddString(L"3", kSame, 0, false, true), pane.AddString(L"4", kSame, 0, false, false);
       },
       L"{\\colortbl ;\\red0\\green0\\blue0;}\\cf1\\fs16\\b\\ul 1\\ul 2\\b0\\ulnone 3\\ulnone 4"},
      {"words of their own end before the text, and only once",
       [](TRichText& pane) {
         pane.AddText(L"1", false), pane.SetBold(true), pane.SetBold(true), pane.AddText(L"2\\b", true);
         pane.AddText(L"3", true), pane.SetParaRTL(true), pane.AddText(L"4", false), pane.SetUnderLine(true);
         pane.AddString(L"5", kSame, 0, false, true), pane.SetUnderLine(false), pane.SetParaRTL(false);
         pane.AddText(L"6", false);
       },
       L"{\\colortbl ;\\red0\\green0\\blue0;}"
       L"\\cf1\\fs16 1\\b 2\\\\b3\\rtlpar\\b0 4\\ul 5\\ulnone\\ltrpar 6"},
      {"new lines", [](TRichText& pane) { pane.NewLine(2), pane.NewLine(0), pane.NewLine(-1); },
       L"{\\colortbl ;\\red0\\green0\\blue0;}\\cf1\\fs16 \\par\n\\par\n"},
  };
  for (const auto& row : rows) EXPECT_EQ(Written(row.add), row.written) << row.name;
}

TEST(RichTextTest, ACopyGoesOnByItself) {
  TRichText one;
  one.AddString(L"a", 1, 0, true, false);
  TRichText two;
  two.AddErrorText(L"gone");
  two = one;
  two.AddString(L"b", 2, 0, true, false);
  one.AddString(L"c", 3, 0, true, false);
  EXPECT_EQ(one.GetString(),
            kHeader + std::wstring(L"{\\colortbl ;\\red0\\green0\\blue1;\\red0\\green0\\blue3;}"
                                   L"\\cf1\\fs16\\b a\\cf2 c}"));
  EXPECT_EQ(two.GetString(),
            kHeader + std::wstring(L"{\\colortbl ;\\red0\\green0\\blue1;\\red0\\green0\\blue2;}"
                                   L"\\cf1\\fs16\\b a\\cf2 b}"));
}

TEST(RichTextTest, PlainTextIsEscaped) {
  const struct {
    const wchar_t *text, *rtf;
  } rows[] = {
      {nullptr, L""},
      {L"C:\\{x}", L"C:\\\\\\{x\\}"},
      {L"a\tb\r\nc\rd\n\ne", L"a\\tab b\\par\nc\\par\nd\\par\n\\par\ne"},
      {L"\x1\x1F\x7F\x80\x9F~", L"~"},
      {L"ال\xA0\u200F", L"\\'c7\\'e1\\'a0\\'fe"},
      {L"\u4E2D\uFEFC\uFFFF", L"\\u20013?\\u-260?\\u-1?"},
      {L"\U0001F600\xD83D", L"\\u-10179?\\u-8704?\\u-10179?"},
      {L"\u0100", L"\\u256?"},  // has a best fit in the page, and is not it
      {L"0123456789 0123456789 0123456789 0123456789 0123456789 0123456789 01234  789 x",
       L"0123456789 0123456789 0123456789 0123456789 0123456789 0123456789 01234\\par\n 789 x"},
  };
  for (const auto& row : rows) EXPECT_EQ(TRichText::ParseRichText(row.text), row.rtf);
}

TEST(RichTextTest, CharactersOfTheCodePageAreItsBytes) {
  for (const auto& row : GoldenTable("cp1256_decode.tsv")) {
    const std::string& pair = row["byte"];
    if (pair < "80") continue;
    const wchar_t text[] = {static_cast<wchar_t>(std::stoi(row["expected"], nullptr, 16)), 0};
    std::wstring digits(pair.begin(), pair.end());
    for (wchar_t& digit : digits) digit |= 0x20;
    EXPECT_EQ(TRichText::ParseRichText(text), L"\\'" + digits);
  }
}

TEST(RichTextTest, LinesAreSplitAtTheirEndsAndAtTheirWidth) {
  const struct {
    const wchar_t* text;
    long width;
    std::vector<CString> lines;
  } rows[] = {
      {nullptr, 5, {L""}},
      {L"\r\n\n\r", 5, {L"", L"", L"", L""}},
      {L"12345\r\n1234 \n", 5, {L"12345", L"1234 ", L""}},
      {L"12 45 78", 5, {L"12 45", L"78"}},
      {L"12 4567 9", 5, {L"12", L"4567", L"9"}},
      {L"1234567 ", 5, {L"12345", L"67 "}},
      {L"12345 ", 5, {L"12345", L""}},
      {L" 1234567", 5, {L"", L"12345", L"67"}},
      {L"a b c", 0, {L"a b c"}},
      {L"a b\nc", -1, {L"a b", L"c"}},
      {L"1234\U0001F600\U0001F600", 5, {L"1234", L"\xD83D\xDE00\xD83D\xDE00"}},
      {L"\U0001F600\xDE00y", 1, {L"\xD83D\xDE00", L"\xDE00", L"y"}},
  };
  for (const auto& row : rows)
    EXPECT_THAT(TRichText::SplitLines(row.text, row.width), testing::ElementsAreArray(row.lines)) << row.text;
}

TEST(ThemeTest, AFixedOneStandsInUntilTheApplicationHasItsOwn) {
  struct Theme : IAppTheme {
    CString GetFontName() const override { return L"F{1}"; }
    unsigned long GetColor(COLOR_INDEX index) const override { return static_cast<unsigned long>(index); }
  };
  struct Context : IAppContext {
    void InitContext() override {}
  };
  EXPECT_IN_FRESH_PROCESS({
    for (int step = 0; step < 2; ++step) {
      EXPECT_EQ(GetColor(CI_SUB_HDR), 0x0055AAu);
      EXPECT_EQ(GetColor(static_cast<COLOR_INDEX>(1)), 0u);
      EXPECT_EQ(GetAppTheme()->GetFontName(), L"Tahoma");
      if (step == 0) CreateAppContext<Context>();  // one without a theme
    }
    IAppContext::GetAppContext()->SetAppTheme(std::make_shared<Theme>());
    EXPECT_EQ(GetColor(CI_ERROR), 354u);
    EXPECT_GE(TRichText().GetString().Find(L"\\fcharset178 F\\{1\\};}}"), 0);
  });
}
