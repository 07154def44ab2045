#include "atof2.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

#include "decimal_prefix.h"
#include "digits.h"
#include "white_space.h"

namespace Qel::Sys::Text::Conversion {

using Settings::Format;
using Settings::SysFormat;
using Refusal = NumberReading::Refusal;

namespace {

constexpr std::size_t kMostKept = kMostPrefix;

// The text without thousands separators.
class KeptText {
 public:
  explicit KeptText(const wchar_t* text) noexcept : m_Text(text), m_Separator(SysFormat.ThousandSep[0]) {
    const wchar_t separator = m_Separator;
    wchar_t* kept = m_Kept;
    for (; *text && kept < std::end(m_Kept); ++text)
      if (*text != separator) *kept++ = *text;
    while (*text && *text == separator) ++text;
    m_Rest = text;
    m_Size = static_cast<std::size_t>(kept - m_Kept);
  }

  std::wstring_view View() const noexcept { return {m_Kept, m_Size}; }

  // Where the kept character `place` stands in the text as given; at the end of the kept ones, where these
  // end.
  int IndexInText(std::size_t place) const noexcept {
    const wchar_t* at = m_Text;
    for (;; ++at) {
      if (!*at || at == m_Rest) break;
      if (*at != m_Separator && place-- == 0) break;
    }
    return static_cast<int>(at - m_Text);
  }

  // The first character that was not looked at, -1 when all were.
  int Unseen() const noexcept { return *m_Rest ? static_cast<int>(m_Rest - m_Text) : -1; }

 private:
  const wchar_t* m_Text;
  const wchar_t* m_Rest;
  wchar_t m_Separator;
  std::size_t m_Size;
  wchar_t m_Kept[kMostKept];
};

double UnitFactor(wchar_t suffix) {
  switch (suffix) {
    case L'k':
    case L'K':
    case L'\u0643':  // kaf
      return 1000.0;
    case L'd':
    case L'D':
    case L'\u062F':  // dal
      return 12.0;
    default:
      return 1.0;
  }
}

bool IsSuffix(wchar_t ch) {
  return DecimalDigitValue(ch) < 0 && ch != L' ' && ch != L',' && ch != L'.';
}

// The first character at or behind `place` that is not white space, or the end.
std::size_t SkipWhiteSpace(std::wstring_view text, std::size_t place) {
  while (place < text.size() && IsWhiteSpace(text[place])) ++place;
  return place;
}

// Reads what the evaluator refused: a number and its suffix.
void ReadNumberAndSuffix(const KeptText& kept, NumberReading& reading) {
  const std::wstring_view text = kept.View();
  const DecimalPrefix number = ReadDecimalPrefix(text);
  const auto suffix =
      static_cast<std::size_t>(std::find_if(text.begin(), text.end(), IsSuffix) - text.begin());
  if (suffix < text.size()) {
    reading.suffix = text[suffix];
    reading.factor = UnitFactor(reading.suffix);
  }
  reading.value = number.value * reading.factor;
  if (number.length > 0) reading.consumed = kept.IndexInText(number.length - 1) + 1;

  std::size_t rest = SkipWhiteSpace(text, number.length);
  if (rest == suffix && rest < text.size()) rest = SkipWhiteSpace(text, rest + 1);
  reading.ignoredAt = rest < text.size() ? kept.IndexInText(rest) : kept.Unseen();
}

}  // namespace

NumberReading ReadNumberText(const wchar_t* text) noexcept {
  NumberReading reading;
  const KeptText kept(text ? text : L"");
  const auto evaluation = Format::NumericEvaluator::Evaluate(kept.View());
  reading.refusal = evaluation.refusal;
  if (evaluation.refusal == Refusal::None) {
    reading.value = evaluation.value;
    reading.ignoredAt = kept.Unseen();
    return reading;
  }
  if (evaluation.position >= 0)
    reading.refusedAt = kept.IndexInText(static_cast<std::size_t>(evaluation.position));
  ReadNumberAndSuffix(kept, reading);
  return reading;
}

long double ATOF2(const wchar_t* text) noexcept {
  return ReadNumberText(text).value;
}

}  // namespace Qel::Sys::Text::Conversion
