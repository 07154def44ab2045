#include <algorithm>

#include "platform/linux/utf16.h"
#include "platform/platform.h"

std::size_t UnitsFromBytes(wchar_t* out, std::size_t max, const BYTE* data, DWORD bytes) {
  const std::size_t count = std::min<std::size_t>(max, bytes / 2);
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
