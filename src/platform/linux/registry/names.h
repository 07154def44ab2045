// Names of keys and values: their limits, and the form that they are found by.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_NAMES_H
#define QEL_PLATFORM_LINUX_REGISTRY_NAMES_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"

// In units. Keys lie no deeper than kDeepestKey below their root, so that whoever walks a tree may recurse.
constexpr std::size_t kLongestKeyName = 255;
constexpr std::size_t kLongestValueName = 16383;
constexpr unsigned kDeepestKey = 512;

// The capital letter of a unit, where that letter's small one is the unit again: sigma has one and final sigma none.
char16_t UpperCase(char16_t unit);

// A name in upper case, two bytes a unit, high byte first. Two spellings of one name are equal in it.
class FoldedName {
 public:
  explicit FoldedName(std::wstring_view name);
  FoldedName(const FoldedName&) = delete;
  FoldedName& operator=(const FoldedName&) = delete;

  std::size_t Units() const noexcept { return m_Size / 2; }
  // Of the bytes; the same for every spelling.
  std::uint64_t Hash() const noexcept { return m_Hash; }
  std::string_view Bytes() const noexcept {
    return {m_Long.empty() ? m_Short.data() : m_Long.data(), m_Size};
  }

 private:
  std::size_t m_Size = 0;
  std::uint64_t m_Hash = 0;
  std::array<char, 2 * kLongestKeyName> m_Short;
  std::vector<char> m_Long;  // for the rare name that does not do with m_Short
};

std::uint64_t HashOfFolded(std::string_view bytes);

// The parts of a path in turn; separators that are doubled or stand at the end do not count.
class PathParts {
 public:
  explicit PathParts(std::wstring_view path) : m_Rest(path) {}
  // False when there is no other part.
  bool Next(std::wstring_view& part);
  std::wstring_view Rest() const noexcept { return m_Rest; }

 private:
  std::wstring_view m_Rest;
};

// Names as the store holds them: UTF-8, a lone surrogate as its three bytes.
std::string StoredName(std::wstring_view name);
// Any bytes give units, at most `limit` and none that is 0: what is no UTF-8 gives U+FFFD.
std::u16string NameFromStore(std::string_view stored, std::size_t limit);

#endif  // QEL_PLATFORM_LINUX_REGISTRY_NAMES_H
