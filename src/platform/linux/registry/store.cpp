#include "store.h"

#include <time.h>
#include <unistd.h>

#include <limits>

#include "store_create.h"
#include "store_fork.h"
#include "store_repair.h"
#include "store_schema.h"
#include "store_status.h"

namespace {

constexpr std::int64_t kMillisecond = 1'000'000;
constexpr std::int64_t kSecond = 1000 * kMillisecond;
constexpr std::int64_t kTimeBetweenLooks = 100 * kMillisecond;
constexpr int kAttempts = 5;
// Where a state without an index keeps its numbers.
constexpr std::size_t kOwnChanges = 1;
constexpr std::size_t kDataVersion = 2;

// Exact to some milliseconds, and so cheap that every read can ask.
std::int64_t CoarseTime() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  return std::int64_t{now.tv_sec} * kSecond + now.tv_nsec;
}

int PagesWritten(sqlite3* database) {
  int pages = 0;
  int ignored = 0;
  sqlite3_db_status(database, SQLITE_DBSTATUS_CACHE_WRITE, &pages, &ignored, 0);
  return pages;
}

}  // namespace

StoreMutex& StoreLock() {
  static StoreMutex s_Lock;
  return s_Lock;
}

Store& Store::Of(StorePlace place) {
  // Never destroyed: a host may still save its settings while the process ends.
  static auto* const s_User = new Store(StorePlace::User);
  static auto* const s_Machine = new Store(StorePlace::Machine);
  return place == StorePlace::User ? *s_User : *s_Machine;
}

LONG Store::StatusOf(int sqlite) noexcept {
  if (sqlite == SQLITE_IOERR_SHMSIZE) return kDiskFull;
  switch (sqlite & 0xFF) {
    case SQLITE_OK:
      return 0;
    case SQLITE_FULL:
      return kDiskFull;
    case SQLITE_BUSY:
    case SQLITE_PROTOCOL:  // others held it for all of SQLite's own patience
    case SQLITE_LOCKED:
      return kStoreBusy;
    case SQLITE_PERM:
    case SQLITE_AUTH:
    case SQLITE_READONLY:
      return kAccessDenied;
    default:
      return kStoreFailed;
  }
}

LONG Store::Failed(int sqlite) {
  // Whoever may not write cannot replace the store either, and goes on with what can be read.
  if (IsDamage(sqlite) && m_Opened.whyNotWritten == 0) m_Damaged = true;
  return StatusOf(sqlite);
}

LONG Store::Open() {
  if (Connection() && !MustReopen()) return 0;
  const bool damaged = m_Damaged;
  std::string account;
  Close();
  CloseStoresAtForks();
  m_File = StoreFile(m_Place);
  if (m_File.empty()) return kStoreFailed;
  if (!damaged) m_Opened = OpenStore(m_File, m_Place);
  if (damaged || IsDamage(m_Opened.code)) {
    RepairStore(m_File, m_Place, account);
    m_Opened = OpenStore(m_File, m_Place);
  }
  if (!Connection()) return WhyNotRead(m_File, m_Opened.code);
  TakeConnection();
  // Last, since whoever is told may come back here.
  if (!account.empty()) TellOfRepair(account);
  return Connection() ? 0 : Open();
}

void Store::TakeConnection() {
  ++m_Generation;
  m_NextLook = CoarseTime() + kTimeBetweenLooks;
  m_Synced = true;
  m_LastSynced = std::numeric_limits<std::int64_t>::min() / 2;
  TakeLog(m_Opened);
  if (m_Opened.hasIndex) m_Index.Attach(Connection());
}

void Store::Close() {
  m_Index.Detach();
  m_DataVersion.reset();
  m_Begin.reset();
  m_Commit.reset();
  m_Opened = OpenedStore();
  m_Writing = false;
  m_Damaged = false;
}

void Store::Forget() {
  Of(StorePlace::User).Close();
  Of(StorePlace::Machine).Close();
}

bool Store::MustReopen() {
  if (m_Writing) return false;
  if (m_Opened.access != StoreAccess::Shared) return MarkOf(m_File) != m_Opened.mark;
  if (m_Damaged) return true;
  const std::int64_t now = CoarseTime();
  if (now < m_NextLook) return false;
  m_NextLook = now + kTimeBetweenLooks;
  return HasMoved();
}

