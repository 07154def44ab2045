// The texts of the client that need no request.
#include <string>
#include <string_view>

#include "httpclient.h"

namespace {

constexpr std::wstring_view kStays = L"~!*()'=.";
constexpr wchar_t kDigits[] = L"0123456789abcdef";

constexpr bool Stays(char32_t unit) {
  return (unit >= '0' && unit <= '9') || (unit >= 'A' && unit <= 'Z') || (unit >= 'a' && unit <= 'z') ||
         (unit < 0x80 && kStays.find(static_cast<wchar_t>(unit)) != kStays.npos);
}

void PutUnit(char32_t unit, std::wstring& out) {
  if (Stays(unit)) {
    out += static_cast<wchar_t>(unit);
    return;
  }
  out += L'%';
  out += kDigits[unit >> 4 & 0xF];
  out += kDigits[unit & 0xF];
}

struct ErrorText {
  DWORD code;
  const wchar_t* text;
};

// Kept: the misspellings and the blank in front, because support finds reports by them.
constexpr ErrorText kErrorTexts[] = {
    {12001, L"Out of handles"},
    {12002, L"Time out"},
    {12004, L"Internal Error"},
    {12005, L"Invalid Url"},
    {12006, L"Unrecognized Scheme"},
    {12007, L"Name not resolved"},
    {12009, L"Invalid Option"},
    {12011, L" Option not Settable"},
    {12012, L"Shutdown"},
    {12015, L"Login Failed"},
    {12017, L"Operation Canceld"},
    {12018, L"Incorrect Handle Type"},
    {12019, L"Incorrct Handle State"},
    {12029, L"Cann't Connect"},
    {12030, L"Connection Error"},
    {12032, L"Resend Request"},
};

}  // namespace

// Kept: the low byte of each unit alone. An element above U+FFFF, which a literal can bring on Linux, is two units.
CString HttpClient::EncodeUrl(const CString& text) {
  std::wstring encoded;
  for (const wchar_t element : text.View()) {
    const auto unit = static_cast<char32_t>(element);
    if (unit > 0xFFFF) PutUnit(0xD7C0 + (unit >> 10), encoded);
    PutUnit(unit > 0xFFFF ? 0xDC00 + (unit & 0x3FF) : unit, encoded);
  }
  return encoded;
}

CString HttpClient::GetWinSendErrorString(DWORD code) {
  for (const ErrorText& row : kErrorTexts)
    if (row.code == code) return row.text;
  return L"Error Code not found";
}
