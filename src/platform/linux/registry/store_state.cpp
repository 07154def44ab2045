#include "store_state.h"

#include <atomic>

namespace {

constexpr int kRegionSize = 32768;  // what SQLite maps at a time
constexpr std::uint32_t kLayout = 3007000;
constexpr std::size_t kCounterWord =
    1;  // behind the change counter: one byte that says whether the index holds
constexpr unsigned kIsInitShift = 32;

std::atomic<bool> s_Plain{false};

std::uint64_t Load(const volatile void* header, std::size_t word) noexcept {
  auto* const words = static_cast<std::uint64_t*>(const_cast<void*>(header));
  return std::atomic_ref(words[word]).load(std::memory_order_acquire);
}

static_assert(std::atomic_ref<std::uint64_t>::is_always_lock_free, "the memory may be read-only");

}  // namespace

void UsePlainStateCheck(bool plain) noexcept {
  s_Plain = plain;
}

void WalIndex::Attach(sqlite3* database) noexcept {
  m_Header = nullptr;
  sqlite3_file* file = nullptr;
  if (s_Plain || sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK)
    return;
  if (!file || !file->pMethods || file->pMethods->iVersion < 2 || !file->pMethods->xShmMap) return;
  volatile void* header = nullptr;
  // READONLY is the answer of an index that is there, kept by others and not ours to write.
  const int code = file->pMethods->xShmMap(file, 0, kRegionSize, 0, &header);
  if (code == SQLITE_OK || code == SQLITE_READONLY) m_Header = header;
}

bool WalIndex::Read(StoreState& state) const noexcept {
  if (!m_Header) return false;
  for (std::size_t i = 0; i < state.words.size(); ++i) state.words[i] = Load(m_Header, i);
  return static_cast<std::uint32_t>(state.words[0]) == kLayout &&
         (state.words[kCounterWord] >> kIsInitShift & 0xFF) == 1;
}

bool WalIndex::IsAt(const StoreState& state) const noexcept {
  if (!m_Header) return false;
  for (std::size_t i = 0; i < state.words.size(); ++i)
    if (Load(m_Header, i) != state.words[i]) return false;
  return true;
}
