// A stream of bytes in memory that grows as it is written, with one position for reading and writing.
//
//   TMemoryStream stream;
//   stream.Append("abc", 3);        // at the position, which moves behind it
//   stream.Seek(0, 0);
//   stream.Read(buffer, 10);        // 3
//
// Sizes, counts and positions are bytes, as `int`: a stream holds at most 2 GB less 8 KB. A failed allocation and a
// null buffer raise TXAssertion, the stream unchanged. A stream may be used from one thread at a time.
#ifndef QEL_MEMORY_STREAM_H
#define QEL_MEMORY_STREAM_H

#include <cstdint>
#include <cstring>

#include "platform_types.h"
#include "qel_export.h"

class QEL_API TMemoryStream {
 protected:
  // Slot order is ABI.
  // The block of the content, made to hold `newCapacity` bytes; null for 0. What is not the current size is first
  // rounded up to a multiple of 8,192, which the caller gets back. Bytes that are new are 0. For subclasses that keep
  // their bytes elsewhere: SetCapacity takes over what it returns.
  virtual void* Realloc(int& newCapacity);

 public:
  virtual ~TMemoryStream();
  // Copies at most `count` bytes from the position on, which moves behind them. Returns how many: 0 at and beyond the
  // end, for a negative position and for a negative count.
  virtual int Read(void* buffer, int count);
  // Writes at the position, which moves behind it; what lies between the end and a position beyond it is content
  // from then on. `buffer` may lie in the stream itself. Returns `count`; 0, nothing changed, for a negative count or
  // position. A count of 0 takes any buffer.
  virtual int Append(const void* buffer, int count) {
    return AppendsField(buffer, count) ? count : AppendBytes(buffer, count);
  }
  // Replaces the whole content and leaves the position behind it. `buffer` may lie in the stream itself. Returns
  // `count`, or 0 for a negative one, which leaves the stream empty too.
  virtual int Write(const void* buffer, int count);
  // The new position: `offset` from the start (`origin` 0), the position (1) or the end (2). Any other origin moves
  // nothing. The position may lie before the start or beyond the end; it stops at the limits of `int`.
  virtual int Seek(int offset, unsigned short origin);
  // Cuts or extends the content; a position beyond a smaller size moves to the end. Negative sizes change nothing.
  // Kept: a size equal to the current one makes the capacity exactly that, because callers trim streams so.
  virtual void SetSize(int newSize);
  virtual int GetSize() const { return m_Size; }

  TMemoryStream() noexcept = default;
  // The same content at the same position, in memory of its own.
  TMemoryStream(const TMemoryStream& other);
  TMemoryStream& operator=(const TMemoryStream& other);

  // What fits without new memory, in multiples of 8,192 as it was asked for; more may be reserved behind it.
  int GetCapacity() const { return m_Capacity; }
  // Rounds up as Realloc does. Content beyond a smaller capacity is cut off. Negative ones change nothing.
  void SetCapacity(int newCapacity);
  // Gives all memory back; the position is 0.
  void Clear();

  // The content as the bytes of a file. Loading leaves the position at 0. False when the file cannot be read or is
  // too large, the stream unchanged, or cannot be written, the file unchanged.
  bool LoadFromFile(const wchar_t* path);
  bool SaveToFile(const wchar_t* path) const;

 protected:
  void* Memory() const { return m_Memory; }
  // Sets the block and the size, freeing nothing.
  void SetPointer(void* memory, int size);

 private:
  void TakeContent(const TMemoryStream& other);
  void Provide(long long capacity);
  void Reserve(long long capacity);
  void Resize(long long capacity);
  void* Release();
  int AppendBytes(const void* buffer, int count);
  // Fields of records, of one or two words, come by the thousand: a call would cost more than to copy their first and
  // their last bytes. False when there is more to do than that.
  bool AppendsField(const void* buffer, int count) {
    const int position = m_Position;
    if (!buffer || count < kWord || count > 2 * kWord || position < 0 || position > m_Capacity - count)
      return false;
    std::uint64_t first, last;
    std::memcpy(&first, buffer, kWord);
    std::memcpy(&last, static_cast<const unsigned char*>(buffer) + (count - kWord), kWord);
    unsigned char* const to = m_Memory + position;
    m_Position = position + count;
    if (m_Size < m_Position) m_Size = m_Position;
    std::memcpy(to, &first, kWord);
    std::memcpy(to + (count - kWord), &last, kWord);
    return true;
  }
  static constexpr int kWord = sizeof(std::uint64_t);

  const void* MakeRoom(long long end, const void* source);
  bool Holds(const void* source) const;

  int m_Capacity = 0;
  HANDLE m_Handle = nullptr;  // of movable memory, locked as long as it is ours
  unsigned char* m_Memory = nullptr;
  int m_Size = 0;
  int m_Position = 0;
};

#endif  // QEL_MEMORY_STREAM_H
