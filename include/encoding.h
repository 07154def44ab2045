// Narrow text to wide and back. Narrow text is in code page 1256 (Windows Arabic) unless a function says
// otherwise.
//
//   Qel::Sys::Text::Encoding::ConvertA2W("\xC7\xE1")   gives L"ال"
//   Qel::Sys::Text::Encoding::ConvertW2A(L"À")         gives "A", the best fit; "?" where there is none
//
// Inputs end at their first NUL; null gives an empty result. A failure of the platform, practically
// impossible for these pages, is thrown as an HRESULT by value.
#ifndef QEL_ENCODING_H
#define QEL_ENCODING_H

#include <string>

#include "qel_cstring.h"
#include "qel_export.h"

namespace Qel::Sys::Text::Encoding {

// 1256, which nothing changes.
constexpr unsigned int GetDefaultCP() noexcept {
  return 1256;
}

QEL_API std::wstring ConvertA2W(const char* narrow);
QEL_API std::string ConvertW2A(const wchar_t* wide);
QEL_API CString ConvertA2N(const char* narrow);
QEL_API CString ConvertW2N(const wchar_t* wide);  // a copy

// To the type in the name, whichever the argument has: a copy or a conversion.
QEL_API std::wstring Convert2W(const char* narrow);
QEL_API std::wstring Convert2W(const wchar_t* wide);
QEL_API std::string Convert2A(const char* narrow);
QEL_API std::string Convert2A(const wchar_t* wide);

}  // namespace Qel::Sys::Text::Encoding

// The same with the calling thread's own code page, which is 1256 on Linux.
QEL_API CString GetCStringFromStdString(const std::string& narrow);
QEL_API std::string GetStdStringFromCString(const CString& wide);

#endif  // QEL_ENCODING_H
