#include "px_format.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

#include "code_page.h"

namespace {

// Kept: longer text fails and is not cut, because stored fields were bounded so, and a cut record would be
// read back as a whole one.
constexpr std::size_t kMaxLength = 1999;
// Any width or precision above the limit fails alike, so larger ones need not be told apart.
constexpr int kTooMuch = static_cast<int>(kMaxLength) + 1;
constexpr int kDefaultFloatDigits = 6;
constexpr int kHexFractionDigits = 13;  // all of a double

// The one walk through the arguments that all functions share: a bare va_list would be copied on some platforms.
struct Arguments {
  va_list list;

  template <class Type>
  Type Take() {
    return va_arg(list, Type);  // NOLINT(clang-analyzer-valist.Uninitialized): pxFormat has started it
  }
};

enum class Length { kNone, kChar, kShort, kLong, kLongLong, kSize, kLongDouble, kWide };

struct Directive {
  bool left = false, plus = false, blank = false, zero = false, alternate = false;
  int width = 0;
  int precision = -1;  // none given
  Length length = Length::kNone;
  wchar_t conversion = L'\0';
};

constexpr bool IsUpper(wchar_t c) {
  return c >= L'A' && c <= L'Z';
}
constexpr wchar_t ToUpper(wchar_t c) {
  return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
}
constexpr wchar_t ToLower(wchar_t c) {
  return IsUpper(c) ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

// Takes the result. Every operation tells whether all still fits; after the first that does not, the rest is
// moot.
class Output {
 public:
  bool Append(std::wstring_view text) {
    if (m_Text.size() + text.size() > kMaxLength) return false;
    m_Text += text;
    return true;
  }

  // `prefix` (sign, 0x) and `body` in the width asked for; zeros that fill it stand between the two.
  // Kept: the flag 0 fills text with zeros too, because the formats of the hosts were written for that.
  bool Pad(const Directive& directive, std::wstring_view prefix, std::wstring_view body) {
    const std::size_t used = prefix.size() + body.size();
    const auto width = static_cast<std::size_t>(directive.width);
    const std::wstring fill(width > used ? width - used : 0, directive.zero && !directive.left ? L'0' : L' ');
    if (directive.left) return Append(prefix) && Append(body) && Append(fill);
    if (directive.zero) return Append(prefix) && Append(fill) && Append(body);
    return Append(fill) && Append(prefix) && Append(body);
  }

  std::wstring Take() { return std::move(m_Text); }

 private:
  std::wstring m_Text;
};

// Reads one conversion, the text behind "%".
class SpecReader {
 public:
  SpecReader(std::wstring_view& rest, Arguments& arguments) : m_Rest(rest), m_Arguments(arguments) {}

  Directive Read() {
    while (ReadFlag()) {
    }
    ReadWidth();
    if (Skip(L".")) ReadPrecision();
    ReadLength();
    if (!m_Rest.empty()) {
      m_Directive.conversion = m_Rest.front();
      m_Rest.remove_prefix(1);
    }
    return m_Directive;
  }

 private:
  bool Skip(std::wstring_view token) {
    if (!m_Rest.starts_with(token)) return false;
    m_Rest.remove_prefix(token.size());
    return true;
  }

  bool ReadFlag() {
    if (Skip(L"-")) return m_Directive.left = true;
    if (Skip(L"+")) return m_Directive.plus = true;
    if (Skip(L" ")) return m_Directive.blank = true;
    if (Skip(L"0")) return m_Directive.zero = true;
    if (Skip(L"#")) return m_Directive.alternate = true;
    return false;
  }

  // A number written in the format or, for "*", taken from the arguments.
  int ReadNumber() {
    if (Skip(L"*")) return std::clamp(m_Arguments.Take<int>(), -kTooMuch, kTooMuch);
    int value = 0;
    for (; !m_Rest.empty() && m_Rest.front() >= L'0' && m_Rest.front() <= L'9'; m_Rest.remove_prefix(1)) {
      value = std::min(value * 10 + (m_Rest.front() - L'0'), kTooMuch);
    }
    return value;
  }

  void ReadWidth() {
    m_Directive.width = ReadNumber();
    if (m_Directive.width < 0) m_Directive.left = true;
    m_Directive.width = std::abs(m_Directive.width);
  }

  void ReadPrecision() { m_Directive.precision = std::max(ReadNumber(), -1); }

  void ReadLength() {
    static constexpr struct {
      std::wstring_view text;
      Length length;
    } kLengths[] = {
        {L"hh", Length::kChar},    {L"h", Length::kShort},      {L"ll", Length::kLongLong},
        {L"l", Length::kLong},     {L"I64", Length::kLongLong}, {L"I32", Length::kNone},
        {L"I", Length::kSize},     {L"z", Length::kSize},       {L"t", Length::kSize},
        {L"j", Length::kLongLong}, {L"L", Length::kLongDouble}, {L"w", Length::kWide},
    };
    for (const auto& known : kLengths) {
      if (!Skip(known.text)) continue;
      m_Directive.length = known.length;
      return;
    }
  }

  std::wstring_view& m_Rest;
  Arguments& m_Arguments;
  Directive m_Directive;
};

// Integers: the bits of an argument and how many of them count.

struct Bits {
  std::uint64_t value;
  int unused;  // high bits

  std::uint64_t Unsigned() const { return value << unused >> unused; }
  std::int64_t Signed() const { return static_cast<std::int64_t>(value << unused) >> unused; }
};

template <class Type>
constexpr int kUnusedBits = 64 - 8 * static_cast<int>(sizeof(Type));

Bits TakeBits(Length length, Arguments& arguments) {
  switch (length) {
    case Length::kChar:
      return {arguments.Take<unsigned>(), kUnusedBits<char>};
    case Length::kShort:
      return {arguments.Take<unsigned>(), kUnusedBits<short>};
    case Length::kLong:
      return {arguments.Take<unsigned long>(), kUnusedBits<long>};
    case Length::kLongLong:
    case Length::kLongDouble:
      return {arguments.Take<unsigned long long>(), kUnusedBits<long long>};
    case Length::kSize:
      return {arguments.Take<std::size_t>(), kUnusedBits<std::size_t>};
    default:
      return {arguments.Take<unsigned>(), kUnusedBits<unsigned>};
  }
}

std::wstring Widened(std::string_view ascii) {
  return {ascii.begin(), ascii.end()};
}

// A number made of ASCII, in capitals when the conversion is one.
bool PutNumber(Output& output, const Directive& directive, std::string_view prefix, std::string_view body) {
  std::wstring number = Widened(prefix) + Widened(body);
  if (IsUpper(directive.conversion)) std::transform(number.begin(), number.end(), number.begin(), ToUpper);
  const std::wstring_view whole = number;
  return output.Pad(directive, whole.substr(0, prefix.size()), whole.substr(prefix.size()));
}

std::string SignOf(const Directive& directive, bool negative) {
  if (negative) return "-";
  return directive.plus ? "+" : directive.blank ? " " : "";
}

std::string Digits(std::uint64_t value, int base) {
  char digits[64];
  return {digits, std::to_chars(digits, digits + sizeof digits, value, base).ptr};
}

// A precision says how many digits there are, and makes the flag 0 void.
bool PutInteger(Output& output, Directive directive, std::string_view prefix, std::uint64_t value, int base) {
  std::string digits = value == 0 && directive.precision == 0 ? "" : Digits(value, base);
  if (base == 8 && directive.alternate && !digits.starts_with('0')) digits.insert(0, 1, '0');
  if (directive.precision >= 0) directive.zero = false;
  const auto wanted = static_cast<std::size_t>(std::max(directive.precision, 0));
  if (digits.size() < wanted) digits.insert(0, wanted - digits.size(), '0');
  return PutNumber(output, directive, prefix, digits);
}

bool PutSigned(Output& output, const Directive& directive, Arguments& arguments) {
  const std::int64_t value = TakeBits(directive.length, arguments).Signed();
  const auto bits = static_cast<std::uint64_t>(value);
  return PutInteger(output, directive, SignOf(directive, value < 0), value < 0 ? 0 - bits : bits, 10);
}

bool PutUnsigned(Output& output, const Directive& directive, Arguments& arguments) {
  const std::uint64_t value = TakeBits(directive.length, arguments).Unsigned();
  if (directive.conversion == L'u') return PutInteger(output, directive, "", value, 10);
  if (directive.conversion == L'o') return PutInteger(output, directive, "", value, 8);
  return PutInteger(output, directive, directive.alternate && value != 0 ? "0x" : "", value, 16);
}

// All digits of an address, in capitals.
bool PutPointer(Output& output, const Directive& asked, Arguments& arguments) {
  Directive directive = asked;
  const auto value = reinterpret_cast<std::uintptr_t>(arguments.Take<void*>());
  directive.conversion = L'X';
  directive.precision = static_cast<int>(2 * sizeof(void*));
  return PutInteger(output, directive, directive.alternate ? "0x" : "", value, 16);
}

// Floating numbers, without their sign.

std::string Rendered(double value, std::chars_format form, int digits) {
  std::array<char, kMaxLength + 400> text;  // the longest number has 309 digits before its point
  return {text.begin(), std::to_chars(text.begin(), text.end(), value, form, digits).ptr};
}

// The point of %#, even where no digit follows it.
void AddPoint(std::string& text) {
  if (text.find('.') == std::string::npos)
    text.insert(std::min(text.find_first_of("ep"), text.size()), 1, '.');
}

void DropTrailingZeros(std::string& text) {
  if (text.find('.') == std::string::npos) return;
  const std::size_t end = std::min(text.find('e'), text.size());
  const std::size_t last = text.find_last_not_of('0', end - 1);
  const std::size_t keep = text[last] == '.' ? last : last + 1;
  text.erase(keep, end - keep);
}

int ExponentOf(std::string_view scientific) {
  std::string_view digits = scientific.substr(scientific.find('e') + 1);
  if (digits.starts_with('+')) digits.remove_prefix(1);
  int exponent = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
  return exponent;
}

// Fixed or scientific, whichever the size of the number calls for, with `digits` significant ones.
std::string GeneralText(double value, int digits, bool keepZeros) {
  const int significant = std::max(digits, 1);
  std::string text = Rendered(value, std::chars_format::scientific, significant - 1);
  const int exponent = ExponentOf(text);
  const bool fixed = exponent >= -4 && exponent < significant;
  if (fixed) text = Rendered(value, std::chars_format::fixed, significant - 1 - exponent);
  if (!keepZeros) DropTrailingZeros(text);
  return text;
}

// `value` without its last `bits` bits, rounded half to even.
std::uint64_t RoundedOff(std::uint64_t value, int bits) {
  if (bits == 0) return value;
  const std::uint64_t half = std::uint64_t{1} << (bits - 1);
  const std::uint64_t odd = value >> bits & 1;
  return (value + half - 1 + odd) >> bits;
}

// Hexadecimal digits and a binary exponent. The first digit is 0 for the smallest numbers, which have no
// other.
std::string HexText(double value, int digits) {
  constexpr int kFractionBits = 4 * kHexFractionDigits;
  constexpr int kBias = 1023;
  constexpr std::uint64_t kFirstDigit = std::uint64_t{1} << kFractionBits;
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const auto stored = static_cast<int>(bits >> kFractionBits);
  const std::uint64_t number = (bits & (kFirstDigit - 1)) | (stored != 0 ? kFirstDigit : 0);
  const int exponent = number == 0 ? 0 : std::max(stored, 1) - kBias;

  const int shown = std::min(digits, kHexFractionDigits);
  std::string text = Digits(RoundedOff(number, 4 * (kHexFractionDigits - shown)), 16);
  text.insert(0, static_cast<std::size_t>(shown) + 1 - text.size(), '0');
  if (digits > 0) text.insert(1, 1, '.');
  text.append(static_cast<std::size_t>(digits - shown), '0');
  return text + (exponent < 0 ? "p-" : "p+") + Digits(static_cast<std::uint64_t>(std::abs(exponent)), 10);
}

// Empty when the precision alone is more than a result can hold.
std::string FiniteText(double value, const Directive& directive) {
  const wchar_t form = ToLower(directive.conversion);
  int digits = directive.precision;
  if (digits < 0) digits = form == L'a' ? kHexFractionDigits : kDefaultFloatDigits;
  const bool dropsZeros = form == L'g' && !directive.alternate;  // so it can be shorter than its precision
  if (digits >= kTooMuch && !dropsZeros) return {};
  std::string text;
  if (form == L'a') text = HexText(value, digits);
  if (form == L'e') text = Rendered(value, std::chars_format::scientific, digits);
  if (form == L'f') text = Rendered(value, std::chars_format::fixed, digits);
  if (form == L'g') text = GeneralText(value, digits, !dropsZeros);
  if (directive.alternate) AddPoint(text);
  return text;
}

std::string SpecialText(double value) {
  if (std::isinf(value)) return "inf";
  constexpr std::uint64_t kIndefinite = 0xFFF8000000000000;  // what invalid operations give
  return std::bit_cast<std::uint64_t>(value) == kIndefinite ? "nan(ind)" : "nan";
}

double TakeDouble(Length length, Arguments& arguments) {
  return length == Length::kLongDouble ? static_cast<double>(arguments.Take<long double>())
                                       : arguments.Take<double>();
}

bool PutFloat(Output& output, const Directive& asked, Arguments& arguments) {
  Directive directive = asked;
  const double value = TakeDouble(directive.length, arguments);
  const bool finite = std::isfinite(value);
  const std::string text = finite ? FiniteText(std::abs(value), directive) : SpecialText(value);
  if (text.empty()) return false;
  std::string prefix = SignOf(directive, std::signbit(value));
  if (finite && ToLower(directive.conversion) == L'a') prefix += "0x";
  if (!finite) directive.zero = false;
  return PutNumber(output, directive, prefix, text);
}

// Text.

bool IsNarrow(const Directive& directive) {
  if (directive.length == Length::kLong || directive.length == Length::kWide) return false;
  return directive.length == Length::kShort || IsUpper(directive.conversion);
}

bool PutCharacter(Output& output, const Directive& directive, Arguments& arguments) {
  const auto bits = static_cast<unsigned>(arguments.Take<int>());
  const char narrow = static_cast<char>(bits);
  // One UTF-16 unit, whatever the width of wchar_t.
  const wchar_t wide = static_cast<wchar_t>(bits & 0xFFFF);
  return output.Pad(directive, L"",
                    IsNarrow(directive) ? Decode(kArabicCodePage, {&narrow, 1}) : std::wstring(1, wide));
}

// Up to the terminator, which need not be there when the precision ends the text before it.
template <class Char>
std::basic_string_view<Char> Bounded(const Char* text, const Directive& directive) {
  const std::size_t limit =
      directive.precision < 0 ? kMaxLength + 1 : static_cast<std::size_t>(directive.precision);
  std::size_t length = 0;
  while (length < limit && text[length] != Char{}) ++length;
  return {text, length};
}

bool PutText(Output& output, const Directive& directive, Arguments& arguments) {
  if (IsNarrow(directive)) {
    const char* const narrow = arguments.Take<const char*>();
    return output.Pad(directive, L"",
                      Decode(kArabicCodePage, Bounded(narrow ? narrow : "(null)", directive)));
  }
  const wchar_t* const wide = arguments.Take<const wchar_t*>();
  return output.Pad(directive, L"", Bounded(wide ? wide : L"(null)", directive));
}

bool PutPercent(Output& output, const Directive&, Arguments&) {
  return output.Append(L"%");
}

constexpr struct {
  std::wstring_view letters;
  bool (*put)(Output&, const Directive&, Arguments&);
} kConversions[] = {
    {L"di", PutSigned}, {L"uoxX", PutUnsigned}, {L"p", PutPointer}, {L"eEfFgGaA", PutFloat},
    {L"sS", PutText},   {L"cC", PutCharacter},  {L"%", PutPercent},
};

// False when the conversion is not known or the result gets too long.
bool Put(Output& output, const Directive& directive, Arguments& arguments) {
  for (const auto& known : kConversions) {
    if (known.letters.find(directive.conversion) != std::wstring_view::npos)
      return known.put(output, directive, arguments);
  }
  return false;
}

std::wstring Formatted(std::wstring_view format, Arguments& arguments) {
  Output output;
  while (!format.empty()) {
    const std::size_t plain = std::min(format.find(L'%'), format.size());
    if (!output.Append(format.substr(0, plain))) return {};
    format.remove_prefix(plain);
    if (format.empty()) break;
    format.remove_prefix(1);
    if (!Put(output, SpecReader(format, arguments).Read(), arguments)) return {};
  }
  return output.Take();
}

}  // namespace

namespace Qel::Sys::Text {

TString pxFormat(const wchar_t* format, ...) {
  if (!format) return {};
  Arguments arguments;
  va_start(arguments.list, format);
  std::wstring text = Formatted(format, arguments);
  va_end(arguments.list);
  return text;
}

}  // namespace Qel::Sys::Text
