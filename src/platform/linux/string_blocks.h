// String tables as LockResource hands them out: a block is sixteen texts, each a unit with its length
// followed by its units.
#ifndef QEL_PLATFORM_LINUX_STRING_BLOCKS_H
#define QEL_PLATFORM_LINUX_STRING_BLOCKS_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "platform/platform.h"

struct StringBlock {
  WORD number;  // id / 16 + 1
  LANGID language;
  std::wstring_view image;
};

// Packs sixteen literals; each one's terminator makes room for its length.
template <std::size_t... Size>
consteval std::array<wchar_t, (Size + ...)> PackedBlock(const wchar_t (&... texts)[Size]) {
  static_assert(sizeof...(Size) == 16);
  std::array<wchar_t, (Size + ...)> block{};
  wchar_t* out = block.data();
  ((*out = static_cast<wchar_t>(Size - 1), out = std::copy_n(texts, Size - 1, out + 1)), ...);
  return block;
}

// The library's own blocks. The build writes the source from resources/.
std::span<const StringBlock> LibraryStringBlocks();

#endif  // QEL_PLATFORM_LINUX_STRING_BLOCKS_H
