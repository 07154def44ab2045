#include "open_keys.h"

#include <unistd.h>

#include "store_schema.h"

namespace {

constexpr std::size_t kLongestPath = 32767;
constexpr KeyCounts kCountsOfList = {1, 0};  // of HKEY_USERS

// What stands for one of the others.
constexpr struct {
  REGSAM generic, access;
} kGenericAccess[] = {
    {0x80000000, KEY_READ},       {0x40000000, KEY_WRITE},      {0x20000000, KEY_READ},
    {0x10000000, KEY_ALL_ACCESS}, {0x02000000, KEY_ALL_ACCESS},
};

REGSAM SpecificAccess(REGSAM access) {
  constexpr REGSAM kGeneric = 0xF2000000;
  if ((access & kGeneric) == 0) return access;
  for (const auto& row : kGenericAccess)
    if ((access & row.generic) != 0) access |= row.access;
  return access;
}

OpenKey UserTree() {
  return {&Hive::Of(StorePlace::User), kCurrentUserRoot, 0, KEY_ALL_ACCESS};
}

KeyPlace PlaceOf(const OpenKey& key) {
  return {key.row, key.depth};
}

// Where the search for a path from `from` begins: the list of users has one tree, so that such a path goes on from its
// root. 2 when there is no such user.
struct Start {
  OpenKey base;
  std::wstring_view path;
  LONG status = 0;
  bool isList = false;  // the list itself is meant

  Start(const OpenKey& from, std::wstring_view wanted) : base(from), path(wanted) {
    base.access = KEY_ALL_ACCESS;
    base.watchedChanges = 0;
    if (base.hive) return;
    PathParts parts(path);
    std::wstring_view user;
    isList = !parts.Next(user);
    if (isList) return;
    if (user != UserNumber()) status = kNotFound;
    base = UserTree();
    path = parts.Rest();
  }
};

LONG CheckPath(std::wstring_view path) {
  if (!path.empty() && path.front() == L'\\') return kBadPath;
  return path.size() > kLongestPath ? kInvalidParameter : 0;
}

}  // namespace

std::wstring UserNumber() {
  return std::to_wstring(getuid());
}

LONG FindKey(const OpenKey& from, std::wstring_view path, OpenKey& found, KeyCounts* counts) {
  const Start start(from, path);
  found = start.base;
  if (start.status == 0 && start.isList && counts) *counts = kCountsOfList;
  if (start.status != 0 || start.isList) return start.status;
  KeyPlace place;
  const LONG status = found.hive->FindKey(PlaceOf(start.base), start.path, place, counts);
  found.row = place.row;
  found.depth = place.depth;
  return status;
}

LONG CreateKey(const OpenKey& from, std::wstring_view path, OpenKey& found, bool& created,
               KeyCounts* counts) {
  const Start start(from, path);
  found = start.base;
  created = false;
  if (start.status != 0) return kAccessDenied;
  if (start.isList && counts) *counts = kCountsOfList;
  if (start.isList) return 0;
  KeyPlace place;
  const LONG status = found.hive->CreateKey(PlaceOf(start.base), start.path, place, created, counts);
  found.row = place.row;
  found.depth = place.depth;
  return status;
}

LONG DeleteKey(const OpenKey& from, std::wstring_view path) {
  if (const LONG status = CheckPath(path)) return status;
  const Start start(from, path);
  if (start.status != 0) return start.status;
  return start.isList ? kAccessDenied : start.base.hive->DeleteKey(PlaceOf(start.base), start.path);
}

LONG CountKey(const OpenKey& key, KeyCounts& counts) {
  if (key.hive) return key.hive->Count(key.row, counts);
  counts = kCountsOfList;
  return 0;
}

LONG OpenHandle(const OpenKey& base, const wchar_t* path, REGSAM access, bool create, HKEY& result,
                bool& created, KeyCounts* counts) {
  const std::wstring_view name = TextOf(path);
  if (const LONG status = CheckPath(name)) return status;
  access = SpecificAccess(access);
  if (access == 0) return kAccessDenied;
  if ((access & KEY_QUERY_VALUE) == 0) counts = nullptr;
  OpenKey found;
  const LONG status =
      create ? CreateKey(base, name, found, created, counts) : FindKey(base, name, found, counts);
  if (status != 0) return status;
  found.access = access;
  result = MakeKeyHandle(found);
  return result ? 0 : kOutOfMemory;
}
