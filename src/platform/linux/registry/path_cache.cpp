#include "path_cache.h"

#include <cstring>

namespace {

constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;

std::uint64_t Mixed(std::uint64_t hash, std::uint64_t word) {
  hash = (hash ^ word) * kFactor;
  return hash ^ hash >> 32;
}

// Two units at a time, in two sums that do not wait for each other: a path has some fifty.
std::uint64_t HashOf(std::int64_t base, std::wstring_view path) {
  std::uint64_t even = Mixed(path.size(), static_cast<std::uint64_t>(base));
  std::uint64_t odd = kFactor;
  std::size_t at = 0;
  for (; at + 4 <= path.size(); at += 4) {
    std::uint64_t words[2];
    static_assert(sizeof(words) == 4 * sizeof(wchar_t));
    std::memcpy(words, path.data() + at, sizeof words);
    even = Mixed(even, words[0]);
    odd = Mixed(odd, words[1]);
  }
  for (; at < path.size(); ++at) even = Mixed(even, static_cast<std::uint64_t>(path[at]));
  return Mixed(even, odd) | 1;
}

}  // namespace

PathCache::Entry& PathCache::At(std::int64_t base, std::wstring_view path, std::uint64_t& hash) {
  hash = HashOf(base, path);
  return m_Entries[(hash >> 32) % kEntries];
}

void PathCache::Clear() {
  for (Entry& entry : m_Entries) entry.hash = 0;
}
