// Kills a process that writes settings, again and again, while another reads and writes beside it: what a commit has
// acknowledged must be there, a change is there as a whole or not at all, and nobody may get stuck.
//   qel_store_kill [kills]
#include <sys/mman.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <random>

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

std::string Insert(const std::string& name) {
  return "INSERT INTO value(key, name, folded, type, data) VALUES(1, '" + name + "', CAST('" + name +
         "' AS BLOB), 1, zeroblob(80));";
}

bool Change(const std::string& name) {
  const std::lock_guard lock(StoreLock());
  Store& store = UserStore();
  if (store.BeginWrite() != 0) return false;
  std::string sql;
  for (int i = 0; i < kGroup; ++i) sql += Insert(name + "." + std::to_string(i));
  return Execute(store.Connection(), sql.c_str()) == SQLITE_OK && store.Commit() == 0;
}

// Values that start with `name`, which no other value does.
std::int64_t Found(const std::string& name) {
  return Count(("SELECT count(*) FROM value WHERE key = 1 AND folded BETWEEN CAST('" + name +
                "' AS BLOB) AND CAST('" + name + "~' AS BLOB)")
                   .c_str());
}

int Write(const std::string& name, Shared& shared) {
  for (int i = 0;; ++i) {
    shared.writing = true;
    if (!Change(name + std::to_string(i))) ++shared.failures;
    ++shared.acknowledged;
    shared.writing = false;
    if (i % 20 == 19 && UserStore().Flush() != 0) ++shared.failures;
  }
}

int WriteBeside(Shared& shared) {
  while (!shared.stop) {
    const auto start = Clock::now();
    const std::string name = "beside" + std::to_string(shared.beside) + ".";
    if (!Change(name)) ++shared.failures;
    if (Found(name) != kGroup) ++shared.failures;
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
  const std::string name = "kill" + std::to_string(result.kills) + ".";
  shared.acknowledged = 0;
  const pid_t child = Start([&] { return Write(name, shared); });
  usleep(std::uniform_int_distribution<useconds_t>(0, 30'000)(random));
  kill(child, SIGKILL);
  Wait(child);
  ++result.kills;
  result.inTheMiddle += shared.writing;
  result.acknowledged += shared.acknowledged;
  const std::int64_t found = Found(name);
  if (found < shared.acknowledged * kGroup) ++result.lost;
  if (found % kGroup != 0 || found > (shared.acknowledged + 1) * kGroup) ++result.halves;
}

}  // namespace

int main(int count, char** arguments) {
  const int kills = count > 1 ? std::atoi(arguments[1]) : 500;
  const unsigned seed = std::random_device()();
  std::mt19937 random(seed);
  const TempRegistry registry;
  Store::Forget();
  void* const memory =
      mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  auto& shared = *new (memory) Shared();
  const pid_t beside = Start([&] { return WriteBeside(shared); });
  const auto start = Clock::now();
  Result result;
  while (result.kills < kills) KillOne(shared, random, result);
  shared.stop = true;
  const bool stuck = Wait(beside) != 0;
  const bool allBeside = Found("beside") == shared.beside * kGroup;
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
