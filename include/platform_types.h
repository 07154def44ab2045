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
using HANDLE = void*;
using COLORREF = DWORD;  // red in the lowest byte, then green, then blue

// A module that owns string resources. Never dereferenced.
struct HINSTANCE__;
using HINSTANCE = HINSTANCE__*;
using HMODULE = HINSTANCE;

// Local or UTC calendar time. Day of week: Sunday is 0.
struct SYSTEMTIME {
  WORD wYear, wMonth, wDayOfWeek, wDay, wHour, wMinute, wSecond, wMilliseconds;
};

struct GUID {
  std::uint32_t Data1;
  std::uint16_t Data2, Data3;
  std::uint8_t Data4[8];
};

// The registry. A handle is an id, never an address; the predefined ones are these numbers.
struct HKEY__;
using HKEY = HKEY__*;
using REGSAM = DWORD;  // what a handle is opened for: a sum of KEY_...
#define HKEY_CLASSES_ROOT (reinterpret_cast<HKEY>(std::uintptr_t{0x80000000}))
#define HKEY_CURRENT_USER (reinterpret_cast<HKEY>(std::uintptr_t{0x80000001}))
#define HKEY_LOCAL_MACHINE (reinterpret_cast<HKEY>(std::uintptr_t{0x80000002}))
#define HKEY_USERS (reinterpret_cast<HKEY>(std::uintptr_t{0x80000003}))
#define HKEY_PERFORMANCE_DATA (reinterpret_cast<HKEY>(std::uintptr_t{0x80000004}))
#define HKEY_CURRENT_CONFIG (reinterpret_cast<HKEY>(std::uintptr_t{0x80000005}))
#define HKEY_DYN_DATA (reinterpret_cast<HKEY>(std::uintptr_t{0x80000006}))

constexpr REGSAM KEY_QUERY_VALUE = 0x0001;
constexpr REGSAM KEY_SET_VALUE = 0x0002;
constexpr REGSAM KEY_CREATE_SUB_KEY = 0x0004;
constexpr REGSAM KEY_ENUMERATE_SUB_KEYS = 0x0008;
constexpr REGSAM KEY_NOTIFY = 0x0010;
constexpr REGSAM KEY_READ = 0x20019;
constexpr REGSAM KEY_WRITE = 0x20006;
constexpr REGSAM KEY_ALL_ACCESS = 0xF003F;

// Types of values.
constexpr DWORD REG_NONE = 0;
constexpr DWORD REG_SZ = 1;
constexpr DWORD REG_EXPAND_SZ = 2;
constexpr DWORD REG_BINARY = 3;
constexpr DWORD REG_DWORD = 4;
constexpr DWORD REG_MULTI_SZ = 7;
constexpr DWORD REG_QWORD = 11;

// A font as programs ask for one. Heights and widths in logical units, angles in tenths of a degree.
constexpr int LF_FACESIZE = 32;
struct LOGFONTW {
  LONG lfHeight, lfWidth, lfEscapement, lfOrientation, lfWeight;
  BYTE lfItalic, lfUnderline, lfStrikeOut, lfCharSet, lfOutPrecision, lfClipPrecision, lfQuality,
      lfPitchAndFamily;
  wchar_t lfFaceName[LF_FACESIZE];  // with its terminator
};

// Colours in palettes and in bitmaps.
struct PALETTEENTRY {
  BYTE peRed, peGreen, peBlue, peFlags;
};
struct RGBQUAD {
  BYTE rgbBlue, rgbGreen, rgbRed, rgbReserved;
};
struct RGBTRIPLE {
  BYTE rgbtBlue, rgbtGreen, rgbtRed;
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