bool Store::HasMoved() const {
  int moved = 0;
  sqlite3_file_control(Connection(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
  return moved != 0;
}

StoreState Store::State() {
  StoreState state;
  if (m_Index.Read(state)) return state;
  if (!m_DataVersion) m_DataVersion = Prepare(Connection(), "PRAGMA data_version");
  // Own changes do not count there. The last word is one that no index has.
  state.words = {0, 0, 0, 0, 0, 1};
  state.words[kOwnChanges] = m_OwnChanges;
  if (m_DataVersion && sqlite3_step(m_DataVersion.get()) == SQLITE_ROW)
    state.words[kDataVersion] = static_cast<std::uint64_t>(sqlite3_column_int64(m_DataVersion.get(), 0));
  else
    state.words[kOwnChanges] = ++m_OwnChanges;
  sqlite3_reset(m_DataVersion.get());
  return state;
}

bool Store::StillReads(std::uint64_t generation, const StoreState& state) const noexcept {
  return generation == m_Generation && m_Opened.access == StoreAccess::Shared && !m_Damaged &&
         m_Index.IsAt(state) && CoarseTime() < m_NextLook;
}

LONG Store::BeginWrite() {
  for (int i = 0; i < kAttempts; ++i) {
    if (const LONG status = OpenToWrite()) return status;
    if (const LONG status = Begin()) return status;
    m_Begun = State();
    if (MayWriteOn()) return 0;
    Close();
  }
  return kStoreFailed;
}

// With the lock in hand: a change to a file that was put aside before would be lost, and a newer program may have made
// the store its own. Who wrote last knows that nobody has.
bool Store::MayWriteOn() {
  if (HasMoved()) return false;
  std::int64_t version = 0;
  return m_Begun == m_Left ||
         (ReadNumber(Connection(), "PRAGMA user_version", version) == SQLITE_OK && version <= kUserVersion);
}

LONG Store::OpenToWrite() {
  if (const LONG status = Open()) return status;
  if (m_Opened.access == StoreAccess::Missing) {
    if (const LONG status = CreateStore(m_File, m_Place)) return status;
    Close();
  } else if (m_Opened.whyNotWritten != 0 && access(m_File.c_str(), W_OK) == 0) {
    // What stood in the way may be gone.
    Close();
  }
  if (const LONG status = Open()) return status;
  return m_Opened.whyNotWritten;
}

LONG Store::Begin() {
  ChooseDurability();
  if (!m_Begin) m_Begin = Prepare(Connection(), "BEGIN IMMEDIATE");
  if (!m_Begin) return Failed(sqlite3_extended_errcode(Connection()));
  const int code = RunOnce(m_Begin.get());
  if (code != SQLITE_DONE) return Failed(code);
  m_Writing = true;
  return 0;
}

// A single change waits for the disk. In a burst one commit a second does, so that a power cut takes no more than the
// last second.
void Store::ChooseDurability() {
  const bool synced = CoarseTime() - m_LastSynced > kSecond;
  if (synced == m_Synced) return;
  Execute(Connection(), synced ? "PRAGMA synchronous = FULL" : "PRAGMA synchronous = NORMAL");
  m_Synced = synced;
}

LONG Store::Commit() {
  // A fork in between has closed the connection.
  if (!m_Writing) return kStoreFailed;
  if (!m_Commit) m_Commit = Prepare(Connection(), "COMMIT");
  const int before = PagesWritten(Connection());
  const int code = m_Commit ? RunOnce(m_Commit.get()) : SQLITE_NOMEM;
  if (code != SQLITE_DONE) {
    Rollback();
    return Failed(code);
  }
  m_Writing = false;
  ++m_OwnChanges;
  m_Left = StateLeft();
  // Nothing waits for the disk when nothing is different from before.
  if (m_Synced && PagesWritten(Connection()) != before) m_LastSynced = CoarseTime();
  return 0;
}

// Between the commit and the look at what it left, another may have written.
StoreState Store::StateLeft() {
  StoreState left;
  if (!m_Index.Read(left)) {
    left = m_Begun;
    left.words[kOwnChanges] = m_OwnChanges;
  } else if (left != m_Begun && left.ChangeCounter() != m_Begun.ChangeCounter() + 1) {
    left.words.fill(~std::uint64_t{0});
  }
  return left;
}

void Store::Rollback() {
  if (Connection() && !sqlite3_get_autocommit(Connection())) Execute(Connection(), "ROLLBACK");
  m_Writing = false;
}

LONG Store::Flush() {
  if (const LONG status = Open()) return status;
  if (m_Opened.access != StoreAccess::Shared || m_Opened.whyNotWritten != 0) return 0;
  // What is in the log now has to be moved; the passive way, which keeps no writer out, may take more than one go.
  int wanted = -1;
  for (int i = 0;; ++i) {
    int logged = 0;
    int moved = 0;
    const int code =
        sqlite3_wal_checkpoint_v2(Connection(), "main", SQLITE_CHECKPOINT_PASSIVE, &logged, &moved);
    if (code != SQLITE_OK && code != SQLITE_BUSY) return Failed(code);
    if (code == SQLITE_OK) {
      if (wanted < 0) wanted = logged;
      // A log that has become shorter has been started over, all of it having been moved.
      if (moved >= wanted || logged < wanted) return 0;
    }
    if (!WaitForOthers(i)) return kStoreBusy;
  }
}
