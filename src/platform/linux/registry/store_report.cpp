#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <mutex>
#include <string_view>

#include "store.h"
#include "store_create.h"
#include "store_open.h"
#include "store_status.h"
#include "utf8.h"

namespace {

std::wstring Wide(std::string_view text) {
  return std::wstring(Qel::FromUtf8(text).View());
}

std::wstring Column(sqlite3_stmt* row, int column) {
  const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
  return text ? Wide({text, static_cast<std::size_t>(sqlite3_column_bytes(row, column))}) : L"";
}

// Whether the store could be made: asked of the nearest folder that is there.
LONG WhyNotMade(std::string folder) {
  while (access(folder.c_str(), F_OK) != 0 && folder.size() > 1)
    folder.resize(std::max<std::size_t>(folder.rfind('/'), 1));
  return access(folder.c_str(), W_OK) == 0 ? 0 : StatusOfError(errno);
}

// A store, its log and its index need about that much to begin with.
bool DiskIsFull(std::string name) {
  constexpr std::uint64_t kLeastRoom = 65536;
  struct statvfs disk {};
  while (statvfs(name.c_str(), &disk) != 0 && name.size() > 1)
    name.resize(std::max<std::size_t>(name.rfind('/'), 1));
  return disk.f_blocks != 0 && std::uint64_t{disk.f_bavail} * disk.f_frsize < kLeastRoom;
}

std::vector<StoreReport::Event> Events(sqlite3* store) {
  std::vector<StoreReport::Event> events;
  const Statement rows = Prepare(store, "SELECT time, text FROM event ORDER BY id");
  while (rows && sqlite3_step(rows.get()) == SQLITE_ROW)
    events.push_back({Column(rows.get(), 0), Column(rows.get(), 1)});
  return events;
}

void Describe(OpenedStore& opened, StoreReport& report) {
  std::int64_t version = 0;
  ReadNumber(opened.connection.get(), "PRAGMA user_version", version);
  report.access =
      opened.access == StoreAccess::Copy ? StoreReport::Access::Copy : StoreReport::Access::Shared;
  report.version = static_cast<int>(version);
  const std::string fault = FindFault(opened.connection.get());
  report.integrity = fault.empty() ? L"ok" : Wide(fault);
  report.events = Events(opened.connection.get());
  report.whyNotWritten = opened.whyNotWritten;
}

}  // namespace

StoreReport ReportOnStore(bool machine) {
  const StorePlace place = machine ? StorePlace::Machine : StorePlace::User;
  const std::string file = StoreFile(place);
  StoreReport report;
  report.path = Wide(file);
  // A fork must not take the connection along either.
  const std::lock_guard lock(StoreLock());
  OpenedStore opened = OpenStore(file, place);
  if (!opened.connection) {
    report.access = StoreReport::Access::Unreadable;
    report.integrity = Wide(sqlite3_errstr(opened.code));
    report.whyNotWritten = IsDamage(opened.code) ? opened.whyNotWritten : WhyNotRead(file, opened.code);
  } else if (opened.access == StoreAccess::Missing) {
    report.integrity = L"ok";
    report.whyNotWritten = WhyNotMade(file);
  } else {
    Describe(opened, report);
  }
  if (report.whyNotWritten == 0 && DiskIsFull(file)) report.whyNotWritten = kDiskFull;
  return report;
}
