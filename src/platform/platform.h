// The only way from the library to the operating system. On Windows these are the system's own functions;
// elsewhere the sources in linux/ answer as Windows does: same status codes, same sizes, same corner cases. A
// function is declared here only when the library calls it; tests/platform holds every one to its contract on
// both systems.
#ifndef QEL_PLATFORM_PLATFORM_H
#define QEL_PLATFORM_PLATFORM_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform_types.h"
#include "settings_store.h"

// The library's own code page: Arabic, one byte a character.
constexpr UINT kArabicCodePage = 1256;

// What has no name of the system's own; sources in linux/ and windows/.

// The module that holds the library's own string resources; never null.
HINSTANCE LibraryModule();
// Gives `module` the text with this number in this language, in place of an earlier one. False where modules
// carry their resources themselves, which is on Windows.
bool RegisterString(HINSTANCE module, LANGID language, WORD id, const wchar_t* text);

// UTF-16LE bytes, as values of the registry and wide files hold them, to units and back. An odd last byte is left
// out; `out` may be the place of `data`. Result: units written, at most `max`.
std::size_t UnitsFromBytes(wchar_t* out, std::size_t max, const BYTE* data, DWORD bytes);
// Writes the first `bytes` bytes of the text's form, at most two a unit. Result: bytes written.
DWORD BytesFromUnits(BYTE* out, DWORD bytes, const wchar_t* text, std::size_t units);

// RegCreateKeyExW (`create`) or RegOpenKeyExW, then the counts of RegQueryInfoKeyW; in one step where the registry
// is ours. Counts are 0 where they may not be asked for. On failure *result is null and the counts are 0.
LONG OpenKeyAndCount(HKEY key, const wchar_t* name, REGSAM access, bool create, HKEY* result, DWORD* subKeys,
                     DWORD* values);
// All changes of the tree that `key` is of, by this thread, until EndKeyChanges: made as one or not at all where
// the registry is ours, each for itself on Windows. 0, or why nothing can be written.
LONG BeginKeyChanges(HKEY key);
LONG EndKeyChanges(HKEY key, bool keep);
// Waits until something below `key` changes, by whom ever: 0; 258 when nothing did in `milliseconds`
// (0xFFFFFFFF: no limit). A change since the last call on the same handle counts too.
LONG WaitForKeyChange(HKEY key, DWORD milliseconds);

// A file as a whole, of at most `most` bytes. Result: 0 or the code of Windows: 2 no such file, 3 no such folder
// or a null path, 5 no right to it, 112 disk full, 223 too large, others for what else goes wrong.
LONG ReadWholeFile(const wchar_t* path, std::vector<BYTE>& content, std::size_t most = std::size_t{1} << 28);
// By way of a new file beside it that takes its place: on failure what was there is as before.
LONG WriteWholeFile(const wchar_t* path, const BYTE* data, std::size_t size);

// The names of the files directly in a folder, in no order, without its folders; none when it cannot be read.
std::vector<std::wstring> FileNamesIn(const wchar_t* folder);
// Makes the folder, with those above it that are missing, for the user alone. Whether it is there now.
bool MakePrivateFolder(const wchar_t* path);

// Which authorities a session of HTTP trusts instead of the system's: the certificates in this file (PEM); a null or
// empty path: the system's again. It counts for connections named afterwards. 0 or the code of Windows: 2, 3, 5 the file
// cannot be read, 6 no session, 12175 it holds no certificate.
DWORD TrustAuthorities(void* session, const wchar_t* path);
// The last error of a call of HTTP that has just failed with this request. Where it failed because the server's
// certificate comes from none of those authorities, the last error becomes 12175 first.
DWORD HttpError(void* request);
// Closes it, unless that refusal has done so already: Windows may have given the handle to somebody else since.
void CloseRequest(void* request);

// Lets the call that another thread is in with this request end as soon as the system allows: here at once, with 12017,
// the handle being closed. On Windows, where a handle in use must not be closed, it ends by itself.
void InterruptRequest(void* request);

