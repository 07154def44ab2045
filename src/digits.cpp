#include "digits.h"

#include <string>
#include <utility>

namespace Qel::Sys::Text {

CString FoldDigits(const wchar_t* text) {
  std::wstring folded(text ? text : L"");
  for (wchar_t& ch : folded)
    if (const int value = DecimalDigitValue(ch); value >= 0) ch = static_cast<wchar_t>(L'0' + value);
  return CString(std::move(folded));
}

}  // namespace Qel::Sys::Text
