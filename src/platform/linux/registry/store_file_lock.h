// One process at a time makes or replaces a store, and none opens it meanwhile.
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
  // Beside others that share it, for as long as it takes to find a store, its log and the log's index: whoever found
  // them while they are exchanged would lay the index of the one beside the other. Where it cannot be had the store
  // cannot be exchanged by this user's programs either.
  void Share(const std::string& file);

 private:
  LONG Wait(int kind);

  int m_Handle = -1;
};

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STORE_FILE_LOCK_H