// How the place stands where the current user's settings are kept, or those that all users of the machine share. To
// ask makes and repairs nothing.
StoreReport ReportOnStore(bool machine);

#ifdef _WIN32

#include <oleauto.h>
#include <shlobj.h>
#include <shlwapi.h>
#include <winhttp.h>

// What the system's own path functions take between folders.
constexpr wchar_t kPathSeparator = L'\\';

#else

constexpr wchar_t kPathSeparator = L'/';

// Clock. Fills the record with the local time of one instant.
void GetLocalTime(SYSTEMTIME* time);
// The same in UTC.
void GetSystemTime(SYSTEMTIME* time);

// OLE automation dates: days since 30 December 1899, the fraction is the time of day, away from day 0 for
// earlier days too (-1.25 is 29 December, 06:00). Result: 1, or 0 with nothing written.
//   To a record: the days of the years 100..9999. The time is rounded to the second, half up, which may be
//   the next day; milliseconds are 0, the day of week is filled.
//   From a record: milliseconds and day of week do not count. Years 0..29 are 2000..2029, 30..99 are
//   1930..1999 (the system's pivot may be later). Days 0 and 29..31 beyond the month's end, month 0 and times
//   beyond the day count on into their neighbours; 0 for month 13, day 32, year 10000 and more.
int VariantTimeToSystemTime(double date, SYSTEMTIME* time);
int SystemTimeToVariantTime(SYSTEMTIME* time, double* date);

// The keyboard. The highest bit of the result tells that the key is down; here none ever is.
constexpr int VK_SHIFT = 0x10;
constexpr int VK_CONTROL = 0x11;
short GetAsyncKeyState(int key);

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

// The running program's file; `module` is null. Result: the length without terminator; `size`, with the last error 122
// and a text cut to what fits, terminator included, when the room does not do.
DWORD GetModuleFileNameW(HMODULE module, wchar_t* path, DWORD size);
// The name of the user who runs the program. `*size` is the room in units and becomes the length, both with
// terminator. Fails with 122 when the room does not do, `*size` becoming what is needed.
BOOL GetUserNameW(wchar_t* buffer, DWORD* size);
// A random GUID, of version 4. Result: 0, or below it when the system has no randomness.
HRESULT CoCreateGuid(GUID* guid);
// To the debugger; here to the error stream.
void OutputDebugStringW(const wchar_t* text);

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

// Movable memory. Null is failure, with the last error 8 (no memory, or a block of no possible size). A block of 0
// bytes is a handle without memory; GlobalLock of it fails with 157. Here nothing moves as long as nobody asks for
// another size, locked or not.
constexpr UINT GMEM_MOVEABLE = 2;
constexpr UINT GMEM_ZEROINIT = 0x40;  // new bytes are 0; here in GlobalAlloc alone
HGLOBAL GlobalAlloc(UINT flags, std::size_t bytes);
// What fits is kept. On failure the block is as it was.
HGLOBAL GlobalReAlloc(HGLOBAL block, std::size_t bytes, UINT flags);
// Of a null handle: 0, null.
std::size_t GlobalSize(HGLOBAL block);
void* GlobalLock(HGLOBAL block);
// 0, the last error being 0 when that was the last lock and 158 when there was none; else 1.
BOOL GlobalUnlock(HGLOBAL block);
HGLOBAL GlobalFree(HGLOBAL block);  // null

// The system's colours by index, 0 to 24; here those of the default theme. Red is in the lowest byte.
DWORD GetSysColor(int index);

