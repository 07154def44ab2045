// White space: Unicode's White_Space, spelled out so that no locale can change it.
#ifndef QEL_WHITE_SPACE_H
#define QEL_WHITE_SPACE_H

#include <string_view>

namespace Qel::Sys::Text {

inline constexpr wchar_t kWhiteSpace[] =
    L"\t\n\v\f\r "
    L"\u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200A\u2028\u2029"
    L"\u202F\u205F\u3000";

constexpr bool IsWhiteSpace(wchar_t ch) noexcept {
  if (ch < 0x80) return ch == L' ' || (ch >= L'\t' && ch <= L'\r');
  return std::wstring_view(kWhiteSpace).find(ch) != std::wstring_view::npos;
}

}  // namespace Qel::Sys::Text

#endif  // QEL_WHITE_SPACE_H
