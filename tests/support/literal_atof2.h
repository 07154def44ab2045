// Number entry written down step by step, the slow and obvious way: what the library's evaluator and ATOF2
// must agree with, bit by bit.
#ifndef QEL_TESTS_LITERAL_ATOF2_H
#define QEL_TESTS_LITERAL_ATOF2_H

#include <clocale>
#include <cstdlib>
#include <cwchar>
#include <string>

namespace literal {

inline bool IsDigit(wchar_t ch) {
  return ch >= L'0' && ch <= L'9';
}

// Digits with at most one point; `length` characters from `text` on.
inline bool StrToFloat(const wchar_t* text, int length, double& result) {
  double scale = 0.1;
  int i = 0;
  for (; i < length && text[i] != L'.'; ++i) {
    if (!IsDigit(text[i])) return false;
    scale *= 10.0;
  }
  for (++i; i < length; ++i)
    if (!IsDigit(text[i])) return false;
  result = 0;
  for (int at = 0; at < length; ++at) {
    if (text[at] == L'.') continue;
    result += (text[at] - L'0') * scale;
    scale *= 0.1;
  }
  return true;
}

inline bool EvaluateTerm(const wchar_t* text, int length, double& result) {
  result = 1.0;
  int end = length - 1;
  double factor = 0;
  for (int i = length - 1; i >= 0; --i) {
    if (text[i] != L'*' && text[i] != L'/') continue;
    if (!StrToFloat(text + i + 1, end - i, factor)) return false;
    if (text[i] == L'/') {
      if (factor == 0.0) return false;
      result /= factor;
    } else {
      result *= factor;
    }
    end = i - 1;
  }
  if (text[0] == L'*' || text[0] == L'/') return true;
  if (!StrToFloat(text, end + 1, factor)) return false;
  result *= factor;
  return true;
}

inline bool EvaluateExpression(const wchar_t* text, double& result) {
  const int length = static_cast<int>(std::wcslen(text));
  if (length == 0) return false;
  for (int i = 0; i < length; ++i)
    if (!IsDigit(text[i]) && !std::wcschr(L"+-*/.", text[i])) return false;
  result = 0;
  int end = length - 1;
  double term = 0;
  for (int i = length - 1; i >= 0; --i) {
    if (text[i] != L'+' && text[i] != L'-') continue;
    if (!EvaluateTerm(text + i + 1, end - i, term)) return false;
    if (text[i] == L'+')
      result += term;
    else
      result -= term;
    end = i - 1;
  }
  if (text[0] == L'+' || text[0] == L'-') return true;
  if (!EvaluateTerm(text, end + 1, term)) return false;
  result += term;
  return true;
}

// The ASCII digit for a digit of any of the three shapes, else the character itself.
inline wchar_t Folded(wchar_t ch) {
  if (ch >= 0x660 && ch <= 0x669) return static_cast<wchar_t>(ch - 0x660 + L'0');
  if (ch >= 0x6F0 && ch <= 0x6F9) return static_cast<wchar_t>(ch - 0x6F0 + L'0');
  return ch;
}

// strtod over the longest prefix of sign, digits, point and exponent. Of white space it knows only the blank and
// U+0009-000D.
inline double NumberAtStart(const std::wstring& text) {
  std::string number;
  std::size_t i = 0;
  const auto at = [&] { return i < text.size() ? Folded(text[i]) : L'\0'; };
  const auto take = [&] { number += static_cast<char>(at()), ++i; };
  while (at() == L' ' || (at() >= 9 && at() <= 13)) ++i;
  if (at() == L'+' || at() == L'-') take();
  while (IsDigit(at())) take();
  if (at() == L'.') number += std::localeconv()->decimal_point, ++i;
  while (IsDigit(at())) take();
  if (number.find_first_of("0123456789") == std::string::npos)
    return 0;  // one system's strtod says -0 for "-e"
  if (at() == L'e' || at() == L'E') {
    take();
    if (at() == L'+' || at() == L'-') take();
    while (IsDigit(at())) take();
  }
  return std::strtod(number.c_str(), nullptr);
}

inline double ATOF2(const wchar_t* text, wchar_t separator) {
  std::wstring buffer;
  for (; *text && buffer.size() < 100; ++text)
    if (*text != separator) buffer += *text;
  double value = 0;
  if (EvaluateExpression(buffer.c_str(), value)) return value;
  value = NumberAtStart(buffer);
  for (const wchar_t ch : buffer) {
    if (IsDigit(Folded(ch)) || ch == L' ' || ch == L',' || ch == L'.') continue;
    if (ch == L'k' || ch == L'K' || ch == 0x643) return value * 1000.0;
    if (ch == L'd' || ch == L'D' || ch == 0x62F) return value * 12.0;
    break;
  }
  return value;
}

}  // namespace literal

#endif  // QEL_TESTS_LITERAL_ATOF2_H
