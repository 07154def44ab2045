#include "utf8.h"

#include "code_page.h"

namespace Qel {

std::string ToUtf8(const wchar_t* text) {
  return ToUtf8(text ? std::wstring_view(text) : std::wstring_view());
}

std::string ToUtf8(std::wstring_view text) {
  return Encode(CP_UTF8, text);
}

CString FromUtf8(const char* utf8) {
  return FromUtf8(utf8 ? std::string_view(utf8) : std::string_view());
}

CString FromUtf8(std::string_view utf8) {
  return Decode(CP_UTF8, utf8);
}

CString ToNativePath(const wchar_t* path) {
  CString native(path);
  native.Replace(L'\\', kPathSeparator);
  return native;
}

}  // namespace Qel
