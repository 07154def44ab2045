// One process at a time makes or replaces a store.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_STORE_FILE_LOCK_H
#define QEL_PLATFORM_LINUX_REGISTRY_STORE_FILE_LOCK_H

#include <string>

#include "platform/platform.h"

// Holds <file>.lock, which stays behind: whoever removed it would take it from under those who wait.
class StoreFileLock {
 public:
  StoreFileLock() = default;
  StoreFileLock(const StoreFileLock&) = delete;
  StoreFileLock& operator=(const StoreFileLock&) = delete;
  ~StoreFileLock();

  // 0, 170 when another holds it for 5 seconds, or why it cannot be had: 5, 112, 1016.
  LONG Take(const std::string& file);

 private:
  int m_Handle = -1;
};

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STORE_FILE_LOCK_H
