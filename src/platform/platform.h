// The only way from the library to the operating system. On Windows these are the system's own functions;
// elsewhere the sources in linux/ answer as Windows does: same status codes, same sizes, same corner cases. A
// function is declared here only when the library calls it; tests/platform holds every one to its contract on
// both systems.
#ifndef QEL_PLATFORM_PLATFORM_H
#define QEL_PLATFORM_PLATFORM_H

#include "platform_types.h"

// The library's own code page: Arabic, one byte a character.
constexpr UINT kArabicCodePage = 1256;

// What has no name of the system's own; sources in linux/ and windows/.

// The module that holds the library's own string resources; never null.
HINSTANCE LibraryModule();
// Gives `module` the text with this number in this language, in place of an earlier one. False where modules
// carry their resources themselves, which is on Windows.
bool RegisterString(HINSTANCE module, LANGID language, WORD id, const wchar_t* text);

#ifdef _WIN32

#include <oleauto.h>

// What the system's own path functions take between folders.
constexpr wchar_t kPathSeparator = L'\\';

#else

constexpr wchar_t kPathSeparator = L'/';

// Clock. Fills the record with the local time of one instant.
void GetLocalTime(SYSTEMTIME* time);

// OLE automation dates: days since 30 December 1899, the fraction is the time of day, away from day 0 for
// earlier days too (-1.25 is 29 December, 06:00). Result: 1, or 0 with nothing written.
//   To a record: the days of the years 100..9999. The time is rounded to the second, half up, which may be
//   the next day; milliseconds are 0, the day of week is filled.
//   From a record: milliseconds and day of week do not count. Years 0..29 are 2000..2029, 30..99 are
//   1930..1999 (the system's pivot may be later). Days 0 and 29..31 beyond the month's end, month 0 and times
//   beyond the day count on into their neighbours; 0 for month 13, day 32, year 10000 and more.
int VariantTimeToSystemTime(double date, SYSTEMTIME* time);
int SystemTimeToVariantTime(SYSTEMTIME* time, double* date);

// The calling thread's code of the last call that failed. A call that succeeds leaves it alone.
DWORD GetLastError();
void SetLastError(DWORD code);

// Code pages. A length counts items of the input; negative means up to and including the terminator. `room`
// counts items of `out`; 0 asks how many are needed. Result: items written or needed, terminator included
// only where the input had it; 0 is failure, with the last error:
//   87    no input (null, or a length of 0), null `out` with room, or a code page other than 1256, 65001 and
//         the thread's own (3, which is 1256 here)
//   122   the room does not do: `out` holds the characters that fitted
//   1004  flags, which are always 0
// In 1256 a character outside the page becomes its best fit or "?". Broken UTF-8 gives U+FFFD, a lone
// surrogate is encoded as U+FFFD, and an element above U+FFFF counts as its two units.
constexpr UINT CP_THREAD_ACP = 3;
constexpr UINT CP_UTF8 = 65001;
int MultiByteToWideChar(UINT codePage, DWORD flags, const char* bytes, int length, wchar_t* out, int room);
// `defaultChar` and `usedDefault` are always null (87).
int WideCharToMultiByte(UINT codePage, DWORD flags, const wchar_t* text, int length, char* out, int room,
                        const char* defaultChar, BOOL* usedDefault);

// Order of text for people. Lengths are units, negative means up to the terminator; a counted text may hold
// NUL, which has no weight. Two ways are known:
//   LOCALE_INVARIANT, NORM_IGNORECASE    case alone does not matter
//   LOCALE_USER_DEFAULT, all three NORM  only the letters matter: no case, marks, hamza on a letter or width
// Result: 1 `a` is first, 2 equal, 3 `b` is first; 0 is failure: 87 null text, or another locale or flags.
constexpr LCID LOCALE_INVARIANT = 127;
constexpr LCID LOCALE_USER_DEFAULT = 1024;
constexpr DWORD NORM_IGNORECASE = 1;
constexpr DWORD NORM_IGNORENONSPACE = 2;
constexpr DWORD NORM_IGNOREWIDTH = 0x20000;
constexpr int CSTR_EQUAL = 2;
int CompareStringW(LCID locale, DWORD flags, const wchar_t* a, int lengthOfA, const wchar_t* b,
                   int lengthOfB);
// The full order, small letters before capitals: below, at or above 0. Null comes before any text, two nulls
// are equal.
int lstrcmpW(const wchar_t* a, const wchar_t* b);

// The computer's short name: upper case, 1 to 15 units. `*size` is the room in units and becomes the name's
// length without terminator. Fails with 111 when the room does not do, `*size` becoming what is needed with
// terminator.
constexpr DWORD MAX_COMPUTERNAME_LENGTH = 15;
BOOL GetComputerNameW(wchar_t* buffer, DWORD* size);

// Resources. A string table is of type 6; its blocks of sixteen texts are named id / 16 + 1. Type and name
// are numbers in the place of pointers. Asked for a language, the block of exactly that one answers, else
// that of its main language (the low ten bits), else the one without a language (0). Asked for 0 or 1024,
// any language will do: here the lowest number, on Windows the user's own before it. Null is failure, with
// the last error:
//   1813  no such type in the module; a module that is null or that nobody registered has none
//   1814  no such name in any language
//   1815  no such language
struct StringBlock;
using HRSRC = const StringBlock*;
using HGLOBAL = void*;
HRSRC FindResourceExW(HINSTANCE module, const wchar_t* type, const wchar_t* name, WORD language);
// Bytes of UTF-16 text in the block: two a unit.
DWORD SizeofResource(HINSTANCE module, HRSRC resource);
// The block, valid as long as the module: sixteen times a unit with a length, then so many units. Null gives
// null.
HGLOBAL LoadResource(HINSTANCE module, HRSRC resource);
void* LockResource(HGLOBAL data);

#endif

#endif  // QEL_PLATFORM_PLATFORM_H
