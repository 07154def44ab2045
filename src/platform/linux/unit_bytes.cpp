#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

#include "platform/linux/utf16.h"
#include "platform/platform.h"

namespace {

static_assert(std::endian::native == std::endian::little, "units lie in memory as in the bytes");

// Many at once, which the compiler cannot do where the two may be the same place.
void Widen(wchar_t* __restrict out, const BYTE* __restrict data, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    char16_t unit;
    std::memcpy(&unit, data + 2 * i, sizeof unit);
    out[i] = static_cast<wchar_t>(unit);
  }
}

bool AreApart(const void* a, std::size_t sizeOfA, const void* b, std::size_t sizeOfB) {
  const auto first = reinterpret_cast<std::uintptr_t>(a), second = reinterpret_cast<std::uintptr_t>(b);
  return first + sizeOfA <= second || second + sizeOfB <= first;
}

}  // namespace

std::size_t UnitsFromBytes(wchar_t* out, std::size_t max, const BYTE* data, DWORD bytes) {
  const std::size_t count = std::min<std::size_t>(max, bytes / 2);
  if (AreApart(out, count * sizeof(wchar_t), data, count * 2)) {
    Widen(out, data, count);
    return count;
  }
  // From the end: where both are the same place, units grow over bytes that are not read yet.
  for (std::size_t i = count; i-- > 0;) out[i] = static_cast<wchar_t>(data[2 * i] | data[2 * i + 1] << 8);
  return count;
}

DWORD BytesFromUnits(BYTE* out, DWORD bytes, const wchar_t* text, std::size_t units) {
  DWORD written = 0;
  const auto append = [&](char16_t unit) {
    if (written < bytes) out[written++] = static_cast<BYTE>(unit & 0xFF);
    if (written < bytes) out[written++] = static_cast<BYTE>(unit >> 8 & 0xFF);
  };
  // An element above U+FFFF, as a literal may hold, is two units.
  for (std::size_t i = 0; i < units && written < bytes; ++i)
    PutUnitsOf(static_cast<char32_t>(text[i]), append);
  return written;
}
