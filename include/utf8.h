// For hosts that speak UTF-8 and the system's own paths.
//
//   std::cout << Qel::ToUtf8(calendar->ToString(day));
//   Qel::FromUtf8("١٢") == L"١٢"
#ifndef QEL_UTF8_H
#define QEL_UTF8_H

#include <string>
#include <string_view>

#include "qel_cstring.h"
#include "qel_export.h"

namespace Qel {

// The text in UTF-8. A surrogate without its partner becomes U+FFFD. Null gives an empty text. On Linux a
// literal can bring an element above U+FFFF: it counts as the two units that it stands for.
QEL_API std::string ToUtf8(const wchar_t* text);
QEL_API std::string ToUtf8(std::wstring_view text);

// The text of UTF-8, one UTF-16 unit an element. Bytes that are none become U+FFFD, one for each broken
// sequence. Null gives an empty text.
QEL_API CString FromUtf8(const char* utf8);
QEL_API CString FromUtf8(std::string_view utf8);

// The library's paths have "\" on every system. This is `path` as the system's own functions want it: with
// "/" on Linux, unchanged on Windows. Null gives an empty text.
QEL_API CString ToNativePath(const wchar_t* path);

}  // namespace Qel

#endif  // QEL_UTF8_H
