#include "platform/platform.h"

std::vector<std::wstring> FileNamesIn(const wchar_t* folder) {
  std::vector<std::wstring> names;
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW((std::wstring(folder) + L"\\*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return names;
  do {
    if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) names.push_back(found.cFileName);
  } while (FindNextFileW(search, &found));
  FindClose(search);
  return names;
}

// What is in the user's profile is for the user alone.
bool MakePrivateFolder(const wchar_t* path) {
  SHCreateDirectoryExW(nullptr, path, nullptr);  // fails where it is there already
  const DWORD attributes = GetFileAttributesW(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}
