#include "rtf_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <iterator>

#include "data/cp1256.h"

namespace Qel::Rtf {

namespace {

constexpr std::size_t kWidth = 71;
constexpr std::size_t kLongest = 9;  // "\\u-32768?"

constexpr bool IsLineEnd(wchar_t unit) {
  return unit == L'\n' || unit == L'\r';
}
// An element of a literal on systems with wide ones.
constexpr bool IsPair(char32_t element) {
  return element > 0xFFFF;
}
constexpr bool SplitsPair(wchar_t before, wchar_t behind) {
  return (before & 0xFC00) == 0xD800 && (behind & 0xFC00) == 0xDC00;
}

// Where a line ends, and where the next one begins.
struct Break {
  std::size_t end, next;
};

// Of what has `width` units and one more without a line end.
Break BreakIn(std::wstring_view text, std::size_t width) {
  const std::size_t blank = text.rfind(L' ');
  if (blank != text.npos) return {blank, blank + 1};
  if (!SplitsPair(text[width - 1], text[width])) return {width, width};
  const std::size_t end = width == 1 ? 2 : width - 1;  // one unit must hold a pair
  return {end, end};
}

// The bytes of the page's units in two stretches, 0 for what it does not have.
template <char16_t First, char16_t Last>
class Stretch {
 public:
  constexpr Stretch() {
    for (unsigned byte = 0x80; byte < 256; ++byte)
      if (const char32_t unit = cp1256::kUnitOfByte[byte]; unit >= First && unit <= Last)
        m_Bytes[unit - First] = static_cast<unsigned char>(byte);
  }
  static constexpr bool Has(char32_t unit) { return unit >= First && unit <= Last; }
  constexpr unsigned operator[](char32_t unit) const { return m_Bytes[unit - First]; }

 private:
  std::array<unsigned char, 1u + Last - First> m_Bytes{};
};
constexpr Stretch<0xA0, 0x6D2> kLetters;
constexpr Stretch<0x200C, 0x2122> kSigns;
static_assert(std::all_of(std::begin(cp1256::kUnitOfByte) + 0x80, std::end(cp1256::kUnitOfByte),
                          [](char16_t unit) { return kLetters.Has(unit) || kSigns.Has(unit); }));

constexpr unsigned ByteOf(char32_t unit) {
  if (kLetters.Has(unit)) return kLetters[unit];
  return kSigns.Has(unit) ? kSigns[unit] : 0;
}

constexpr bool IsPlain(wchar_t unit) {
  return unit >= L' ' && unit < 0x7F && unit != L'\\' && unit != L'{' && unit != L'}';
}

char* PutByte(char* out, unsigned byte) {
  constexpr char kDigits[] = "0123456789abcdef";
  *out++ = '\\';
  *out++ = '\'';
  *out++ = kDigits[byte >> 4];
  *out++ = kDigits[byte & 0xF];
  return out;
}

// The number is signed in 16 bits; readers that do not know it show the question mark.
char* PutNumber(char* out, char32_t unit) {
  *out++ = '\\';
  *out++ = 'u';
  out = std::to_chars(out, out + kLongest, static_cast<std::int16_t>(unit)).ptr;
  *out++ = '?';
  return out;
}

// Appends what stands for a unit, which is kLongest at most.
char* Put(char* out, wchar_t unit) {
  constexpr wchar_t kFirstBeyondControls = 0xA0;
  const auto code = static_cast<char32_t>(unit);
  if (IsPlain(unit)) {
    *out++ = static_cast<char>(unit);
  } else if (unit >= kFirstBeyondControls) {
    const unsigned byte = ByteOf(code);
    return byte != 0 ? PutByte(out, byte) : PutNumber(out, code);
  } else if (unit == L'\t') {
    return std::copy_n("\\tab ", 5, out);
  } else if (unit > L' ' && unit < 0x7F) {
    *out++ = '\\';
    *out++ = static_cast<char>(unit);
  }
  return out;
}

}  // namespace

std::wstring_view InUnits(const wchar_t* text, std::wstring& store) {
  const std::wstring_view whole = text ? text : L"";
  if (std::none_of(whole.begin(), whole.end(), IsPair)) return whole;
  for (const wchar_t element : whole) {
    const auto ch = static_cast<char32_t>(element);
    if (IsPair(ch)) store += static_cast<wchar_t>(0xD7C0 + (ch >> 10 & 0x7FF));
    store += static_cast<wchar_t>(IsPair(ch) ? 0xDC00 | (ch & 0x3FF) : ch);
  }
  return store;
}

bool TakeLine(std::wstring_view& rest, std::size_t width, std::wstring_view& line) {
  // No further than needed, so that a long text is not searched anew for each of its lines.
  const std::wstring_view seen = rest.substr(0, width == kAnyWidth ? width : width + 1);
  const auto end = static_cast<std::size_t>(std::find_if(seen.begin(), seen.end(), IsLineEnd) - seen.begin());
  Break at{end, end};
  const bool found = end < seen.size();
  if (found)
    at.next += rest.substr(end, 2) == L"\r\n" ? 2u : 1u;
  else if (seen.size() > width)
    at = BreakIn(seen, width);
  const bool more = found || seen.size() > width;
  line = rest.substr(0, at.end);
  rest.remove_prefix(at.next);
  return more;
}

void AppendLine(std::string& rtf, std::wstring_view line) {
  const std::size_t start = rtf.size();
  rtf.resize(start + line.size() * kLongest);
  char* out = rtf.data() + start;
  for (const wchar_t unit : line) out = Put(out, unit);
  rtf.resize(static_cast<std::size_t>(out - rtf.data()));
}

void AppendText(std::string& rtf, const wchar_t* text) {
  std::wstring store;
  std::wstring_view rest = InUnits(text, store), line;
  for (bool more = true; more;) {
    more = TakeLine(rest, kWidth, line);
    AppendLine(rtf, line);
    if (more) rtf += "\\par\n";
  }
}

CString Wide(const std::string& ascii) {
  return std::wstring(ascii.begin(), ascii.end());
}

}  // namespace Qel::Rtf
