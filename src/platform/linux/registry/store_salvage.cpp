#include "store_salvage.h"

#include <filesystem>
#include <fstream>
#include <string_view>

#include "store_schema.h"

namespace {

// Rows are read from both ends up to the first that cannot be: what is lost lies between two damaged places.
struct Table {
  const char* rows;
  const char* insert;
  int columns;
};

constexpr Table kKeys = {
    "SELECT id, parent, name, folded FROM key WHERE typeof(parent) = 'integer'"
    " AND typeof(name) = 'text' AND typeof(folded) = 'blob' ORDER BY id ",
    "INSERT OR IGNORE INTO key(id, parent, name, folded) VALUES(?, ?, ?, ?)", 4};
constexpr Table kValues = {
    "SELECT id, key, name, folded, type, data FROM value WHERE typeof(key) = 'integer'"
    " AND typeof(name) = 'text' AND typeof(folded) = 'blob' AND typeof(type) = 'integer'"
    " AND typeof(data) = 'blob' ORDER BY id ",
    "INSERT OR IGNORE INTO value(id, key, name, folded, type, data) VALUES(?, ?, ?, ?, ?, ?)", 6};
constexpr Table kEvents = {"SELECT id, time, text FROM event ORDER BY id ",
                           "INSERT OR IGNORE INTO event(id, time, text) VALUES(?, ?, ?)", 3};

int CopyRows(sqlite3* source, sqlite3* target, const Table& table, const char* direction) {
  const Statement rows = Prepare(source, (std::string(table.rows) + direction).c_str());
  const Statement insert = Prepare(target, table.insert);
  int code = SQLITE_DONE;
  while (rows && code == SQLITE_DONE && sqlite3_step(rows.get()) == SQLITE_ROW) {
    for (int i = 0; i < table.columns; ++i)
      sqlite3_bind_value(insert.get(), i + 1, sqlite3_column_value(rows.get(), i));
    code = RunOnce(insert.get());
  }
  return code == SQLITE_DONE ? SQLITE_OK : code;
}

int CopyTable(sqlite3* source, sqlite3* target, const Table& table) {
  const int code = CopyRows(source, target, table, "ASC");
  return code == SQLITE_OK ? CopyRows(source, target, table, "DESC") : code;
}

int RemoveOrphans(sqlite3* target) {
  return Execute(target, R"(
CREATE TEMP TABLE reached AS WITH RECURSIVE found(id) AS (
  SELECT id FROM key WHERE parent = 0 AND id < 4 UNION SELECT key.id FROM key JOIN found ON key.parent = found.id)
  SELECT id FROM found;
DELETE FROM key WHERE id NOT IN (SELECT id FROM reached);
DELETE FROM value WHERE key NOT IN (SELECT id FROM reached);
DROP TABLE reached;)");
}

// The next id is beyond all that the damaged store has given, as far as it still tells.
int ContinueIds(sqlite3* source, sqlite3* target) {
  std::int64_t last = 0;
  if (ReadNumber(source, "SELECT seq FROM sqlite_sequence WHERE name = 'key'", last) != SQLITE_OK)
    return SQLITE_OK;
  const std::string next = std::to_string(last);
  return Execute(target,
                 ("UPDATE sqlite_sequence SET seq = max(seq, " + next + ") WHERE name = 'key'").c_str());
}

// Page size 1024, a log, UTF-8; no counts, so that the file's own size is taken.
constexpr std::string_view kHead(
    "SQLite format 3\0\4\0\2\2\0\x40\x20\x20"
    "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\1\0\0\0\4"
    "\0\0\0\0\0\0\0\0\0\0\0\1\0\0\0\1\0\0\0\0QELR"
    "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0",
    100);

void Remove(const std::string& copy) {
  std::error_code ignored;
  for (const char* const suffix : {"", "-wal", "-shm"}) std::filesystem::remove(copy + suffix, ignored);
}

bool Copy(const std::string& file, const std::string& copy, std::error_code& failed) {
  std::filesystem::copy_file(file, copy, failed);
  if (!failed && std::filesystem::exists(file + "-wal", failed))
    std::filesystem::copy_file(file + "-wal", copy + "-wal", failed);
  return !failed;
}

}  // namespace

int Salvage(sqlite3* source, sqlite3* target, Salvaged& salvaged) {
  // Lets SQLite read a file that is shorter than it should be.
  Execute(source, "PRAGMA writable_schema = ON");
  int code = Execute(target, "BEGIN");
  for (const Table* const table : {&kKeys, &kValues, &kEvents}) {
    if (code == SQLITE_OK) code = CopyTable(source, target, *table);
  }
  if (code == SQLITE_OK) code = RemoveOrphans(target);
  if (code == SQLITE_OK) code = Execute(target, kRecount);
  if (code == SQLITE_OK) code = ContinueIds(source, target);
  if (code == SQLITE_OK) code = Execute(target, "COMMIT");
  if (code == SQLITE_OK)
    code = ReadNumber(target, "SELECT COUNT(*) FROM key WHERE parent <> 0", salvaged.keys);
  if (code == SQLITE_OK) code = ReadNumber(target, "SELECT COUNT(*) FROM value", salvaged.values);
  return code;
}

int SalvageWithoutHead(const std::string& file, sqlite3* target, Salvaged& salvaged) {
  const std::string copy = file + ".head";
  std::error_code failed;
  Remove(copy);  // what a process left that ended in the middle
  if (!Copy(file, copy, failed)) return failed == std::errc::no_space_on_device ? SQLITE_FULL : SQLITE_IOERR;
  std::fstream(copy, std::ios::in | std::ios::out | std::ios::binary) << kHead;
  Database source;
  int code = OpenDatabase(copy.c_str(), SQLITE_OPEN_READWRITE, source);
  if (code == SQLITE_OK) code = Salvage(source.get(), target, salvaged);
  source.reset();
  Remove(copy);
  return code;
}
