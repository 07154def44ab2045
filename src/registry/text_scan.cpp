#include "registry/text_scan.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

#include "white_space.h"

namespace {

using Qel::Sys::Text::IsWhiteSpace;

constexpr std::size_t kMostDoubleLength = 100;
constexpr std::wstring_view kBlanks = L" \t";

// Whether "0x" and a digit begin here, a point before the digit or not; without it the number is the 0 alone.
bool StartsHex(std::string_view text) noexcept {
  if (!text.starts_with("0x") && !text.starts_with("0X")) return false;
  text.remove_prefix(2);
  if (text.starts_with('.')) text.remove_prefix(1);
  return !text.empty() && HexDigitValue(static_cast<wchar_t>(text.front())) >= 0;
}

// What a number with so large an exponent means. A hundred characters need one for leaving the range.
double OutOfRange(std::string_view number) noexcept {
  return number.find('-') != std::string_view::npos ? 0.0 : std::numeric_limits<double>::infinity();
}

double SignedDouble(bool negative, std::string_view text) noexcept {
  const bool hex = StartsHex(text);
  if (hex) text.remove_prefix(2);
  if (text.starts_with('-')) return 0;  // a second sign, which from_chars would take
  double value = 0;
  const auto format = hex ? std::chars_format::hex : std::chars_format::general;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, format);
  if (error == std::errc::invalid_argument) return 0;
  if (error == std::errc::result_out_of_range)
    value = OutOfRange(text.substr(0, static_cast<std::size_t>(end - text.data())));
  return negative ? -value : value;
}

}  // namespace

bool IsSameWord(std::wstring_view a, std::wstring_view b) noexcept {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](wchar_t x, wchar_t y) { return AsciiLower(x) == AsciiLower(y); });
}

std::wstring_view WithoutBlanks(std::wstring_view text) noexcept {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

void TextScan::SkipSpace() noexcept {
  while (!m_Rest.empty() && IsWhiteSpace(m_Rest.front())) m_Rest.remove_prefix(1);
}

bool TextScan::Skip(wchar_t ch) noexcept {
  if (!m_Rest.starts_with(ch)) return false;
  m_Rest.remove_prefix(1);
  return true;
}

bool TextScan::SkipPast(wchar_t ch) noexcept {
  const std::size_t place = m_Rest.find(ch);
  m_Rest.remove_prefix(std::min(place, m_Rest.size()));
  return Skip(ch);
}

bool TextScan::ReadNumber(Number& number) noexcept {
  SkipSpace();
  const bool negative = Skip(L'-');
  if (!negative) Skip(L'+');
  if (m_Rest.empty() || !IsAsciiDigit(m_Rest.front())) return false;
  number.negative = negative;
  for (; !m_Rest.empty() && IsAsciiDigit(m_Rest.front()); m_Rest.remove_prefix(1)) {
    const auto digit = static_cast<std::uint64_t>(m_Rest.front() - L'0');
    number.magnitude = std::min(number.magnitude * 10 + digit, kMostMagnitude);
  }
  return true;
}

bool TextScan::ReadInt(int& value) noexcept {
  Number number;
  if (!ReadNumber(number)) return false;
  const auto magnitude = static_cast<std::int64_t>(number.magnitude);
  using Limits = std::numeric_limits<int>;
  value = static_cast<int>(
      std::clamp<std::int64_t>(number.negative ? -magnitude : magnitude, Limits::min(), Limits::max()));
  return true;
}

bool TextScan::ReadWord(WORD& value) noexcept {
  Number number;
  if (!ReadNumber(number)) return false;
  value = static_cast<WORD>((number.negative ? 0 - number.magnitude : number.magnitude) & 0xFFFF);
  return true;
}

bool TextScan::ReadHexByte(BYTE& value) noexcept {
  SkipSpace();
  int read = -1;
  for (int digits = 0; digits < 2 && !m_Rest.empty(); ++digits) {
    const int digit = HexDigitValue(m_Rest.front());
    if (digit < 0) break;
    read = std::max(read, 0) * 16 + digit;
    m_Rest.remove_prefix(1);
  }
  if (read < 0) return false;
  value = static_cast<BYTE>(read);
  return true;
}

int IntAtStart(std::wstring_view text) noexcept {
  int value = 0;
  TextScan(text).ReadInt(value);
  return value;
}

double DoubleAtStart(std::wstring_view text) noexcept {
  TextScan scan(text.substr(0, kMostDoubleLength));
  scan.SkipSpace();
  const bool negative = scan.Skip(L'-');
  if (!negative) scan.Skip(L'+');
  char ascii[kMostDoubleLength];
  const std::wstring_view number = scan.Rest();
  char* const end = std::transform(number.begin(), number.end(), ascii,
                                   [](wchar_t ch) { return ch < 0x80 ? static_cast<char>(ch) : '\0'; });
  return SignedDouble(negative, {ascii, end});
}
