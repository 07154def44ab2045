#include "url.h"

#include <cwchar>
#include <string>
#include <utility>

#include "platform/platform.h"

UrlComponents::UrlComponents(const wchar_t* url) {
  if (!url) return;
  constexpr auto kWanted = static_cast<DWORD>(-1);
  URL_COMPONENTS parts{};
  parts.dwStructSize = sizeof parts;
  parts.dwSchemeLength = parts.dwHostNameLength = parts.dwUrlPathLength = parts.dwExtraInfoLength = kWanted;
  m_Valid = WinHttpCrackUrl(url, static_cast<DWORD>(std::wcslen(url)), 0, &parts);
  if (m_Valid != 1) return;
  m_Scheme = parts.nScheme;
  m_Port = parts.nPort;
  m_Host = std::wstring(parts.lpszHostName, parts.dwHostNameLength);
  const std::wstring_view path(parts.lpszUrlPath, parts.dwUrlPathLength);
  const std::wstring_view query(parts.lpszExtraInfo, parts.dwExtraInfoLength);
  std::wstring whole;
  whole.reserve(path.size() + query.size());
  whole.append(path).append(query);
  m_Path = CString(path);
  m_Query = CString(query);
  m_FullPath = std::move(whole);
}
