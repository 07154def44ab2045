#include "rows.h"

#include <algorithm>
#include <limits>

namespace {

// In the order of Rows::Query.
constexpr const char* kQueries[] = {
    "SELECT id FROM key WHERE parent = ?1 AND folded = ?2",
    "SELECT id FROM value WHERE key = ?1 AND folded = ?2",
    "SELECT parent, folded FROM key WHERE id = ?1",
    "SELECT sub_keys, value_count FROM key WHERE id = ?1",
    "SELECT type, data FROM value WHERE key = ?1 AND folded = ?2",
    "SELECT id, name, folded FROM key WHERE parent = ?1 ORDER BY folded",
    "SELECT id, name, folded, type, data FROM value WHERE key = ?1",
    "INSERT INTO key(parent, name, folded) VALUES(?1, ?2, ?3)",
    "DELETE FROM key WHERE id = ?1",
    "DELETE FROM value WHERE key = ?1",
    "INSERT INTO value(key, name, folded, type, data) VALUES(?1, ?2, ?3, ?4, ?5)",
    "UPDATE value SET type = ?2, data = ?3 WHERE id = ?1",
    "DELETE FROM value WHERE id = ?1",
    "UPDATE sqlite_sequence SET seq = max(seq, ?1) WHERE name = 'key'",
};

DWORD CountOfColumn(sqlite3_stmt* row, int column) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  return static_cast<DWORD>(std::clamp<std::int64_t>(sqlite3_column_int64(row, column), 0, kMost));
}

void BindText(sqlite3_stmt* statement, int at, std::string_view text) {
  sqlite3_bind_text64(statement, at, text.data() ? text.data() : "", text.size(), SQLITE_STATIC, SQLITE_UTF8);
}

}  // namespace

LONG Rows::Open() {
  const LONG status = m_Store.Open();
  ForgetOldStatements();
  return status;
}

LONG Rows::BeginWrite() {
  const LONG status = m_Store.BeginWrite();
  ForgetOldStatements();
  m_WriteFailure = 0;
  return status;
}

void Rows::ForgetOldStatements() {
  if (m_Generation == m_Store.Generation()) return;
  m_Generation = m_Store.Generation();
  m_Statements = {};
  // Pages. After somebody else's change the whole cache is walked to be emptied, and what is read often is kept by us.
  sqlite3_exec(m_Store.Connection(), "PRAGMA cache_size = 128", nullptr, nullptr, nullptr);
}

sqlite3_stmt* Rows::Compiled(Query query) {
  static_assert(std::size(kQueries) == QueryCount);
  sqlite3_stmt*& statement = m_Statements[query];
  if (!statement)
    sqlite3_prepare_v3(m_Store.Connection(), kQueries[query], -1, SQLITE_PREPARE_PERSISTENT, &statement,
                       nullptr);
  return statement;
}

LONG Rows::Execute(sqlite3_stmt* statement) {
  int rows = 0;
  const LONG status = Run(statement, rows, [](sqlite3_stmt*) {});
  if (status != 0) m_WriteFailure = status;
  return status;
}

LONG Rows::FirstId(sqlite3_stmt* statement, std::int64_t& row) {
  int rows = 0;
  const LONG status =
      Run(statement, rows, [&](sqlite3_stmt* found) { row = sqlite3_column_int64(found, 0); });
  return status == 0 && rows == 0 ? kNotFound : status;
}

LONG Rows::FindKey(std::int64_t parent, std::string_view folded, std::int64_t& row) {
  sqlite3_stmt* const statement = Compiled(FindKeyRow);
  sqlite3_bind_int64(statement, 1, parent);
  BindBytes(statement, 2, folded);
  return FirstId(statement, row);
}

LONG Rows::FindValue(std::int64_t key, std::string_view folded, std::int64_t& row) {
  sqlite3_stmt* const statement = Compiled(FindValueRow);
  sqlite3_bind_int64(statement, 1, key);
  BindBytes(statement, 2, folded);
  return FirstId(statement, row);
}

LONG Rows::Count(std::int64_t key, KeyCounts& counts) {
  sqlite3_stmt* const statement = Compiled(CountKey);
  sqlite3_bind_int64(statement, 1, key);
  int rows = 0;
  const LONG status = Run(statement, rows, [&](sqlite3_stmt* row) {
    counts = {CountOfColumn(row, 0), CountOfColumn(row, 1)};
  });
  return status == 0 && rows == 0 ? kKeyDeleted : status;
}

LONG Rows::FindParent(std::int64_t key, std::int64_t& parent, std::string& folded) {
  sqlite3_stmt* const statement = Compiled(ParentRow);
  sqlite3_bind_int64(statement, 1, key);
  int rows = 0;
  const LONG status = Run(statement, rows, [&](sqlite3_stmt* row) {
    parent = sqlite3_column_int64(row, 0);
    folded = BytesOfColumn(row, 1);
  });
  return status == 0 && rows == 0 ? kKeyDeleted : status;
}

LONG Rows::InsertKey(std::int64_t parent, std::string_view name, std::string_view folded, std::int64_t& row) {
  if (m_PassedId != 0) {
    sqlite3_stmt* const skip = Compiled(SkipIds);
    sqlite3_bind_int64(skip, 1, m_PassedId);
    if (const LONG status = Execute(skip)) return status;
    m_PassedId = 0;
  }
  sqlite3_stmt* const statement = Compiled(AddKey);
  sqlite3_bind_int64(statement, 1, parent);
  BindText(statement, 2, name);
  BindBytes(statement, 3, folded);
  const LONG status = Execute(statement);
  if (status == 0) m_LastId = row = sqlite3_last_insert_rowid(m_Store.Connection());
  return status;
}

LONG Rows::DeleteKey(std::int64_t key) {
  for (const Query query : {RemoveValues, RemoveKey}) {
    sqlite3_stmt* const statement = Compiled(query);
    sqlite3_bind_int64(statement, 1, key);
    if (const LONG status = Execute(statement)) return status;
  }
  return 0;
}

LONG Rows::InsertValue(std::int64_t key, const ValueRow& value, std::int64_t& row) {
  sqlite3_stmt* const statement = Compiled(AddValue);
  sqlite3_bind_int64(statement, 1, key);
  BindText(statement, 2, value.name);
  BindBytes(statement, 3, value.folded);
  sqlite3_bind_int64(statement, 4, value.type);
  BindBytes(statement, 5, value.data);
  const LONG status = Execute(statement);
  row = sqlite3_last_insert_rowid(m_Store.Connection());
  return status;
}

LONG Rows::UpdateValue(std::int64_t value, DWORD type, std::string_view data) {
  sqlite3_stmt* const statement = Compiled(ChangeValue);
  sqlite3_bind_int64(statement, 1, value);
  sqlite3_bind_int64(statement, 2, type);
  BindBytes(statement, 3, data);
  return Execute(statement);
}

LONG Rows::DeleteValue(std::int64_t value) {
  sqlite3_stmt* const statement = Compiled(RemoveValue);
  sqlite3_bind_int64(statement, 1, value);
  return Execute(statement);
}
