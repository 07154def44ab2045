#include "support/test_strings.h"

#include <iterator>

#include "string_resources.h"

namespace {

using Qel::Sys::Text::StringEntry;

constexpr StringEntry kEnglish[] = {
    {155, L"Saturday"},
    {156, L"Sunday"},
    {157, L"Monday"},
    {161, L"Friday"},
    {1000, L"only english"},
    {1001, L"tab\there \\ and \"quote\""},
    {1002, L""},
    {1007, L"last of pair"},
    {4095, L"block edge"},
    {4096, L"block start"},
    {0, L"id zero"},
    {65535, L"id max"},
};
constexpr StringEntry kArabic[] = {{155, L"السبت"}, {156, L"الأحد"}};
constexpr StringEntry kFrench[] = {{155, L"samedi"}, {2000, L"seulement"}};
constexpr StringEntry kNeutral[] = {{3000, L"neutral"}};
constexpr StringEntry kArabicNeutral[] = {{3100, L"ar neutral"}};

HINSTANCE Register() {
  static char s_Token;
  const auto module = reinterpret_cast<HINSTANCE>(&s_Token);
  const auto add = [&](unsigned short language, const auto& entries) {
    Qel::Sys::Text::AddStringTable(module, language, entries, std::size(entries));
  };
  add(1033, kEnglish);
  add(0x2801, kArabic);
  add(1036, kFrench);
  add(0, kNeutral);
  add(1, kArabicNeutral);
  return module;
}

}  // namespace

HINSTANCE TestStrings() {
  static const HINSTANCE s_Module = Register();
  return s_Module;
}
