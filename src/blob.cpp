#include "blob.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <functional>
#include <iterator>
#include <vector>

#include "exceptions.h"
#include "memory_stream.h"
#include "platform/platform.h"

#define QEL_SOURCE L"src/blob"

namespace {

// Lines by which crash reports are grouped.
constexpr int kNoMemoryLine = 33;
constexpr int kNoHandleLine = 42;
constexpr int kNotResizedLine = 51;
constexpr int kNullWriteLine = 106;
constexpr int kNullAppendLine = 115;

constexpr long long kStep = 8192;
constexpr int kLargest = INT_MAX / kStep * kStep;

constexpr bool IsSize(long long bytes) {
  return bytes >= 0 && bytes <= INT_MAX;
}

constexpr long long Rounded(long long bytes) {
  return (bytes + kStep - 1) / kStep * kStep;
}

std::size_t Unsigned(long long bytes) {
  return static_cast<std::size_t>(bytes);
}

int Stopped(long long position) {
  return static_cast<int>(std::clamp<long long>(position, INT_MIN, INT_MAX));
}

}  // namespace

TMemoryStream::TMemoryStream(const TMemoryStream& other) {
  if (other.m_Size > 0) Reserve(Rounded(other.m_Size));
  TakeContent(other);
}

TMemoryStream& TMemoryStream::operator=(const TMemoryStream& other) {
  if (this == &other) return *this;
  if (other.m_Size > m_Capacity) SetCapacity(other.m_Size);
  TakeContent(other);
  return *this;
}

void TMemoryStream::TakeContent(const TMemoryStream& other) {
  if (other.m_Size > 0) std::memcpy(m_Memory, other.m_Memory, Unsigned(other.m_Size));
  m_Size = other.m_Size;
  m_Position = other.m_Position;
}

// Releases nothing through Realloc: a subclass that has its own is gone already.
TMemoryStream::~TMemoryStream() {
  if (!m_Handle) return;
  GlobalUnlock(m_Handle);
  GlobalFree(m_Handle);
}

void* TMemoryStream::Realloc(int& newCapacity) {
  const bool rounded = newCapacity > 0 && newCapacity != m_Size;
  const long long capacity = rounded ? Rounded(newCapacity) : newCapacity;
  if (capacity == 0 && m_Capacity != 0) return Release();
  if (capacity != m_Capacity) Provide(capacity);
  newCapacity = static_cast<int>(capacity);
  return m_Memory;
}

// Raises for what is no size of a block.
void TMemoryStream::Provide(long long capacity) {
  if (m_Handle)
    Resize(capacity);
  else
    Reserve(capacity);
}

void* TMemoryStream::Release() {
  QEL_REQUIRE_AT(m_Memory != nullptr, L"m_Memory != nullptr", QEL_SOURCE, kNoMemoryLine);
  GlobalUnlock(m_Handle);
  GlobalFree(m_Handle);
  m_Handle = nullptr;
  m_Memory = nullptr;
  m_Capacity = 0;
  return nullptr;
}

// Appends of some bytes each must not copy the content every 8 KB, so memory at least doubles. What is reserved
// behind the capacity is cleared when it becomes part of it.
void TMemoryStream::Resize(long long capacity) {
  const auto fits = static_cast<long long>(GlobalSize(m_Handle));
  if (capacity < m_Capacity || capacity > fits) {
    const long long reserved = capacity < m_Capacity ? capacity : std::max(capacity, 2 * fits);
    GlobalUnlock(m_Handle);
    HGLOBAL handle = IsSize(capacity) ? GlobalReAlloc(m_Handle, Unsigned(reserved), GMEM_MOVEABLE) : nullptr;
    if (!handle && IsSize(capacity)) handle = GlobalReAlloc(m_Handle, Unsigned(capacity), GMEM_MOVEABLE);
    if (handle) m_Handle = handle;
    m_Memory = static_cast<unsigned char*>(GlobalLock(m_Handle));
    QEL_REQUIRE_AT(handle != nullptr, L"handle != nullptr", QEL_SOURCE, kNotResizedLine);
  }
  if (capacity > m_Capacity) std::memset(m_Memory + m_Capacity, 0, Unsigned(capacity - m_Capacity));
  m_Capacity = static_cast<int>(capacity);
}

