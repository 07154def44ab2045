#include "encoding.h"

#include "code_page.h"

namespace {

// The text up to its first NUL.
template <class Char>
std::basic_string_view<Char> Whole(const Char* text) {
  return text ? std::basic_string_view<Char>(text) : std::basic_string_view<Char>();
}

}  // namespace

namespace Qel::Sys::Text::Encoding {

std::wstring ConvertA2W(const char* narrow) {
  return Decode(GetDefaultCP(), Whole(narrow));
}
std::string ConvertW2A(const wchar_t* wide) {
  return Encode(GetDefaultCP(), Whole(wide));
}
CString ConvertA2N(const char* narrow) {
  return ConvertA2W(narrow);
}
CString ConvertW2N(const wchar_t* wide) {
  return wide;
}

std::wstring Convert2W(const char* narrow) {
  return ConvertA2W(narrow);
}
std::wstring Convert2W(const wchar_t* wide) {
  return std::wstring(Whole(wide));
}
std::string Convert2A(const char* narrow) {
  return std::string(Whole(narrow));
}
std::string Convert2A(const wchar_t* wide) {
  return ConvertW2A(wide);
}

}  // namespace Qel::Sys::Text::Encoding

CString GetCStringFromStdString(const std::string& narrow) {
  return Decode(CP_THREAD_ACP, narrow.c_str());
}
std::string GetStdStringFromCString(const CString& wide) {
  return Encode(CP_THREAD_ACP, wide.GetString());
}
