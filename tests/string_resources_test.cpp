#include "string_resources.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "exceptions.h"
#include "format.h"
#include "support/raises.h"
#include "support/test_strings.h"

#undef LoadString  // the system's macro

// load_string_order.cpp, by where windows.h is included.
CString load_string_NOT_UNICODE();
CString load_string_NOT_ANSI();
CString load_string_BEFORE_UNICODE();
CString load_string_BEFORE_ANSI();
CString load_string_AFTER_UNICODE();
CString load_string_AFTER_ANSI();

using namespace Qel::Sys::Text;
using Qel::Sys::Settings::SysFormat;

namespace {

constexpr int kEnglish = 0;
constexpr int kArabic = 1;
constexpr int kFrench = 2;

// Puts back what tests here change for the whole process.
class StringResourcesTest : public testing::Test {
 protected:
  void TearDown() override {
    SetInterfaceLanguage(-1);
    SetDefaultResourceInstance(nullptr);
    SysFormat.ResLangId = 0x2801;
    TTermsList.flush();
  }
};

CString OwnText(unsigned id, int lang) {
  return LibResStr(id, GetLibraryResourceInstance(), lang);
}

}  // namespace

// Samples from CLDR, but for the Croatian, Portuguese and Chinese Hijri months, which it lacks.
TEST_F(StringResourcesTest, TextsAreThoseOfTheLanguage) {
  const struct {
    int lang;
    const wchar_t *sunday, *saturday, *january, *august, *secondAugust, *muharram, *hijjah;
  } rows[] = {
      {0, L"Sun", L"Sat", L"January", L"August", L"August", L"Muharram", L"Dhu al-Hijjah"},
      {1, L"الأحد", L"السبت", L"كانون الثاني", L"آب", L"أغسطس", L"محرم", L"ذو الحجة"},
      {2, L"dimanche", L"samedi", L"janvier", L"août", L"août", L"mouharram", L"dhou al-hijja"},
      {3, L"воскресенье", L"суббота", L"январь", L"август", L"август", L"мухаррам", L"зуль-хиджжа"},
      {4, L"nedjelja", L"subota", L"siječanj", L"kolovoz", L"kolovoz", L"muharem", L"zulhidže"},
      {5, L"Pazar", L"Cumartesi", L"Ocak", L"Ağustos", L"Ağustos", L"Muharrem", L"Zilhicce"},
      {6, L"domingo", L"sábado", L"janeiro", L"agosto", L"agosto", L"muharram", L"dhu al-hijjah"},
      {7, L"星期日", L"星期六", L"一月", L"八月", L"八月", L"穆哈兰姆月", L"都尔黑哲月"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.lang);
    EXPECT_EQ(OwnText(155, row.lang), row.sunday);
    EXPECT_EQ(OwnText(161, row.lang), row.saturday);
    EXPECT_EQ(OwnText(195, row.lang), row.january);
    EXPECT_EQ(OwnText(202, row.lang), row.august);
    EXPECT_EQ(OwnText(237, row.lang), row.secondAugust);
    EXPECT_EQ(OwnText(207, row.lang), row.muharram);
    EXPECT_EQ(OwnText(218, row.lang), row.hijjah);
  }
}

TEST_F(StringResourcesTest, DaysAndMonthsKeepTheSpellingOfExistingReports) {
  const struct {
    int lang;
    unsigned first;
    std::vector<const wchar_t*> names;
  } rows[] = {
      {kEnglish, 155, {L"Sun", L"Mon", L"Tus", L"Wed", L"Thr", L"Fri", L"Sat"}},
      {kArabic,
       195,
       {L"كانون الثاني", L"شباط", L"آذار", L"نيسان", L"أيار", L"حزيران", L"تموز", L"آب", L"أيلول",
        L"تشرين الأول", L"تشرين الثاني", L"كانون الأول"}},
      {kArabic,
       230,
       {L"يناير", L"فبراير", L"مارس", L"أبريل", L"مايو", L"يونيو", L"يوليو", L"أغسطس", L"سبتمبر", L"أكتوبر",
        L"نوفمبر", L"ديسمبر"}},
  };
  for (const auto& row : rows)
    for (unsigned i = 0; i < row.names.size(); ++i) EXPECT_EQ(OwnText(row.first + i, row.lang), row.names[i]);
}

