// The registry over a settings store: what other processes do to it, what nobody but us answers, and what a tampered
// file may hold.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/linux/registry/store.h"
#include "platform/linux/registry/store_schema.h"
#include "support/linux/raw_store.h"
#include "support/temp_registry.h"

namespace {

// The number stored under the name, or minus the status.
int Read(HKEY key, const wchar_t* name) {
  int value = 0;
  DWORD size = sizeof value;
  const LONG status = RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(&value), &size);
  return status == 0 ? value : -status;
}

LONG Write(HKEY key, const wchar_t* name, int value) {
  return RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value);
}

HKEY Create(const wchar_t* path) {
  HKEY key = nullptr;
  EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
            0);
  return key;
}

LONG Open(HKEY base, const wchar_t* path, HKEY& key) {
  return RegOpenKeyExW(base, path, 0, KEY_ALL_ACCESS, &key);
}

std::size_t ValuesOf(const wchar_t* path) {
  HKEY key = nullptr;
  DWORD subKeys = 0, values = 0;
  EXPECT_EQ(OpenKeyAndCount(HKEY_CURRENT_USER, path, KEY_READ, false, &key, &subKeys, &values), 0);
  RegCloseKey(key);
  return values;
}

// Both ways to see that somebody else has written.
class LinuxRegistryTest : public testing::TestWithParam<bool> {
 protected:
  LinuxRegistryTest() {
    UsePlainStateCheck(GetParam());
    Store::Forget();
  }
  ~LinuxRegistryTest() override {
    UsePlainStateCheck(false);
    Store::Forget();
  }
  TempRegistry m_Registry;
};

// Another process that does one thing each time it is told, and says when it is done.
class Helper {
 public:
  template <class Body>
  explicit Helper(Body body) {
    EXPECT_EQ(pipe(m_Told) | pipe(m_Done), 0);
    m_Process = Start([&] {
      close(m_Told[1]);
      char round = 0;
      while (read(m_Told[0], &round, 1) == 1) {
        body(round);
        if (write(m_Done[1], &round, 1) != 1) return 1;
      }
      return 0;
    });
  }
  ~Helper() {
    close(m_Told[1]);
    EXPECT_EQ(Wait(m_Process), 0);
    for (const int handle : {m_Told[0], m_Done[0], m_Done[1]}) close(handle);
  }
  void Do(int round) {
    auto byte = static_cast<char>(round);
    EXPECT_EQ(write(m_Told[1], &byte, 1), 1);
    EXPECT_EQ(read(m_Done[0], &byte, 1), 1);
  }

 private:
  int m_Told[2], m_Done[2];
  pid_t m_Process = 0;
};

INSTANTIATE_TEST_SUITE_P(StateChecks, LinuxRegistryTest, testing::Bool());

// Whatever was read before, and is therefore in memory or not.
TEST_P(LinuxRegistryTest, TheNextReadSeesWhatAnotherProcessWrote) {
  HKEY key = Create(L"Shared");
  Write(key, L"mine", 0);
  Helper helper([](int round) {
    HKEY own = Create(L"Shared");
    Write(own, L"theirs", round);
    if (round % 5 == 0) RegDeleteValueW(own, L"mine");
    if (round % 7 == 0) RegDeleteKeyW(HKEY_CURRENT_USER, L"Passing");
    if (round % 7 == 3) RegCloseKey(Create(L"Passing"));
    RegCloseKey(own);
  });
  for (int round = 1; round < 100; ++round) {
    SCOPED_TRACE(round);
    for (int reads = 0; reads < round % 4; ++reads) Read(key, L"theirs");
    HKEY passing = nullptr;
    Open(HKEY_CURRENT_USER, L"Passing", passing);
    EXPECT_EQ(Write(key, L"mine", round), 0);
    helper.Do(round);
    // The lock for writing is another moment at which to notice.
    const bool locked = round % 2 == 1 && BeginKeyChanges(key) == 0;
    EXPECT_EQ(Read(key, L"theirs"), round);
    EXPECT_EQ(Read(key, L"mine"), round % 5 == 0 ? -2 : round);
    EXPECT_EQ(ValuesOf(L"Shared"), round % 5 == 0 ? 1u : 2u);
    const bool there = round % 7 >= 3 && round > 2;
    EXPECT_EQ(Open(HKEY_CURRENT_USER, L"Passing", passing), there ? 0 : 2);
    EXPECT_EQ(locked ? EndKeyChanges(key, true) : 0, 0);
  }
  Write(key, L"mine", 1);
  EXPECT_EQ(Read(key, L"mine") + Read(key, L"theirs"), 100);
}

