#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <string>

#include "code_page.h"
#include "platform/platform.h"

namespace {

DWORD CodeOf(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return 3;
    case EACCES:
    case EPERM:
      return 5;
    case EROFS:
      return 19;
    case ENOSPC:
    case EDQUOT:
      return 112;
    case ENAMETOOLONG:
      return 123;
    case EEXIST:
      return 183;
    default:
      return 1;
  }
}

bool HasDrive(const wchar_t* path) {
  const wchar_t letter = static_cast<wchar_t>(path[0] | 0x20);
  return letter >= L'a' && letter <= L'z' && path[1] == L':';
}

// The path as the system takes it. Empty, which the system never takes, for one that has no place here.
std::string Native(const wchar_t* path) {
  if (HasDrive(path)) return {};
  std::string native = Encode(CP_UTF8, path);
  std::replace(native.begin(), native.end(), '\\', '/');
  return native;
}

template <class Result>
Result Fail(DWORD code, Result result) {
  SetLastError(code);
  return result;
}

}  // namespace

DWORD GetFileAttributesW(const wchar_t* path) {
  if (!path) return Fail(87, INVALID_FILE_ATTRIBUTES);
  const std::string native = Native(path);
  struct stat found {};
  if (stat(native.c_str(), &found) == 0)
    return S_ISDIR(found.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL;
  const int error = errno;
  // A missing file in a folder that is there is told from one in a folder that is not.
  const std::string folder = native.substr(0, native.find_last_of('/') + 1) + ".";
  const bool folderIsThere = !native.empty() && stat(folder.c_str(), &found) == 0;
  return Fail(error == ENOENT && folderIsThere ? DWORD{2} : CodeOf(error), INVALID_FILE_ATTRIBUTES);
}

BOOL CreateDirectoryW(const wchar_t* path, const void*) {
  constexpr mode_t kAsTheUserWants = 0777;  // less what the user's mask takes away
  if (!path) return Fail(87, 0);
  return mkdir(Native(path).c_str(), kAsTheUserWants) == 0 ? 1 : Fail(CodeOf(errno), 0);
}
