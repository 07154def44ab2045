#include <gtest/gtest.h>

#include <string_view>

#include "platform/platform.h"
#include "support/golden.h"

namespace {

// The record as the library asks with it.
URL_COMPONENTS AskForParts() {
  URL_COMPONENTS parts{};
  parts.dwStructSize = sizeof parts;
  for (DWORD* length :
       {&parts.dwSchemeLength, &parts.dwHostNameLength, &parts.dwUrlPathLength, &parts.dwExtraInfoLength})
    *length = static_cast<DWORD>(-1);
  return parts;
}

std::string Answer(const std::wstring& url) {
  URL_COMPONENTS parts = AskForParts();
  std::string answer;
  const auto add = [&answer](const std::string& field) {
    answer.append(answer.empty() ? "" : " ").append(field);
  };
  const auto addPart = [&](const wchar_t* text, DWORD length) {
    add(Spelled(std::wstring_view(text, length)));
  };
  const BOOL result = WinHttpCrackUrl(url.c_str(), static_cast<DWORD>(url.size()), 0, &parts);
  add(std::to_string(result));
  add(std::to_string(result ? static_cast<DWORD>(parts.nScheme) : GetLastError()));
  if (!result) return answer;
  EXPECT_EQ(parts.lpszUserName, nullptr);
  add(std::to_string(parts.nPort));
  addPart(parts.lpszScheme, parts.dwSchemeLength);
  addPart(parts.lpszHostName, parts.dwHostNameLength);
  addPart(parts.lpszUrlPath, parts.dwUrlPathLength);
  addPart(parts.lpszExtraInfo, parts.dwExtraInfoLength);
  return answer;
}

}  // namespace

TEST(UrlTest, AddressesAreSplitAsOnWindows) {
  for (const auto& row : GoldenTable("crackurl.tsv")) ExpectAnswer(row, Answer(row.Wide("url").value()));
  URL_COMPONENTS parts{};
  EXPECT_EQ(WinHttpCrackUrl(L"http://a/", 0, 0, &parts), 0);
  EXPECT_EQ(GetLastError(), 87u);
}