// After each, the index counts changes from the start again.
TEST_P(LinuxRegistryTest, TheNextReadSeesWhatCameAfterTheIndexWasLost) {
  HKEY key = Create(L"Shared");
  Helper helper([&](int round) {
    Store::Forget();
    // As a process leaves it that dies while it writes there.
    std::fstream(m_Registry.Place() + "/user.db-shm", std::ios::in | std::ios::out | std::ios::binary)
        << std::string(96, '\0');
    Write(Create(L"Shared"), L"theirs", round);
  });
  for (int round = 1; round < 5; ++round) {
    helper.Do(round);
    for (int reads = 0; reads < 3; ++reads) EXPECT_EQ(Read(key, L"theirs"), round);
  }
}

TEST_P(LinuxRegistryTest, ChangesOfATransactionAreKeptTogetherOrNotAtAll) {
  HKEY key = Create(L"All");
  Write(key, L"old", 1);
  for (const bool keep : {false, true}) {
    ASSERT_EQ(BeginKeyChanges(key), 0);
    EXPECT_EQ(BeginKeyChanges(HKEY_CURRENT_USER), 0) << "of the same tree";
    Write(key, L"old", 2);
    Write(key, L"new", 3);
    RegCloseKey(Create(L"All\\below"));
    EXPECT_EQ(RegDeleteValueW(key, L"none"), 2);
    EXPECT_EQ(Read(key, L"old") * 10 + Read(key, L"new"), 23) << "seen within it";
    EXPECT_EQ(EndKeyChanges(HKEY_CURRENT_USER, true), 0);
    EXPECT_EQ(EndKeyChanges(key, keep), 0);
    EXPECT_EQ(Read(key, L"old"), keep ? 2 : 1);
    EXPECT_EQ(Read(key, L"new"), keep ? 3 : -2);
    EXPECT_EQ(RegDeleteKeyW(key, L"below"), keep ? 0 : 2);
    EXPECT_EQ(ValuesOf(L"All"), keep ? 2u : 1u);
  }
  EXPECT_EQ(EndKeyChanges(key, true), 87) << "none is open";
}

// Its handle and its path lead nowhere, whatever is made next.
TEST_P(LinuxRegistryTest, AKeyThatWasUndoneIsNoOther) {
  Write(Create(L"before"), L"v", 1);
  ASSERT_EQ(BeginKeyChanges(HKEY_CURRENT_USER), 0);
  HKEY undone = Create(L"undone");
  RegCloseKey(Create(L"undone"));
  EXPECT_EQ(EndKeyChanges(HKEY_CURRENT_USER, false), 0);
  Write(Create(L"next"), L"v", 2);
  EXPECT_EQ(Read(undone, L"v"), -1018);
  EXPECT_EQ(Open(HKEY_CURRENT_USER, L"undone", undone), 2);
}

TEST_P(LinuxRegistryTest, AForkWithinATransactionUndoesIt) {
  HKEY key = Create(L"Forked");
  ASSERT_EQ(BeginKeyChanges(key), 0);
  EXPECT_EQ(Write(key, L"lost", 1), 0);
  EXPECT_EQ(Wait(Start([&] { return Write(key, L"lost", 2) == 0 ? 1 : 0; })), 0);
  EXPECT_EQ(Write(key, L"lost", 3), 1016);
  EXPECT_EQ(EndKeyChanges(key, true), 1016);
  EXPECT_EQ(Read(key, L"lost"), -2);
  EXPECT_EQ(Write(key, L"kept", 4), 0);
}

