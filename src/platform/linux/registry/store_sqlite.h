// Owners for what SQLite gives out, and its short ways.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_STORE_SQLITE_H
#define QEL_PLATFORM_LINUX_REGISTRY_STORE_SQLITE_H

#include <sqlite3.h>

#include <cstdint>
#include <memory>

struct StatementCloser {
  void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, StatementCloser>;

// Closes a connection with whatever statements it still has.
struct DatabaseCloser {
  void operator()(sqlite3* database) const noexcept {
    while (sqlite3_stmt* const left = sqlite3_next_stmt(database, nullptr)) sqlite3_finalize(left);
    sqlite3_close(database);
  }
};
using Database = std::unique_ptr<sqlite3, DatabaseCloser>;

// Sleeps before the next attempt, the `count`th since somebody was in the way. False after 5 seconds.
bool WaitForOthers(int count);
// Opens `name` in the way that the flags say; nothing is read yet. Result: SQLite's code.
int OpenDatabase(const char* name, int flags, Database& result);
// Closing will neither empty the log nor remove it: quicker, and it changes no file.
void LeaveLogAtClose(sqlite3* database);
// Null when the text cannot be compiled.
Statement Prepare(sqlite3* database, const char* sql);
// One run of a statement that stays for the next. Result: SQLITE_ROW, SQLITE_DONE or the code of the failure.
int RunOnce(sqlite3_stmt* statement);
// Result: SQLITE_OK or the code of the failure.
int Execute(sqlite3* database, const char* sql);
// The first column of the first row, in `value`. Result: SQLITE_OK, or why there is none.
int ReadNumber(sqlite3* database, const char* sql, std::int64_t& value);

constexpr bool IsDamage(int sqlite) {
  return (sqlite & 0xFF) == SQLITE_CORRUPT || (sqlite & 0xFF) == SQLITE_NOTADB;
}

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STORE_SQLITE_H
