#include <array>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "platform/platform.h"
#include "url.h"

namespace {

constexpr std::wstring_view kReserved = L"$&+,./:;=?@-_!*()'";
constexpr std::wstring_view kUnsafe = L" \"<>#{}|\\^~[]`";
constexpr wchar_t kDigits[] = L"0123456789ABCDEF";

constexpr unsigned kDelete = 127;
constexpr char32_t kAsciiEnd = 0x80;
constexpr char32_t kPairEnd = 0x800;  // of what takes two bytes in UTF-8
constexpr char32_t kUnitEnd = 0x10000;
constexpr std::size_t kEscape = 3;  // units of "%XX"

constexpr bool Contains(std::wstring_view set, unsigned unit) {
  return set.find(static_cast<wchar_t>(unit)) != std::wstring_view::npos;
}

constexpr void PutEscape(wchar_t* out, unsigned byte) {
  out[0] = L'%';
  out[1] = kDigits[byte >> 4];
  out[2] = kDigits[byte & 0xF];
}

// What each ASCII character becomes. The text is written whole, whatever its length: a copy of fixed size costs less
// than to ask for it.
class AsciiForms {
 public:
  struct Form {
    wchar_t text[kEscape + 1];
    std::size_t length;
  };

  constexpr explicit AsciiForms(bool encodeReserved) {
    for (unsigned unit = 0; unit < kAsciiEnd; ++unit) {
      Form& form = m_Forms[unit];
      const bool kept = !(encodeReserved && Contains(kReserved, unit)) && !Contains(kUnsafe, unit) &&
                        unit != L'%' && unit >= L' ' && unit != kDelete;
      form.text[0] = static_cast<wchar_t>(unit);
      form.length = kept ? 1 : kEscape;
      if (!kept) PutEscape(form.text, unit);
    }
  }

  constexpr const Form& operator[](char32_t unit) const { return m_Forms[unit]; }

 private:
  std::array<Form, kAsciiEnd> m_Forms{};
};

constexpr AsciiForms kReservedStay(false);
constexpr AsciiForms kReservedGo(true);

// Two bytes: none, and so zeros, for what takes three. An element above U+FFFF stands for two units.
wchar_t* PutPair(wchar_t* out, char32_t unit) {
  const bool fits = unit >= kAsciiEnd && unit < kPairEnd;
  PutEscape(out, fits ? 0xC0 | unit >> 6 : 0);
  PutEscape(out + kEscape, fits ? 0x80 | (unit & 0x3F) : 0);
  return unit < kUnitEnd ? out + 2 * kEscape : PutPair(out + 2 * kEscape, kPairEnd);
}

constexpr bool IsForm(char32_t unit) {
  return unit < kAsciiEnd && unit != 0;
}

// Collects what is written in a piece of its own: to make the text grow by each would cost more than they do.
class Writer {
 public:
  static constexpr std::size_t kMost = 4 * kEscape + 1;  // what one step writes

  // cppcheck-suppress uninitMemberVar ; the piece is written before it is read
  explicit Writer(std::size_t expected) { m_Text.reserve(expected); }

  wchar_t* Start() { return m_Piece; }
  // Where to go on, with room for a step, after `out`.
  wchar_t* Next(wchar_t* out) {
    if (out <= std::end(m_Piece) - kMost) [[likely]]
      return out;
    m_Text.append(m_Piece, out);
    return m_Piece;
  }
  std::wstring Finish(wchar_t* out) {
    m_Text.append(m_Piece, out);
    return std::move(m_Text);
  }

