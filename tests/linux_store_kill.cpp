// Kills a process that writes settings, again and again, while another reads and writes beside it: what a commit has
// acknowledged must be there, a change is there as a whole or not at all, and nobody may get stuck.
//   qel_store_kill [kills]
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <random>

#include "platform/platform.h"
#include "support/linux/raw_store.h"
#include "support/temp_registry.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kGroup = 5;  // values of one change

// What the processes tell each other.
struct Shared {
  std::atomic<int> acknowledged;  // changes of the process that will be killed
  std::atomic<bool> writing;      // it is between the start and the end of one
  std::atomic<int> beside;        // changes of the other
  std::atomic<int> failures;      // of either
  std::atomic<long> longest;      // microseconds that the other had to wait
  std::atomic<bool> stop;
};

HKEY Key(const std::wstring& name) {
  HKEY key = nullptr;
  RegCreateKeyExW(HKEY_CURRENT_USER, name.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
  return key;
}

std::wstring ValueName(int change, int value) {
  return std::to_wstring(change) + L'.' + std::to_wstring(value);
}

// Several values, all or none.
bool Change(HKEY key, int change) {
  LONG status = BeginKeyChanges(key);
  for (int i = 0; i < kGroup && status == 0; ++i)
    status =
        RegSetValueExW(key, ValueName(change, i).c_str(), 0, REG_DWORD, reinterpret_cast<BYTE*>(&change), 4);
  return EndKeyChanges(key, status == 0) == 0 && status == 0;
}

bool IsThere(HKEY key, int change) {
  for (int i = 0; i < kGroup; ++i) {
    int data = -1;
    DWORD size = sizeof(data);
    RegQueryValueExW(key, ValueName(change, i).c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(&data),
                     &size);
    if (data != change) return false;
  }
  return true;
}

int Values(HKEY key) {
  DWORD values = 0;
  return RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values, nullptr,
                          nullptr, nullptr, nullptr) == 0
             ? static_cast<int>(values)
             : -1;
}

int Write(const std::wstring& name, Shared& shared) {
  const HKEY key = Key(name);
  for (int i = 0;; ++i) {
    shared.writing = true;
    if (!Change(key, i)) ++shared.failures;
    ++shared.acknowledged;
    shared.writing = false;
    if (i % 20 == 19 && RegFlushKey(key) != 0) ++shared.failures;
  }
}

int WriteBeside(Shared& shared) {
  const HKEY key = Key(L"beside");
  while (!shared.stop) {
    const auto start = Clock::now();
    if (!Change(key, shared.beside)) ++shared.failures;
    if (!IsThere(key, shared.beside)) ++shared.failures;
    const auto taken = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start).count();
    if (taken > shared.longest) shared.longest = taken;
    ++shared.beside;
    usleep(500);
  }
  return 0;
}

struct Result {
  int kills = 0, inTheMiddle = 0, lost = 0, halves = 0;
  long acknowledged = 0;
};

void KillOne(Shared& shared, std::mt19937& random, Result& result) {
  const std::wstring name = L"killed\\" + std::to_wstring(result.kills);
  shared.acknowledged = 0;
  const pid_t child = Start([&] { return Write(name, shared); });
  usleep(std::uniform_int_distribution<useconds_t>(0, 30'000)(random));
  kill(child, SIGKILL);
  Wait(child);
  ++result.kills;
  result.inTheMiddle += shared.writing;
  result.acknowledged += shared.acknowledged;
  const int acknowledged = shared.acknowledged;
  const HKEY key = Key(name);
  const int found = Values(key);
  for (int i = 0; i < acknowledged; i += 7) result.lost += !IsThere(key, i);
  result.lost += found < acknowledged * kGroup;
  result.halves += found % kGroup != 0 || found > (acknowledged + 1) * kGroup;
  RegCloseKey(key);
}

}  // namespace

int main(int count, char** arguments) {
  const int kills = count > 1 ? std::atoi(arguments[1]) : 500;
  const unsigned seed = std::random_device()();
  std::mt19937 random(seed);
  const TempRegistry registry;
  auto& shared = SharedByProcesses<Shared>();
  const pid_t beside = Start([&] { return WriteBeside(shared); });
  const auto start = Clock::now();
  Result result;
  while (result.kills < kills) KillOne(shared, random, result);
  shared.stop = true;
  const bool stuck = Wait(beside) != 0;
  const bool allBeside = Values(Key(L"beside")) == shared.beside * kGroup;
  const std::wstring integrity = ReportOnStore(false).integrity;
  std::printf("seed %u, %.1f s: %d writers killed, %d of them in the middle of a change\n", seed,
              std::chrono::duration<double>(Clock::now() - start).count(), result.kills, result.inTheMiddle);
  std::printf("%ld changes acknowledged, lost in %d cases, half there in %d; integrity %ls\n",
              result.acknowledged, result.lost, result.halves, integrity.c_str());
  std::printf("beside it: %d changes, %s, longest wait %.1f ms; %d failures\n", shared.beside.load(),
              allBeside ? "all there" : "SOME LOST", static_cast<double>(shared.longest) / 1000,
              shared.failures.load());
  return result.lost || result.halves || stuck || !allBeside || shared.failures || integrity != L"ok";
}