// Files and folders. Paths have "\" or "/" between names; every other character is part of a name, so drives do not
// count. A path is tried as it is; when nothing is there, without blanks and dots at its end; then every name that is
// missing stands for the one of its folder that differs by case alone, if that is one only. What is new gets the last
// name as given.
// A failure leaves its code as the last error: 2 no such file, 3 no such folder above it or no path, 4 too many open,
// 5 no right, 19 read-only volume, 112 disk full, 123 a name longer than the system takes, 183 there already, 1117 any
// other.
constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;
constexpr DWORD FILE_ATTRIBUTE_READONLY = 1;
constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
constexpr DWORD FILE_ATTRIBUTE_ARCHIVE = 0x20;
constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;
// A folder is a DIRECTORY, a file ARCHIVE, and READONLY too when its mode lets nobody write. On failure
// INVALID_FILE_ATTRIBUTES.
DWORD GetFileAttributesW(const wchar_t* path);
// Makes one folder; `security` is always null. One named after a drive is not made (3). Result: 1, or 0 on failure.
BOOL CreateDirectoryW(const wchar_t* path, const void* security);

// Open files. Between users of the library one file is shared as the system shares it: readers that let others read
// may be together, everybody else is alone (32). Two things are not as on Windows: writers that let each other write
// are alone too, and nothing stands in the way of removing an open file.
// A failure leaves its code as the last error; besides those above: 5 a folder, a read-only file, or a handle that was
// not opened for this, 6 no open handle, 32 somebody has it open, 80 CREATE_NEW of what is there, 87 no disposition or
// origin, 123 a file with "\" behind its name, 131 before the start. CREATE_ALWAYS and OPEN_ALWAYS of what is there
// succeed and leave 183; any other opening leaves 0. Handles are never given twice, and any thread may use them.
#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(std::intptr_t{-1}))
constexpr DWORD GENERIC_READ = 0x80000000;
constexpr DWORD GENERIC_WRITE = 0x40000000;
constexpr DWORD FILE_SHARE_READ = 1;
constexpr DWORD FILE_SHARE_WRITE = 2;
constexpr DWORD CREATE_NEW = 1;
constexpr DWORD CREATE_ALWAYS = 2;
constexpr DWORD OPEN_EXISTING = 3;
constexpr DWORD OPEN_ALWAYS = 4;
// Result: the handle, or INVALID_HANDLE_VALUE. Without access a file is only looked at, beside anybody. `flags` is
// FILE_ATTRIBUTE_NORMAL, `security` and `like` are null. A refused opening leaves the content alone.
HANDLE CreateFileW(const wchar_t* path, DWORD access, DWORD share, const void* security, DWORD disposition,
                   DWORD flags, HANDLE like);
// At the handle's position, which moves on. At the end of the file 0 bytes are read, with success. `overlapped` is
// null. Result: 1, or 0 with *read or *written 0.
BOOL ReadFile(HANDLE file, void* buffer, DWORD size, DWORD* read, void* overlapped);
BOOL WriteFile(HANDLE file, const void* data, DWORD size, DWORD* written, void* overlapped);
// Origin 0 the start, 1 the position, 2 the end. The new position goes to *position unless that is null. It may lie
// behind the end.
union LARGE_INTEGER {
  std::int64_t QuadPart;
};
BOOL SetFilePointerEx(HANDLE file, LARGE_INTEGER distance, LARGE_INTEGER* position, DWORD origin);
// The file ends at the handle's position from now on.
BOOL SetEndOfFile(HANDLE file);
struct BY_HANDLE_FILE_INFORMATION {
  DWORD dwFileAttributes;
  DWORD nFileSizeHigh, nFileSizeLow;
};
BOOL GetFileInformationByHandle(HANDLE file, BY_HANDLE_FILE_INFORMATION* information);
// A second handle on the same open file: one position, one share of it, open until both are closed. Both processes
// are GetCurrentProcess(), access and inherit are 0, options are DUPLICATE_SAME_ACCESS.
constexpr DWORD DUPLICATE_SAME_ACCESS = 2;
HANDLE GetCurrentProcess();
BOOL DuplicateHandle(HANDLE fromProcess, HANDLE file, HANDLE toProcess, HANDLE* copy, DWORD access,
                     BOOL inherit, DWORD options);
