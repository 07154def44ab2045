#include <cwchar>
#include <string_view>

#include "platform/platform.h"

namespace {

using View = std::wstring_view;

constexpr DWORD kInvalidParameter = 87;
constexpr DWORD kInvalidUrl = 12005;
constexpr DWORD kUnknownScheme = 12006;
constexpr DWORD kLastPort = 65535;

struct Parts {
  View scheme, host, path, extra;
  INTERNET_SCHEME number;
  INTERNET_PORT port;
};

// Takes the front of `text` up to the first of the units, or all of it.
template <class... Units>
View CutBefore(View& text, Units... units) {
  std::size_t length = 0;
  while (length < text.size() && !((text[length] == units) || ...)) ++length;
  const View front = text.substr(0, length);
  text.remove_prefix(length);
  return front;
}

// `lower` is ASCII letters.
bool IsWord(View text, View lower) {
  if (text.size() != lower.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i)
    if ((text[i] | 0x20) != lower[i]) return false;
  return true;
}

INTERNET_SCHEME SchemeNumber(View scheme) {
  if (IsWord(scheme, L"http")) return INTERNET_SCHEME_HTTP;
  return IsWord(scheme, L"https") ? INTERNET_SCHEME_HTTPS : 0;
}

// `text` is what stands behind the host: nothing, or a colon with digits or without.
bool ReadPort(View text, INTERNET_SCHEME scheme, INTERNET_PORT& port) {
  DWORD number = 0;
  if (text.size() <= 1) number = scheme == INTERNET_SCHEME_HTTPS ? 443 : 80;
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] < L'0' || text[i] > L'9') return false;
    number = number * 10 + static_cast<DWORD>(text[i] - L'0');
    if (number > kLastPort) return false;
  }
  port = static_cast<INTERNET_PORT>(number);
  return text.empty() || text.front() == L':';
}

bool ReadAuthority(View text, Parts& parts) {
  if (const std::size_t at = text.find(L'@'); at != View::npos) text.remove_prefix(at + 1);
  const bool bracket = text.starts_with(L'[');
  const std::size_t close = bracket ? text.find(L']') : View::npos;
  if (bracket && (close == View::npos || close == 1)) return false;
  View port = text;
  if (bracket)
    port.remove_prefix(close + 1);
  else
    CutBefore(port, L':');
  parts.host = text.substr(0, text.size() - port.size());
  return !parts.host.empty() && ReadPort(port, parts.number, parts.port);
}

// 0, or what is wrong.
DWORD Split(View url, Parts& parts) {
  parts.scheme = CutBefore(url, L':');
  parts.number = url.empty() ? 0 : SchemeNumber(parts.scheme);
  if (parts.number == 0) return kUnknownScheme;
  if (!url.starts_with(L"://")) return kInvalidUrl;
  url.remove_prefix(3);
  if (!ReadAuthority(CutBefore(url, L'/', L'?', L'#'), parts)) return kInvalidUrl;
  parts.path = CutBefore(url, L'?', L'#');
  parts.extra = url;
  return 0;
}

void Give(View part, wchar_t*& pointer, DWORD& length) {
  if (pointer || length == 0) return;
  pointer = const_cast<wchar_t*>(part.data());
  length = static_cast<DWORD>(part.size());
}

}  // namespace

BOOL WinHttpCrackUrl(const wchar_t* url, DWORD length, DWORD, URL_COMPONENTS* components) {
  Parts parts{};
  const bool asked = url && components && components->dwStructSize == sizeof *components;
  const DWORD error = asked ? Split(length > 0 ? View(url, length) : View(url), parts) : kInvalidParameter;
  if (error != 0) {
    SetLastError(error);
    return 0;
  }
  components->nScheme = parts.number;
  components->nPort = parts.port;
  Give(parts.scheme, components->lpszScheme, components->dwSchemeLength);
  Give(parts.host, components->lpszHostName, components->dwHostNameLength);
  Give(parts.path, components->lpszUrlPath, components->dwUrlPathLength);
  Give(parts.extra, components->lpszExtraInfo, components->dwExtraInfoLength);
  return 1;
}
