// Files of a store that cannot be used any more are kept for whoever wants to look into them.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_STORE_ASIDE_H
#define QEL_PLATFORM_LINUX_REGISTRY_STORE_ASIDE_H

#include <string>

#include "platform/platform.h"

// A name that no file has: <file>.damaged-<UTC time>.
std::string NameAside(const std::string& file);
// Gives the store, its log and its index the name `aside`. 0 or the registry's code.
LONG MoveAside(const std::string& file, const std::string& aside);
// The same for a log and an index that have no store.
LONG MoveStrayLogAside(const std::string& file);

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STORE_ASIDE_H
