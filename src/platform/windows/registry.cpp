#include <algorithm>
#include <cstring>
#include <map>
#include <mutex>

#include "platform/platform.h"

namespace {

constexpr DWORD kChanges = REG_NOTIFY_CHANGE_NAME | REG_NOTIFY_CHANGE_LAST_SET;

// The event that waits for changes below each handle. It stays, so that what happens between two calls counts.
struct Waits {
  std::mutex lock;
  std::map<HKEY, HANDLE> events;
};

Waits& AllWaits() {
  static auto* const s_Waits = new Waits;
  return *s_Waits;
}

// 0 and the handle's event, which has been told to wait.
LONG WaitingEvent(HKEY key, HANDLE& event) {
  Waits& waits = AllWaits();
  const std::lock_guard lock(waits.lock);
  HANDLE& kept = waits.events[key];
  LONG status = 0;
  if (!kept) {
    kept = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    status = RegNotifyChangeKeyValue(key, TRUE, kChanges, kept, TRUE);
  }
  event = kept;
  if (status == 0) return 0;
  CloseHandle(kept);
  waits.events.erase(key);
  return status;
}

}  // namespace

std::size_t UnitsFromBytes(wchar_t* out, std::size_t max, const BYTE* data, DWORD bytes) {
  const std::size_t count = std::min<std::size_t>(max, bytes / 2);
  if (count != 0) std::memmove(out, data, 2 * count);
  return count;
}

DWORD BytesFromUnits(BYTE* out, DWORD bytes, const wchar_t* text, std::size_t units) {
  const auto count = static_cast<DWORD>(std::min<std::size_t>(bytes, 2 * units));
  if (count != 0) std::memcpy(out, text, count);
  return count;
}

LONG OpenKeyAndCount(HKEY key, const wchar_t* name, REGSAM access, bool create, HKEY* result, DWORD* subKeys,
                     DWORD* values) {
  *result = nullptr;
  *subKeys = *values = 0;
  const LONG status = create ? RegCreateKeyExW(key, name, 0, nullptr, 0, access, nullptr, result, nullptr)
                             : RegOpenKeyExW(key, name, 0, access, result);
  if (status != 0) {
    *result = nullptr;
  } else if (RegQueryInfoKeyW(*result, nullptr, nullptr, nullptr, subKeys, nullptr, nullptr, values, nullptr,
                              nullptr, nullptr, nullptr) != 0) {
    *subKeys = *values = 0;
  }
  return status;
}

LONG BeginKeyChanges(HKEY) {
  return 0;
}

LONG EndKeyChanges(HKEY, bool) {
  return 0;
}

LONG WaitForKeyChange(HKEY key, DWORD milliseconds) {
  HANDLE event = nullptr;
  if (const LONG status = WaitingEvent(key, event)) return status;
  if (WaitForSingleObject(event, milliseconds) != WAIT_OBJECT_0) return WAIT_TIMEOUT;
  // Waiting goes on at once: a change while the caller looks at this one is not missed.
  ResetEvent(event);
  RegNotifyChangeKeyValue(key, TRUE, kChanges, event, TRUE);
  return 0;
}
