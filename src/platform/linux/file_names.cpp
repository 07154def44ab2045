#include "platform/linux/file_names.h"

#include <dirent.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string_view>

#include "code_page.h"
#include "platform/linux/registry/names.h"

namespace {

constexpr DWORD kNoFile = 2;
constexpr DWORD kNoFolder = 3;

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

// 0, or the error of the system.
int ErrorOf(const std::string& path) {
  struct stat found {};
  return stat(path.c_str(), &found) == 0 ? 0 : errno;
}

// The only name in the folder that is `name` in some case; empty for none and for several.
std::string NameInAnyCase(const std::string& folder, std::string_view name) {
  const std::unique_ptr<DIR, CloseFolder> list(opendir(folder.empty() ? "." : folder.c_str()));
  const FoldedName wanted(Decode(CP_UTF8, name));
  std::string found;
  while (const dirent* const entry = list ? readdir(list.get()) : nullptr) {
    const std::string_view each(entry->d_name);
    if (FoldedName(Decode(CP_UTF8, each)).Bytes() != wanted.Bytes()) continue;
    if (!found.empty()) return {};
    found = each;
  }
  return found;
}

std::string_view WithoutEnd(std::string_view path) {
  return path.substr(0, path.find_last_not_of(" .") + 1);
}

// Name by name from the start.
FilePlace Search(std::string_view path) {
  FilePlace place;
  for (std::size_t at = 0; at < path.size();) {
    const std::size_t end = std::min(path.find('/', at), path.size());
    const std::string_view name = path.substr(at, end - at);
    if (!name.empty() && ErrorOf(place.path + std::string(name)) != 0) {
      const std::string other = NameInAnyCase(place.path, name);
      if (other.empty() && end < path.size()) return {{}, kNoFolder};
      if (other.empty()) return {place.path + std::string(name), kNoFile};
      place.path += other;
    } else {
      place.path += name;
    }
    if (end < path.size()) place.path += '/';
    at = end + 1;
  }
  const int error = ErrorOf(place.path);
  place.missing = error == ENOENT ? kNoFile : error ? CodeOfError(error) : 0;
  return place;
}

}  // namespace

FilePlace FindFile(const wchar_t* path) {
  std::string native = path ? Encode(CP_UTF8, path) : std::string();
  std::replace(native.begin(), native.end(), '\\', '/');
  const int error = ErrorOf(native);
  if (error == 0) return {std::move(native), 0};
  if (error != ENOENT) return {std::move(native), CodeOfError(error)};
  const std::string_view name = WithoutEnd(native);
  if (name.empty()) return {{}, kNoFolder};
  FilePlace asGiven = Search(native);
  if (!asGiven.missing || name.size() == native.size()) return asGiven;
  FilePlace cut = Search(name);
  return cut.missing ? asGiven : cut;
}

DWORD AttributesOf(const struct stat& file) {
  if (S_ISDIR(file.st_mode)) return FILE_ATTRIBUTE_DIRECTORY;
  const bool writable = (file.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0;
  return writable ? FILE_ATTRIBUTE_ARCHIVE : FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_READONLY;
}

DWORD CodeOfError(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return kNoFolder;
    case EMFILE:
    case ENFILE:
      return 4;
    case EACCES:
    case EPERM:
    case EISDIR:
      return 5;
    case EROFS:
      return 19;
    case ETXTBSY:
      return 32;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return 112;
    case ENAMETOOLONG:
      return 123;
    case EEXIST:
      return 183;
    default:
      return 1117;
  }
}
