// The file that settings are kept in: what its surroundings do to it, and what it must not lose.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <thread>
#include <vector>

#include "iappcontext.h"
#include "platform/linux/registry/store_schema.h"
#include "support/fresh_process.h"
#include "support/linux/full_disk.h"
#include "support/linux/raw_store.h"
#include "support/temp_registry.h"

namespace {

namespace fs = std::filesystem;
using Access = StoreReport::Access;

class LinuxStoreTest : public testing::Test {
 protected:
  ~LinuxStoreTest() override {
    UsePlainStateCheck(false);
    chmod(Folder().c_str(), 0700);
  }

  const std::string& Folder() const { return m_Registry.Place(); }
  std::string File() const { return Folder() + "/user.db"; }
  // In memory where that can be: what a test asks of the disk is asked often.
  const bool m_InMemory = access("/dev/shm", W_OK) == 0 && setenv("TMPDIR", "/dev/shm", 1) == 0;
  TempRegistry m_Registry;
};

// What another program does to a store.
void Alter(const std::string& file, const char* sql) {
  Database database;
  OpenDatabase(file.c_str(), SQLITE_OPEN_READWRITE, database);
  ASSERT_EQ(Execute(database.get(), sql), SQLITE_OK);
}

int Mode(const std::string& name) {
  struct stat state {};
  return stat(name.c_str(), &state) == 0 ? static_cast<int>(state.st_mode & 0777) : -1;
}

bool IsWhole(Store& store = UserStore()) {
  const std::lock_guard lock(StoreLock());
  if (store.Open() != 0) return false;
  const Statement check = Prepare(store.Connection(), "PRAGMA integrity_check");
  return check && sqlite3_step(check.get()) == SQLITE_ROW &&
         std::string(reinterpret_cast<const char*>(sqlite3_column_text(check.get(), 0))) == "ok";
}

TEST_F(LinuxStoreTest, PlaceFollowsTheSurroundings) {
  const struct {
    const char *registry, *config, *home, *user, *machine;
  } rows[] = {
      {"/r", "/c", "/h", "/r/user.db", "/r/machine.db"},
      {"", "/c", "/h", "/c/qelcoretypes/user.db", "/etc/xdg/qelcoretypes/machine.db"},
      {"relative", "relative", "/h", "/h/.config/qelcoretypes/user.db", "/etc/xdg/qelcoretypes/machine.db"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.user);
    EXPECT_EQ(
        Wait(Start([&] {
          setenv("QEL_REGISTRY_DIR", row.registry, 1);
          setenv("XDG_CONFIG_HOME", row.config, 1);
          setenv("HOME", row.home, 1);
          return StoreFile(StorePlace::User) == row.user && StoreFile(StorePlace::Machine) == row.machine ? 0
                                                                                                          : 1;
        })),
        0);
  }
}

TEST_F(LinuxStoreTest, ReadingMakesNothingAndWritingMakesPrivateFiles) {
  const std::string below = Folder() + "/some where/100%/#?";
  setenv("QEL_REGISTRY_DIR", below.c_str(), 1);
  EXPECT_EQ(Get("a"), "");
  EXPECT_FALSE(fs::exists(Folder() + "/some where"));
  umask(022);
  EXPECT_EQ(Put("a", "1"), 0);
  EXPECT_EQ(Put("a", "2", Store::Of(StorePlace::Machine)), 0);
  EXPECT_EQ(Get("a") + Get("a", Store::Of(StorePlace::Machine)), "12");
  EXPECT_EQ(Mode(below), 0700);
  for (const char* name : {"/user.db", "/user.db-wal", "/user.db-shm"})
    EXPECT_EQ(Mode(below + name), 0600) << name;
  EXPECT_EQ(Mode(below + "/machine.db"), 0644);
}

TEST_F(LinuxStoreTest, AnEmptyFileIsANewStoreAndALogWithoutOneIsNotItsOwn) {
  ASSERT_EQ(Put("old", "1"), 0);
  Store::Forget();
  fs::resize_file(File(), 0);
  EXPECT_EQ(Get("old"), "");
  EXPECT_EQ(fs::file_size(File()), 0U);
  EXPECT_EQ(Put("new", "2"), 0);
  EXPECT_EQ(Get("old") + Get("new"), "2");
  EXPECT_TRUE(IsWhole());
}

TEST_F(LinuxStoreTest, ANewerStoreIsReadAndNeverWritten) {
  ASSERT_EQ(Put("a", "1"), 0);
  Alter(File(), "PRAGMA user_version = 2");  // the store is open meanwhile
  EXPECT_EQ(Put("a", "2"), 5);
  EXPECT_EQ(Get("a"), "1");
}

TEST_F(LinuxStoreTest, IdsOfKeysAreNotGivenAgainByTheNextStore) {
  const char* const newKey = "INSERT INTO key(parent, name, folded) VALUES(1, 'k', X'004B')";
  std::int64_t last = 0;
  for (int round = 0; round < 3; ++round) {
    ASSERT_EQ(UserStore().BeginWrite(), 0);
    EXPECT_EQ(Execute(UserStore().Connection(), newKey), SQLITE_OK);
    EXPECT_EQ(UserStore().Commit(), 0);
    const std::int64_t id = Count("SELECT max(id) FROM key");
    EXPECT_GT(id, last);
    last = id;
    fs::remove_all(Folder());
    Store::Forget();
  }
}

// Each way to open, one worse than the other; all read what is there and follow what others write.
TEST_F(LinuxStoreTest, ReadsWhereverTheFileCanBeRead) {
  const struct {
    const char* name;
    bool log, inUse, inTheWay;
    mode_t folder, file;
    StoreReport::Access access;
    LONG writing;
  } rows[] = {
      {"all rights", true, true, false, 0777, 0666, Access::Shared, 0},
      {"read-only, others have it open", true, true, false, 0555, 0444, Access::Shared, 5},
      {"read-only, an index that nobody keeps", true, false, false, 0555, 0444, Access::Shared, 5},
      {"read-only, nothing but the file", false, false, false, 0555, 0444, Access::Copy, 5},
      {"read-only, and a log", true, false, false, 0555, 0444, Access::Copy, 5},
      {"a file to write in a folder to read", false, false, false, 0555, 0666, Access::Copy, 5},
      {"no index can be made", true, false, true, 0777, 0666, Access::Copy, 1016},
  };
  const bool isRoot = getuid() == 0;  // who may write where the child may not
  for (const bool plain : {false, true}) {
    for (const auto& row : rows) {
      SCOPED_TRACE(std::string(row.name) + (plain ? ", plain" : ""));
      const TempRegistry registry;
      const std::string file = registry.Place() + "/user.db";
      UsePlainStateCheck(plain);
      Store::Forget();
      ASSERT_EQ(Put("a", "1"), 0);
      ASSERT_EQ(row.log ? 0 : UserStore().Flush(), 0);
      const OtherProcess other(row.inUse);
      Store::Forget();
      if (!row.log) fs::remove(file + "-wal");
      if (row.access == Access::Copy) fs::remove(file + "-shm");
      if (row.inTheWay) fs::create_symlink("nowhere", file + "-shm");
      for (const char* suffix : {"", "-wal", "-shm"}) chmod((file + suffix).c_str(), row.file);
      chmod(registry.Place().c_str(), row.folder);
      EXPECT_EQ(WithoutRights([&] {
                  const StoreReport report = ReportOnStore(false);
                  if (report.access != row.access || report.whyNotWritten != row.writing) return 1;
                  if (Get("a") != "1") return 2;
                  if (Put("a", "2") != row.writing) return 3;
                  if (Get("a") != (row.writing ? "1" : "2") || !IsWhole()) return 4;
                  if (!isRoot || row.inTheWay) return 0;
                  WaitForKeyChange(HKEY_CURRENT_USER, 0);
                  other.Write('3');
                  return Get("a") == "3" && WaitForKeyChange(HKEY_CURRENT_USER, 0) == 0 ? 0 : 5;
                }),
                0);
      chmod(registry.Place().c_str(), 0700);
    }
  }
}

TEST_F(LinuxStoreTest, WhoMayNotReadIsToldSo) {
  ASSERT_EQ(Put("a", "1"), 0);
  Store::Forget();
  chmod(Folder().c_str(), 0755);
  chmod(File().c_str(), 0);
  EXPECT_EQ(WithoutRights([] {
              const StoreReport report = ReportOnStore(false);
              return report.access == Access::Unreadable && report.whyNotWritten == 5 &&
                             Get("a") == "status 5" && Put("a", "2") == 5
                         ? 0
                         : 1;
            }),
            0);
}

TEST_F(LinuxStoreTest, ALookAtAStoreChangesNothing) {
  const auto bytes = [&](const char* suffix) {
    std::ifstream file(File() + suffix, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  };
  ASSERT_EQ(Put("a", "1"), 0);
  const auto look = [&](const char* state) {
    SCOPED_TRACE(state);
    Store::Forget();
    const std::string store = bytes(""), log = bytes("-wal");
    ReportOnStore(false);
    EXPECT_TRUE(bytes("") == store);
    EXPECT_TRUE(bytes("-wal") == log);
  };
  look("a log");
  Store::Forget();
  std::fstream(File(), std::ios::in | std::ios::out | std::ios::binary).seekp(2048) << std::string(1024, 'x');
  look("a log with pages that are damaged in the store");
  fs::resize_file(File(), 1500);
  look("a store that was cut");
  fs::remove(File());
  ASSERT_EQ(Put("a", "2"), 0);
  Store::Forget();
  Alter(File(), "PRAGMA journal_mode = DELETE");
  look("another kind of log");
  const std::string other = bytes("");
  EXPECT_EQ(Put("a", "3"), 0);
  EXPECT_NE(bytes("").substr(18, 2), other.substr(18, 2)) << "which the first use switches back";
}

TEST_F(LinuxStoreTest, EveryReadKnowsWhetherSomebodyHasWritten) {
  for (const bool plain : {false, true}) {
    SCOPED_TRACE(plain ? "plain" : "by the index");
    UsePlainStateCheck(plain);
    Store::Forget();
    Store& store = UserStore();
    ASSERT_EQ(Put("a", "0"), 0);
    StoreState seen = store.State();
    ASSERT_EQ(Put("a", "1"), 0);
    EXPECT_NE(store.State(), seen);
    seen = store.State();
    EXPECT_EQ(store.OwnState(), seen);
    EXPECT_EQ(store.State(), seen);
    const OtherProcess other(false);  // its start has closed the store here
    for (const char data : {'2', '3', '4'}) {
      ASSERT_EQ(store.Open(), 0);
      seen = store.State();
      other.Write(data);
      EXPECT_NE(store.State(), seen);
      EXPECT_EQ(Get("a"), std::string(1, data));
    }
    seen = store.State();
    ASSERT_EQ(store.BeginWrite(), 0);
    EXPECT_TRUE(store.StillAt(seen));
    store.Rollback();
    other.Write('5');
    ASSERT_EQ(store.BeginWrite(), 0);
    EXPECT_FALSE(store.StillAt(seen));
    store.Rollback();
    // Between an own commit and the look at what it left.
    const auto next = [](void* process, sqlite3*, const char*, int) {
      static_cast<const OtherProcess*>(process)->Write('6');
      return SQLITE_OK;
    };
    sqlite3_wal_hook(store.Connection(), next, const_cast<OtherProcess*>(&other));
    ASSERT_EQ(Put("b", plain ? "1" : "2"), 0);
    EXPECT_NE(store.State(), store.OwnState());
  }
}

TEST_F(LinuxStoreTest, AMovedFileIsNoticed) {
  ASSERT_EQ(Put("a", "1"), 0);
  const std::uint64_t generation = UserStore().Generation();
  fs::rename(File(), Folder() + "/elsewhere");
  EXPECT_EQ(Put("b", "2"), 0);
  EXPECT_NE(UserStore().Generation(), generation);
  EXPECT_EQ(Get("a") + Get("b"), "2");
  fs::remove(File());
  for (int i = 0; i < 1000 && !Get("b").empty(); ++i) usleep(1000);  // reading looks ten times a second
  EXPECT_EQ(Get("b"), "");
}

TEST_F(LinuxStoreTest, AForkBetweenTwoWritesLosesNeither) {
  ASSERT_EQ(Put("before", "1"), 0);
  const pid_t child = Start([] { return Put("child", "1") == 0 && Get("before") == "1" ? 0 : 1; });
  EXPECT_EQ(Put("parent", "1"), 0);
  EXPECT_EQ(Wait(child), 0);
  EXPECT_EQ(Count("SELECT count(*) FROM value"), 3);
  ASSERT_EQ(UserStore().BeginWrite(), 0);
  EXPECT_EQ(Wait(Start([] { return UserStore().Writing() ? 1 : 0; })), 0);
  EXPECT_EQ(UserStore().Commit(), 1016);
}

TEST_F(LinuxStoreTest, ProcessesThatStartAtOnceMakeOneStore) {
  constexpr int kProcesses = 8;
  constexpr int kRounds = 100;
  struct Rounds {
    std::atomic<int> begun, done, failed;
  };
  auto& rounds = SharedByProcesses<Rounds>();
  const auto enter = [&](int round) {
    setenv("QEL_REGISTRY_DIR", (Folder() + "/" + std::to_string(round)).c_str(), 1);
    Store::Forget();
  };
  std::vector<pid_t> children;
  for (int i = 0; i < kProcesses; ++i)
    children.push_back(Start([&] {
      for (int round = 0; round < kRounds; ++round) {
        enter(round);
        while (rounds.begun <= round) usleep(20);
        rounds.failed += Put(std::to_string(i), "1") != 0;
        ++rounds.done;
      }
      return 0;
    }));
  for (int round = 0; round < kRounds; ++round) {
    for (++rounds.begun; rounds.done < kProcesses * (round + 1);) usleep(20);
    enter(round);
    EXPECT_EQ(Count("SELECT count(*) FROM value"), kProcesses) << "round " << round;
  }
  for (const pid_t child : children) EXPECT_EQ(Wait(child), 0);
  EXPECT_EQ(rounds.failed, 0);
}

TEST_F(LinuxStoreTest, TwoProcessesOfTwoThreadsKeepEveryWrite) {
  constexpr int kWrites = 200;
  const auto write = [](const std::string& who) {
    for (int i = 0; i < kWrites; ++i) {
      if (Put(who + std::to_string(i), "1") != 0) return;
    }
  };
  const auto both = [&](const std::string& who) {
    std::thread thread(write, who + "thread");
    write(who + "main");
    thread.join();
    return 0;
  };
  const pid_t child = Start([&] { return both("child"); });
  both("parent");
  EXPECT_EQ(Wait(child), 0);
  EXPECT_EQ(Count("SELECT count(*) FROM value"), 4 * kWrites);
}

TEST_F(LinuxStoreTest, AFullDiskRefusesAndHarmsNothing) {
  constexpr int kValues = 8;
  for (const bool isNew : {true, false}) {
    std::int64_t room = 0;
    for (int run = 0; run == 0 || FullDisk::Needed() > 0; ++run) {
      const TempRegistry registry;
      Store::Forget();
      ASSERT_EQ(isNew ? 0 : Put("old", "1"), 0);
      Store::Forget();
      // The next run has just enough room for what this one refused first.
      room = run == 0 ? 0 : FullDisk::Needed();
      SCOPED_TRACE("room for " + std::to_string(room));
      int kept = 0;
      {
        const FullDisk disk(room);
        for (LONG status = 0; status == 0 && kept < kValues; kept += status == 0) {
          status = Put(std::to_string(kept), std::string(3000, 'x'));
          EXPECT_TRUE(status == 0 || status == 112) << status;
        }
        EXPECT_EQ(Get("old"), isNew ? "" : "1");
        EXPECT_EQ(Count("SELECT count(*) FROM value"), kept + !isNew);
        Store::Forget();
      }
      EXPECT_EQ(Count("SELECT count(*) FROM value"), kept + !isNew);
      EXPECT_TRUE(IsWhole());
      EXPECT_EQ(Put("0", "1"), 0);
    }
  }
}

TEST_F(LinuxStoreTest, ASingleChangeWaitsForTheDiskAndABurstOnceASecond) {
  using Clock = std::chrono::steady_clock;
  const FullDisk disk(std::numeric_limits<std::int64_t>::max());
  int change = 0;
  const auto put = [&] { return Put("a", std::to_string(++change)); };
  for (const bool again : {false, true}) {
    Store::Forget();
    // A change to what is there already is none.
    ASSERT_EQ(again ? Put("a", std::to_string(change)) : 0, 0);
    const int before = FullDisk::Syncs();
    ASSERT_EQ(put(), 0);
    const int synced = FullDisk::Syncs();
    EXPECT_GT(synced, before);
    ASSERT_EQ(put(), 0);
    EXPECT_EQ(FullDisk::Syncs(), synced);
    for (const auto start = Clock::now(); Clock::now() - start < std::chrono::milliseconds(1200);
         usleep(50'000))
      ASSERT_EQ(put(), 0);
    EXPECT_EQ(FullDisk::Syncs(), synced + 1);
  }
  Store::Forget();
}

// What a process that is killed, or a machine that loses its power, can leave: any part of the log, and behind it what
// the disk held before.
TEST_F(LinuxStoreTest, EveryPartOfALogOpensToWhatItsCommitsHold) {
  constexpr int kWrites = 30;
  constexpr std::size_t kFrame = 24 + 1024;
  constexpr std::size_t kHead = 32;
  ASSERT_EQ(UserStore().BeginWrite(), 0);
  UserStore().Rollback();
  std::vector<std::size_t> ends;
  for (int i = 0; i < kWrites; ++i) {
    ASSERT_EQ(Put(std::to_string(i), std::string(500, 'x')), 0);
    ends.push_back(fs::file_size(File() + "-wal"));
  }
  std::string log(ends.back(), '\0');
  std::ifstream(File() + "-wal", std::ios::binary).read(log.data(), static_cast<std::streamsize>(log.size()));
  for (std::size_t frame = 0; kHead + frame * kFrame <= log.size(); ++frame) {
    for (const int shift : {-1, 0, 100}) {
      const std::size_t size = std::min(kHead + frame * kFrame + static_cast<std::size_t>(shift), log.size());
      SCOPED_TRACE(size);
      const TempRegistry image;
      Store::Forget();
      fs::copy_file(File(), image.Place() + "/user.db");
      std::ofstream(image.Place() + "/user.db-wal", std::ios::binary)
          << log.substr(0, size) << std::string(shift ? 2000 : 0, '?');
      const auto whole =
          std::count_if(ends.begin(), ends.end(), [&](std::size_t end) { return end <= size; });
      EXPECT_EQ(Count("SELECT count(*) FROM value"), whole);
      EXPECT_EQ(Count("SELECT max(name + 1) FROM value"), whole);
      EXPECT_EQ(Put("next", "1"), 0);
      EXPECT_TRUE(IsWhole());
    }
  }
}

TEST_F(LinuxStoreTest, ADamagedStoreIsKeptAsideAndItsRowsAreSaved) {
  constexpr int kValues = 300;
  const struct {
    const char* name;
    const char* sql;  // or else
    int at, size;     // these bytes are overwritten; no size: the file ends there
    int leastSaved;
    bool allSaved;
  } rows[] = {
      {"no database", nullptr, 0, 1024, 0, false},
      {"the head overwritten", nullptr, 0, 100, kValues, true},
      {"another program's, with a value of no key",
       "PRAGMA application_id = 7; INSERT INTO value VALUES(999, 99, 'x', X'00', 1, X'')", 0, 0, kValues,
       true},
      {"a table missing", "DROP TABLE event", 0, 0, kValues, true},
      {"pages in the middle", nullptr, 20 * 1024, 6 * 1024, kValues / 2, false},
      {"cut to a half", nullptr, 30 * 1024, 0, kValues / 3, false},
      {"cut within the first page", nullptr, 600, 0, 0, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const TempRegistry registry;
    const std::string file = registry.Place() + "/user.db";
    Store::Forget();
    for (int i = 0; i < kValues; ++i) ASSERT_EQ(Put(std::to_string(i), std::string(100, 'x')), 0);
    ASSERT_EQ(UserStore().Flush(), 0);
    ASSERT_EQ(Put("0", "in the log"), 0);
    const std::int64_t next = Count("SELECT seq FROM sqlite_sequence");
    Store::Forget();
    fs::remove(file + "-shm");
    if (row.sql) {
      Alter(file, row.sql);
    } else if (row.size) {
      std::fstream(file, std::ios::in | std::ios::out | std::ios::binary).seekp(row.at)
          << std::string(static_cast<std::size_t>(row.size), 'x');
    } else {
      fs::resize_file(file, static_cast<std::uintmax_t>(row.at));
    }
    testing::internal::CaptureStderr();
    const StoreReport before = ReportOnStore(false);
    // Whoever finds it first repairs it, and the others find it repaired.
    const auto read = [] { return Count("SELECT sum(length(data)) FROM value") < 0; };
    std::vector<pid_t> children;
    for (int i = 0; i < 4; ++i) children.push_back(Start([&] { return read() && read(); }));
    for (const pid_t child : children) EXPECT_EQ(Wait(child), 0);
    const std::int64_t saved = Count("SELECT count(*) FROM value");
    const std::string told = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(before.access == Access::Unreadable || before.integrity != L"ok");
    EXPECT_GE(saved, row.leastSaved);
    EXPECT_EQ(saved == kValues, row.allSaved);
    EXPECT_EQ(Get("0") == "in the log", row.leastSaved > 0);
    EXPECT_GE(Count("SELECT seq FROM sqlite_sequence"), next);
    EXPECT_EQ(Put("new", "1"), 0);
    EXPECT_EQ(ReportOnStore(false).integrity, L"ok");
    ASSERT_EQ(ReportOnStore(false).events.size(), 1U);
    EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 1) << told;
    EXPECT_TRUE(fs::exists(told.substr(told.find('/'), told.find(". ") - told.find('/'))));
  }
}

TEST_F(LinuxStoreTest, TheContextIsToldOfADamagedStore) {
  struct Context : IAppContext {
    void InitContext() override {}
  };
  EXPECT_IN_FRESH_PROCESS(CreateAppContext<Context>();
                          std::ofstream(File(), std::ios::binary) << std::string(5000, 'x'); Get("a");
                          const CString told = IAppContext::GetAppContext()->GetSysError()->GetLastError();
                          EXPECT_GT(told.Find(L"user.db.damaged-"), 0));
}

}  // namespace
