// Names of files as the library's callers write them, found in the system's folders.
//
// "\" and "/" both stand between names; every other character is ordinary. A path is taken as it is. Where nothing is
// there, blanks and dots at its end do not count, and a name that is not in its folder stands for the only one there
// that differs by case alone.
#ifndef QEL_PLATFORM_LINUX_FILE_NAMES_H
#define QEL_PLATFORM_LINUX_FILE_NAMES_H

#include <sys/stat.h>

#include <string>

#include "platform/platform.h"

struct FilePlace {
  std::string path;  // as the system takes it
  DWORD missing =
      0;  // 0: it is there. 2: it is not and can be made; its last name is as given. Else why not.
};

// 3 for null and for an empty path.
FilePlace FindFile(const wchar_t* path);

// A file that nobody may write is read-only.
DWORD AttributesOf(const struct stat& file);

// The code of Windows for what a function of the system left in errno. A missing file is 3, as a missing folder.
DWORD CodeOfError(int error);

#endif  // QEL_PLATFORM_LINUX_FILE_NAMES_H
