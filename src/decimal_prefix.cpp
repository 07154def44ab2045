#include "decimal_prefix.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

#include "digits.h"
#include "white_space.h"

namespace Qel::Sys::Text {

namespace {

// The character as the ASCII reader understands it: digits of every shape as ASCII, nothing else above it.
char AsAscii(wchar_t ch) {
  if (const int digit = DecimalDigitValue(ch); digit >= 0) return static_cast<char>('0' + digit);
  return ch < 0x80 ? static_cast<char>(ch) : '\0';
}

// What a number with so large an exponent means. A hundred characters need one for leaving the range.
double OutOfRange(const char* first, const char* last) {
  const bool small = std::find(first, last, '-') != last;
  return small ? 0.0 : std::numeric_limits<double>::infinity();
}

}  // namespace

DecimalPrefix ReadDecimalPrefix(std::wstring_view text) noexcept {
  text = text.substr(0, kMostPrefix);
  char ascii[kMostPrefix];
  const char* const end = std::transform(text.begin(), text.end(), ascii, AsAscii);

  const char* first = ascii + (std::find_if_not(text.begin(), text.end(), IsWhiteSpace) - text.begin());
  const bool negative = first < end && *first == '-';
  if (negative || (first < end && *first == '+')) ++first;
  // from_chars takes a sign, "inf" and "nan" as well.
  if (first == end || !((*first >= '0' && *first <= '9') || *first == '.')) return {};

  double value = 0;
  const auto [last, error] = std::from_chars(first, end, value);
  if (error == std::errc::invalid_argument) return {};
  if (error == std::errc::result_out_of_range) value = OutOfRange(first, last);
  return {negative ? -value : value, static_cast<std::size_t>(last - ascii)};
}

}  // namespace Qel::Sys::Text