// Each copy of a store counts its states from the start.
TEST_P(LinuxRegistryTest, WaitingEndsWhenACopiedStoreHasChanged) {
  const std::string file = m_Registry.Place() + "/user.db";
  for (const char* const next : {"old", "new"}) {
    Write(HKEY_CURRENT_USER, L"v", *next);
    ASSERT_EQ(RegFlushKey(HKEY_CURRENT_USER), 0);
    std::filesystem::copy_file(file, m_Registry.Place() + "/" + next);
  }
  Store::Forget();
  for (const char* const suffix : {"-wal", "-shm"}) std::filesystem::remove(file + suffix);
  std::filesystem::create_symlink("nowhere", file + "-shm");
  WaitForKeyChange(HKEY_CURRENT_USER, 0);
  std::filesystem::rename(m_Registry.Place() + "/old", file);
  EXPECT_EQ(WaitForKeyChange(HKEY_CURRENT_USER, 0), 0);
  EXPECT_EQ(Read(HKEY_CURRENT_USER, L"v"), 'o');
}

TEST_P(LinuxRegistryTest, LargeDataAndManyValuesComeBack) {
  HKEY key = Create(L"Many");
  ASSERT_EQ(BeginKeyChanges(key), 0);
  for (int i = 0; i < 1000; ++i) Write(key, std::to_wstring(i).c_str(), i);
  const std::string large(100'000, 'x');
  RegSetValueExW(key, L"large", 0, REG_BINARY, reinterpret_cast<const BYTE*>(large.data()), 100'000);
  ASSERT_EQ(EndKeyChanges(key, true), 0);
  for (int round = 0; round < 3; ++round)
    for (int i = 0; i < 1000; ++i) ASSERT_EQ(Read(key, std::to_wstring(i).c_str()), i);
  std::string back(100'000, '\0');
  wchar_t name[16];
  DWORD chars = 16, type = 0, size = 100'000;
  EXPECT_EQ(
      RegEnumValueW(key, 1000, name, &chars, nullptr, &type, reinterpret_cast<BYTE*>(back.data()), &size), 0);
  EXPECT_EQ(std::wstring(name), L"large") << "in the order of creation";
  EXPECT_EQ(back, large);
  ASSERT_EQ(BeginKeyChanges(key), 0);
  for (int i = 0; i < 1000; i += 3) EXPECT_EQ(RegDeleteValueW(key, std::to_wstring(i).c_str()), 0);
  ASSERT_EQ(EndKeyChanges(key, true), 0);
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(Read(key, std::to_wstring(i).c_str()), i % 3 ? i : -2);
}

TEST_P(LinuxRegistryTest, ReadingMakesNoStore) {
  HKEY key = nullptr;
  EXPECT_EQ(Open(HKEY_CURRENT_USER, L"Software", key), 2);
  EXPECT_EQ(RegDeleteValueW(HKEY_CURRENT_USER, L"x"), 2);
  EXPECT_EQ(RegDeleteKeyW(HKEY_LOCAL_MACHINE, L"x"), 2);
  EXPECT_EQ(RegFlushKey(HKEY_CURRENT_USER), 0);
  EXPECT_TRUE(std::filesystem::is_empty(m_Registry.Place()));
}

TEST_P(LinuxRegistryTest, AHandleIsNeverGivenTwice) {
  HKEY first = Create(L"a");
  RegCloseKey(first);
  for (int i = 0; i < 100; ++i) {
    HKEY next = Create(L"a");
    EXPECT_NE(next, first);
    EXPECT_EQ(RegCloseKey(first), 6);
    EXPECT_EQ(RegCloseKey(next), 0);
  }
}

TEST_P(LinuxRegistryTest, TheListOfUsersHasTheCurrentOnesTree) {
  wchar_t user[32];
  ASSERT_EQ(RegEnumKeyW(HKEY_USERS, 0, user, 32), 0);
  EXPECT_EQ(user, std::to_wstring(getuid()));
  EXPECT_EQ(RegEnumKeyW(HKEY_USERS, 1, user, 32), 259);
  Write(Create(L"Software"), L"v", 7);
  HKEY key = nullptr;
  ASSERT_EQ(Open(HKEY_USERS, (user + std::wstring(L"\\Software")).c_str(), key), 0);
  EXPECT_EQ(Read(key, L"v"), 7);
  EXPECT_EQ(Open(HKEY_USERS, L"4294967295", key), 2);
  EXPECT_EQ(RegCreateKeyExW(HKEY_USERS, L"x", 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr), 5);
  EXPECT_EQ(Write(HKEY_USERS, L"x", 1), 5);
  EXPECT_EQ(RegDeleteKeyW(HKEY_USERS, user), 5);
  EXPECT_EQ(Read(HKEY_USERS, L"x"), -2);
}

TEST_P(LinuxRegistryTest, WhatDoesNotExistHereSaysSo) {
  for (const HKEY key : {HKEY_CURRENT_USER, HKEY{}}) {
    const LONG expected = key ? 120 : 6;
    EXPECT_EQ(RegGetKeySecurity(key, 4, nullptr, nullptr), expected);
    EXPECT_EQ(RegSetKeySecurity(key, 4, nullptr), expected);
    EXPECT_EQ(RegLoadKeyW(key, L"x", L"x"), expected);
    EXPECT_EQ(RegUnLoadKeyW(key, L"x"), expected);
    EXPECT_EQ(RegReplaceKeyW(key, L"x", L"x", L"x"), expected);
    EXPECT_EQ(RegRestoreKeyW(key, L"x", 0), expected);
    EXPECT_EQ(RegSaveKeyW(key, L"x", nullptr), expected);
  }
  EXPECT_EQ(RegFlushKey(HKEY_PERFORMANCE_DATA), 6);
}

// Deeper than this nobody who walks the tree need be prepared for.
TEST_P(LinuxRegistryTest, KeysLieNoDeeperThanTheLimit) {
  std::wstring path = L"k";
  for (int depth = 2; depth <= 512; ++depth) path += L"\\k";
  HKEY key = Create(path.c_str());
  EXPECT_EQ(RegCreateKeyExW(key, L"k", 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr), 87);
}

// Names that are no text, of any length; types and data that are none.
TEST_P(LinuxRegistryTest, ATamperedStoreIsReadForWhatItIs) {
  RegCloseKey(Create(L"a"));
  Store::Forget();
  Database database;
  OpenDatabase((m_Registry.Place() + "/user.db").c_str(), SQLITE_OPEN_READWRITE, database);
  ASSERT_EQ(Execute(database.get(), R"(
      INSERT INTO value(id, key, name, folded, type, data) VALUES
        (9223372036854775807, 1, CAST(X'FF80C0414200' AS TEXT), X'0041', 'text', 'text'),
        (3, 1, hex(zeroblob(40000)), X'01', 1099511627777, 12345),
        (2, 1, X'EDA080F09F9880', X'', -1, zeroblob(0));
      INSERT INTO key(parent, name, folded) VALUES(1, hex(zeroblob(400)), 'text'), (1, '', X'0000');
      UPDATE key SET sub_keys = -5, value_count = 1e30, parent = (SELECT max(id) FROM key) WHERE id = 1;)"),
            SQLITE_OK);
  database.reset();
  const struct {
    std::wstring name;
    DWORD type;
    const char* data;
  } rows[] = {{{static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)},
               0xFFFFFFFF,
               ""},
              {std::wstring(16383, L'0'), 1, "12345"},
              {L"\xFFFD\xFFFD\xFFFD"
               L"AB",
               0, "text"}};
  DWORD index = 0;
  for (const auto& row : rows) {
    std::wstring name(16384, L'\0');
    char data[8] = "";
    DWORD chars = 16384, type = 0, size = sizeof data;
    ASSERT_EQ(RegEnumValueW(HKEY_CURRENT_USER, index++, name.data(), &chars, nullptr, &type,
                            reinterpret_cast<BYTE*>(data), &size),
              0);
    EXPECT_EQ(name.substr(0, chars), row.name);
    EXPECT_EQ(type, row.type);
    EXPECT_STREQ(data, row.data);
  }
  wchar_t subKey[256];
  EXPECT_EQ(RegEnumKeyW(HKEY_CURRENT_USER, 2, subKey, 256), 0);
  EXPECT_EQ(std::wcslen(subKey), 255u);
  EXPECT_EQ(Write(HKEY_CURRENT_USER, L"next", 5), 0);
  EXPECT_EQ(Read(HKEY_CURRENT_USER, L"next"), 5);
  EXPECT_EQ(RegDeleteValueW(HKEY_CURRENT_USER, L"A"), 0);
  WaitForKeyChange(HKEY_CURRENT_USER, 0);
  EXPECT_EQ(WaitForKeyChange(HKEY_CURRENT_USER, 0), 258) << "though it lies below itself";
}

}  // namespace
