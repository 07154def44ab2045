// The owned wide text that interfaces take and return: a CString with more ways in, and one way out as a
// view.
//
//   Qel::Sys::TString name(L"Qelmar");
//   boost::wstring_ref view = name;
#ifndef QEL_TSTRING_H
#define QEL_TSTRING_H

#include <boost/utility/string_ref.hpp>
#include <cwchar>
#include <string>
#include <utility>

#include "platform_types.h"
#include "qel_cstring.h"

namespace Qel::Sys {

class TString : public CString {
 public:
  constexpr TString() noexcept {}
  // Copies. Null gives an empty text; so does a length of 0 or less.
  TString(const wchar_t* text) : CString(text) {}
  TString(const wchar_t* text, int length) : CString(text, length) {}
  TString(const _bstr_t& text) : CString(static_cast<const wchar_t*>(text)) {}
  TString(boost::basic_string_ref<wchar_t> text) : CString(std::wstring_view(text.data(), text.size())) {}
  TString(const CString& text) : CString(text) {}
  // Narrow text in the calling thread's code page. Null gives an empty text. Raises as CString does.
  TString(const char* narrow) : CString(narrow) {}
  // `repeat` copies of `ch`; none when `repeat` is 0 or less.
  TString(wchar_t ch, int repeat) : CString(ch, repeat) {}
  // Take the text over.
  TString(CString&& text) noexcept : CString(std::move(text)) {}
  TString(std::wstring text) noexcept : CString(std::move(text)) {}

  // The text up to its first NUL, valid until the next change.
  // Kept: not GetLength(), because the readers of views have always stopped at an embedded NUL.
  operator boost::basic_string_ref<wchar_t>() const { return {GetString(), std::wcslen(GetString())}; }
};

}  // namespace Qel::Sys

#endif  // QEL_TSTRING_H
