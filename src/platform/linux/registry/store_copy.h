// Copies of a store in memory, for where it can be read but not shared with others.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_STORE_COPY_H
#define QEL_PLATFORM_LINUX_REGISTRY_STORE_COPY_H

#include <string>

#include "store_sqlite.h"

// Each gives SQLITE_OK and the copy, or says why it is not the way.

// Alone with the file, so that the log's index need not be shared: for where that cannot be made, as on a full disk.
int CopyAlone(const std::string& file, Database& copy);
// As a file that nobody changes and that has no log: for folders that cannot be written.
int CopyUnchanging(const std::string& file, Database& copy);
// By way of copies of the store and its log in a folder for temporary files: for a log in such a folder.
int CopyWithLog(const std::string& file, Database& copy);

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STORE_COPY_H
