#include "pxsf.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "encoding.h"
#include "string_tools.h"

namespace {

constexpr int kLengthDigits = 4;
// With its terminator the text of so many bytes fills 8,000 characters.
constexpr int kMaxSize = 3997;

constexpr int kMaxText = kLengthDigits + 2 * kMaxSize;

// By arithmetic, which compilers turn into vector instructions; a table takes them half as long again.
constexpr void PutByte(char* out, unsigned char byte) {
  const unsigned char high = byte >> 4, low = byte & 15;
  out[0] = static_cast<char>(high + '0' + (high > 9 ? 'A' - '9' - 1 : 0));
  out[1] = static_cast<char>(low + '0' + (low > 9 ? 'A' - '9' - 1 : 0));
}

// Values of the ASCII digits; kNoDigit for all else, NUL too.
constexpr unsigned char kNoDigit = 0xFF;
constexpr auto kValues = [] {
  std::array<unsigned char, 256> values{};
  values.fill(kNoDigit);
  for (unsigned char i = 0; i < 10; ++i) values['0' + i] = i;
  for (unsigned char i = 10; i < 16; ++i) values['A' + i - 10] = values['a' + i - 10] = i;
  return values;
}();

// As DecodeDigits, for text that holds all the digits, each in ASCII, which is what is stored. False, with `out`
// half written, when it does not.
bool DecodeAscii(std::wstring_view digits, std::size_t count, unsigned char* out) {
  if (digits.size() < 2 * count) return false;
  char32_t units = 0;
  unsigned values = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const auto high = static_cast<char32_t>(digits[2 * i]), low = static_cast<char32_t>(digits[2 * i + 1]);
    const unsigned highValue = kValues[high & 0xFF], lowValue = kValues[low & 0xFF];
    units |= high | low;
    values |= highValue | lowValue;
    out[i] = static_cast<unsigned char>(highValue << 4 | lowValue);
  }
  return units <= 0xFF && values < 16;
}

// Decodes `count` bytes from `digits` on, which a NUL follows; a text that ends before goes on with 0.
void DecodeDigits(std::wstring_view digits, std::size_t count, unsigned char* out) {
  if (DecodeAscii(digits, count, out)) return;
  const std::string narrow = Qel::Sys::Text::Encoding::Convert2A(digits.data());
  const auto value = [&narrow](std::size_t at) {
    return at < narrow.size() ? Qel::Sys::Text::GetHex(static_cast<unsigned char>(narrow[at])) : 0;
  };
  for (std::size_t i = 0; i < count; ++i)
    out[i] = static_cast<unsigned char>(value(2 * i) * 16 + value(2 * i + 1));
}

}  // namespace

Qel::Sys::TString StructToString(const void* data, int size) {
  if (size > kMaxSize) std::abort();
  std::array<char, kMaxText> text;
  PutByte(text.data(), static_cast<unsigned char>(size >> 8 & 0xFF));
  PutByte(text.data() + 2, static_cast<unsigned char>(size & 0xFF));
  const auto* const bytes = static_cast<const unsigned char*>(data);
  const std::size_t count = size > 0 ? static_cast<std::size_t>(size) : 0;
  char* const digits = text.data() + kLengthDigits;
  for (std::size_t i = 0; i < count; ++i) PutByte(digits + 2 * i, bytes[i]);
  return std::wstring(text.data(), digits + 2 * count);
}

bool StringToStruct(void* data, int size, const wchar_t* text) {
  std::wstring_view digits(text ? text : L"");
  std::array<unsigned char, 2> length{};
  DecodeDigits(digits, length.size(), length.data());
  if (length[0] * 256 + length[1] != size) return false;
  digits.remove_prefix(std::min<std::size_t>(digits.size(), kLengthDigits));
  const auto count = static_cast<std::size_t>(size);
  if (size <= kMaxSize) {
    std::array<unsigned char, kMaxSize> record;
    DecodeDigits(digits, count, record.data());
    std::copy_n(record.data(), count, static_cast<unsigned char*>(data));
  } else {
    std::vector<unsigned char> record(count);
    DecodeDigits(digits, count, record.data());
    std::copy_n(record.data(), count, static_cast<unsigned char*>(data));
  }
  return true;
}
