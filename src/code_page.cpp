#include "code_page.h"

#include <climits>

namespace {

constexpr DWORD kInvalidParameter = 87;
constexpr DWORD kBufferTooSmall = 122;

[[noreturn]] void ThrowAsResult(DWORD error) {
  const auto code = static_cast<HRESULT>(error);
  throw code > 0 ? static_cast<HRESULT>(0x80070000u | (error & 0xFFFF)) : code;
}

// Converts straight into the result: an item for each item of the input does for every one-byte page, and
// when it does not, the platform says how many do.
template <class Result, class Convert>
Result Converted(std::size_t length, Convert convert) {
  Result result(length, typename Result::value_type());
  if (length == 0) return result;
  if (length > INT_MAX) ThrowAsResult(kInvalidParameter);
  int written = convert(result.data(), static_cast<int>(length));
  if (written == 0 && GetLastError() == kBufferTooSmall) {
    const int needed = convert(nullptr, 0);
    result.resize(static_cast<std::size_t>(needed));
    written = convert(result.data(), needed);
  }
  if (written == 0) ThrowAsResult(GetLastError());
  result.resize(static_cast<std::size_t>(written));
  return result;
}

}  // namespace

std::wstring Decode(UINT codePage, std::string_view bytes) {
  return Converted<std::wstring>(bytes.size(), [&](wchar_t* out, int room) {
    return MultiByteToWideChar(codePage, 0, bytes.data(), static_cast<int>(bytes.size()), out, room);
  });
}

std::string Encode(UINT codePage, std::wstring_view text) {
  return Converted<std::string>(text.size(), [&](char* out, int room) {
    return WideCharToMultiByte(codePage, 0, text.data(), static_cast<int>(text.size()), out, room, nullptr,
                               nullptr);
  });
}
