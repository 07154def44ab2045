// What can still be read of a damaged store.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_STORE_SALVAGE_H
#define QEL_PLATFORM_LINUX_REGISTRY_STORE_SALVAGE_H

#include <cstdint>

#include "store_sqlite.h"

struct Salvaged {
  std::int64_t keys = 0;
  std::int64_t values = 0;
};

// Copies into `target`, an empty store, every key and value that a row-by-row read of `source` gives and that has a
// way up to a root. Keys keep their ids, so that open handles still mean them.
// Result: SQLITE_OK, or why `target` could not take them.
int Salvage(sqlite3* source, sqlite3* target, Salvaged& salvaged);

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STORE_SALVAGE_H
