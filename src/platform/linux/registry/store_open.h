// The ways to open a store, from the best that its surroundings allow down to a copy in memory.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_STORE_OPEN_H
#define QEL_PLATFORM_LINUX_REGISTRY_STORE_OPEN_H

#include <sys/stat.h>

#include <array>
#include <string>

#include "store_place.h"
#include "store_sqlite.h"

enum class StoreAccess { None, Missing, Shared, Copy };

// By what a change of a file shows to whoever has not opened it: device, inode, size and time of store and log.
struct StoreMark {
  std::array<std::uint64_t, 10> numbers{};
  bool operator==(const StoreMark&) const = default;
};
StoreMark MarkOf(const std::string& file);

struct OpenedStore {
  Database connection;  // null: SQLite's answer is in `code`
  int code = SQLITE_OK;
  StoreAccess access = StoreAccess::None;
  LONG whyNotWritten = 0;  // the code that writing gives; 0 when it may go well
  bool hasIndex = false;   // its log has an index in memory
  StoreMark mark;          // of a missing or copied store when it was read
};

// A missing store opens as an empty one and stays missing. Nothing is changed, neither now nor when it is closed.
OpenedStore OpenStore(const std::string& file, StorePlace place);
// Switches a store back that somebody has switched over to another kind of log.
void TakeLog(OpenedStore& opened);
// The code for a store that could not be opened, from SQLite's answer.
LONG WhyNotRead(const std::string& file, int code);

// Whether an open database is a store, whole as far as its first page tells. SQLITE_OK, SQLITE_CORRUPT or SQLITE_NOTADB
// for a damaged one, or why it cannot be read; `version` is that of its layout.
int CheckStore(sqlite3* database, std::int64_t& version);

// What a look at every page of an open database finds damaged first; empty when nothing is.
std::string FindFault(sqlite3* database);

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STORE_OPEN_H
