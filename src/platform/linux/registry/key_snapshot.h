// What is kept in memory of one key: its values by name and in the order of their creation, its sub-keys in the order
// of their folded names. Whether it still holds is the business of hive.h.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_KEY_SNAPSHOT_H
#define QEL_PLATFORM_LINUX_REGISTRY_KEY_SNAPSHOT_H

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "names.h"
#include "rows.h"

struct HeldSubKey {
  std::int64_t row = 0;
  std::u16string name;
  std::string folded;
};

// Large data stays in the store.
struct HeldValue {
  std::int64_t row = 0;
  std::uint64_t hash = 0;
  DWORD type = 0;
  std::size_t size = 0;
  std::u16string name;
  std::string folded;
  std::string data;

  bool HoldsData() const noexcept { return data.size() == size; }
  void Set(DWORD newType, std::string_view newData);
};

class KeySnapshot {
 public:
  // When which part was read, in the hive's count of states; 0 is never.
  std::uint64_t countsSeen = 0, valuesSeen = 0, subKeysSeen = 0;
  KeyCounts counts;
  // Values that were read one by one since the state changed.
  std::uint64_t readsSeen = 0;
  std::size_t reads = 0;

  // Null when there is none.
  HeldValue* Find(std::uint64_t hash, std::string_view folded) const;
  HeldValue* Find(const FoldedName& name) const { return Find(name.Hash(), name.Bytes()); }
  HeldValue* ValueAt(std::size_t index) { return index < m_Values.size() ? m_Values[index].get() : nullptr; }
  const HeldSubKey* SubKeyAt(std::size_t index) const {
    return index < m_SubKeys.size() ? m_SubKeys[index].get() : nullptr;
  }
  std::size_t Values() const noexcept { return m_Values.size(); }
  std::size_t SubKeys() const noexcept { return m_SubKeys.size(); }
  // Bytes, roughly.
  std::size_t Weight() const noexcept { return m_Weight; }

  void ClearValues();
  // In any order, then SortValues() when all are there.
  void Add(const ValueRow& row);
  void SortValues();
  void Remove(const FoldedName& name);

  void ClearSubKeys();
  void Add(const KeyRow& row);
  void RemoveSubKey(std::string_view folded);

 private:
  std::size_t PlaceFor(std::uint64_t hash, std::string_view folded) const;
  void Index(std::size_t places);
  void Unindex(std::size_t place);

  std::vector<std::unique_ptr<HeldValue>> m_Values;  // by row
  // Values by their hash, each at the first free place behind; a power of two, at most half of it used.
  std::vector<HeldValue*> m_ByName;
  std::vector<std::unique_ptr<HeldSubKey>> m_SubKeys;  // by folded
  bool m_Sorted = true;
  std::size_t m_Weight = 0;
};

#endif  // QEL_PLATFORM_LINUX_REGISTRY_KEY_SNAPSHOT_H
