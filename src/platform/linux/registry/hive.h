// One tree of keys and values over a store: reads from memory as long as nobody has changed the store, and changes as
// short transactions. What callers' handles, accesses and buffers ask for is the business of registry.cpp.
//
// Guarded by StoreLock(). Keys are named by their rows; 1018 is the answer for one that is gone. Views are valid until
// the next call.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_HIVE_H
#define QEL_PLATFORM_LINUX_REGISTRY_HIVE_H

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "key_snapshot.h"
#include "names.h"
#include "path_cache.h"
#include "rows.h"

struct ValueView {
  std::u16string_view name;  // empty where the value was found by its name
  DWORD type = 0;
  std::string_view data;
};

struct KeyExtents {
  KeyCounts counts;
  DWORD longestSubKey = 0, longestValueName = 0;  // units
  DWORD largestData = 0;                          // bytes
};

class Hive {
 public:
  static Hive& Of(StorePlace place);

  // 2 no such key, 87 a name too long or too deep. An empty path is `base`. `counts` may be null.
  LONG FindKey(const KeyPlace& base, std::wstring_view path, KeyPlace& found, KeyCounts* counts);
  LONG Count(std::int64_t key, KeyCounts& counts);
  LONG Measure(std::int64_t key, KeyExtents& extents);
  // 2 no such value.
  LONG ReadValue(std::int64_t key, const FoldedName& name, ValueView& value);
  // 259 behind the last.
  LONG ReadValueAt(std::int64_t key, DWORD index, ValueView& value);
  LONG ReadSubKeyAt(std::int64_t key, DWORD index, std::u16string_view& name);

  // Creates what is missing of the path.
  LONG CreateKey(const KeyPlace& base, std::wstring_view path, KeyPlace& found, bool& created,
                 KeyCounts* counts);
  // 5 for a root and for a key with sub-keys.
  LONG DeleteKey(const KeyPlace& base, std::wstring_view path);
  LONG WriteValue(std::int64_t key, std::wstring_view name, DWORD type, std::string_view data);
  LONG DeleteValue(std::int64_t key, const FoldedName& name);

  // Changes until EndChanges are one transaction. May be nested; the outermost decides, and keeps nothing when an
  // inner one did not or the store failed.
  LONG BeginChanges();
  LONG EndChanges(bool keep);
  bool IsChanging() const noexcept { return m_Nested != 0; }

  LONG Flush();

  // Another number: something in the store is not as it was.
  LONG CountChanges(std::uint64_t& changes);
  // Another number: something in the key or below it is not as it was. Reads all of that.
  LONG Digest(std::int64_t key, std::uint64_t& digest);

 private:
  explicit Hive(StorePlace place) : m_Rows(place) {}

  // Before a read: makes the store readable, and finds out whether what is in memory still holds.
  LONG Refresh();
  void TakeState(const StoreState& state, bool same);
  bool HoldsTooMuch() const noexcept;
  void ForgetKeys();
  // What is in memory of the key, if only its place there. Valid until keys are forgotten.
  KeySnapshot& Held(std::int64_t key);
  LONG Follow(const KeyPlace& base, std::wstring_view path, KeyPlace& found);
  // What follows relies on that. `counts` of a key that is gone: 1018.
  LONG CountOf(std::int64_t key, KeySnapshot& snapshot);
  LONG Walk(const KeyPlace& base, std::wstring_view path, KeyPlace& found);
  LONG IsWorthLoading(std::int64_t key, KeySnapshot& snapshot, bool& worth);
  LONG LoadValues(std::int64_t key, KeySnapshot& snapshot);
  LONG LoadSubKeys(std::int64_t key, KeySnapshot& snapshot);
  LONG View(std::int64_t key, const HeldValue& value, ValueView& view);
  LONG ReadFromStore(std::int64_t key, const FoldedName& name, ValueView& value);

  // Runs `body` as a transaction, or within the one that is open.
  template <class Body>
  LONG Change(Body body);
  LONG AddKey(std::int64_t parent, std::wstring_view name, std::string_view folded, std::int64_t& row);
  LONG RemoveKey(std::int64_t key);
  LONG PutValue(std::int64_t key, std::wstring_view name, DWORD type, std::string_view data);

  Rows m_Rows;
  StoreState m_State;             // what the store was like when it was last looked at
  std::uint64_t m_Seen = 1;       // counts the states that were different
  std::uint64_t m_PathsSeen = 1;  // the same, and own removals of keys
  std::uint64_t m_Changes = 1;    // counts the different states, own ones too
  std::uint64_t m_Generation = 0;
  std::unordered_map<std::int64_t, KeySnapshot> m_Keys;
  struct Recent {
    std::int64_t key = 0;
    KeySnapshot* snapshot = nullptr;
  };
  std::array<Recent, 16> m_Recent;  // a short way into m_Keys
  std::size_t m_Held = 0;           // bytes in m_Keys, roughly
  PathCache m_Paths;
  std::string m_Data;  // of the value that was read last, where no snapshot holds it
  unsigned m_Nested = 0;
  bool m_Dropped = false;  // the open transaction is not to be kept
};

#endif  // QEL_PLATFORM_LINUX_REGISTRY_HIVE_H
