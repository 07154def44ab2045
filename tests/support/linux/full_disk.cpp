#include "support/linux/full_disk.h"

#include <sqlite3.h>

#include <map>

namespace {

sqlite3_vfs* s_System = nullptr;
sqlite3_vfs s_Full;
std::map<const sqlite3_io_methods*, sqlite3_io_methods> s_Methods;
const sqlite3_io_methods* s_Original = nullptr;
std::int64_t s_Room = 0;
std::int64_t s_Used = 0;
std::int64_t s_Needed = 0;
int s_Syncs = 0;

bool Grow(std::int64_t bytes) {
  if (s_Used + bytes > s_Room) {
    if (s_Needed == 0) s_Needed = s_Used + bytes;
    return false;
  }
  s_Used += bytes;
  return true;
}

int Write(sqlite3_file* file, const void* data, int size, sqlite3_int64 offset) {
  sqlite3_int64 now = 0;
  s_Original->xFileSize(file, &now);
  if (offset + size > now && !Grow(offset + size - now)) return SQLITE_FULL;
  return s_Original->xWrite(file, data, size, offset);
}

int Sync(sqlite3_file* file, int flags) {
  ++s_Syncs;
  return s_Original->xSync(file, flags);
}

int Map(sqlite3_file* file, int region, int size, int extend, void volatile** memory) {
  const int code = s_Original->xShmMap(file, region, size, 0, memory);
  if (*memory || !extend || (code & 0xFF) == SQLITE_READONLY) return code;
  return Grow(size) ? s_Original->xShmMap(file, region, size, extend, memory) : SQLITE_IOERR_SHMSIZE;
}

// The files stay the system's own: all but their two functions.
int OpenFile(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* given) {
  const int code = s_System->xOpen(s_System, name, file, flags, given);
  if (!file->pMethods) return code;
  if (!s_Original || file->pMethods->xShmMap) s_Original = file->pMethods;
  sqlite3_io_methods& methods = s_Methods.try_emplace(file->pMethods, *file->pMethods).first->second;
  methods.xWrite = Write;
  methods.xSync = Sync;
  if (methods.xShmMap) methods.xShmMap = Map;
  file->pMethods = &methods;
  return code;
}

}  // namespace

FullDisk::FullDisk(std::int64_t bytes) {
  s_Room = bytes;
  s_Used = s_Needed = s_Syncs = 0;
  s_System = sqlite3_vfs_find(nullptr);
  s_Full = *s_System;
  s_Full.zName = "full";
  s_Full.xOpen = OpenFile;
  sqlite3_vfs_register(&s_Full, 1);
}

FullDisk::~FullDisk() {
  sqlite3_vfs_unregister(&s_Full);
  sqlite3_vfs_register(s_System, 1);
}

std::int64_t FullDisk::Needed() {
  return s_Needed;
}

int FullDisk::Syncs() {
  return s_Syncs;
}
