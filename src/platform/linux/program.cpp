#include <pwd.h>
#include <sys/random.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <string>
#include <vector>

#include "code_page.h"
#include "platform/platform.h"

namespace {

constexpr DWORD kTooSmall = 122;
constexpr DWORD kNoSuchUser = 1317;

template <class Result>
Result Fail(DWORD code, Result result) {
  SetLastError(code);
  return result;
}

}  // namespace

DWORD GetModuleFileNameW(HMODULE, wchar_t* path, DWORD size) {
  constexpr std::string_view kReplaced =
      " (deleted)";  // what the system adds when the file has been replaced
  char bytes[PATH_MAX];
  const ssize_t length = readlink("/proc/self/exe", bytes, sizeof bytes);
  std::string_view file(bytes, length > 0 ? static_cast<std::size_t>(length) : 0);
  if (file.ends_with(kReplaced)) file.remove_suffix(kReplaced.size());
  const std::wstring name = Decode(CP_UTF8, file);
  if (size == 0) return Fail(kTooSmall, DWORD{0});
  const std::size_t fits = std::min<std::size_t>(name.size(), size - 1);
  *std::copy_n(name.begin(), fits, path) = L'\0';
  return fits < name.size() ? Fail(kTooSmall, size) : static_cast<DWORD>(fits);
}

BOOL GetUserNameW(wchar_t* buffer, DWORD* size) {
  std::vector<char> texts(16384);
  passwd entry{};
  passwd* found = nullptr;
  getpwuid_r(geteuid(), &entry, texts.data(), texts.size(), &found);
  if (!found) return Fail(kNoSuchUser, 0);
  const std::wstring name = Decode(CP_UTF8, found->pw_name);
  const auto needed = static_cast<DWORD>(name.size() + 1);
  const bool fits = buffer && *size >= needed;
  *size = needed;
  if (!fits) return Fail(kTooSmall, 0);
  *std::copy(name.begin(), name.end(), buffer) = L'\0';
  return 1;
}

HRESULT CoCreateGuid(GUID* guid) {
  constexpr HRESULT kNoRandomness = static_cast<HRESULT>(0x80004005);
  if (getrandom(guid, sizeof *guid, 0) != sizeof *guid) return kNoRandomness;
  guid->Data3 = static_cast<std::uint16_t>((guid->Data3 & 0x0FFF) | 0x4000);  // the random kind
  guid->Data4[0] = static_cast<std::uint8_t>((guid->Data4[0] & 0x3F) | 0x80);
  return 0;
}

void OutputDebugStringW(const wchar_t* text) {
  std::fputs(Encode(CP_UTF8, text).c_str(), stderr);
}
