// What the functions of the registry have in common: the way from a handle and a path to a key, over all trees.
//
// Guarded by StoreLock().
#ifndef QEL_PLATFORM_LINUX_REGISTRY_OPEN_KEYS_H
#define QEL_PLATFORM_LINUX_REGISTRY_OPEN_KEYS_H

#include <mutex>
#include <string>
#include <string_view>

#include "handles.h"
#include "hive.h"
#include "status.h"

// Null stands for no text.
inline std::wstring_view TextOf(const wchar_t* text) {
  return text ? std::wstring_view(text) : std::wstring_view();
}

// The handle's key for the length of a call, under the lock. Status() is 6, or 5 where the handle was not opened for
// all of `needed`.
class UsedKey {
 public:
  UsedKey(HKEY handle, REGSAM needed) : m_Lock(StoreLock()), m_Key(FindKeyHandle(handle)), m_Needed(needed) {}

  LONG Status() const noexcept {
    if (!m_Key) return kInvalidHandle;
    return (m_Key->access & m_Needed) == m_Needed ? 0 : kAccessDenied;
  }
  OpenKey& operator*() const noexcept { return *m_Key; }
  OpenKey* operator->() const noexcept { return m_Key; }

 private:
  std::lock_guard<StoreMutex> m_Lock;
  OpenKey* m_Key;
  REGSAM m_Needed;
};

// The single sub-key of HKEY_USERS.
std::wstring UserNumber();

// The key at the end of the path, with all rights, and what it holds where `counts` is not null; as Hive::FindKey,
// Hive::CreateKey and Hive::DeleteKey.
LONG FindKey(const OpenKey& base, std::wstring_view path, OpenKey& found, KeyCounts* counts = nullptr);
LONG CreateKey(const OpenKey& base, std::wstring_view path, OpenKey& found, bool& created,
               KeyCounts* counts = nullptr);
LONG DeleteKey(const OpenKey& base, std::wstring_view path);
LONG CountKey(const OpenKey& key, KeyCounts& counts);

// RegOpenKeyExW and RegCreateKeyExW in one; `created` says which it was. `counts` stay as they are where the access
// does not allow to ask; null asks for none.
LONG OpenHandle(const OpenKey& base, const wchar_t* path, REGSAM access, bool create, HKEY& result,
                bool& created, KeyCounts* counts);

#endif  // QEL_PLATFORM_LINUX_REGISTRY_OPEN_KEYS_H
