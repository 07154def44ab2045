// The registry beside other processes and with many values; settings.cpp has what a single call costs.
#include <sqlite3.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <string>
#include <thread>
#include <vector>

#include "compare.h"
#include "pxsf.h"
#include "regkey.h"
#include "settings_folder.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr const wchar_t* kSectionPath = L"Software\\qelmarsoft\\Qelmar\\9.0\\";

// A section of that many numbers, filled once.
template <int kCount>
const wchar_t* Section() {
  static const std::wstring s_Name = [] {
    const std::wstring name = L"Section" + std::to_wstring(kCount);
    SettingsFolder();
    for (int i = 0; i < kCount; ++i)
      pxWriteProfileInt(name.c_str(), (L"Entry" + std::to_wstring(i)).c_str(), i);
    return name;
  }();
  return s_Name.c_str();
}

// The names of 1,024 entries in no order.
template <int kCount>
const std::wstring& Entry(unsigned i) {
  static const auto s_Names = [] {
    std::vector<std::wstring> names;
    for (unsigned at = 0; at < 1024; ++at) names.push_back(L"Entry" + std::to_wstring(at * 7919U % kCount));
    return names;
  }();
  return s_Names[i];
}

template <int kCount>
void OursEnumerate(benchmark::State& state) {
  const TRegKey key(HKEY_CURRENT_USER, (kSectionPath + std::wstring(Section<kCount>())).c_str(), KEY_READ,
                    TRegKey::OpenOnly);
  const auto list = [&] {
    for (int i = 0; i < kCount; ++i) {
      wchar_t name[64];
      unsigned char data[8];
      unsigned int chars = 64, type = 0, size = sizeof data;
      benchmark::DoNotOptimize(key.EnumValue(i, name, chars, &type, data, &size));
    }
  };
  list();  // which reads them in
  for (auto _ : state) list();
}

void OursEnumerateInParts(benchmark::State& state) {
  const TRegKey key(HKEY_CURRENT_USER, (kSectionPath + std::wstring(Section<1000>())).c_str(), KEY_READ,
                    TRegKey::OpenOnly);
  for (auto _ : state)
    for (int i = 0; i < 100'000; ++i) {
      wchar_t name[64];
      unsigned char data[8];
      unsigned int chars = 64, type = 0, size = sizeof data;
      benchmark::DoNotOptimize(key.EnumValue(i % 1000, name, chars, &type, data, &size));
    }
}

// Rows of one table, found by section and name, in a file with our settings.
class PlainSqlite {
 public:
  explicit PlainSqlite(const char* name) {
    sqlite3_open((SettingsFolder() + "/" + name).c_str(), &m_Database);
    Run("PRAGMA page_size = 1024");
    Run("PRAGMA journal_mode = WAL");
    Run("PRAGMA synchronous = NORMAL");
    Run("CREATE TABLE IF NOT EXISTS value(id INTEGER PRIMARY KEY, key INTEGER NOT NULL, name TEXT NOT NULL,"
        " type INTEGER, data BLOB, UNIQUE(key, name))");
    m_Read = Prepared("SELECT type, data FROM value WHERE key = 1 AND name = ?1");
    m_Write = Prepared(
        "INSERT INTO value(key, name, type, data) VALUES(1, ?1, 4, ?2)"
        " ON CONFLICT(key, name) DO UPDATE SET type = excluded.type, data = excluded.data");
  }
  ~PlainSqlite() {
    sqlite3_finalize(m_Read);
    sqlite3_finalize(m_Write);
    sqlite3_close(m_Database);
  }
  PlainSqlite(const PlainSqlite&) = delete;
  PlainSqlite& operator=(const PlainSqlite&) = delete;

