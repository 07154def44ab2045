// The functions of the registry that deal with keys.
#include <algorithm>

#include "open_keys.h"

namespace {

// Room is units with the terminator.
LONG CopyName(std::u16string_view from, wchar_t* name, DWORD room) {
  if (from.size() >= room) return kMoreData;
  *std::copy(from.begin(), from.end(), name) = L'\0';
  return 0;
}

LONG MeasureKey(const OpenKey& key, KeyExtents& extents) {
  if (key.hive) return key.hive->Measure(key.row, extents);
  extents = {{1, 0}, static_cast<DWORD>(UserNumber().size()), 0, 0};
  return 0;
}

// The list of users has one tree.
Hive& TreeOf(const OpenKey& key) {
  return key.hive ? *key.hive : Hive::Of(StorePlace::User);
}

void Put(DWORD* out, DWORD value) {
  if (out) *out = value;
}

// What does not exist here: the handle is looked at nevertheless.
LONG NotImplemented(HKEY key) {
  const UsedKey used(key, 0);
  const LONG status = used.Status();
  return status ? status : kNotImplemented;
}

}  // namespace

LONG RegCreateKeyExW(HKEY key, const wchar_t* name, DWORD, wchar_t*, DWORD, REGSAM access, const void*,
                     HKEY* result, DWORD* disposition) {
  constexpr DWORD kCreatedNew = 1;
  constexpr DWORD kOpenedExisting = 2;
  if (!result) return kInvalidParameter;
  if (!key) return kInvalidHandle;
  *result = nullptr;
  const UsedKey base(key, 0);
  if (const LONG status = base.Status()) return status;
  bool created = false;
  const LONG status = OpenHandle(*base, name, access, true, *result, created, nullptr);
  // The key itself, asked for without a name, is told as new: so it was recorded.
  if (status == 0) Put(disposition, created || !name || !*name ? kCreatedNew : kOpenedExisting);
  return status;
}

LONG RegOpenKeyExW(HKEY key, const wchar_t* name, DWORD, REGSAM access, HKEY* result) {
  if (!result) return kInvalidParameter;
  *result = nullptr;
  const UsedKey base(key, 0);
  if (const LONG status = base.Status()) return status;
  bool created = false;
  return OpenHandle(*base, name, access, false, *result, created, nullptr);
}

LONG OpenKeyAndCount(HKEY key, const wchar_t* name, REGSAM access, bool create, HKEY* result, DWORD* subKeys,
                     DWORD* values) {
  *result = nullptr;
  *subKeys = *values = 0;
  const UsedKey base(key, 0);
  if (const LONG status = base.Status()) return status;
  bool created = false;
  KeyCounts counts;
  const LONG status = OpenHandle(*base, name, access, create, *result, created, &counts);
  if (status != 0) return status;
  *subKeys = counts.subKeys;
  *values = counts.values;
  return 0;
}

LONG RegCloseKey(HKEY key) {
  const std::lock_guard lock(StoreLock());
  return CloseKeyHandle(key);
}

LONG RegDeleteKeyW(HKEY key, const wchar_t* name) {
  const UsedKey base(key, 0);
  if (const LONG status = base.Status()) return status;
  return name ? DeleteKey(*base, name) : kInvalidParameter;
}

LONG RegEnumKeyW(HKEY key, DWORD index, wchar_t* name, DWORD size) {
  const UsedKey used(key, KEY_ENUMERATE_SUB_KEYS);
  if (const LONG status = used.Status()) return status;
  if (!used->hive) {
    const std::wstring user = UserNumber();
    return index == 0 ? CopyName(std::u16string(user.begin(), user.end()), name, size) : kNoMoreItems;
  }
  std::u16string_view found;
  const LONG status = used->hive->ReadSubKeyAt(used->row, index, found);
  return status ? status : CopyName(found, name, size);
}

LONG RegQueryInfoKeyW(HKEY key, wchar_t* keyClass, DWORD* classSize, DWORD*, DWORD* subKeys, DWORD* maxSubKey,
                      DWORD* maxClass, DWORD* values, DWORD* maxValueName, DWORD* maxValueData,
                      DWORD* security, void*) {
  if (keyClass && !classSize) return kInvalidParameter;
  const UsedKey used(key, KEY_QUERY_VALUE);
  if (const LONG status = used.Status()) return status;
  KeyExtents extents;
  const bool measure = maxSubKey || maxValueName || maxValueData;
  if (const LONG status = measure ? MeasureKey(*used, extents) : CountKey(*used, extents.counts))
    return status;
  // Keys have no class here.
  if (keyClass && *classSize != 0) *keyClass = L'\0';
  Put(classSize, 0);
  Put(maxClass, 0);
  Put(security, 0);
  Put(subKeys, extents.counts.subKeys);
  Put(maxSubKey, extents.longestSubKey);
  Put(values, extents.counts.values);
  Put(maxValueName, extents.longestValueName);
  Put(maxValueData, extents.largestData);
  return 0;
}

LONG RegFlushKey(HKEY key) {
  const UsedKey used(key, 0);
  if (const LONG status = used.Status()) return status;
  KeyCounts ignored;
  if (const LONG status = CountKey(*used, ignored)) return status;
  return TreeOf(*used).Flush();
}

LONG BeginKeyChanges(HKEY key) {
  const UsedKey used(key, 0);
  if (const LONG status = used.Status()) return status;
  const LONG status = TreeOf(*used).BeginChanges();
  // Nobody else may read what is not yet sure, nor write into it.
  if (status == 0) StoreLock().lock();
  return status;
}

LONG EndKeyChanges(HKEY key, bool keep) {
  const UsedKey used(key, 0);
  if (const LONG status = used.Status()) return status;
  if (!TreeOf(*used).IsChanging()) return kInvalidParameter;
  const LONG status = TreeOf(*used).EndChanges(keep);
  StoreLock().unlock();
  return status;
}

LONG RegGetKeySecurity(HKEY key, DWORD, void*, DWORD*) {
  return NotImplemented(key);
}

LONG RegSetKeySecurity(HKEY key, DWORD, void*) {
  return NotImplemented(key);
}

LONG RegLoadKeyW(HKEY key, const wchar_t*, const wchar_t*) {
  return NotImplemented(key);
}

LONG RegUnLoadKeyW(HKEY key, const wchar_t*) {
  return NotImplemented(key);
}

LONG RegReplaceKeyW(HKEY key, const wchar_t*, const wchar_t*, const wchar_t*) {
  return NotImplemented(key);
}

LONG RegRestoreKeyW(HKEY key, const wchar_t*, DWORD) {
  return NotImplemented(key);
}

LONG RegSaveKeyW(HKEY key, const wchar_t*, const void*) {
  return NotImplemented(key);
}