TEST_F(StringResourcesTest, TheCurrentLanguageIsThatOfTheSettingsUntilOneIsChosen) {
  EXPECT_EQ(OwnText(155, -1), L"الأحد");
  SysFormat.ResLangId = 1036;
  EXPECT_EQ(OwnText(155, -1), L"dimanche");
  SetInterfaceLanguage(5);
  EXPECT_EQ(OwnText(155, -1), L"Pazar");
  EXPECT_EQ(OwnText(155, kEnglish), L"Sun");
  SetInterfaceLanguage(99);
  EXPECT_EQ(OwnText(155, -1), L"Sun");
  SetInterfaceLanguage(-1);
  EXPECT_EQ(OwnText(155, -1), L"dimanche");
}

// Block by block: asked language, then English, then any.
TEST_F(StringResourcesTest, ALanguageWithoutTheTextGivesWay) {
  const struct {
    unsigned id;
    int lang;
    const wchar_t* text;
  } rows[] = {
      {155, kFrench, L"samedi"},  // in the language
      {1000, kFrench, L"only english"},
      {155, 7, L"Saturday"},           // in a language that has no text at all
      {155, 8, L"Saturday"},           // unknown index
      {155, -2, L"Saturday"},          // index below the current language's
      {2000, kEnglish, L"seulement"},  // only in French
      {3100, kArabic, L"ar neutral"},  // in the main language
      {3000, kFrench, L"neutral"},     // in no language by name
      {156, kFrench, L""},             // Kept: an empty entry of a block that is there stays empty
      {158, kEnglish, L""},
      {5000, kEnglish, L""},  // nowhere
      {0, kArabic, L"id zero"},
      {65535, kFrench, L"id max"},
      {65536 + 155, kEnglish, L""},
      {0xFFFFFFFF, kEnglish, L""},
  };
  for (const auto& row : rows) EXPECT_EQ(LoadString(row.id, TestStrings(), row.lang), row.text) << row.id;
}

TEST_F(StringResourcesTest, AMissingModuleRaises) {
  const auto e = Raised([] { ResStr(155); });
  ASSERT_TRUE(dynamic_cast<Qel::Sys::Exceptions::res_exception*>(e.get()));
  EXPECT_EQ(e->GetError(), L"Resource library not loaded in 'LoadString'");
  EXPECT_EQ(e->GetFile(), L"src/string_tools");
}

TEST_F(StringResourcesTest, LoadStringIsOursWhereverWindowsHIsIncluded) {
  for (const auto load : {load_string_NOT_UNICODE, load_string_NOT_ANSI, load_string_BEFORE_UNICODE,
                          load_string_BEFORE_ANSI, load_string_AFTER_UNICODE, load_string_AFTER_ANSI})
    EXPECT_EQ(load(), L"MonTus");
}

TEST_F(StringResourcesTest, NoModuleMeansTheDefaultOne) {
  SetDefaultResourceInstance(TestStrings());
  EXPECT_EQ(GetDefaultResourceInstance(), TestStrings());
  EXPECT_EQ(ResStr(155, kFrench), L"samedi");
  EXPECT_EQ(LibResStr(155, nullptr, kFrench), L"samedi");
  EXPECT_EQ(OwnText(155, kFrench), L"dimanche");
}

TEST_F(StringResourcesTest, TermsAreReplacedInOrderAndInEveryLoadedText) {
  const struct {
    std::vector<TTerm> terms;
    const wchar_t* text;
  } rows[] = {
      {{}, L"last of pair"},
      {{{L"a", L"aa"}}, L"laast of paair"},
      {{{L"last", L"first"}, {L"first of", L"any"}}, L"any pair"},
      {{{L"any", L"x"}, {L"last", L"any"}}, L"any of pair"},
      {{{L"", L"x"}, {L"pair", L""}}, L"last of "},
  };
  for (const auto& row : rows) {
    TTermsList.flush();
    for (const auto& term : row.terms) TTermsList.append(term);
    EXPECT_EQ(LoadString(1007, TestStrings(), kEnglish), row.text);
  }
}
