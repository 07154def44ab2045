#include <algorithm>
#include <chrono>
#include <thread>

#include "open_keys.h"
#include "store_schema.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kBetweenLooks{100};
constexpr DWORD kNoLimit = 0xFFFFFFFF;

// 0 when something has changed since the last look through this handle, 258 when nothing has.
LONG Look(HKEY handle) {
  const UsedKey key(handle, KEY_NOTIFY);
  if (const LONG status = key.Status()) return status;
  // The list of users never changes; its one tree may.
  Hive& hive = key->hive ? *key->hive : Hive::Of(StorePlace::User);
  const std::int64_t row = key->hive ? key->row : kCurrentUserRoot;
  std::uint64_t changes = 0;
  if (const LONG status = hive.CountChanges(changes)) return status;
  const bool first = key->watchedChanges == 0;
  if (changes == key->watchedChanges) return kTimeout;
  std::uint64_t digest = 0;
  const LONG status = hive.Digest(row, digest);
  // That the key itself is gone is a change too, told once.
  if (status == kKeyDeleted && !first) {
    key->watchedChanges = 0;
    return 0;
  }
  if (status != 0) return status;
  const bool same = first || digest == key->watchedDigest;
  key->watchedChanges = changes;
  key->watchedDigest = digest;
  return same ? kTimeout : 0;
}

}  // namespace

LONG WaitForKeyChange(HKEY key, DWORD milliseconds) {
  const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
  for (;;) {
    if (const LONG status = Look(key); status != kTimeout) return status;
    auto pause = std::chrono::duration_cast<Clock::duration>(kBetweenLooks);
    if (milliseconds != kNoLimit) pause = std::min(pause, end - Clock::now());
    if (pause <= Clock::duration::zero()) return kTimeout;
    std::this_thread::sleep_for(pause);
  }
}
