#include "program_file.h"

#include "platform/platform.h"

std::wstring ProgramFileName() {
  constexpr DWORD kMost = 32768;  // no path is longer
  std::wstring path(260, L'\0');
  DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  if (length == path.size()) {
    path.resize(kMost);
    length = GetModuleFileNameW(nullptr, path.data(), kMost);
  }
  path.resize(length);
  return path.substr(path.find_last_of(L"\\/") + 1);
}

std::wstring ProgramName() {
  const std::wstring name = ProgramFileName();
  const std::size_t point = name.rfind(L'.');
  return name.substr(0, point == 0 ? name.npos : point);
}
