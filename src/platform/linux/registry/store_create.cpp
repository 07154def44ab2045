#include "store_create.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <utility>

#include "store.h"
#include "store_aside.h"
#include "store_file_lock.h"
#include "store_schema.h"
#include "store_status.h"

namespace {

constexpr const char* kUserRoots = R"(
INSERT INTO key(id, parent, name, folded) VALUES(1, 0, 'HKEY_CURRENT_USER', X'00');
)";

constexpr const char* kMachineRoots = R"(
INSERT INTO key(id, parent, name, folded) VALUES(1, 0, 'HKEY_LOCAL_MACHINE', X'00');
INSERT INTO key(id, parent, name, folded) VALUES(2, 0, 'HKEY_CLASSES_ROOT', X'01');
INSERT INTO key(id, parent, name, folded) VALUES(3, 0, 'HKEY_CURRENT_CONFIG', X'02');
)";

// Ids of keys go on from the time in microseconds, so that two stores of the same name never give the same one.
std::string FirstKeyId() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::to_string(std::chrono::duration_cast<std::chrono::microseconds>(now).count());
}

int FillEmptyStore(sqlite3* database, StorePlace place) {
  const std::string sql = std::string("BEGIN;") + kSchema +
                          (place == StorePlace::User ? kUserRoots : kMachineRoots) +
                          "UPDATE sqlite_sequence SET seq = " + FirstKeyId() +
                          ";PRAGMA application_id = " + std::to_string(kApplicationId) +
                          ";PRAGMA user_version = " + std::to_string(kUserVersion) + ";COMMIT;";
  return Execute(database, sql.c_str());
}

std::string HiddenName(const std::string& file) {
  return file + ".new";
}

LONG MakeHiddenFile(const std::string& name, StorePlace place) {
  const int handle = open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (handle < 0) return StatusOfError(errno);
  const LONG status = fchmod(handle, StoreFileMode(place)) == 0 ? 0 : StatusOfError(errno);
  close(handle);
  return status;
}

}  // namespace

Database EmptyStore(StorePlace place) {
  Database database;
  if (OpenDatabase(":memory:", SQLITE_OPEN_READWRITE, database) != SQLITE_OK ||
      FillEmptyStore(database.get(), place) != SQLITE_OK)
    return nullptr;
  return database;
}

bool StoreIsMissing(const std::string& file) {
  struct stat state {};
  if (stat(file.c_str(), &state) != 0) return errno == ENOENT || errno == ENOTDIR;
  return state.st_size == 0;
}

LONG BuildHiddenStore(const std::string& file, StorePlace place, Database& store) {
  const std::string hidden = HiddenName(file);
  DropHiddenStore(file);  // what a process left that ended in the middle
  if (const LONG status = MakeHiddenFile(hidden, place)) return status;
  int code = OpenDatabase(hidden.c_str(), SQLITE_OPEN_READWRITE, store);
  // Synced as a whole before anybody sees it.
  if (code == SQLITE_OK)
    code =
        Execute(store.get(), "PRAGMA page_size = 1024; PRAGMA synchronous = OFF; PRAGMA journal_mode = WAL;");
  if (code == SQLITE_OK) code = FillEmptyStore(store.get(), place);
  return Store::StatusOf(code);
}

LONG FinishHiddenStore(const std::string& file, Database store) {
  // What its log holds is not part of the file yet; and closing would not say that the disk is full.
  const int code =
      sqlite3_wal_checkpoint_v2(store.get(), "main", SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
  store.reset();
  return code == SQLITE_OK ? SyncFile(HiddenName(file)) : Store::StatusOf(code);
}

void DropHiddenStore(const std::string& file) {
  for (const char* const suffix : {"", "-wal", "-shm", "-journal"})
    unlink((HiddenName(file) + suffix).c_str());
}

LONG ShowHiddenStore(const std::string& file) {
  const std::string hidden = HiddenName(file);
  // An empty file gives way; and so that no other does, the new one is never put over it.
  if (StoreIsMissing(file)) unlink(file.c_str());
  if (link(hidden.c_str(), file.c_str()) != 0 && errno != EEXIST) return StatusOfError(errno);
  unlink(hidden.c_str());
  SyncFolderOf(file);
  return 0;
}

LONG CreateStore(const std::string& file, StorePlace place) {
  if (!StoreIsMissing(file)) return 0;
  if (const LONG status = MakeStoreFolder(file, place)) return status;
  StoreFileLock lock;
  if (const LONG status = lock.Take(file)) return status;
  if (!StoreIsMissing(file)) return 0;
  // A log without its store would be taken for the log of the new one.
  if (const LONG status = MoveStrayLogAside(file)) return status;
  Database store;
  LONG status = BuildHiddenStore(file, place, store);
  if (status == 0) status = FinishHiddenStore(file, std::move(store));
  if (status == 0) return ShowHiddenStore(file);
  store.reset();
  DropHiddenStore(file);  // a full disk needs the room
  return status;
}
