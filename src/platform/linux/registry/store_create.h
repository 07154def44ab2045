// A store that holds nothing yet.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_STORE_CREATE_H
#define QEL_PLATFORM_LINUX_REGISTRY_STORE_CREATE_H

#include <string>

#include "store_place.h"
#include "store_sqlite.h"

// A store in memory, as which a missing one reads. Null when there is no memory.
Database EmptyStore(StorePlace place);

// No file, or an empty one. Not one that cannot be seen.
bool StoreIsMissing(const std::string& file);

// Makes the store, and its folder, unless somebody else has. 0 or the registry's code.
LONG CreateStore(const std::string& file, StorePlace place);

// The same in steps, for whoever holds the store's lock and has rows to put in: a store that nobody sees, in `store`;
// closed and on the disk; in its place. Or given up, once it is closed.
LONG BuildHiddenStore(const std::string& file, StorePlace place, Database& store);
LONG FinishHiddenStore(const std::string& file, Database store);
LONG ShowHiddenStore(const std::string& file);
void DropHiddenStore(const std::string& file);

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STORE_CREATE_H
