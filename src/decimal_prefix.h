// The decimal number at the start of a text, as the C runtime's wcstod finds it, but locale-free and without
// its hexadecimal, infinity and NaN forms: a number field must not become NaN.
#ifndef QEL_DECIMAL_PREFIX_H
#define QEL_DECIMAL_PREFIX_H

#include <cstddef>
#include <string_view>

namespace Qel::Sys::Text {

struct DecimalPrefix {
  double value = 0;        // the nearest double; infinite beyond the largest
  std::size_t length = 0;  // up to the end of the number, leading white space included; 0 when there is none
};

// White space, a sign, digits in any of the three shapes with at most one point, an exponent. Only the first
// kMostPrefix characters count.
constexpr std::size_t kMostPrefix = 100;
DecimalPrefix ReadDecimalPrefix(std::wstring_view text) noexcept;

}  // namespace Qel::Sys::Text

#endif  // QEL_DECIMAL_PREFIX_H