// What GetCurrentProcess gives may be closed too; nothing happens.
BOOL CloseHandle(HANDLE file);

// Gives a file another name on the same volume, never that of another (183), and never while somebody has it open
// (32).
BOOL MoveFileW(const wchar_t* from, const wchar_t* to);
BOOL DeleteFileW(const wchar_t* path);

// The shell. A folder by its number, be it there or not, as a list for CoTaskMemFree. Known are 5, the user's
// documents: the desktop's choice for them ($XDG_CONFIG_HOME/user-dirs.dirs), else "Documents" in the user's home; and
// 28, what programs keep for themselves: $XDG_STATE_HOME, else ".local/state" in the home. Result: 0; below it when
// the user has no home, and for other numbers (0x80070057), *list being null.
struct ITEMIDLIST;
using LPITEMIDLIST = ITEMIDLIST*;
constexpr int CSIDL_PERSONAL = 5;
constexpr int CSIDL_LOCAL_APPDATA = 28;
HRESULT SHGetSpecialFolderLocation(void* window, int folder, LPITEMIDLIST* list);
// The folder's path as the system writes it, into room for 260 units. Result: 1, or 0 with an empty path for null
// and for a path longer than that.
BOOL SHGetPathFromIDListW(const ITEMIDLIST* list, wchar_t* path);
void CoTaskMemFree(void* memory);
// Appends `more` to `path`, which has room for 260 units, with one "\" between, and takes "." and ".." away, never
// above the root. A `more` with a drive or with two "\" in front takes the place of the path. Result: 1; 0 with an
// empty path when it would be longer than 259 units, and with all unchanged for null.
BOOL PathAppendW(wchar_t* path, const wchar_t* more);
// The same of `folder` and `more` into `path`, which may be `folder`; but a `more` with one "\" in front starts at the
// drive or share of `folder`. Null is an empty path. Result: `path`, or null with an empty path when it would be too
// long.
wchar_t* PathCombineW(wchar_t* path, const wchar_t* folder, const wchar_t* more);

// URLs. The parts of `url`, of `length` units (0: up to its terminator), as pointers into it. A part is asked for by a
// null pointer and a length that is not 0, and gets both; the others stay as they are. Flags are 0. Result: 1, or 0
// with nothing written and the last error:
//   87     no url, or a record of another size
//   12005  no "//" behind the scheme, no host, a port that is no number up to 65535, an address whose bracket is
//          not closed
//   12006  a scheme other than http and https, or none
// The host ends at the first "/", "?" or "#"; an address in brackets keeps them. What stands before the first "@" in
// front of it is the user's and no part of it. Without a number the port is that of the scheme. The path is empty or
// begins with "/", the extra part with the first "?" or "#". Nothing is decoded, and case stays.
using INTERNET_SCHEME = int;
using INTERNET_PORT = WORD;
constexpr INTERNET_SCHEME INTERNET_SCHEME_HTTP = 1;
constexpr INTERNET_SCHEME INTERNET_SCHEME_HTTPS = 2;
struct URL_COMPONENTS {
  DWORD dwStructSize;
  wchar_t* lpszScheme;
  DWORD dwSchemeLength;
  INTERNET_SCHEME nScheme;
  wchar_t* lpszHostName;
  DWORD dwHostNameLength;
  INTERNET_PORT nPort;
  wchar_t* lpszUserName;  // never asked for, like the password
  DWORD dwUserNameLength;
  wchar_t* lpszPassword;
  DWORD dwPasswordLength;
  wchar_t* lpszUrlPath;
  DWORD dwUrlPathLength;
  wchar_t* lpszExtraInfo;
  DWORD dwExtraInfoLength;
};
BOOL WinHttpCrackUrl(const wchar_t* url, DWORD length, DWORD flags, URL_COMPONENTS* components);

