// Which key a path led to when it was last followed.
//
// A key never gets another name or another parent, and an id of a key is never given twice: as long as the key is
// there, the path leads to it.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_PATH_CACHE_H
#define QEL_PLATFORM_LINUX_REGISTRY_PATH_CACHE_H

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

// A key by its row, and how far below its root it is.
struct KeyPlace {
  std::int64_t row = 0;
  unsigned depth = 0;
};

class PathCache {
 public:
  struct Entry {
    std::uint64_t hash = 0;  // 0: free
    std::int64_t base = 0;
    std::wstring path;
    KeyPlace place;
    std::uint64_t seen = 0;  // when the key was last known to be there, in the hive's count of states
  };

  // Where this path from this key is kept, as written by the caller. Holds something else when Holds() says no.
  Entry& At(std::int64_t base, std::wstring_view path, std::uint64_t& hash);
  static bool Holds(const Entry& entry, std::uint64_t hash, std::int64_t base, std::wstring_view path) {
    return entry.hash == hash && entry.base == base && entry.path == path;
  }
  void Clear();

 private:
  static constexpr std::size_t kEntries = 512;

  std::array<Entry, kEntries> m_Entries;
};

#endif  // QEL_PLATFORM_LINUX_REGISTRY_PATH_CACHE_H