  void Run(const char* sql) { sqlite3_exec(m_Database, sql, nullptr, nullptr, nullptr); }
  void Fill(int count) {
    Run("BEGIN");
    for (int i = 0; i < count; ++i) Write("Entry" + std::to_string(i), i);
    Run("COMMIT");
  }
  int Read(const std::string& name) {
    int value = 0;
    sqlite3_bind_text(m_Read, 1, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
    if (sqlite3_step(m_Read) == SQLITE_ROW)
      std::copy_n(static_cast<const char*>(sqlite3_column_blob(m_Read, 1)), 4,
                  reinterpret_cast<char*>(&value));
    sqlite3_reset(m_Read);
    return value;
  }
  void Write(const std::string& name, int value) {
    sqlite3_bind_text(m_Write, 1, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
    sqlite3_bind_blob(m_Write, 2, &value, sizeof value, SQLITE_STATIC);
    sqlite3_step(m_Write);
    sqlite3_reset(m_Write);
  }

 private:
  sqlite3_stmt* Prepared(const char* sql) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(m_Database, sql, -1, &statement, nullptr);
    return statement;
  }

  sqlite3* m_Database = nullptr;
  sqlite3_stmt* m_Read = nullptr;
  sqlite3_stmt* m_Write = nullptr;
};

template <int kCount>
std::string SqliteFile() {
  static const std::string s_Name = [] {
    std::string name = "plain" + std::to_string(kCount) + ".db";
    PlainSqlite(name.c_str()).Fill(kCount);
    return name;
  }();
  return s_Name;
}

template <int kCount>
const std::string& SqliteEntry(unsigned i) {
  static const auto s_Names = [] {
    std::vector<std::string> names;
    for (unsigned at = 0; at < 1024; ++at) names.push_back("Entry" + std::to_string(at * 7919U % kCount));
    return names;
  }();
  return s_Names[i];
}

template <int kCount>
void SqliteRead(benchmark::State& state) {
  PlainSqlite store(SqliteFile<kCount>().c_str());
  Cycle(state, [&](unsigned i) { benchmark::DoNotOptimize(store.Read(SqliteEntry<kCount>(i))); });
}

// A process that does nothing but write, as long as this lives.
class Writer {
 public:
  template <class Body>
  explicit Writer(Body write) : m_Process(fork()) {
    if (m_Process != 0) return;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (int i = 0;; ++i) write(i);
  }
  ~Writer() {
    kill(m_Process, SIGKILL);
    waitpid(m_Process, nullptr, 0);
  }

 private:
  pid_t m_Process;
};

template <int kCount>
void OursBesideAWriter(benchmark::State& state) {
  const wchar_t* const section = Section<kCount>();
  const Writer writer([&](int i) { pxWriteProfileInt(section, L"Entry7", i); });
  const TRegKey key(HKEY_CURRENT_USER, (kSectionPath + std::wstring(section)).c_str(), KEY_READ,
                    TRegKey::OpenOnly);
  Cycle(state, [&](unsigned i) {
    unsigned int value = 0, size = sizeof value;
    benchmark::DoNotOptimize(
        key.QueryValue(Entry<kCount>(i).c_str(), nullptr, reinterpret_cast<unsigned char*>(&value), &size));
  });
}

template <int kCount>
void SqliteBesideAWriter(benchmark::State& state) {
  const std::string file = SqliteFile<kCount>();
  const Writer writer([&](int i) {
    static PlainSqlite s_Store(file.c_str());
    s_Store.Write("Entry7", i);
  });
  SqliteRead<kCount>(state);
}

double Milliseconds(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

// What a write takes that nobody wrote before for a second: it waits for the disk.
std::string SingleWrite() {
  const wchar_t* const section = Section<100>();
  std::vector<double> times;
  for (int i = 0; i < 5; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1100));
    const auto start = Clock::now();
    pxWriteProfileInt(section, L"Entry1", i);
    times.push_back(Milliseconds(Clock::now() - start));
  }
  std::sort(times.begin(), times.end());
  return std::to_string(times[times.size() / 2]) + " ms";
}

// The longest single write of two processes that write as fast as they can.
std::string LongestWait() {
  const wchar_t* const section = Section<100>();
  const auto write = [&](int i) { pxWriteProfileInt(section, L"Entry2", i); };
  const Writer other(write);
  double longest = 0;
  int count = 0;
  for (const auto end = Clock::now() + std::chrono::seconds(3); Clock::now() < end; ++count) {
    const auto start = Clock::now();
    write(count);
    longest = std::max(longest, Milliseconds(Clock::now() - start));
  }
  return std::to_string(longest) + " ms of " + std::to_string(count) + " writes (goal: 50 ms)";
}

const bool kAdded = Compare("list 100,000 values by index", OursEnumerate<100'000>,
                            {{"ours, 100 x 1,000 values", AtMost(1.5), OursEnumerateInParts}}) &&
                    Compare("read beside a writer, 100 values", OursBesideAWriter<100>,
                            {{"SQLite point read", AtMost(2), SqliteBesideAWriter<100>}}) &&
                    Compare("read beside a writer, 100,000 values", OursBesideAWriter<100'000>,
                            {{"SQLite point read", AtMost(2), SqliteBesideAWriter<100'000>}}) &&
                    Show("single write, waiting for the disk", SingleWrite) &&
                    Show("two writers, longest wait", LongestWait);

}  // namespace