// HTTP. Handles are ids that are never given twice; null is failure, with the last error, and 6 answers what is no
// handle, 12018 a handle of another kind, 12019 a call out of its order. Codes of the rest: 12002 a time-out, 12005 a
// bad address, 12007 no such host, 12017 closed by another thread meanwhile, 12029 no connection, 12030 the
// connection broke, 12032 a body that would have to be sent again, 12152 no HTTP, 12156 too many redirections, 12175
// the certificate or TLS.
// A handle belongs to one thread at a time, but any thread may close it: a call under way then fails with 12017.
using HINTERNET = void*;
constexpr DWORD WINHTTP_ACCESS_TYPE_DEFAULT_PROXY = 0;
constexpr DWORD WINHTTP_FLAG_SECURE = 0x00800000;
constexpr DWORD WINHTTP_ADDREQ_FLAG_ADD = 0x20000000;
constexpr DWORD WINHTTP_AUTH_TARGET_SERVER = 0;
constexpr DWORD WINHTTP_AUTH_SCHEME_BASIC = 1;
constexpr DWORD WINHTTP_QUERY_STATUS_CODE = 19;
constexpr DWORD WINHTTP_QUERY_RAW_HEADERS_CRLF = 22;
constexpr DWORD WINHTTP_QUERY_CONTENT_LENGTH = 5;
constexpr DWORD WINHTTP_QUERY_FLAG_NUMBER = 0x20000000;
// A session holds cookies, time-outs and connections kept open. No proxy name, no bypass list, flags 0.
HINTERNET WinHttpOpen(const wchar_t* agent, DWORD accessType, const wchar_t* proxy, const wchar_t* bypass,
                      DWORD flags);
// Names the server; nothing is sent.
HINTERNET WinHttpConnect(HINTERNET session, const wchar_t* host, INTERNET_PORT port, DWORD reserved);
// `version`, `referrer` and `acceptTypes` are null; flags are 0 or WINHTTP_FLAG_SECURE. Blanks, controls and
// characters beyond ASCII of the path are sent as UTF-8 in percent signs.
HINTERNET WinHttpOpenRequest(HINTERNET connection, const wchar_t* verb, const wchar_t* path,
                             const wchar_t* version, const wchar_t* referrer, const wchar_t** acceptTypes,
                             DWORD flags);
// Lines with CR LF between them; a length of 0xFFFFFFFF means up to the terminator. 12153: a line without a colon.
BOOL WinHttpAddRequestHeaders(HINTERNET request, const wchar_t* headers, DWORD length, DWORD modifiers);
// 87: a scheme that is not known.
BOOL WinHttpSetCredentials(HINTERNET request, DWORD target, DWORD scheme, const wchar_t* user,
                           const wchar_t* password, void* parameters);
// Milliseconds, 0 for no limit, of a session or a request: to find the host, to connect, to send and to receive one
// piece. 0, 60000, 30000 and 30000 at first.
BOOL WinHttpSetTimeouts(HINTERNET handle, int resolve, int connect, int send, int receive);
// Sends the head; `totalLength` bytes of body follow by WinHttpWriteData. No more headers, no data, context 0.
BOOL WinHttpSendRequest(HINTERNET request, const wchar_t* headers, DWORD headersLength, void* data,
                        DWORD dataLength, DWORD totalLength, std::uintptr_t context);
BOOL WinHttpWriteData(HINTERNET request, const void* data, DWORD size, DWORD* written);
// Returns when the head of the final answer is here.
BOOL WinHttpReceiveResponse(HINTERNET request, void* reserved);
// The status or the length as a number (DWORD), or the head as it came, ended by an empty line. Sizes are bytes at two
// a unit on every system; 122 with the need, terminator included, when *size is too small; 12150: no such header.
BOOL WinHttpQueryHeaders(HINTERNET request, DWORD what, const wchar_t* name, void* buffer, DWORD* size,
                         DWORD* index);
// Waits until bytes of the body are here, and says how many; 0 at its end.
BOOL WinHttpQueryDataAvailable(HINTERNET request, DWORD* available);
BOOL WinHttpReadData(HINTERNET request, void* buffer, DWORD size, DWORD* read);
BOOL WinHttpCloseHandle(HINTERNET handle);

