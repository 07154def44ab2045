#include "store_repair.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <utility>

#include "iappcontext.h"
#include "store.h"
#include "store_aside.h"
#include "store_create.h"
#include "store_file_lock.h"
#include "store_open.h"
#include "store_salvage.h"
#include "utf8.h"

namespace {

std::string Now() {
  const std::time_t now = std::time(nullptr);
  std::tm utc{};
  gmtime_r(&now, &utc);
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &utc);
  return text.data();
}

int NoteEvent(sqlite3* database, const std::string& text) {
  const Statement insert = Prepare(database, "INSERT INTO event(time, text) VALUES(?, ?)");
  const std::string now = Now();
  sqlite3_bind_text(insert.get(), 1, now.c_str(), -1, SQLITE_STATIC);
  sqlite3_bind_text(insert.get(), 2, text.c_str(), -1, SQLITE_STATIC);
  return RunOnce(insert.get());
}

LONG Replace(sqlite3* damaged, const std::string& file, StorePlace place, const std::string& damage,
             std::string& account) {
  Database fresh;
  if (const LONG status = BuildHiddenStore(file, place, fresh)) return status;
  Salvaged saved;
  int code = Salvage(damaged, fresh.get(), saved);
  if (code == SQLITE_OK && saved.keys + saved.values == 0)
    code = SalvageWithoutHead(file, fresh.get(), saved);
  if (code != SQLITE_OK) return Store::StatusOf(code);
  const std::string aside = NameAside(file);
  const std::string text = "The settings store was damaged (" + damage + ") and is kept as " + aside + ". " +
                           std::to_string(saved.keys) + " keys and " + std::to_string(saved.values) +
                           " values were saved from it.";
  code = NoteEvent(fresh.get(), text);
  if (code != SQLITE_DONE) return Store::StatusOf(code);
  // Nothing is moved before the new one is there to take the place.
  if (const LONG status = FinishHiddenStore(file, std::move(fresh))) return status;
  if (const LONG status = MoveAside(file, aside)) return status;
  if (const LONG status = ShowHiddenStore(file)) return status;
  account = text;
  return 0;
}

}  // namespace

LONG RepairStore(const std::string& file, StorePlace place, std::string& account) {
  StoreFileLock lock;
  if (const LONG status = lock.Take(file)) return status;
  Database damaged;
  if (const int code = OpenDatabase(file.c_str(), SQLITE_OPEN_READWRITE, damaged))
    return Store::StatusOf(code);
  LeaveLogAtClose(damaged.get());
  const std::string damage = FindFault(damaged.get());
  if (damage.empty()) return 0;
  // Where it still can be locked, nobody writes to it between the saving and the moving.
  Execute(damaged.get(), "BEGIN IMMEDIATE");
  const LONG status = Replace(damaged.get(), file, place, damage, account);
  if (status != 0 && !StoreIsMissing(file)) DropHiddenStore(file);
  return status;
}

void TellOfRepair(const std::string& account) {
  std::fprintf(stderr, "%s\n", account.c_str());
  if (IAppContext::IsValidAppContext())
    IAppContext::GetAppContext()->GetSysError()->SetLastError(Qel::FromUtf8(account).GetString());
}
