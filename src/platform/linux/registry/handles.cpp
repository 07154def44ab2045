#include "handles.h"

#include <array>

#include "hive.h"
#include "platform/linux/handle_table.h"
#include "status.h"
#include "store_schema.h"

namespace {

HandleTable<OpenKey>& Table() {
  // Never destroyed: a host may still save its settings while the process ends.
  static auto* const s_Table = new HandleTable<OpenKey>(HandleKind::Key);
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

}  // namespace

OpenKey* FindKeyHandle(HKEY handle) {
  const auto number = reinterpret_cast<std::uint64_t>(handle);
  const std::uint64_t root = number - reinterpret_cast<std::uint64_t>(HKEY_CLASSES_ROOT);
  if (root < 6) return PredefinedKey(root);
  return Table().Find(number);
}

HKEY MakeKeyHandle(const OpenKey& key) {
  return reinterpret_cast<HKEY>(Table().Add(key));
}

LONG CloseKeyHandle(HKEY handle) {
  if (Table().Remove(reinterpret_cast<std::uint64_t>(handle))) return 0;
  return FindKeyHandle(handle) ? 0 : kInvalidHandle;
}
