// Reads along a stored text as the C runtime's scanning functions do, but by the library's own rules: ASCII digits,
// no locale, and numbers that are too large saturate on every platform alike.
#ifndef QEL_REGISTRY_TEXT_SCAN_H
#define QEL_REGISTRY_TEXT_SCAN_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform_types.h"

constexpr bool IsAsciiDigit(wchar_t ch) noexcept {
  return ch >= L'0' && ch <= L'9';
}

constexpr wchar_t AsciiLower(wchar_t ch) noexcept {
  return ch >= L'A' && ch <= L'Z' ? static_cast<wchar_t>(ch - L'A' + L'a') : ch;
}

// -1 for a character that is no digit.
constexpr int HexDigitValue(wchar_t ch) noexcept {
  if (IsAsciiDigit(ch)) return static_cast<int>(ch - L'0');
  const wchar_t lower = AsciiLower(ch);
  return lower >= L'a' && lower <= L'f' ? static_cast<int>(lower - L'a') + 10 : -1;
}

// Whether two texts differ at most in the case of ASCII letters.
bool IsSameWord(std::wstring_view a, std::wstring_view b) noexcept;

// Without the blanks and tabs around it.
std::wstring_view WithoutBlanks(std::wstring_view text) noexcept;

class TextScan {
 public:
  explicit TextScan(std::wstring_view text) noexcept : m_Rest(text) {}

  std::wstring_view Rest() const noexcept { return m_Rest; }
  void SkipSpace() noexcept;
  // Moves behind `ch` if it comes next.
  bool Skip(wchar_t ch) noexcept;
  // Moves behind the next `ch`; to the end where there is none.
  bool SkipPast(wchar_t ch) noexcept;

  // White space, a sign, digits. On failure `value` is untouched. An int is clamped; a WORD takes the low 16 bits of
  // a number clamped to 32, the sign applied, as %hu does.
  bool ReadInt(int& value) noexcept;
  bool ReadWord(WORD& value) noexcept;
  // White space, one or two hexadecimal digits.
  bool ReadHexByte(BYTE& value) noexcept;

 private:
  struct Number {
    bool negative = false;
    std::uint64_t magnitude = 0;  // at most kMostMagnitude
  };
  static constexpr std::uint64_t kMostMagnitude = 0xFFFFFFFF;

  bool ReadNumber(Number& number) noexcept;

  std::wstring_view m_Rest;
};

// The number at the start of the text, 0 when there is none.
int IntAtStart(std::wstring_view text) noexcept;
// Also "inf", "nan" and hexadecimal numbers, as wcstod. Only the first 100 characters count.
double DoubleAtStart(std::wstring_view text) noexcept;

#endif  // QEL_REGISTRY_TEXT_SCAN_H
