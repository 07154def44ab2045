#include "pxfile.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <cwchar>
#include <string_view>

#include "exceptions.h"
#include "file_lines.h"
#include "platform/platform.h"
#include "string_tools.h"
#include "tstring.h"

#define QEL_SOURCE L"src/pxfile"
#define QEL_REQUIRE_OPEN() QEL_REQUIRE(IsOpen(), L"hFile != INVALID_HANDLE_VALUE")

namespace {

constexpr int kLineOfRead = 133;  // crash reports are grouped by it
constexpr DWORD kEndOfFile = 38;

struct Opening {
  DWORD access, share, disposition;
};

// By mode. The first is refused by the system.
constexpr Opening kOpenings[] = {{0, 0, 0},
                                 {GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING},
                                 {GENERIC_WRITE, 0, OPEN_EXISTING},
                                 {GENERIC_READ | GENERIC_WRITE, FILE_SHARE_WRITE, OPEN_EXISTING},
                                 {GENERIC_WRITE, 0, CREATE_ALWAYS}};

const Opening& OpeningOf(TFileAccessMode mode) {
  return kOpenings[mode >= FA_READ && mode <= FA_CREATE ? mode : FA_NONE];
}

}  // namespace

// What of the file has been read from the system and not been asked for yet.
struct TPXFile::Ahead {
  std::size_t Size() const { return end - begin; }
  std::size_t begin = 0, end = 0;
  std::array<BYTE, 32768> bytes;
};

TPXFile::TPXFile() noexcept : m_Handle(INVALID_HANDLE_VALUE) {}

TPXFile::TPXFile(const wchar_t* fileName, TFileAccessMode mode) : TPXFile() {
  Open(fileName, mode);
}

TPXFile::TPXFile(const TPXFile& other) : TPXFile() {
  DuplicateFrom(other);
}

TPXFile& TPXFile::operator=(const TPXFile& other) {
  if (this == &other) return *this;
  Close();
  DuplicateFrom(other);
  return *this;
}

TPXFile::~TPXFile() {
  Close();
}

void TPXFile::DuplicateFrom(const TPXFile& other) {
  std::wmemcpy(m_FileName, other.m_FileName, kNameRoom);
  m_Mode = other.m_Mode;
  m_ErrorCode = other.m_ErrorCode;
  m_Eof = other.m_Eof;
  if (!other.IsOpen()) return;
  const HANDLE seen = other.GetFileHandle(), process = GetCurrentProcess();
  if (!DuplicateHandle(process, seen, process, &m_Handle, 0, 0, DUPLICATE_SAME_ACCESS)) {
    m_ErrorCode = GetLastError();
    m_Handle = INVALID_HANDLE_VALUE;
  }
  m_IsSeen = true;
}

