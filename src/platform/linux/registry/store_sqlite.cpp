#include "store_sqlite.h"

#include <time.h>

namespace {

constexpr long kMicrosecond = 1000;
constexpr std::int64_t kLongestWait = 5'000'000'000;

std::int64_t Nanoseconds() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return std::int64_t{now.tv_sec} * 1'000'000'000 + now.tv_nsec;
}

int OnBusy(void*, int count) {
  return WaitForOthers(count);
}

}  // namespace

// Short sleeps all the way: SQLite's own handler sleeps longer each time, and a writer that has waited long then loses
// to every one that has just come.
bool WaitForOthers(int count) {
  static thread_local std::int64_t t_Start = 0;
  if (count == 0) t_Start = Nanoseconds();
  if (Nanoseconds() - t_Start > kLongestWait) return false;
  const timespec pause{0, (count == 0 ? 20 : 200) * kMicrosecond};
  nanosleep(&pause, nullptr);
  return true;
}

int OpenDatabase(const char* name, int flags, Database& result) {
  sqlite3* opened = nullptr;
  const int code =
      sqlite3_open_v2(name, &opened, flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
  result.reset(opened);
  if (opened) sqlite3_busy_handler(opened, OnBusy, nullptr);
  return code;
}

void LeaveLogAtClose(sqlite3* database) {
  sqlite3_db_config(database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

Statement Prepare(sqlite3* database, const char* sql) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v3(database, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
  return Statement(statement);
}

int RunOnce(sqlite3_stmt* statement) {
  const int stepped = sqlite3_step(statement);
  const int reset = sqlite3_reset(statement);
  return reset == SQLITE_OK ? stepped : reset;
}

int Execute(sqlite3* database, const char* sql) {
  return sqlite3_exec(database, sql, nullptr, nullptr, nullptr);
}

int ReadNumber(sqlite3* database, const char* sql, std::int64_t& value) {
  const Statement statement = Prepare(database, sql);
  if (!statement) return sqlite3_extended_errcode(database);
  const int stepped = sqlite3_step(statement.get());
  if (stepped != SQLITE_ROW) return stepped == SQLITE_DONE ? SQLITE_NOTFOUND : stepped;
  value = sqlite3_column_int64(statement.get(), 0);
  return SQLITE_OK;
}
