#include "bugtrap.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "code_page.h"
#include "iappcontext.h"
#include "platform/platform.h"
#include "program_file.h"

namespace {

constexpr wchar_t kReplacement = 0xFFFD;

TBugTrapHooks s_Hooks;

std::wstring DefaultMetricsFolder() {
  LPITEMIDLIST list = nullptr;
  wchar_t path[260] = L"";
  if (SHGetSpecialFolderLocation(nullptr, CSIDL_LOCAL_APPDATA, &list) < 0) return {};
  const bool found = SHGetPathFromIDListW(list, path) && PathAppendW(path, L"QelMetrics");
  CoTaskMemFree(list);
  return found ? path : L"";
}

// What the application says of itself, or what is known without one.
TProgramInfo ProgramInfo() {
  return IAppContext::IsValidAppContext() ? GetProgInfo() : TProgramInfo();
}

std::wstring DefaultId() {
  const std::wstring name(ProgramInfo().ProgramName.View());
  return name.empty() ? ProgramName() : name;
}

std::wstring DefaultName() {
  const std::wstring title(ProgramInfo().ProgramTitle.View());
  return title.empty() ? DefaultId() : title;
}

std::wstring DefaultVersion() {
  return std::wstring(ProgramInfo().GetSysVersion().GetAppVerInfo().View());
}

std::wstring DefaultBuild() {
  return std::wstring(ProgramInfo().GetSysVersion().GetAppVerDate().View());
}

std::wstring DefaultConfig() {
  return ProgramInfo().DemoMode ? L"Demo" : L"Full";
}

void AppendHex(std::wstring& text, std::uint32_t number, int digits) {
  for (int shift = 4 * digits - 4; shift >= 0; shift -= 4) text += L"0123456789ABCDEF"[number >> shift & 15];
}

std::wstring NewGuidText() {
  GUID guid{};
  CoCreateGuid(&guid);
  std::wstring text;
  AppendHex(text, static_cast<std::uint32_t>(guid.Data1), 8);
  AppendHex(text += L'-', guid.Data2, 4);
  AppendHex(text += L'-', guid.Data3, 4);
  text += L'-';
  for (int i = 0; i < 8; ++i) {
    if (i == 2) text += L'-';
    AppendHex(text, guid.Data4[i], 2);
  }
  return text;
}

std::wstring DefaultSession() {
  static const std::wstring s_Session = NewGuidText();
  return s_Session;
}

std::wstring Answered(TBugTrapHooks::Answer hook, TBugTrapHooks::Answer otherwise) {
  return hook ? hook() : otherwise();
}

bool IsForbidden(wchar_t unit) {
  const bool control = unit < L' ' && unit != L'\t' && unit != L'\n' && unit != L'\r';
  return control || unit == 0xFFFE || unit == 0xFFFF;
}

}  // namespace

TBugTrapHooks SetBugTrapHooks(const TBugTrapHooks& hooks) {
  return std::exchange(s_Hooks, hooks);
}

std::wstring BT_GetMetricsFilePath() {
  return Answered(s_Hooks.GetMetricsFilePath, DefaultMetricsFolder);
}
std::wstring BT_GetAppName() {
  return Answered(s_Hooks.GetAppName, DefaultName);
}
std::wstring BT_GetAppVersion() {
  return Answered(s_Hooks.GetAppVersion, DefaultVersion);
}
std::wstring BT_GetAppBuild() {
  return Answered(s_Hooks.GetAppBuild, DefaultBuild);
}
std::wstring BT_GetAppConfig() {
  return Answered(s_Hooks.GetAppConfig, DefaultConfig);
}
std::wstring BT_GetAppId() {
  return Answered(s_Hooks.GetAppId, DefaultId);
}
std::wstring BT_GetAppSession() {
  return Answered(s_Hooks.GetAppSession, DefaultSession);
}

std::string utf16_to_utf8(std::wstring_view text) {
  std::wstring clean(text);
  std::replace_if(clean.begin(), clean.end(), IsForbidden, kReplacement);
  return Encode(CP_UTF8, clean);  // which replaces surrogates without their partner
}
