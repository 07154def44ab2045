// The five characters that markup takes for itself.
#ifndef QEL_MARKUP_ENTITY_H
#define QEL_MARKUP_ENTITY_H

#include <string_view>

namespace Qel::Sys::Text {

// The named entity of a character of markup; empty for every other.
constexpr std::wstring_view MarkupEntity(wchar_t ch) noexcept {
  switch (ch) {
    case L'"':
      return L"&quot;";
    case L'&':
      return L"&amp;";
    case L'\'':
      return L"&apos;";
    case L'<':
      return L"&lt;";
    case L'>':
      return L"&gt;";
    default:
      return {};
  }
}

}  // namespace Qel::Sys::Text

#endif  // QEL_MARKUP_ENTITY_H