// Registry. Result: 0 or the code of Windows:
//   2 no such key or value       5 no right to it, or sub-keys below    6 null, closed or foreign handle
//   87 bad argument              112 disk full                          161 a name that starts with "\"
//   170 locked by others for 5 s 234 room too small, the need handed back  259 no more items
//   998 null data with a size    1016 the store cannot be read or written   1018 the key has been deleted
// Key names are separated by "\", one at the end and doubled ones do not count, each at most 255 units; names of
// values at most 16,383. Names compare without case, unit by unit, and keep the case they were first written in.
// Null and empty names stand for the key itself and for its default value. Sizes are bytes of UTF-16LE text, also
// where the buffer is typed as units; sizes of names are units. What an output parameter gets on failure stands
// in tests/data/registry.tsv.
LONG RegCreateKeyExW(HKEY key, const wchar_t* name, DWORD reserved, wchar_t* keyClass, DWORD options,
                     REGSAM access, const void* security, HKEY* result, DWORD* disposition);
LONG RegOpenKeyExW(HKEY key, const wchar_t* name, DWORD options, REGSAM access, HKEY* result);
LONG RegCloseKey(HKEY key);
// Refuses (5) a key with sub-keys.
LONG RegDeleteKeyW(HKEY key, const wchar_t* name);
LONG RegDeleteValueW(HKEY key, const wchar_t* name);
// Sub-keys come in the order of their upper-case names, values in that of their creation.
LONG RegEnumKeyW(HKEY key, DWORD index, wchar_t* name, DWORD size);
LONG RegEnumValueW(HKEY key, DWORD index, wchar_t* name, DWORD* nameSize, DWORD* reserved, DWORD* type,
                   BYTE* data, DWORD* dataSize);
// Any output may be null. `lastWrite` is always null.
LONG RegQueryInfoKeyW(HKEY key, wchar_t* keyClass, DWORD* classSize, DWORD* reserved, DWORD* subKeys,
                      DWORD* maxSubKey, DWORD* maxClass, DWORD* values, DWORD* maxValueName,
                      DWORD* maxValueData, DWORD* security, void* lastWrite);
// Text is given a 16-bit NUL behind its end where two more bytes fit; *size does not count it.
LONG RegQueryValueExW(HKEY key, const wchar_t* name, DWORD* reserved, DWORD* type, BYTE* data, DWORD* size);
// Text whose terminator follows directly behind `size` is stored with it.
LONG RegSetValueExW(HKEY key, const wchar_t* name, DWORD reserved, DWORD type, const BYTE* data, DWORD size);
// The default value as text: the first writes REG_SZ alone (87) and up to the terminator, whatever `size`; for the
// second no value is the empty text. *size is bytes.
LONG RegSetValueW(HKEY key, const wchar_t* name, DWORD type, const wchar_t* data, DWORD size);
LONG RegQueryValueW(HKEY key, const wchar_t* name, wchar_t* value, LONG* size);
// Returns when all that was written is on the disk.
LONG RegFlushKey(HKEY key);
// Hives in files and security descriptors do not exist here: 120 on every valid handle.
LONG RegGetKeySecurity(HKEY key, DWORD information, void* descriptor, DWORD* size);
LONG RegSetKeySecurity(HKEY key, DWORD information, void* descriptor);
LONG RegLoadKeyW(HKEY key, const wchar_t* name, const wchar_t* file);
LONG RegUnLoadKeyW(HKEY key, const wchar_t* name);
LONG RegReplaceKeyW(HKEY key, const wchar_t* name, const wchar_t* newFile, const wchar_t* oldFile);
LONG RegRestoreKeyW(HKEY key, const wchar_t* file, DWORD flags);
LONG RegSaveKeyW(HKEY key, const wchar_t* file, const void* security);

#endif

#endif  // QEL_PLATFORM_PLATFORM_H