 private:
  wchar_t m_Piece[512];
  std::wstring m_Text;
};

// The value of a hexadecimal digit in either case, kNoDigit for other ASCII.
constexpr unsigned kNoDigit = 0x100;
constexpr std::array<unsigned short, kAsciiEnd> DigitValues() {
  std::array<unsigned short, kAsciiEnd> values{};
  for (unsigned unit = 0; unit < kAsciiEnd; ++unit) {
    const unsigned lower = unit | 0x20;
    const bool letter = lower >= L'a' && lower <= L'f';
    const bool digit = unit >= L'0' && unit <= L'9';
    values[unit] = static_cast<unsigned short>(letter ? lower - L'a' + 10 : digit ? unit - L'0' : kNoDigit);
  }
  return values;
}
constexpr auto kDigitValue = DigitValues();

// The byte of "%XX" at the start of what ends at `end`, or kNoByte and more.
constexpr unsigned kNoByte = 0x100;
unsigned ByteAt(const wchar_t* text, const wchar_t* end) {
  if (end - text < static_cast<std::ptrdiff_t>(kEscape) || text[0] != L'%') return kNoByte;
  const auto high = static_cast<char32_t>(text[1]);
  const auto low = static_cast<char32_t>(text[2]);
  return (high | low) < kAsciiEnd ? kDigitValue[high] * 16u | kDigitValue[low] : kNoByte;
}

// What two bytes are in UTF-8: 0 for what leaves no room for the terminator in two units.
wchar_t PairValue(unsigned first, unsigned second) {
  if (first >= 0xC2 && first < 0xE0 && (second & 0xC0) == 0x80)
    return static_cast<wchar_t>((first & 0x1F) << 6 | (second & 0x3F));
  const char bytes[] = {static_cast<char>(first), static_cast<char>(second), '\0'};
  wchar_t units[2];
  return MultiByteToWideChar(CP_UTF8, 0, bytes, -1, units, 2) == 0 ? L'\0' : units[0];
}

// The bytes that stand for themselves: control characters, but for the last one, and the two sets.
constexpr std::array<bool, 256> StandAlone() {
  std::array<bool, 256> alone{};
  for (unsigned byte = 0; byte < alone.size(); ++byte)
    alone[byte] = byte < 31 || byte == kDelete || Contains(kUnsafe, byte) || Contains(kReserved, byte);
  return alone;
}
constexpr auto kStandsAlone = StandAlone();

// Writes what the per cent sign at `text` stands for. Returns how much of the text that was.
std::size_t DecodeOne(const wchar_t* text, const wchar_t* end, wchar_t& out) {
  const unsigned byte = ByteAt(text, end);
  out = L'%';
  if (byte >= kNoByte) return 1;
  if (kStandsAlone[byte]) {
    out = static_cast<wchar_t>(byte);
    return kEscape;
  }
  const unsigned next = ByteAt(text + kEscape, end);
  if (next >= kNoByte) return 1;
  out = PairValue(byte, next);
  return 2 * kEscape;
}

}  // namespace

// NOLINTNEXTLINE(performance-unnecessary-value-param): hosts know it so
CString CURLEncode::Encode(CString text, int encodeReserved) {
  const AsciiForms& forms = encodeReserved ? kReservedGo : kReservedStay;
  const std::wstring_view units = text.View();
  Writer writer(units.size() * 2);
  wchar_t* out = writer.Start();
  for (const wchar_t element : units) {
    const auto unit = static_cast<char32_t>(element);
    out = writer.Next(out);
    if (!IsForm(unit)) {
      out = PutPair(out, unit);
      continue;
    }
    const AsciiForms::Form& form = forms[unit];
    std::memcpy(out, form.text, sizeof form.text);
    out += form.length;
  }
  return writer.Finish(out);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): hosts know it so
CString CURLEncode::Decode(CString text) {
  const std::wstring_view units = text.View();
  if (units.find(L'%') == std::wstring_view::npos) return text;
  Writer writer(units.size());
  wchar_t* out = writer.Start();
  const wchar_t* const end = units.data() + units.size();
  for (const wchar_t* in = units.data(); in < end; out = writer.Next(out)) {
    const wchar_t unit = *in;
    in += unit == L'%' ? DecodeOne(in, end, *out) : (*out = unit, 1);
    ++out;
  }
  return writer.Finish(out);
}
