// Handles of keys: numbers that are never given twice in a process, so that a stale one is known as such.
//
// Guarded by StoreLock().
#ifndef QEL_PLATFORM_LINUX_REGISTRY_HANDLES_H
#define QEL_PLATFORM_LINUX_REGISTRY_HANDLES_H

#include <cstdint>

#include "platform/platform.h"

class Hive;

// What a handle stands for.
struct OpenKey {
  Hive* hive = nullptr;  // null: the list of users, which has the current one's tree as its only key
  std::int64_t row = 0;
  unsigned depth = 0;  // 0 is a root
  REGSAM access = 0;
  // What WaitForKeyChange saw last: the hive's count of changes, 0 before its first call, and the key's digest then.
  std::uint64_t watchedChanges = 0;
  std::uint64_t watchedDigest = 0;
};

// Null when the handle is null, closed or none of ours. Valid until the next handle is made.
OpenKey* FindKeyHandle(HKEY handle);
// Null when there is no room for another.
HKEY MakeKeyHandle(const OpenKey& key);
// 0, or 6. The predefined ones stay open.
LONG CloseKeyHandle(HKEY handle);

#endif  // QEL_PLATFORM_LINUX_REGISTRY_HANDLES_H
