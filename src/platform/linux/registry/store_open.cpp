#include "store_open.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "store.h"
#include "store_copy.h"
#include "store_create.h"
#include "store_file_lock.h"
#include "store_schema.h"
#include "store_status.h"

namespace {

constexpr std::size_t kNumbersOfFile = 5;
constexpr int kReadings = 10;

void MarkFile(const std::string& name, std::uint64_t* numbers) {
  struct stat state {};
  if (stat(name.c_str(), &state) != 0) return;
  numbers[0] = state.st_dev;
  numbers[1] = state.st_ino;
  numbers[2] = static_cast<std::uint64_t>(state.st_size);
  numbers[3] = static_cast<std::uint64_t>(state.st_mtim.tv_sec);
  numbers[4] = static_cast<std::uint64_t>(state.st_mtim.tv_nsec);
}

// Whether the log is kept in a file of its own.
bool HasLog(sqlite3* database) {
  const Statement mode = Prepare(database, "PRAGMA journal_mode");
  if (!mode || sqlite3_step(mode.get()) != SQLITE_ROW) return false;
  return std::strcmp(reinterpret_cast<const char*>(sqlite3_column_text(mode.get(), 0)), "wal") == 0;
}

void KeepLogAtClose(sqlite3* database) {
  int keep = 1;
  sqlite3_file_control(database, "main", SQLITE_FCNTL_PERSIST_WAL, &keep);
}

OpenedStore OpenEmpty(const StoreMark& mark, StorePlace place) {
  OpenedStore opened;
  opened.connection = EmptyStore(place);
  opened.code = opened.connection ? SQLITE_OK : SQLITE_NOMEM;
  opened.access = StoreAccess::Missing;
  opened.mark = mark;
  return opened;
}

// Why a store that could not be shared cannot be written.
LONG WhyNotShared(const std::string& file, int code, int error) {
  if (access(file.substr(0, file.rfind('/')).c_str(), W_OK) != 0) return StatusOfError(errno);
  const LONG status = Store::StatusOf(code);
  return status == kStoreFailed ? StatusOfError(error) : status;
}

// The usual way. SQLite itself takes a file that may not be written for reading alone.
OpenedStore OpenShared(const std::string& file, StorePlace place) {
  OpenedStore opened;
  std::int64_t version = 0;
  opened.access = StoreAccess::Shared;
  opened.code = OpenDatabase(file.c_str(), SQLITE_OPEN_READWRITE, opened.connection);
  sqlite3* const database = opened.connection.get();
  // Before anything is read: where that fails, the log may be all that is left.
  if (opened.code == SQLITE_OK) LeaveLogAtClose(database);
  if (opened.code == SQLITE_OK) opened.code = CheckStore(database, version);
  if (opened.code != SQLITE_OK) {
    opened.whyNotWritten =
        WhyNotShared(file, opened.code, database ? sqlite3_system_errno(database) : ENOMEM);
    opened.connection.reset();
    return opened;
  }
  if (sqlite3_db_readonly(database, "main") == 1 || version > kUserVersion)
    opened.whyNotWritten = kAccessDenied;
  // Others may read the machine's settings only while the log and its index are there.
  if (place == StorePlace::Machine) KeepLogAtClose(database);
  opened.hasIndex = HasLog(database);
  return opened;
}

// Whether a copy may still be had where the store cannot be shared.
bool MayBeCopied(int code) {
  return !IsDamage(code) && (code & 0xFF) != SQLITE_BUSY && (code & 0xFF) != SQLITE_NOMEM;
}

// Read again when it changed while it was read; not for ever, since what keeps changing may be had in another way.
void OpenCopy(const std::string& file, OpenedStore& opened) {
  for (const auto copy : {CopyAlone, CopyUnchanging, CopyWithLog}) {
    for (int i = 0; i < kReadings; ++i) {
      opened.mark = MarkOf(file);
      opened.code = copy(file, opened.connection);
      if (opened.code != SQLITE_OK) break;
      opened.access = StoreAccess::Copy;
      if (MarkOf(file) == opened.mark) return;
      opened.connection.reset();
      opened.code = SQLITE_BUSY;
    }
  }
}

}  // namespace

StoreMark MarkOf(const std::string& file) {
  StoreMark mark;
  MarkFile(file, mark.numbers.data());
  MarkFile(file + "-wal", mark.numbers.data() + kNumbersOfFile);
  return mark;
}

void TakeLog(OpenedStore& opened) {
  if (opened.hasIndex || opened.access != StoreAccess::Shared || opened.whyNotWritten != 0) return;
  Execute(opened.connection.get(), "PRAGMA journal_mode = WAL");
  opened.hasIndex = HasLog(opened.connection.get());
}

LONG WhyNotRead(const std::string& file, int code) {
  if (access(file.c_str(), R_OK) != 0) return StatusOfError(errno);
  const LONG status = Store::StatusOf(code);
  return status ? status : kStoreFailed;
}

int CheckStore(sqlite3* database, std::int64_t& version) {
  std::int64_t id = 0;
  std::int64_t tables = 0;
  int code = ReadNumber(database, "PRAGMA application_id", id);
  if (code == SQLITE_OK) code = ReadNumber(database, "PRAGMA user_version", version);
  if (code != SQLITE_OK) return code;
  if (id != kApplicationId || version < 1) return SQLITE_NOTADB;
  if (version > kUserVersion) return SQLITE_OK;
  code = ReadNumber(database, "SELECT COUNT(*) FROM sqlite_schema WHERE name IN ('key', 'value', 'event')",
                    tables);
  return code == SQLITE_OK && tables != 3 ? SQLITE_CORRUPT : code;
}

std::string FindFault(sqlite3* database) {
  std::int64_t version = 0;
  const int code = CheckStore(database, version);
  if (IsDamage(code)) return sqlite3_errstr(code);
  if (code != SQLITE_OK || version > kUserVersion) return "";
  const Statement check = Prepare(database, "PRAGMA integrity_check(1)");
  const int stepped = check ? sqlite3_step(check.get()) : sqlite3_extended_errcode(database);
  if (stepped != SQLITE_ROW) return IsDamage(stepped) ? sqlite3_errstr(stepped) : "";
  const auto* const column = reinterpret_cast<const char*>(sqlite3_column_text(check.get(), 0));
  const std::string answer = column ? column : "ok";
  // The last line says it; one before names the database, which is always the same.
  return answer == "ok" ? "" : answer.substr(answer.rfind('\n') + 1);
}

OpenedStore OpenStore(const std::string& file, StorePlace place) {
  StoreFileLock lock;
  lock.Share(file);
  const StoreMark mark = MarkOf(file);
  if (StoreIsMissing(file)) return OpenEmpty(mark, place);
  OpenedStore opened = OpenShared(file, place);
  if (!opened.connection && MayBeCopied(opened.code)) OpenCopy(file, opened);
  return opened;
}
