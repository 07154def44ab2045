// The rows of one store: what SQL there is. Sizes and types found there are taken for what they are, never trusted.
//
// Guarded by StoreLock(). Results are statuses of the registry.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_ROWS_H
#define QEL_PLATFORM_LINUX_REGISTRY_ROWS_H

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "status.h"
#include "store.h"

struct KeyCounts {
  DWORD subKeys = 0;
  DWORD values = 0;
};

// A row as it stands there. The views end with the next use of the rows.
struct KeyRow {
  std::int64_t row = 0;
  std::string_view name, folded;
};
struct ValueRow {
  std::int64_t row = 0;
  std::string_view name, folded;
  DWORD type = 0;
  std::string_view data;
};

class Rows {
 public:
  explicit Rows(StorePlace place) : m_Store(Store::Of(place)) {}

  Store& File() noexcept { return m_Store; }
  // Before reading: makes the store readable.
  LONG Open();
  // In place of Open(), before writing; ended by Commit() or Rollback() of the store.
  LONG BeginWrite();
  // Whether the transaction is still the one that BeginWrite() began; a fork may have undone it.
  bool StillWriting() const noexcept { return m_Store.Writing() && m_Generation == m_Store.Generation(); }
  // 0, or why a statement since BeginWrite() was not carried out.
  LONG WriteFailure() const noexcept { return m_WriteFailure; }
  // After a rollback, which lets the store give the ids of the keys that it undid once more: a handle may still stand
  // for one.
  void PassOverIds() noexcept { m_PassedId = m_LastId; }

  // 2 when there is none.
  LONG FindKey(std::int64_t parent, std::string_view folded, std::int64_t& row);
  LONG FindValue(std::int64_t key, std::string_view folded, std::int64_t& row);
  // 1018 when the key is gone.
  LONG Count(std::int64_t key, KeyCounts& counts);
  // The parent of a key and the name it has there.
  LONG FindParent(std::int64_t key, std::int64_t& parent, std::string& folded);
  // Hands the value's type and data to `take` where it is there, else answers 2.
  template <class Take>
  LONG ReadValue(std::int64_t key, std::string_view folded, Take take);
  // Hands every row to `take`; sub-keys in the order of their folded names, values in any.
  template <class Take>
  LONG EachKey(std::int64_t parent, Take take);
  template <class Take>
  LONG EachValue(std::int64_t key, Take take);

  LONG InsertKey(std::int64_t parent, std::string_view name, std::string_view folded, std::int64_t& row);
  LONG DeleteKey(std::int64_t key);
  LONG InsertValue(std::int64_t key, const ValueRow& value, std::int64_t& row);
  LONG UpdateValue(std::int64_t value, DWORD type, std::string_view data);
  LONG DeleteValue(std::int64_t value);

 private:
  enum Query {
    FindKeyRow,
    FindValueRow,
    ParentRow,
    CountKey,
    ReadValueRow,
    AllKeys,
    AllValues,
    AddKey,
    RemoveKey,
    RemoveValues,
    AddValue,
    ChangeValue,
    RemoveValue,
    SkipIds,
    QueryCount
  };

  void ForgetOldStatements();
  // Null when it cannot be compiled.
  sqlite3_stmt* Compiled(Query query);
  // Runs to the end, `take` getting every row. `rows` becomes how many there were.
  template <class Take>
  LONG Run(sqlite3_stmt* statement, int& rows, Take take);
  LONG Execute(sqlite3_stmt* statement);
  LONG FirstId(sqlite3_stmt* statement, std::int64_t& row);

  Store& m_Store;
  std::uint64_t m_Generation = 0;
  LONG m_WriteFailure = 0;
  std::int64_t m_LastId = 0;    // of the keys made here
  std::int64_t m_PassedId = 0;  // those made from now on lie above; 0: so they do anyway
  std::array<sqlite3_stmt*, QueryCount> m_Statements{};  // the connection's own, gone with it
};

inline std::string_view BytesOfColumn(sqlite3_stmt* statement, int column) {
  // In this order: asking for the bytes may convert the value and with it its size.
  const auto* const bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
  const int size = sqlite3_column_bytes(statement, column);
  return bytes ? std::string_view(bytes, static_cast<std::size_t>(size)) : std::string_view();
}

template <class Take>
LONG Rows::Run(sqlite3_stmt* statement, int& rows, Take take) {
  rows = 0;
  if (!statement) return m_Store.Failed(sqlite3_extended_errcode(m_Store.Connection()));
  int code = 0;
  for (; (code = sqlite3_step(statement)) == SQLITE_ROW; ++rows) take(statement);
  const LONG status = code == SQLITE_DONE ? 0 : m_Store.Failed(code);
  // Bound bytes are the caller's and end with the call.
  sqlite3_reset(statement);
  return status;
}

inline void BindBytes(sqlite3_stmt* statement, int at, std::string_view bytes) {
  sqlite3_bind_blob64(statement, at, bytes.data() ? bytes.data() : "", bytes.size(), SQLITE_STATIC);
}

template <class Take>
LONG Rows::ReadValue(std::int64_t key, std::string_view folded, Take take) {
  sqlite3_stmt* const statement = Compiled(ReadValueRow);
  sqlite3_bind_int64(statement, 1, key);
  BindBytes(statement, 2, folded);
  int rows = 0;
  const LONG status = Run(statement, rows, [&](sqlite3_stmt* row) {
    take(static_cast<DWORD>(sqlite3_column_int64(row, 0)), BytesOfColumn(row, 1));
  });
  return status == 0 && rows == 0 ? kNotFound : status;
}

template <class Take>
LONG Rows::EachKey(std::int64_t parent, Take take) {
  sqlite3_stmt* const statement = Compiled(AllKeys);
  sqlite3_bind_int64(statement, 1, parent);
  int rows = 0;
  return Run(statement, rows, [&](sqlite3_stmt* row) {
    take(KeyRow{sqlite3_column_int64(row, 0), BytesOfColumn(row, 1), BytesOfColumn(row, 2)});
  });
}

template <class Take>
LONG Rows::EachValue(std::int64_t key, Take take) {
  sqlite3_stmt* const statement = Compiled(AllValues);
  sqlite3_bind_int64(statement, 1, key);
  int rows = 0;
  return Run(statement, rows, [&](sqlite3_stmt* row) {
    take(ValueRow{sqlite3_column_int64(row, 0), BytesOfColumn(row, 1), BytesOfColumn(row, 2),
                  static_cast<DWORD>(sqlite3_column_int64(row, 3)), BytesOfColumn(row, 4)});
  });
}

#endif  // QEL_PLATFORM_LINUX_REGISTRY_ROWS_H
