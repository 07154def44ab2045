// What can still be read of a damaged store.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_STORE_SALVAGE_H
#define QEL_PLATFORM_LINUX_REGISTRY_STORE_SALVAGE_H

#include <cstdint>
#include <string>

#include "store_sqlite.h"

struct Salvaged {
  std::int64_t keys = 0;
  std::int64_t values = 0;
};

// Copies into `target`, an empty store, every key and value that a row-by-row read of `source` gives and that has a
// way up to a root. Keys keep their ids, so that open handles still mean them.
// Result: SQLITE_OK, or why `target` could not take them.
int Salvage(sqlite3* source, sqlite3* target, Salvaged& salvaged);
// The same for a file whose first bytes are lost, without which SQLite reads nothing: they are the same in every store,
// and a copy of the file is given them.
int SalvageWithoutHead(const std::string& file, sqlite3* target, Salvaged& salvaged);

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STORE_SALVAGE_H
