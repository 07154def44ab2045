#include <unistd.h>

#include <algorithm>
#include <cwchar>
#include <string_view>

#include "platform/platform.h"

namespace {

constexpr DWORD kBufferOverflow = 111;
constexpr int kHostNameRoom = 256;

wchar_t UpperAscii(wchar_t unit) {
  return unit >= L'a' && unit <= L'z' ? static_cast<wchar_t>(unit - L'a' + L'A') : unit;
}

}  // namespace

BOOL GetComputerNameW(wchar_t* buffer, DWORD* size) {
  char host[kHostNameRoom] = "";
  gethostname(host, kHostNameRoom - 1);  // on failure the text stays empty
  const std::string_view label = std::string_view(host).substr(0, std::string_view(host).find('.'));
  const std::string_view name = label.substr(0, MAX_COMPUTERNAME_LENGTH);
  if (name.empty()) return 0;
  const auto length = static_cast<DWORD>(name.size());
  if (!buffer || *size <= length) {
    *size = length + 1;
    SetLastError(kBufferOverflow);
    return 0;
  }
  std::transform(name.begin(), name.end(), buffer, UpperAscii);
  buffer[length] = L'\0';
  *size = length;
  return 1;
}
