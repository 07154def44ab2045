#include "string_tools.h"

#include <cwchar>
#include <string>
#include <string_view>
#include <utility>

#include "exceptions.h"
#include "markup_entity.h"
#include "platform/platform.h"

namespace Qel::Sys::Text {

namespace {

// The comparison's answer as a sign; a failed one counts as "before".
int Sign(int compared) {
  if (compared == CSTR_EQUAL) return 0;
  return compared > CSTR_EQUAL ? 1 : -1;
}

// How much of `text` to compare, never past its end; -1 is all of it.
int CountUpTo(const wchar_t* text, int n) {
  return text && n >= 0 ? static_cast<int>(wcsnlen(text, static_cast<std::size_t>(n))) : -1;
}

// `text` with each character that `replace` knows replaced; it answers an empty view for the others.
template <class Replace>
CString Replaced(const wchar_t* text, Replace replace) {
  std::wstring result;
  for (; text && *text; ++text) {
    const std::wstring_view replacement = replace(*text);
    if (replacement.empty())
      result += *text;
    else
      result += replacement;
  }
  return result;
}

}  // namespace

CString FilterText(CString& text) {
  text.Trim();
  text.Replace(L"\t", L"");
  while (text.Replace(L"  ", L" ") > 0) {
  }
  return text;
}

void FixFileName(CString& name) {
  name.TrimLeft(L"\" '").TrimRight(L"\" '\\");
  name.Replace(L"\\\\", L"\\");
  if (name.Find(L'\\') == 0) name = L"\\" + name;
}

void RemoveDup(wchar_t* text, wchar_t ch) {
  if (!text) return;
  wchar_t* end = text;
  for (const wchar_t* from = text; *from; ++from)
    if (*from != ch || end == text || end[-1] != ch) *end++ = *from;
  *end = L'\0';
}

bool StringIsArabic(boost::basic_string_ref<wchar_t> text) {
  if (text.empty()) return false;
  const auto in = [first = text.front()](wchar_t from, wchar_t to) { return first >= from && first <= to; };
  return in(0x600, 0x6FF) || in(0x750, 0x77F) || in(0x8A0, 0x8FF);
}

int pxCompStr(const wchar_t* a, const wchar_t* b) {
  return lstrcmpW(a, b);
}

int pxCompStrI(const wchar_t* a, const wchar_t* b) {
  return Sign(CompareStringW(LOCALE_INVARIANT, NORM_IGNORECASE, a, -1, b, -1));
}

int StrCompare(const wchar_t* a, const wchar_t* b, int n) {
  constexpr DWORD kLettersOnly = NORM_IGNORECASE | NORM_IGNORENONSPACE | NORM_IGNOREWIDTH;
  return Sign(CompareStringW(LOCALE_USER_DEFAULT, kLettersOnly, a, CountUpTo(a, n), b, CountUpTo(b, n)));
}

bool CompStr(const wchar_t* a, const wchar_t* b) {
  return pxCompStrI(a, b) == 0;
}

unsigned char GetHex(unsigned char c) {
  const auto value = [c](char first, int base) { return static_cast<unsigned char>(c - first + base); };
  if (c >= '0' && c <= '9') return value('0', 0);
  if (c >= 'A' && c <= 'F') return value('A', 10);
  if (c >= 'a' && c <= 'f') return value('a', 10);
  QEL_REQUIRE_AT(!c, L"!c", L"src/string_tools", 395);
  return 0;
}

CString EscapeSQLQuote(const wchar_t* text) {
  return Replaced(text, [](wchar_t ch) { return std::wstring_view(ch == L'\'' ? L"''" : L""); });
}

CString FixStringForWeb(const wchar_t* text) {
  return Replaced(text, MarkupEntity);
}

CString IncCode(const wchar_t* code) {
  CString next(code);
  int at = next.GetLength();
  while (at > 0 && next[at - 1] == L'9') next.SetAt(--at, L'0');
  const wchar_t last = at > 0 ? next[at - 1] : L'\0';
  if (last >= L'0' && last < L'9') {
    next.SetAt(at - 1, static_cast<wchar_t>(last + 1));
    return next;
  }
  return next.Left(at) + L"1" + next.Mid(at);
}

CString AccCodeName(const wchar_t* code, const wchar_t* name) {
  const CString first(code);
  const CString second(name);
  return first.IsEmpty() || second.IsEmpty() ? first + second : first + GetCodeNameSep() + second;
}

CString GetCodeNameSep() {
  return L"-";
}

CString GetCurComputerName() {
  wchar_t name[MAX_COMPUTERNAME_LENGTH + 1];
  DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
  return GetComputerNameW(name, &size) ? name : L"GetCurComputerName_Error";
}

}  // namespace Qel::Sys::Text
