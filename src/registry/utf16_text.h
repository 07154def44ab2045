// Text as values of the registry hold it: UTF-16LE, here with zeros behind it.
#ifndef QEL_REGISTRY_UTF16_TEXT_H
#define QEL_REGISTRY_UTF16_TEXT_H

#include <cstddef>
#include <cwchar>
#include <memory>

#include "platform/platform.h"

// Short texts need no memory of their own. Null is empty.
class Utf16Text {
 public:
  explicit Utf16Text(const wchar_t* text) {
    const std::size_t length = text ? std::wcslen(text) : 0;
    const std::size_t room = length * 4 + kPadding;  // an element may stand for two units
    if (room > sizeof(m_Short)) m_Long.reset(new BYTE[room]);
    m_Data = m_Long ? m_Long.get() : m_Short;
    const DWORD bytes = length ? BytesFromUnits(m_Data, static_cast<DWORD>(length * 4), text, length) : 0;
    m_Units = bytes / 2;
    for (DWORD i = 0; i < kPadding; ++i) m_Data[bytes + i] = 0;
  }
  Utf16Text(const Utf16Text&) = delete;
  Utf16Text& operator=(const Utf16Text&) = delete;

  const BYTE* Data() const noexcept { return m_Data; }
  DWORD Units() const noexcept { return m_Units; }
  DWORD SizeWithTerminator() const noexcept { return (m_Units + 1) * 2; }

 private:
  static constexpr DWORD kPadding = 4;  // a terminator, and what is looked for behind it

  BYTE m_Short[512];
  std::unique_ptr<BYTE[]> m_Long;
  BYTE* m_Data;
  DWORD m_Units;
};

#endif  // QEL_REGISTRY_UTF16_TEXT_H
