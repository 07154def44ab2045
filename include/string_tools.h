// Tools for text that users typed or stored: cleaning, comparing, codes, and escapes for other languages.
//
//   CString name = L" \"C:\\\\Data\" ";
//   FixFileName(name);          // C:\Data
//   IncCode(L"A099");           // A100
//   pxCompStrI(L"abc", L"ABC")  // 0
//
// A null text counts as empty unless a function says otherwise.
#ifndef QEL_STRING_TOOLS_H
#define QEL_STRING_TOOLS_H

#include <boost/utility/string_ref.hpp>

#include "digits.h"
#include "px_format.h"
#include "qel_cstring.h"
#include "qel_export.h"
#include "string_resources.h"

namespace Qel::Sys::Text {

// Cleans `text` in place and returns a copy: white space at both ends goes, then every TAB, then every run of
// blanks becomes one.
QEL_API CString FilterText(CString& text);

// Repairs a file name as it was pasted: quotes, blanks and apostrophes at the ends go, at the right end
// backslashes too, and doubled backslashes become one. A leading one is then doubled again: it begins a
// network name. Kept: backslashes are halved in one pass (four become two, three become two), because stored
// names went through it.
QEL_API void FixFileName(CString& name);

// Collapses every run of `ch` in `text` to one, in place.
QEL_API void RemoveDup(wchar_t* text, wchar_t ch);

// Whether the first character is in one of the Arabic blocks U+0600-06FF, U+0750-077F and U+08A0-08FF.
// Kept: only the first one counts, because this decides the direction of a line, which its first letter sets.
QEL_API bool StringIsArabic(boost::basic_string_ref<wchar_t> text);

// Order for people, the same on every system: below 0, 0 or above 0 for pxCompStr, in which null comes before
// any text and small letters before capitals; -1, 0 or 1 for the others, which answer -1 for null.
QEL_API int pxCompStr(const wchar_t* a, const wchar_t* b);
// Without regard to case.
QEL_API int pxCompStrI(const wchar_t* a, const wchar_t* b);
// By the letters alone: no case, no harakat, no hamza on a letter, no width. At most `n` units of each count;
// all do when `n` is negative.
QEL_API int StrCompare(const wchar_t* a, const wchar_t* b, int n);
// Whether pxCompStrI finds the two equal; null equals nothing.
QEL_API bool CompStr(const wchar_t* a, const wchar_t* b);

// The value of an ASCII hexadecimal digit in either case. Raises TXAssertion "!c" for any other character;
// its line is fixed, since crash reports are grouped by it.
// Kept: NUL is 0, because readers of cut-off texts go on over the terminator.
QEL_API unsigned char GetHex(unsigned char c);

// Every apostrophe doubled, for text between apostrophes in SQL.
QEL_API CString EscapeSQLQuote(const wchar_t* text);

// The five characters of markup (double quote, ampersand, apostrophe, less-than, greater-than) as named
// entities.
QEL_API CString FixStringForWeb(const wchar_t* text);

// The code after `code`: the number at its end plus one, at least as wide as before ("A009" "A010", "A99"
// "A100"); where there is none, "1" is added. Digits are ASCII.
QEL_API CString IncCode(const wchar_t* code);

// Code and name of an account as shown in one text, "Code-Name"; when one is empty, the other alone.
QEL_API CString AccCodeName(const wchar_t* code, const wchar_t* name);
// What stands between them: "-".
QEL_API CString GetCodeNameSep();

// The name of this computer, or "GetCurComputerName_Error" when the system does not tell.
QEL_API CString GetCurComputerName();

}  // namespace Qel::Sys::Text

#endif  // QEL_STRING_TOOLS_H
