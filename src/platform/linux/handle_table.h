// Handles as numbers that are never given twice in a process, so that a stale one is known as such.
//
//   HandleTable<OpenKey> table(HandleKind::Key);
//   const std::uint64_t handle = table.Add(key);
//   OpenKey* key = table.Find(handle);        // null once it is removed
//
// The caller guards a table.
#ifndef QEL_PLATFORM_LINUX_HANDLE_TABLE_H
#define QEL_PLATFORM_LINUX_HANDLE_TABLE_H

#include <cstdint>
#include <utility>
#include <vector>

// What a handle stands for; one of another kind is none.
enum class HandleKind : std::uint64_t { Key = 0, File = 1, Http = 2 };

// A handle holds the number of its slot (20 bits), then a counter of all handles ever made (40), then its kind, then
// a bit that no predefined handle and no pointer has.
template <class Object>
class HandleTable {
 public:
  explicit HandleTable(HandleKind kind) : m_Mark(kOurs | static_cast<std::uint64_t>(kind) << kKindShift) {}

  // Null when the handle is 0, removed or none of the table's. Valid until the next handle is made.
  Object* Find(std::uint64_t handle) {
    const std::uint64_t number = handle & kSlotMask;
    const bool known = handle != 0 && number < m_Slots.size() && m_Slots[number].handle == handle;
    return known ? &m_Slots[number].object : nullptr;
  }

  // 0 when there is no room for another.
  std::uint64_t Add(Object object) {
    if (m_FirstFree == kNoSlot && !MakeSlot()) return 0;
    Slot& slot = m_Slots[m_FirstFree];
    slot.handle = m_Mark | ++m_Made << kSlotBits | m_FirstFree;
    slot.object = std::move(object);
    m_FirstFree = slot.nextFree;
    return slot.handle;
  }

  // False when there is no such handle.
  bool Remove(std::uint64_t handle) {
    if (!Find(handle)) return false;
    Slot& slot = m_Slots[handle & kSlotMask];
    slot.handle = 0;
    slot.object = Object();
    slot.nextFree = m_FirstFree;
    m_FirstFree = static_cast<std::uint32_t>(handle & kSlotMask);
    return true;
  }

 private:
  static constexpr unsigned kSlotBits = 20, kKindShift = 60;
  static constexpr std::uint64_t kSlotMask = (std::uint64_t{1} << kSlotBits) - 1;
  static constexpr std::uint64_t kOurs = std::uint64_t{1} << 62;
  static constexpr std::uint32_t kNoSlot = ~0U;
  static_assert(sizeof(void*) == sizeof(std::uint64_t), "the counter needs the width");

  struct Slot {
    std::uint64_t handle = 0;  // 0: free
    std::uint32_t nextFree = kNoSlot;
    Object object{};
  };

  bool MakeSlot() {
    if (m_Slots.size() > kSlotMask) return false;
    m_Slots.emplace_back();
    m_FirstFree = static_cast<std::uint32_t>(m_Slots.size() - 1);
    return true;
  }

  const std::uint64_t m_Mark;
  std::vector<Slot> m_Slots;
  std::uint32_t m_FirstFree = kNoSlot;
  std::uint64_t m_Made = 0;
};

#endif  // QEL_PLATFORM_LINUX_HANDLE_TABLE_H
