// The order of text: the weight table for ASCII and Arabic and ICU itself must say the same, from both sides.
#include <unicode/uchar.h>
#include <unicode/ucol.h>
#include <unicode/utf16.h>

#include "fuzz.h"
#include "platform/platform.h"

namespace {

// Two bytes a unit; most of them in the range of the table, some combining marks, some anything.
std::wstring MostlyArabic(const std::uint8_t* data, std::size_t size) {
  std::wstring text;
  for (const wchar_t unit : Units(data, size)) {
    const auto kind = static_cast<unsigned>(unit) >> 8 & 7;
    const wchar_t base = kind < 3 ? 0 : kind < 6 ? 0x600 : 0x300;
    text += kind == 7 ? unit : static_cast<wchar_t>(base + (unit & (base == 0 ? 0x7F : 0xFF)));
  }
  return text;
}

const UCollator* Collator(UCollationStrength strength) {
  UErrorCode status = U_ZERO_ERROR;
  const char16_t rules[] = u"&\u0627<<\u0625<<\u0623<<\u0622 &\u0648<<\u0624 &\u064A<<\u0626";
  const UCollator* collator = ucol_openRules(rules, -1, UCOL_OFF, strength, nullptr, &status);
  FUZZ_ASSERT(U_SUCCESS(status));
  return collator;
}

std::u16string Weighty(const std::wstring& text, bool fold) {
  std::u16string all(text.begin(), text.end());
  std::u16string kept;
  for (std::size_t i = 0; i < all.size();) {
    char32_t ch = 0;
    U16_NEXT(all, i, all.size(), ch);
    if (!U_IS_UNICODE_CHAR(ch)) continue;
    if (fold) ch = static_cast<char32_t>(u_foldCase(static_cast<UChar32>(ch), U_FOLD_CASE_DEFAULT));
    char16_t units[2];
    std::size_t count = 0;
    U16_APPEND_UNSAFE(units, count, ch);
    kept.append(units, count);
  }
  return kept;
}

int ByIcu(const UCollator* collator, const std::wstring& a, const std::wstring& b, bool fold) {
  const std::u16string x = Weighty(a, fold);
  const std::u16string y = Weighty(b, fold);
  return ucol_strcoll(collator, x.data(), static_cast<std::int32_t>(x.size()), y.data(),
                      static_cast<std::int32_t>(y.size()));
}

int Counted(LCID locale, DWORD flags, const std::wstring& a, const std::wstring& b) {
  return CompareStringW(locale, flags, a.data(), static_cast<int>(a.size()), b.data(),
                        static_cast<int>(b.size())) -
         CSTR_EQUAL;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const UCollator* const primary = Collator(UCOL_PRIMARY);
  static const UCollator* const tertiary = Collator(UCOL_TERTIARY);
  constexpr DWORD kLettersOnly = NORM_IGNORECASE | NORM_IGNORENONSPACE | NORM_IGNOREWIDTH;
  const std::wstring text = MostlyArabic(data, size);
  const std::wstring a = text.substr(0, text.size() / 2);
  const std::wstring b = text.substr(text.size() / 2);

  FUZZ_ASSERT(Counted(LOCALE_USER_DEFAULT, kLettersOnly, a, b) == ByIcu(primary, a, b, false));
  FUZZ_ASSERT(Counted(LOCALE_INVARIANT, NORM_IGNORECASE, a, b) == ByIcu(tertiary, a, b, true));
  FUZZ_ASSERT(Counted(LOCALE_USER_DEFAULT, kLettersOnly, b, a) == ByIcu(primary, b, a, false));
  FUZZ_ASSERT(lstrcmpW(a.c_str(), b.c_str()) == ByIcu(tertiary, a.c_str(), b.c_str(), false));
  return 0;
}
