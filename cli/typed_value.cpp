#include <charconv>
#include <cstdint>

#include "digits.h"
#include "refusal.h"
#include "settings.h"
#include "text.h"

namespace Cli {

namespace {

std::string Folded(const std::string& typed) {
  return Utf8(Qel::Sys::Text::FoldDigits(Wide(typed)));
}

// All of the text as a number of that base.
template <class Number>
bool IsNumber(std::string_view text, Number& number, int base = 10) {
  const auto [stop, status] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  return status == std::errc() && stop == text.data() + text.size();
}

// Decimal with or without sign, or hexadecimal digits behind "0x": whatever `Bits` hold.
template <class Bits, class Signed>
bool ReadBits(const std::string& typed, Bits& bits) {
  const std::string text = Folded(typed);
  if (text.starts_with("0x")) return IsNumber(std::string_view(text).substr(2), bits, 16);
  Signed number = 0;
  if (!text.starts_with('-')) return IsNumber(text, bits);
  const bool read = IsNumber(text, number);
  bits = static_cast<Bits>(number);
  return read;
}

void Store(std::uint64_t bits, std::size_t count, Setting& setting) {
  for (std::size_t i = 0; i < count; ++i)
    setting.data.push_back(static_cast<unsigned char>(bits >> (8 * i) & 0xFF));
}

int DigitOf(char c) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  const std::size_t digit = kDigits.find(static_cast<char>(c >= 'A' && c <= 'F' ? c | 0x20 : c));
  return digit == kDigits.npos ? -1 : static_cast<int>(digit);
}

// Pairs of hexadecimal digits, blanks anywhere between them.
bool ReadPairs(const std::string& typed, std::vector<unsigned char>& bytes) {
  int high = -1;
  for (const char c : Folded(typed)) {
    if (c == ' ') continue;
    const int digit = DigitOf(c);
    if (digit < 0) return false;
    if (high >= 0) bytes.push_back(static_cast<unsigned char>(high * 16 + digit));
    high = high >= 0 ? -1 : digit;
  }
  return high < 0;
}

// What is stored as a number unless a type is asked for: as the number itself would be written.
bool IsPlainInteger(const std::string& typed, std::int32_t& number) {
  const std::string text = Folded(typed);
  return IsNumber(text, number) && std::to_string(number) == text;
}

}  // namespace

int ReadTypedValue(const std::string& typed, const Options& options, Setting& setting) {
  std::int32_t plain = 0;
  std::uint32_t word = 0;
  std::uint64_t wide = 0;
  const auto refuse = [&](Text why) { return Refuse(typed, {"value", 1, Say(why)}, options); };
  if (options.type == "dword") {
    if (!ReadBits<std::uint32_t, std::int32_t>(typed, word)) return refuse(Text::NotADword);
    setting.type = REG_DWORD;
    Store(word, sizeof word, setting);
  } else if (options.type == "qword") {
    if (!ReadBits<std::uint64_t, std::int64_t>(typed, wide)) return refuse(Text::NotAQword);
    setting.type = REG_QWORD;
    Store(wide, sizeof wide, setting);
  } else if (options.type == "binary") {
    setting.type = REG_BINARY;
    if (!ReadPairs(typed, setting.data)) return refuse(Text::NotBytes);
  } else if (options.type.empty() && IsPlainInteger(typed, plain)) {
    setting.type = REG_DWORD;
    Store(static_cast<std::uint32_t>(plain), sizeof plain, setting);
  } else {
    setting.type = options.type == "expand" ? REG_EXPAND_SZ : REG_SZ;
    setting.data = BytesOf(typed);
  }
  return kDone;
}

}  // namespace Cli
