// The platform's types that appear in our interfaces: types only, no functions. On Windows they are the
// system's own; elsewhere they have the same widths and layouts.
#ifndef QEL_PLATFORM_TYPES_H
#define QEL_PLATFORM_TYPES_H

#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// After windows.h, whose names it needs.
#include <comutil.h>

#else

#include <cstdint>
#include <string>

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using UINT = std::uint32_t;
using HRESULT = std::int32_t;
using LCID = DWORD;
using LANGID = WORD;
using DATE = double;  // days since 30 December 1899, the fraction is the time of day

// A module that owns string resources. Never dereferenced.
struct HINSTANCE__;
using HINSTANCE = HINSTANCE__*;
using HMODULE = HINSTANCE;

// Local or UTC calendar time. Day of week: Sunday is 0.
struct SYSTEMTIME {
  WORD wYear, wMonth, wDayOfWeek, wDay, wHour, wMinute, wSecond, wMilliseconds;
};

// Stands in for the COM string class: an owned wide text that may be absent.
class _bstr_t {
 public:
  _bstr_t() noexcept = default;
  _bstr_t(const wchar_t* text) : m_Set(text != nullptr), m_Text(text ? text : L"") {}  // implicit, as in COM

  // The text, or null when there is none.
  operator const wchar_t*() const noexcept { return m_Set ? m_Text.c_str() : nullptr; }
  unsigned int length() const noexcept { return static_cast<unsigned int>(m_Text.size()); }

 private:
  bool m_Set = false;
  std::wstring m_Text;
};

#endif

#endif  // QEL_PLATFORM_TYPES_H
