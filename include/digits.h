// Decimal digits as users type them: European (U+0030-39), Arabic-Indic (U+0660-69) and the eastern
// Arabic-Indic ones of Persian and Urdu (U+06F0-F9).
//
//   FoldDigits(L"١٢*٣")    gives "12*3"
//
// Every reader of typed text in the library knows the digits from here, so that a number or a date reads the
// same in all three shapes. Stored forms are ASCII and do not ask.
#ifndef QEL_DIGITS_H
#define QEL_DIGITS_H

#include "qel_cstring.h"
#include "qel_export.h"

namespace Qel::Sys::Text {

// The value 0-9 of a decimal digit in any of the three shapes, -1 for every other character.
constexpr int DecimalDigitValue(wchar_t ch) noexcept {
  for (const wchar_t zero : {L'0', L'\u0660', L'\u06F0'})
    if (ch >= zero && ch <= zero + 9) return static_cast<int>(ch - zero);
  return -1;
}

// A copy of `text` with every decimal digit in its ASCII shape and all else as it was. Null gives an empty
// text.
QEL_API CString FoldDigits(const wchar_t* text);

}  // namespace Qel::Sys::Text

#endif  // QEL_DIGITS_H
