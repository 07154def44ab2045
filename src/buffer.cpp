#include "buffer.h"

#include <algorithm>
#include <stdexcept>
#include <string>

bool TBuffer::IsFilledByZeros(unsigned int from, unsigned int to) const {
  const std::size_t end = std::min(m_Bytes.size(), std::size_t{to} + 1);
  if (from >= end) return true;
  const auto at = [this](std::size_t index) { return m_Bytes.begin() + static_cast<std::ptrdiff_t>(index); };
  return std::all_of(at(from), at(end), [](unsigned char value) { return value == 0; });
}

Qel::Sys::TString TBuffer::DumpString() const {
  constexpr wchar_t kDigits[] = L"0123456789ABCDEF";
  std::wstring text;
  text.reserve(3 * m_Bytes.size());
  for (const unsigned char value : m_Bytes) {
    text += value < 0x10 ? L' ' : kDigits[value >> 4];
    text += kDigits[value & 0xF];
    text += L' ';
  }
  return text;
}

// Handlers know the base alone.
void TBuffer::ThrowOutOfRange() {
  throw static_cast<std::exception*>(new std::out_of_range("TBuffer: offset out of range"));
}
