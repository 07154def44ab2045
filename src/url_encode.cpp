#include <array>
#include <cstddef>
#include <cwchar>
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

std::size_t EncodedLength(std::wstring_view text, const AsciiForms& forms) {
  std::size_t length = 0;
  for (const wchar_t element : text) {
    const auto unit = static_cast<char32_t>(element);
    length += IsForm(unit) ? forms[unit].length : unit < kUnitEnd ? 2 * kEscape : 4 * kEscape;
  }
  return length;
}

int DigitValue(wchar_t unit) {
  if (unit >= L'0' && unit <= L'9') return unit - L'0';
  const wchar_t lower = unit | 0x20;
  return lower >= L'a' && lower <= L'f' ? lower - L'a' + 10 : -1;
}

// The byte of "%XX" at the start of `text`, or -1.
int ByteAt(std::wstring_view text) {
  if (text.size() < kEscape || text[0] != L'%') return -1;
  const int high = DigitValue(text[1]);
  const int low = DigitValue(text[2]);
  return high < 0 || low < 0 ? -1 : high * 16 + low;
}

// What two bytes are in UTF-8: 0 for what leaves no room for the terminator in two units.
wchar_t PairValue(int first, int second) {
  if (first >= 0xC2 && first < 0xE0 && (second & 0xC0) == 0x80)
    return static_cast<wchar_t>((first & 0x1F) << 6 | (second & 0x3F));
  const char bytes[] = {static_cast<char>(first), static_cast<char>(second), '\0'};
  wchar_t units[2];
  return MultiByteToWideChar(CP_UTF8, 0, bytes, -1, units, 2) == 0 ? L'\0' : units[0];
}

// The bytes that stand for themselves: control characters, but for the last one, and the two sets.
constexpr auto kStandsAlone = [] {
  std::array<bool, 256> alone{};
  for (unsigned byte = 0; byte < alone.size(); ++byte)
    alone[byte] = byte < 31 || byte == kDelete || Contains(kUnsafe, byte) || Contains(kReserved, byte);
  return alone;
}();

// Writes what the start of `text`, a per cent sign, stands for. Returns how much of it that was.
std::size_t DecodeOne(std::wstring_view text, wchar_t& out) {
  const int byte = ByteAt(text);
  out = text[0];
  if (byte < 0) return 1;
  const bool alone = kStandsAlone[static_cast<std::size_t>(byte)];
  const int next = alone ? -1 : ByteAt(text.substr(kEscape));
  if (!alone && next < 0) return 1;
  out = alone ? static_cast<wchar_t>(byte) : PairValue(byte, next);
  return alone ? kEscape : 2 * kEscape;
}

}  // namespace

CString CURLEncode::Encode(CString text, int encodeReserved) {
  const AsciiForms& forms = encodeReserved ? kReservedGo : kReservedStay;
  const std::wstring_view units = text.View();
  const std::size_t length = EncodedLength(units, forms);
  std::wstring encoded(length + kEscape, L'\0');  // a form is written beyond its own length
  wchar_t* out = encoded.data();
  for (const wchar_t element : units) {
    const auto unit = static_cast<char32_t>(element);
    if (!IsForm(unit)) {
      out = PutPair(out, unit);
      continue;
    }
    const AsciiForms::Form& form = forms[unit];
    std::wmemcpy(out, form.text, std::size(form.text));
    out += form.length;
  }
  encoded.resize(length);
  return encoded;
}

CString CURLEncode::Decode(CString text) {
  const std::wstring_view units = text.View();
  std::size_t at = units.find(L'%');
  if (at == std::wstring_view::npos) return text;
  std::wstring decoded(units);
  std::size_t length = at;
  while (at < units.size()) {
    if (units[at] == L'%')
      at += DecodeOne(units.substr(at), decoded[length++]);
    else
      decoded[length++] = units[at++];
  }
  decoded.resize(length);
  return decoded;
}
