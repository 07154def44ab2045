#include "open_keys.h"

#include <unistd.h>

#include "store_schema.h"

namespace {

constexpr std::size_t kLongestPath = 32767;

// What stands for one of the others.
constexpr struct {
  REGSAM generic, access;
} kGenericAccess[] = {
    {0x80000000, KEY_READ},       {0x40000000, KEY_WRITE},      {0x20000000, KEY_READ},
    {0x10000000, KEY_ALL_ACCESS}, {0x02000000, KEY_ALL_ACCESS},
};

REGSAM SpecificAccess(REGSAM access) {
  for (const auto& row : kGenericAccess)
    if ((access & row.generic) != 0) access |= row.access;
  return access & KEY_ALL_ACCESS;
}

OpenKey UserTree() {
  return {&Hive::Of(StorePlace::User), kCurrentUserRoot, 0, KEY_ALL_ACCESS};
}

KeyPlace PlaceOf(const OpenKey& key) {
  return {key.row, key.depth};
}

// Leads a path that starts at the list of users on to the tree of the user that it names. False when the list itself
// is meant; 2 when there is no such user.
LONG StepIntoUsers(OpenKey& base, std::wstring_view& path, bool& list) {
  PathParts parts(path);
  std::wstring_view user;
  list = !parts.Next(user);
  if (list) return 0;
  if (user != UserNumber()) return kNotFound;
  base = UserTree();
  path = parts.Rest();
  return 0;
}

LONG CheckPath(std::wstring_view path) {
  if (!path.empty() && path.front() == L'\\') return kBadPath;
  return path.size() > kLongestPath ? kInvalidParameter : 0;
}

}  // namespace

std::wstring UserNumber() {
  return std::to_wstring(getuid());
}

LONG FindKey(const OpenKey& from, std::wstring_view path, OpenKey& found) {
  OpenKey base = from;
  bool list = false;
  if (!base.hive)
    if (const LONG status = StepIntoUsers(base, path, list)) return status;
  found = base;
  found.access = KEY_ALL_ACCESS;
  found.watched = 0;
  if (list) return 0;
  KeyPlace place;
  const LONG status = base.hive->FindKey(PlaceOf(base), path, place);
  found.row = place.row;
  found.depth = place.depth;
  return status;
}

LONG CreateKey(const OpenKey& from, std::wstring_view path, OpenKey& found, bool& created) {
  OpenKey base = from;
  bool list = false;
  created = false;
  if (!base.hive)
    if (StepIntoUsers(base, path, list) != 0) return kAccessDenied;
  found = base;
  found.access = KEY_ALL_ACCESS;
  found.watched = 0;
  if (list) return 0;
  KeyPlace place;
  const LONG status = base.hive->CreateKey(PlaceOf(base), path, place, created);
  found.row = place.row;
  found.depth = place.depth;
  return status;
}

LONG DeleteKey(const OpenKey& from, std::wstring_view path) {
  OpenKey base = from;
  bool list = false;
  if (const LONG status = CheckPath(path)) return status;
  if (!base.hive)
    if (const LONG status = StepIntoUsers(base, path, list)) return status;
  return list ? kAccessDenied : base.hive->DeleteKey(PlaceOf(base), path);
}

LONG CountKey(const OpenKey& key, KeyCounts& counts) {
  if (key.hive) return key.hive->Count(key.row, counts);
  counts = {1, 0};
  return 0;
}

LONG OpenHandle(const OpenKey& base, const wchar_t* path, REGSAM access, bool create, HKEY& result,
                bool& created) {
  const std::wstring_view name = TextOf(path);
  if (const LONG status = CheckPath(name)) return status;
  if (access == 0) return kAccessDenied;
  OpenKey found;
  const LONG status = create ? CreateKey(base, name, found, created) : FindKey(base, name, found);
  if (status != 0) return status;
  found.access = SpecificAccess(access);
  result = MakeKeyHandle(found);
  return result ? 0 : kOutOfMemory;
}
