#include "pxfilestream.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <iterator>
#include <string>

#include "encoding.h"
#include "platform/platform.h"
#include "string_tools.h"

namespace {

constexpr std::size_t kRoom = 8192;
constexpr BYTE kByteOrderMark[] = {0xFF, 0xFE};

// Moves to the end of the file. Result: its size, -1 on failure.
std::int64_t SizeAndGoThere(HANDLE file) {
  LARGE_INTEGER none{}, end{};
  return SetFilePointerEx(file, none, &end, 2) ? end.QuadPart : -1;
}

}  // namespace

TPXFileStream::TPXFileStream() noexcept : m_Handle(INVALID_HANDLE_VALUE) {}

TPXFileStream::TPXFileStream(const wchar_t* fileName, FileStreamMode mode) : TPXFileStream() {
  open(fileName, mode);
}

TPXFileStream::~TPXFileStream() {
  close();
}

bool TPXFileStream::open(const wchar_t* fileName, FileStreamMode mode) {
  close();
  CString name(fileName);
  Qel::Sys::Text::FixFileName(name);
  const DWORD disposition = mode == FSM_CREATE ? CREATE_ALWAYS : OPEN_ALWAYS;
  m_Handle =
      CreateFileW(name, GENERIC_WRITE, FILE_SHARE_READ, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
  m_Failed = false;
  if (!good()) return false;
  if (!m_Gathered) m_Gathered = std::make_unique<BYTE[]>(kRoom);
  const std::int64_t size = SizeAndGoThere(m_Handle);
  if (size == 0) return write(kByteOrderMark, sizeof kByteOrderMark);
  return Noted(size > 0);
}

bool TPXFileStream::close() {
  const bool flushed = flush();
  if (m_Handle != INVALID_HANDLE_VALUE) CloseHandle(m_Handle);
  m_Handle = INVALID_HANDLE_VALUE;
  return flushed;
}

bool TPXFileStream::good() const noexcept {
  return m_Handle != INVALID_HANDLE_VALUE && !m_Failed;
}

bool TPXFileStream::clear() noexcept {
  m_Failed = false;
  return good();
}

// Remembers a failure. Returns `success`.
bool TPXFileStream::Noted(bool success) noexcept {
  if (!success) m_Failed = true;
  return success;
}

bool TPXFileStream::Send(const void* data, std::size_t size) {
  DWORD written = 0;
  return Noted(WriteFile(m_Handle, data, static_cast<DWORD>(size), &written, nullptr) && written == size);
}

bool TPXFileStream::flush() {
  const std::size_t gathered = m_Used;
  m_Used = 0;
  return good() && (gathered == 0 || Send(m_Gathered.get(), gathered));
}

bool TPXFileStream::write(const void* data, unsigned int size) {
  if (!good()) return false;
  if (size > kRoom - m_Used && !flush()) return false;
  if (size > kRoom) return Send(data, size);
  if (size > 0) std::memcpy(m_Gathered.get() + m_Used, data, size);
  m_Used += size;
  return true;
}

void TPXFileStream::Text(std::wstring_view text) {
  constexpr std::size_t kPiece = 1024;
  BYTE bytes[4 * kPiece];  // an element may stand for two units
  for (; !text.empty(); text.remove_prefix(std::min(kPiece, text.size()))) {
    const std::size_t count = std::min(kPiece, text.size());
    write(bytes, BytesFromUnits(bytes, sizeof bytes, text.data(), count));
  }
}

template <class Number>
TPXFileStream& TPXFileStream::Decimal(Number number) {
  char digits[32];
  char* const end = std::to_chars(digits, std::end(digits), number).ptr;
  Text(std::wstring(+digits, end));
  return *this;
}

TPXFileStream& TPXFileStream::operator<<(const CString& text) {
  Text(text.View());
  return *this;
}

TPXFileStream& TPXFileStream::operator<<(const wchar_t* text) {
  if (text) Text(text);
  return *this;
}

TPXFileStream& TPXFileStream::operator<<(const char* text) {
  Text(Qel::Sys::Text::Encoding::ConvertA2W(text));
  return *this;
}

TPXFileStream& TPXFileStream::operator<<(wchar_t unit) {
  Text({&unit, 1});
  return *this;
}

TPXFileStream& TPXFileStream::operator<<(int number) {
  return Decimal(number);
}

TPXFileStream& TPXFileStream::operator<<(unsigned int number) {
  return Decimal(number);
}

TPXFileStream& TPXFileStream::operator<<(long number) {
  return Decimal(number);
}

TPXFileStream& TPXFileStream::operator<<(unsigned long number) {
  return Decimal(number);
}

TPXFileStream& TPXFileStream::operator<<(long long number) {
  return Decimal(number);
}

TPXFileStream& TPXFileStream::operator<<(unsigned long long number) {
  return Decimal(number);
}

TPXFileStream& TPXFileStream::operator<<(double number) {
  return Decimal(number);
}
