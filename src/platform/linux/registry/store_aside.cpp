#include "store_aside.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>

#include "store_place.h"

namespace {

bool Exists(const std::string& name) {
  return access(name.c_str(), F_OK) == 0;
}

bool Taken(const std::string& name) {
  return Exists(name) || Exists(name + "-wal") || Exists(name + "-shm");
}

LONG Move(const std::string& from, const std::string& to) {
  return std::rename(from.c_str(), to.c_str()) == 0 || errno == ENOENT ? 0 : StatusOfError(errno);
}

}  // namespace

std::string NameAside(const std::string& file) {
  const std::time_t now = std::time(nullptr);
  std::tm utc{};
  gmtime_r(&now, &utc);
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), ".damaged-%Y%m%dT%H%M%SZ", &utc);
  const std::string name = file + text.data();
  std::string free = name;
  for (int i = 2; Taken(free); ++i) free = name + "-" + std::to_string(i);
  return free;
}

LONG MoveAside(const std::string& file, const std::string& aside) {
  // The store first: a log that is left alone is found when the next store is made, one that is missing is not.
  for (const char* const suffix : {"", "-wal", "-shm"}) {
    if (const LONG status = Move(file + suffix, aside + suffix)) return status;
  }
  return 0;
}

LONG MoveStrayLogAside(const std::string& file) {
  if (!Exists(file + "-wal") && !Exists(file + "-shm")) return 0;
  const std::string aside = NameAside(file);
  const LONG status = Move(file + "-wal", aside + "-wal");
  return status ? status : Move(file + "-shm", aside + "-shm");
}
