// A damaged store gives way to a fresh one that holds what could be saved.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_STORE_REPAIR_H
#define QEL_PLATFORM_LINUX_REGISTRY_STORE_REPAIR_H

#include <string>

#include "store_place.h"

// Replaces the store if it is damaged, which is looked into again while no other process does the same. 0: it may be
// opened again, and `account` tells what was done, when it was done here; else why nothing was.
LONG RepairStore(const std::string& file, StorePlace place, std::string& account);

// Tells the program of it: the error output, and the context's last error when there is a context.
void TellOfRepair(const std::string& account);

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STORE_REPAIR_H
