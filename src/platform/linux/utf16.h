// Characters of wide text that holds one UTF-16 unit an element, for the sources of this folder.
#ifndef QEL_PLATFORM_LINUX_UTF16_H
#define QEL_PLATFORM_LINUX_UTF16_H

#include <cstddef>
#include <string_view>

constexpr bool IsLeadSurrogate(char32_t unit) {
  return (unit & 0xFFFFFC00) == 0xD800;
}
constexpr bool IsTrailSurrogate(char32_t unit) {
  return (unit & 0xFFFFFC00) == 0xDC00;
}

// The character at `at`, which moves behind it: a pair is joined, a lone surrogate is given as it is. A
// literal can bring an element above U+FFFF; it is given as the character that it is.
constexpr char32_t NextCharacter(std::wstring_view text, std::size_t& at) {
  const auto unit = static_cast<char32_t>(text[at++]);
  if (!IsLeadSurrogate(unit) || at == text.size()) return unit;
  const auto next = static_cast<char32_t>(text[at]);
  if (!IsTrailSurrogate(next)) return unit;
  ++at;
  return 0x10000 + ((unit & 0x3FF) << 10) + (next & 0x3FF);
}

// Hands `put` the one or two units of a character, each as a number.
template <class Put>
constexpr void PutUnitsOf(char32_t ch, Put&& put) {
  if (ch > 0xFFFF) put(static_cast<char16_t>(0xD7C0 + (ch >> 10)));
  put(static_cast<char16_t>(ch > 0xFFFF ? 0xDC00 + (ch & 0x3FF) : ch));
}

#endif  // QEL_PLATFORM_LINUX_UTF16_H
