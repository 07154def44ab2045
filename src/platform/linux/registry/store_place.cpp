#include "store_place.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "platform/linux/user_folders.h"
#include "store_status.h"

namespace {

std::string UserFolder() {
  const std::string folder = ConfigFolder();
  return folder.empty() ? "" : folder + "/qelcoretypes";
}

std::string StoreFolder(StorePlace place) {
  if (std::string folder = FolderFrom("QEL_REGISTRY_DIR"); !folder.empty()) return folder;
  return place == StorePlace::User ? UserFolder() : "/etc/xdg/qelcoretypes";
}

}  // namespace

std::string StoreFile(StorePlace place) {
  const std::string folder = StoreFolder(place);
  return folder.empty() ? "" : folder + (place == StorePlace::User ? "/user.db" : "/machine.db");
}

LONG MakeStoreFolder(const std::string& file, StorePlace place) {
  const mode_t mode = place == StorePlace::User ? 0700 : 0755;
  for (std::size_t end = file.find('/', 1); end != std::string::npos; end = file.find('/', end + 1)) {
    const std::string folder = file.substr(0, end);
    struct stat state {};
    // Asked first: to make a folder that is there fails in other ways where nothing may be made.
    if (stat(folder.c_str(), &state) == 0) continue;
    if (mkdir(folder.c_str(), mode) != 0 && errno != EEXIST) return StatusOfError(errno);
    SyncFolderOf(folder);
  }
  return 0;
}

LONG SyncFile(const std::string& name) {
  const int handle = open(name.c_str(), O_RDWR | O_CLOEXEC);
  if (handle < 0) return StatusOfError(errno);
  const LONG status = fsync(handle) == 0 ? 0 : StatusOfError(errno);
  close(handle);
  return status;
}

void SyncFolderOf(const std::string& file) {
  const std::string folder = file.substr(0, std::max<std::size_t>(file.rfind('/'), 1));
  const int handle = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return;
  fsync(handle);
  close(handle);
}

LONG StatusOfError(int error) {
  if (error == EACCES || error == EPERM || error == EROFS) return kAccessDenied;
  if (error == ENOSPC || error == EDQUOT) return kDiskFull;
  return kStoreFailed;
}
