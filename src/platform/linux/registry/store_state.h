// Whether anybody has changed a store, told without asking the store.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_STORE_STATE_H
#define QEL_PLATFORM_LINUX_REGISTRY_STORE_STATE_H

#include <sqlite3.h>

#include <array>
#include <cstdint>

// What a store held at one moment. Equal states: nobody changed anything in between.
struct StoreState {
  std::array<std::uint64_t, 6> words{};
  bool operator==(const StoreState&) const = default;
  // Of an index: one more with every commit.
  std::uint32_t ChangeCounter() const noexcept { return static_cast<std::uint32_t>(words[1]); }
};

// SQLite keeps an index of its log in memory that all processes share. The 48 bytes at its start are written anew
// with every commit: a counter, how much of the log counts, two random numbers that change when the log starts over,
// and a checksum over these. All are compared, since the counter alone starts over after a crash.
class WalIndex {
 public:
  // Finds the index of a connection that has read at least once. Without one, or with one of another layout,
  // Read() says false. The place holds as long as the connection.
  void Attach(sqlite3* database) noexcept;
  void Detach() noexcept { m_Header = nullptr; }
  bool Read(StoreState& state) const noexcept;
  // Whether Read() would give this one, which it gave before.
  bool IsAt(const StoreState& state) const noexcept;

 private:
  const volatile void* m_Header = nullptr;
};

// For tests: connections made from now on do without the index, as where it cannot be mapped.
void UsePlainStateCheck(bool plain) noexcept;

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STORE_STATE_H
