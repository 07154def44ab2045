#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <string>
#include <string_view>

#include "platform/linux/file_names.h"
#include "platform/platform.h"

namespace {

// A folder named after a drive would come up wherever the program happens to stand.
bool HasDrive(std::wstring_view path) {
  const auto letter = static_cast<wchar_t>(path[0] | 0x20);
  return letter >= L'a' && letter <= L'z' && path.substr(1).starts_with(L':');
}

template <class Result>
Result Fail(DWORD code, Result result) {
  SetLastError(code);
  return result;
}

}  // namespace

DWORD GetFileAttributesW(const wchar_t* path) {
  const FilePlace place = FindFile(path);
  if (place.missing) return Fail(place.missing, INVALID_FILE_ATTRIBUTES);
  struct stat found {};
  if (stat(place.path.c_str(), &found) != 0) return Fail(CodeOfError(errno), INVALID_FILE_ATTRIBUTES);
  return AttributesOf(found);
}

BOOL CreateDirectoryW(const wchar_t* path, const void*) {
  constexpr mode_t kAsTheUserWants = 0777;  // less what the user's mask takes away
  std::wstring_view name(path ? path : L"");
  if (name.empty() || HasDrive(name)) return Fail(3, 0);
  const std::size_t end = name.find_last_not_of(L"\\/") + 1;  // a separator may stand behind it
  name = name.substr(0, std::max<std::size_t>(1, end));
  const FilePlace place = FindFile(std::wstring(name).c_str());
  if (!place.missing) return Fail(183, 0);
  if (place.missing != 2) return Fail(place.missing, 0);
  return mkdir(place.path.c_str(), kAsTheUserWants) == 0 ? 1 : Fail(CodeOfError(errno), 0);
}