void TMemoryStream::Reserve(long long capacity) {
  const HGLOBAL handle =
      IsSize(capacity) ? GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, Unsigned(capacity)) : nullptr;
  QEL_REQUIRE_AT(handle != nullptr, L"m_Handle != nullptr", QEL_SOURCE, kNoHandleLine);
  m_Handle = handle;
  m_Memory = static_cast<unsigned char*>(GlobalLock(m_Handle));
  m_Capacity = static_cast<int>(capacity);
}

void TMemoryStream::SetPointer(void* memory, int size) {
  m_Memory = static_cast<unsigned char*>(memory);
  m_Size = size;
}

void TMemoryStream::SetCapacity(int newCapacity) {
  if (newCapacity < 0) return;
  void* const memory = Realloc(newCapacity);
  m_Capacity = newCapacity;
  if (m_Size > newCapacity) m_Position = std::min(m_Position, newCapacity);
  SetPointer(memory, std::min(m_Size, newCapacity));
}

void TMemoryStream::Clear() {
  SetCapacity(0);
  m_Position = 0;
}

void TMemoryStream::SetSize(int newSize) {
  if (newSize < 0) return;
  SetCapacity(newSize);
  m_Size = newSize;
  if (newSize < m_Position) Seek(0, 2);
}

int TMemoryStream::Seek(int offset, unsigned short origin) {
  const long long from[] = {0, m_Position, m_Size};
  if (origin < std::size(from)) m_Position = Stopped(from[origin] + offset);
  return m_Position;
}

int TMemoryStream::Read(void* buffer, int count) {
  if (m_Position < 0 || count <= 0 || m_Position >= m_Size) return 0;
  QEL_REQUIRE(buffer != nullptr, L"Buffer != nullptr");
  const int taken = std::min(count, m_Size - m_Position);
  std::memmove(buffer, m_Memory + m_Position, Unsigned(taken));
  m_Position += taken;
  return taken;
}

int TMemoryStream::AppendBytes(const void* buffer, int count) {
  if (count == 0) return 0;
  QEL_REQUIRE_AT(buffer != nullptr, L"Buffer != nullptr", QEL_SOURCE, kNullAppendLine);
  if (m_Position < 0 || count < 0) return 0;
  const long long end = static_cast<long long>(m_Position) + count;
  if (end > m_Capacity) buffer = MakeRoom(end, buffer);
  std::memmove(m_Memory + m_Position, buffer, Unsigned(count));
  m_Position = static_cast<int>(end);
  m_Size = std::max(m_Size, m_Position);
  return count;
}

int TMemoryStream::Write(const void* buffer, int count) {
  QEL_REQUIRE_AT(buffer != nullptr, L"Buffer != nullptr", QEL_SOURCE, kNullWriteLine);
  std::vector<unsigned char> own;
  if (count > 0 && Holds(buffer)) {
    const auto* const first = static_cast<const unsigned char*>(buffer);
    own.assign(first, first + count);
    buffer = own.data();
  }
  Clear();
  return Append(buffer, count);
}

// Returns where the source is afterwards: in the stream itself it moves with the block.
const void* TMemoryStream::MakeRoom(long long end, const void* source) {
  const bool own = Holds(source);
  const auto offset = own ? static_cast<const unsigned char*>(source) - m_Memory : 0;
  if (!IsSize(end)) Provide(end);
  SetCapacity(static_cast<int>(end));
  return own ? m_Memory + offset : source;
}

bool TMemoryStream::Holds(const void* source) const {
  const std::less<const unsigned char*> before;
  const auto* const first = static_cast<const unsigned char*>(source);
  return m_Memory && !before(first, m_Memory) && before(first, m_Memory + m_Capacity);
}

bool TMemoryStream::LoadFromFile(const wchar_t* path) {
  std::vector<BYTE> content;
  if (ReadWholeFile(path, content, kLargest) != 0) return false;
  SetSize(static_cast<int>(content.size()));
  if (!content.empty()) std::memcpy(m_Memory, content.data(), content.size());
  m_Position = 0;
  return true;
}

bool TMemoryStream::SaveToFile(const wchar_t* path) const {
  return WriteWholeFile(path, m_Memory, Unsigned(m_Size)) == 0;
}

TBlob::~TBlob() = default;