int TPXFile::Open(const wchar_t* fileName, TFileAccessMode mode) {
  Qel::Sys::TString name(fileName);
  Qel::Sys::Text::FixFileName(name);
  Close();
  const Opening& how = OpeningOf(mode);
  if (mode == FA_READ) m_Eof = false;
  m_Handle =
      CreateFileW(name, how.access, how.share, nullptr, how.disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
  Done(IsOpen());
  const std::wstring_view stored = name.View().substr(0, kNameRoom - 1);
  *std::copy(stored.begin(), stored.end(), m_FileName) = L'\0';
  m_Mode = mode;
  return IsOpen();
}

void TPXFile::Close() {
  if (IsOpen()) CloseHandle(m_Handle);
  m_Handle = INVALID_HANDLE_VALUE;
  m_IsSeen = false;
  m_Ahead.reset();
}

bool TPXFile::IsOpen() const noexcept {
  return m_Handle != INVALID_HANDLE_VALUE && m_Handle != nullptr;
}

// Takes the system's code over. Returns `success`.
bool TPXFile::Done(bool success) {
  m_ErrorCode = success ? 0 : GetLastError();
  return success;
}

HANDLE TPXFile::GetFileHandle() const {
  GiveBackAhead();
  m_IsSeen = true;
  return m_Handle;
}

const wchar_t* TPXFile::GetFileName() const {
  return m_FileName;
}

int TPXFile::Read(void* buffer, unsigned int size) {
  QEL_REQUIRE_AT(IsOpen(), L"hFile != INVALID_HANDLE_VALUE", QEL_SOURCE, kLineOfRead);
  GiveBackAhead();
  DWORD count = 0;
  const bool read = Done(ReadFile(m_Handle, buffer, size, &count, nullptr) != 0);
  const bool atEnd = read ? count == 0 && size > 0 : m_ErrorCode == kEndOfFile;
  if (atEnd) {
    m_Eof = true;
    m_ErrorCode = 0;
  }
  return static_cast<int>(count);
}

int TPXFile::Write(const void* data, unsigned int size) {
  QEL_REQUIRE_OPEN();
  GiveBackAhead();
  DWORD count = 0;
  Done(WriteFile(m_Handle, data, size, &count, nullptr) != 0);
  return static_cast<int>(count);
}

int TPXFile::Write(const wchar_t* text, unsigned int size) {
  QEL_REQUIRE_OPEN();
  if (!text) return 0;
  return WriteText(text, size == NPOS ? std::wcslen(text) : size);
}

int TPXFile::Write(const CString& text, unsigned int size) {
  QEL_REQUIRE_OPEN();
  return WriteText(text.GetString(), std::min<std::size_t>(size, text.View().size()));
}

int TPXFile::Write(const char* text, unsigned int size) {
  QEL_REQUIRE_OPEN();
  if (!text) return 0;
  return Write(static_cast<const void*>(text),
               size == NPOS ? static_cast<unsigned>(std::strlen(text)) : size);
}

int TPXFile::WriteText(const wchar_t* text, std::size_t units) {
  if (units == 0) return Write(static_cast<const void*>(text), 0);
  constexpr std::size_t kPiece = 4096;
  std::array<BYTE, 4 * kPiece> bytes;  // an element may stand for two units
  unsigned int written = 0;
  for (std::size_t at = 0; at < units; at += kPiece) {
    const std::size_t count = std::min(kPiece, units - at);
    const DWORD size = BytesFromUnits(bytes.data(), static_cast<DWORD>(bytes.size()), text + at, count);
    if (Write(bytes.data(), size) == 0) return 0;
    written += size;
  }
  return static_cast<int>(written);
}

int TPXFile::Append(const void* data, unsigned int size) {
  QEL_REQUIRE_OPEN();
  std::int64_t end = 0;
  return Move(0, 2, end) ? Write(data, size) : 0;
}

int TPXFile::Seek(long offset, int origin) {
  QEL_REQUIRE_OPEN();
  std::int64_t position = 0;
  return Move(offset, origin, position) ? static_cast<int>(position) : -1;
}

int TPXFile::GetPos() {
  QEL_REQUIRE_OPEN();
  LARGE_INTEGER none{}, position{};
  if (!Done(SetFilePointerEx(m_Handle, none, &position, 1) != 0)) return -1;
  return static_cast<int>(position.QuadPart - (m_Ahead ? static_cast<std::int64_t>(m_Ahead->Size()) : 0));
}

bool TPXFile::Move(std::int64_t offset, int origin, std::int64_t& position) {
  GiveBackAhead();
  LARGE_INTEGER distance{}, reached{};
  distance.QuadPart = offset;
  if (!Done(SetFilePointerEx(m_Handle, distance, &reached, static_cast<DWORD>(origin)) != 0)) return false;
  position = reached.QuadPart;
  return true;
}

std::int64_t TPXFile::GetFileSize() const {
  if (!IsOpen()) return 0;
  BY_HANDLE_FILE_INFORMATION information{};
  if (!GetFileInformationByHandle(m_Handle, &information))
    QEL_RAISE(qel_exception, L"Unable to read file info");
  return std::int64_t{information.nFileSizeHigh} << 32 | information.nFileSizeLow;
}

DWORD TPXFile::GetAttributes() const {
  QEL_REQUIRE(*m_FileName != L'\0', L"*FileName != NULL");
  return GetFileAttributesW(m_FileName);
}

// Puts the handle's position back to ours.
void TPXFile::GiveBackAhead() const {
  if (!m_Ahead || m_Ahead->Size() == 0) return;
  LARGE_INTEGER back{};
  back.QuadPart = -static_cast<std::int64_t>(m_Ahead->Size());
  SetFilePointerEx(m_Handle, back, nullptr, 1);
  m_Ahead->begin = m_Ahead->end = 0;
}

// How many bytes to read behind `left` of them. A pipe takes nothing back, so no more than a unit.
DWORD TPXFile::RoomAhead(std::size_t left) const {
  constexpr DWORD kSeenBlock = 1024;  // most of it is given back after every line
  const bool takesBack = SetFilePointerEx(m_Handle, LARGE_INTEGER{}, nullptr, 1) != 0;
  if (!takesBack) return static_cast<DWORD>(2 - left);
  return m_IsSeen ? kSeenBlock : static_cast<DWORD>(m_Ahead->bytes.size() - left);
}

// Whether a unit is there; false at the end and for what cannot be read.
bool TPXFile::FillAhead() {
  if (!m_Ahead) m_Ahead = std::make_unique_for_overwrite<Ahead>();
  Ahead& ahead = *m_Ahead;
  while (ahead.Size() < 2) {
    const std::size_t left = ahead.Size();
    if (left) ahead.bytes[0] = ahead.bytes[ahead.begin];
    ahead.begin = 0;
    ahead.end = left;
    DWORD count = 0;
    const DWORD room = RoomAhead(left);
    const bool read = Done(ReadFile(m_Handle, ahead.bytes.data() + left, room, &count, nullptr) != 0);
    if (!read && m_ErrorCode != kEndOfFile) return false;
    ahead.end += count;
    if (count > 0) continue;
    ahead.end = 0;  // half a unit is none
    m_Eof = true;
    m_ErrorCode = 0;
    return false;
  }
  return true;
}

int TPXFile::ReadLine(CString& line) {
  line.Empty();
  QEL_REQUIRE_OPEN();
  for (bool ended = false; !ended && ((m_Ahead && m_Ahead->Size() >= 2) || FillAhead());) {
    Ahead& ahead = *m_Ahead;
    ahead.begin += TakeLine(ahead.bytes.data() + ahead.begin, ahead.Size(), line, ended);
  }
  if (m_IsSeen) GiveBackAhead();
  return line.GetLength();
}
