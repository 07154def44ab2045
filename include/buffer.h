// A row of bytes with numbers and identifiers at any place in it, in little-endian order.
//
//   TBuffer header(16);
//   header.SetDWORD(4, 0x12345678);
//   header[4]                            // 0x78
//   header.DumpString()                  // " 0  0  0  0 78 56 34 12 ..."
//
// Offsets and sizes are bytes. What lies outside the bytes throws a new std::exception as a pointer, "TBuffer: offset
// out of range"; the handler deletes it. References and iterators are valid until the size changes.
#ifndef QEL_BUFFER_H
#define QEL_BUFFER_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include "platform_types.h"
#include "qel_export.h"
#include "tstring.h"

class TBuffer {
  using Bytes = std::vector<unsigned char>;

 public:
  using iterator = Bytes::iterator;
  using const_iterator = Bytes::const_iterator;
  // The types at any address, whatever else lies there.
  using AnyDWORD __attribute__((may_alias, aligned(1))) = DWORD;
  using AnyQWORD __attribute__((may_alias, aligned(1))) = std::uint64_t;
  using AnyGUID __attribute__((aligned(1))) = GUID;

  TBuffer() noexcept = default;
  explicit TBuffer(unsigned int size) : m_Bytes(size) {}  // zeros
  // A copy. Null gives an empty buffer.
  TBuffer(const unsigned char* data, unsigned int size) : m_Bytes(data, data ? data + size : data) {}

  unsigned char* data() noexcept { return m_Bytes.data(); }
  const unsigned char* data() const noexcept { return m_Bytes.data(); }
  std::size_t size() const noexcept { return m_Bytes.size(); }
  void resize(unsigned int size) { m_Bytes.resize(size); }  // new bytes are 0
  void clear() noexcept { m_Bytes.clear(); }
  iterator begin() noexcept { return m_Bytes.begin(); }
  iterator end() noexcept { return m_Bytes.end(); }
  const_iterator begin() const noexcept { return m_Bytes.begin(); }
  const_iterator end() const noexcept { return m_Bytes.end(); }
  // As those of a vector.
  iterator erase(const_iterator at) { return m_Bytes.erase(at); }
  iterator erase(const_iterator first, const_iterator last) { return m_Bytes.erase(first, last); }

  unsigned char& operator[](unsigned int index) { return *At(index, 1); }
  const unsigned char& operator[](unsigned int index) const { return *At(index, 1); }

  const AnyDWORD& GetDWORD(unsigned int offset) const {
    return reinterpret_cast<const AnyDWORD&>(*At(offset, sizeof(DWORD)));
  }
  const AnyQWORD& GetQWORD(unsigned int offset) const {
    return reinterpret_cast<const AnyQWORD&>(*At(offset, sizeof(std::uint64_t)));
  }
  const AnyGUID& GetGUID(unsigned int offset) const {
    return reinterpret_cast<const AnyGUID&>(*At(offset, sizeof(GUID)));
  }
  AnyDWORD& GetDWORD(unsigned int offset) { return reinterpret_cast<AnyDWORD&>(*At(offset, sizeof(DWORD))); }
  AnyQWORD& GetQWORD(unsigned int offset) {
    return reinterpret_cast<AnyQWORD&>(*At(offset, sizeof(std::uint64_t)));
  }
  AnyGUID& GetGUID(unsigned int offset) { return reinterpret_cast<AnyGUID&>(*At(offset, sizeof(GUID))); }
  void SetDWORD(unsigned int offset, DWORD value) { GetDWORD(offset) = value; }
  void SetQWORD(unsigned int offset, std::uint64_t value) { GetQWORD(offset) = value; }
  void SetGUID(unsigned int offset, const GUID& value) {
    std::memcpy(At(offset, sizeof value), &value, sizeof value);
  }

  // Whether all bytes from the index `from` to the index `to` are 0, `to` included; those beyond the size do not
  // count. True when `from` is above `to`.
  // Kept: the second number is no count, because callers give the last byte of a field.
  QEL_API bool IsFilledByZeros(unsigned int from, unsigned int to) const;

  // Each byte as two hexadecimal digits and a blank.
  // Kept: one digit has a blank in front and no zero, because dumps have always been compared so.
  QEL_API Qel::Sys::TString DumpString() const;

 private:
  // Where `width` bytes begin.
  const unsigned char* At(std::size_t offset, std::size_t width) const {
    if (m_Bytes.size() < width || offset > m_Bytes.size() - width) [[unlikely]]
      ThrowOutOfRange();
    return m_Bytes.data() + offset;
  }
  unsigned char* At(std::size_t offset, std::size_t width) {
    return const_cast<unsigned char*>(std::as_const(*this).At(offset, width));
  }
  [[noreturn]] QEL_API static void ThrowOutOfRange();

  Bytes m_Bytes;
};

#endif  // QEL_BUFFER_H
