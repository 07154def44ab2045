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
  const auto part = [](const wchar_t* text, DWORD length) {
    return " " + Spelled(std::wstring_view(text, length));
  };
  if (!WinHttpCrackUrl(url.c_str(), static_cast<DWORD>(url.size()), 0, &parts))
    return "0 " + std::to_string(GetLastError());
  EXPECT_EQ(parts.lpszUserName, nullptr);
  return "1 " + std::to_string(parts.nScheme) + " " + std::to_string(parts.nPort) +
         part(parts.lpszScheme, parts.dwSchemeLength) + part(parts.lpszHostName, parts.dwHostNameLength) +
         part(parts.lpszUrlPath, parts.dwUrlPathLength) + part(parts.lpszExtraInfo, parts.dwExtraInfoLength);
}

}  // namespace

TEST(UrlTest, AddressesAreSplitAsOnWindows) {
  for (const auto& row : GoldenTable("crackurl.tsv")) ExpectAnswer(row, Answer(row.Wide("url").value()));
  URL_COMPONENTS parts{};
  EXPECT_EQ(WinHttpCrackUrl(L"http://a/", 0, 0, &parts), 0);
  EXPECT_EQ(GetLastError(), 87u);
}
