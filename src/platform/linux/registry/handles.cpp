#include "handles.h"

#include <array>
#include <vector>

#include "hive.h"
#include "status.h"
#include "store_schema.h"

namespace {

// A handle holds the number of its slot, then a counter of all handles ever made, then a bit that no predefined
// handle has.
constexpr unsigned kSlotBits = 20;
constexpr std::uint64_t kSlotMask = (std::uint64_t{1} << kSlotBits) - 1;
constexpr std::uint64_t kOurs = std::uint64_t{1} << 62;
constexpr std::uint32_t kNoSlot = ~0U;

static_assert(sizeof(void*) == sizeof(std::uint64_t), "the counter needs the width");

struct Slot {
  std::uint64_t handle = 0;  // 0: free
  std::uint32_t nextFree = kNoSlot;
  OpenKey key;
};

struct HandleTable {
  std::vector<Slot> slots;
  std::uint32_t firstFree = kNoSlot;
  std::uint64_t made = 0;
};

HandleTable& Table() {
  // Never destroyed: a host may still save its settings while the process ends.
  static auto* const s_Table = new HandleTable;
  return *s_Table;
}

// The predefined handles, from HKEY_CLASSES_ROOT on.
OpenKey* PredefinedKey(std::uint64_t number) {
  static auto* const s_Keys = [] {
    Hive* const user = &Hive::Of(StorePlace::User);
    Hive* const machine = &Hive::Of(StorePlace::Machine);
    return new std::array<OpenKey, 6>{OpenKey{machine, kClassesRoot, 0, KEY_ALL_ACCESS},
                                      OpenKey{user, kCurrentUserRoot, 0, KEY_ALL_ACCESS},
                                      OpenKey{machine, kLocalMachineRoot, 0, KEY_ALL_ACCESS},
                                      OpenKey{nullptr, 0, 0, KEY_ALL_ACCESS},
                                      OpenKey{nullptr, 0, 0, 0},
                                      OpenKey{machine, kCurrentConfigRoot, 0, KEY_ALL_ACCESS}};
  }();
  OpenKey& key = (*s_Keys)[number];
  return key.access == 0 ? nullptr : &key;
}

Slot* SlotOf(std::uint64_t handle) {
  if ((handle & kOurs) == 0) return nullptr;
  auto& slots = Table().slots;
  const std::uint64_t number = handle & kSlotMask;
  return number < slots.size() && slots[number].handle == handle ? &slots[number] : nullptr;
}

}  // namespace

OpenKey* FindKeyHandle(HKEY handle) {
  const auto number = reinterpret_cast<std::uint64_t>(handle);
  const std::uint64_t root = number - reinterpret_cast<std::uint64_t>(HKEY_CLASSES_ROOT);
  if (root < 6) return PredefinedKey(root);
  Slot* const slot = SlotOf(number);
  return slot ? &slot->key : nullptr;
}

HKEY MakeKeyHandle(const OpenKey& key) {
  HandleTable& table = Table();
  if (table.firstFree == kNoSlot) {
    if (table.slots.size() > kSlotMask) return nullptr;
    table.firstFree = static_cast<std::uint32_t>(table.slots.size());
    table.slots.emplace_back();
  }
  Slot& slot = table.slots[table.firstFree];
  slot.handle = kOurs | ++table.made << kSlotBits | table.firstFree;
  slot.key = key;
  table.firstFree = slot.nextFree;
  return reinterpret_cast<HKEY>(slot.handle);
}

LONG CloseKeyHandle(HKEY handle) {
  const auto number = reinterpret_cast<std::uint64_t>(handle);
  Slot* const slot = SlotOf(number);
  if (!slot) return FindKeyHandle(handle) ? 0 : kInvalidHandle;
  slot->handle = 0;
  slot->nextFree = Table().firstFree;
  Table().firstFree = static_cast<std::uint32_t>(number & kSlotMask);
  return 0;
}
