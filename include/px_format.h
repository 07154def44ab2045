// Text by a printf-like format, the same on every platform and whatever locale the host has set.
//
//   pxFormat(L"%s: %04u-%02u-%02u", L"from", 2024, 3, 7)   gives "from: 2024-03-07"
//
// The rules are those of the wide formats that Windows hosts write:
//   %[flags][width][.precision][length]conversion, flags of - + 0 blank #, width and precision also as *
//   d i u o x X p   integers; lengths hh h l ll I32 I64 I z t j, where l is the platform's own `long`
//   e E f F g G a A floating numbers of type double; length L takes a long double, written as a double. A
//                   half is rounded to even; exponents have at least two digits; "inf", "nan" and
//                   "-nan(ind)" as on Windows
//   s c             wide text and one wide unit; narrow, in code page 1256, with length h. Null text gives
//                   "(null)"
//   S C             the other way: narrow, or wide with length l or w
//   %               a percent sign
// Arguments must be of the types that the format names; that cannot be checked.
#ifndef QEL_PX_FORMAT_H
#define QEL_PX_FORMAT_H

#include "qel_export.h"
#include "tstring.h"

namespace Qel::Sys::Text {

// The formatted text, 0 to 1,999 units. Empty when it would be longer (it is never cut), when `format` is
// null, or when a conversion is not one of the above; %n is not.
QEL_API TString pxFormat(const wchar_t* format, ...);

}  // namespace Qel::Sys::Text

#endif  // QEL_PX_FORMAT_H
