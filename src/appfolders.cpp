#include "appfolders.h"

#include <algorithm>
#include <mutex>
#include <string_view>

#include "exceptions.h"
#include "platform/platform.h"

#define QEL_SOURCE L"src/appfolders"

namespace {

constexpr int kPathRoom = 260;  // units, terminator included, of every path the system hands out here
constexpr std::wstring_view kSeparators = L"\\/";

bool IsFolder(const CString& path) {
  const DWORD attributes = GetFileAttributesW(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// The length of the longest part of `path`, whole folders from the start, that exists; 0 when none does.
std::size_t ExistingPart(std::wstring_view path) {
  while (!path.empty() && !IsFolder(CString(path))) {
    const std::size_t end = path.find_last_of(kSeparators);
    path = path.substr(0, end == path.npos ? 0 : path.find_last_not_of(kSeparators, end) + 1);
  }
  return path.size();
}

struct ItemList {
  ~ItemList() { CoTaskMemFree(list); }
  LPITEMIDLIST list = nullptr;
};

}  // namespace

boost::basic_string_ref<wchar_t> IAppFolders::GetPath(boost::basic_string_ref<wchar_t> path) const {
  QEL_REQUIRE(m_bInit != false, L"m_bInit != false");
  return path;
}

CString GetPersonalPath() {
  ItemList documents;
  if (SHGetSpecialFolderLocation(nullptr, CSIDL_PERSONAL, &documents.list) < 0) return L"C:\\";
  wchar_t path[kPathRoom] = L"";
  // Kept: the message names the other function, because crash reports are grouped by it.
  if (!SHGetPathFromIDListW(documents.list, path)) QEL_RAISE(qel_exception, L"GetLogFilePath() Failed");
  // What is too long becomes empty, to which the rest would be appended: a path of nowhere.
  if (!PathAppendW(path, L"Qelmar") || !PathAppendW(path, L"9.0")) return {};
  CreateDir(path);
  return path;
}

CString GetLogFilePath() {
  static std::mutex s_Lock;
  static CString s_Path;
  const std::lock_guard lock(s_Lock);
  if (!s_Path.IsEmpty()) return s_Path;
  const CString personal = GetPersonalPath();
  if (personal.IsEmpty()) return personal;
  s_Path = personal + L"\\Log";
  CreateDir(s_Path);
  return s_Path;
}

bool GetLogFilePath(wchar_t* buffer) {
  if (!buffer) return false;
  const CString path = GetLogFilePath().Left(kPathRoom - 1);
  std::copy_n(path.GetString(), path.GetLength() + 1, buffer);
  return true;
}

bool CreateDir(const wchar_t* path) {
  const std::wstring_view whole(path ? path : L"");
  std::size_t made = ExistingPart(whole);
  while (made < whole.size()) {
    const std::size_t name = whole.find_first_not_of(kSeparators, made);
    if (name == whole.npos) break;
    made = std::min(whole.find_first_of(kSeparators, name), whole.size());
    const CString folder(whole.substr(0, made));
    // Another process may have made it in between.
    if (!CreateDirectoryW(folder, nullptr) && !IsFolder(folder)) return false;
  }
  return made > 0;
}
