#include "metrics_pending.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "platform/platform.h"

namespace {

constexpr std::wstring_view kEnd = L"_log.xml";
constexpr std::size_t kMostPending = 100;

// Empty when it would be too long for the system.
std::wstring Combined(const std::wstring& folder, const std::wstring& name) {
  wchar_t path[260];
  return PathCombineW(path, folder.c_str(), name.c_str()) ? path : L"";
}

std::vector<std::wstring> LogsIn(const std::wstring& folder, const std::wstring& start) {
  std::vector<std::wstring> names = FileNamesIn(folder.c_str());
  std::erase_if(names, [&](const std::wstring& name) {
    return name.size() < start.size() + kEnd.size() || !name.starts_with(start) || !name.ends_with(kEnd);
  });
  return names;
}

// The time in "program_200427-1343480500_log.xml", which sorts as it passes.
std::wstring_view TimeOf(std::wstring_view name) {
  name.remove_suffix(kEnd.size());
  return name.substr(name.rfind(L'_') + 1);
}

void KeepNewest(const std::wstring& folder) {
  std::vector<std::wstring> names = LogsIn(folder, L"");
  if (names.size() <= kMostPending) return;
  const auto newer = [](const auto& a, const auto& b) { return TimeOf(a) > TimeOf(b); };
  std::sort(names.begin(), names.end(), newer);
  for (std::size_t i = kMostPending; i < names.size(); ++i) DeleteFileW(Combined(folder, names[i]).c_str());
}

}  // namespace

void MoveToPending(const std::wstring& folder, const std::wstring& program) {
  const std::vector<std::wstring> names = LogsIn(folder, program + L"_");
  if (names.empty()) return;
  const std::wstring pending = Combined(folder, L"Pending");
  MakePrivateFolder(pending.c_str());
  for (const std::wstring& name : names)
    MoveFileW(Combined(folder, name).c_str(), Combined(pending, name).c_str());
  KeepNewest(pending);
}
