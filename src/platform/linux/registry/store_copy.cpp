#include "store_copy.h"

#include <stdlib.h>
#include <sys/stat.h>

#include <filesystem>
#include <memory>

#include "store_open.h"

namespace {

struct BackupCloser {
  void operator()(sqlite3_backup* backup) const noexcept { sqlite3_backup_finish(backup); }
};

int CopyToMemory(sqlite3* source, Database& copy) {
  Database memory;
  if (const int code = OpenDatabase(":memory:", SQLITE_OPEN_READWRITE, memory)) return code;
  const std::unique_ptr<sqlite3_backup, BackupCloser> backup(
      sqlite3_backup_init(memory.get(), "main", source, "main"));
  const int code = backup ? sqlite3_backup_step(backup.get(), -1) : SQLITE_NOMEM;
  if (code != SQLITE_DONE) return code;
  copy = std::move(memory);
  return SQLITE_OK;
}

// Opens, reads all and closes, and leaves the files as they were.
int CopyFrom(const std::string& name, int flags, const char* settings, Database& copy) {
  Database source;
  std::int64_t version = 0;
  int code = OpenDatabase(name.c_str(), flags, source);
  if (code == SQLITE_OK) {
    LeaveLogAtClose(source.get());
    code = Execute(source.get(), settings);
  }
  if (code == SQLITE_OK) code = CheckStore(source.get(), version);
  return code == SQLITE_OK ? CopyToMemory(source.get(), copy) : code;
}

// The name as part of a URI.
std::string Escaped(const std::string& name) {
  std::string result;
  for (const char unit : name) {
    if (unit == '%' || unit == '?' || unit == '#') {
      constexpr const char* kDigits = "0123456789ABCDEF";
      result += {'%', kDigits[unit >> 4], kDigits[unit & 15]};
    } else {
      result += unit;
    }
  }
  return result;
}

bool HasEntries(const std::string& log) {
  struct stat state {};
  return stat(log.c_str(), &state) == 0 && state.st_size > 0;
}

class TemporaryFolder {
 public:
  TemporaryFolder() : m_Name(Pattern()) {
    if (!mkdtemp(m_Name.data())) m_Name.clear();
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    if (!m_Name.empty()) std::filesystem::remove_all(m_Name, ignored);
  }

  const std::string& Name() const { return m_Name; }

 private:
  static std::string Pattern() {
    std::error_code failed;
    return (std::filesystem::temp_directory_path(failed) / "qelcoretypes-XXXXXX").string();
  }

  std::string m_Name;
};

}  // namespace

int CopyAlone(const std::string& file, Database& copy) {
  return CopyFrom(file, SQLITE_OPEN_READWRITE, "PRAGMA locking_mode = EXCLUSIVE", copy);
}

int CopyUnchanging(const std::string& file, Database& copy) {
  if (HasEntries(file + "-wal")) return SQLITE_CANTOPEN;
  return CopyFrom("file:" + Escaped(file) + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, "", copy);
}

int CopyWithLog(const std::string& file, Database& copy) {
  const TemporaryFolder folder;
  if (folder.Name().empty()) return SQLITE_CANTOPEN;
  const std::string name = folder.Name() + "/copy.db";
  std::error_code failed;
  std::filesystem::copy_file(file, name, failed);
  if (!failed) std::filesystem::copy_file(file + "-wal", name + "-wal", failed);
  if (!failed) std::filesystem::permissions(name, std::filesystem::perms::owner_all, failed);
  if (!failed) std::filesystem::permissions(name + "-wal", std::filesystem::perms::owner_all, failed);
  return failed ? SQLITE_CANTOPEN : CopyFrom(name, SQLITE_OPEN_READWRITE, "", copy);
}
