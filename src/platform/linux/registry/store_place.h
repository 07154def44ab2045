// Where the stores are, and who may do what there.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_STORE_PLACE_H
#define QEL_PLATFORM_LINUX_REGISTRY_STORE_PLACE_H

#include <sys/types.h>

#include <string>

#include "platform/platform.h"

// The two files: the current user's tree, and the trees that all users of the machine share.
enum class StorePlace { User, Machine };

// user.db below $XDG_CONFIG_HOME, else the home folder's .config; machine.db below /etc/xdg. QEL_REGISTRY_DIR stands
// for both folders. Relative folders do not count; empty when there is none.
std::string StoreFile(StorePlace place);

// Only the user reads the user's settings. Everybody reads the machine's, whose owner writes them.
constexpr mode_t StoreFileMode(StorePlace place) {
  return place == StorePlace::User ? 0600 : 0644;
}

// Makes the folder that `file` is in, and those above it. 0 or the registry's code.
LONG MakeStoreFolder(const std::string& file, StorePlace place);

// Waits until the content of a file is on the disk. 0 or the registry's code.
LONG SyncFile(const std::string& name);
// The same for the names in the folder that `file` is in, as far as the file system can.
void SyncFolderOf(const std::string& file);

// The registry's code for what the system answered: 5, 112 or 1016.
LONG StatusOfError(int error);

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STORE_PLACE_H
