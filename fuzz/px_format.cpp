// Formats: any text of few conversions stays in bounds and writes nothing; a well-formed conversion of a number gives
// what the narrow formatter of the C runtime gives.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>
#include <string_view>

#include "fuzz.h"
#include "px_format.h"

using Qel::Sys::Text::pxFormat;

namespace {

constexpr std::size_t kLongest = 1999;

// Takes the input apart, zeros when it is used up.
class Source {
 public:
  Source(const std::uint8_t* data, std::size_t size) : m_At(data), m_End(data + size) {}

  template <class Value>
  Value Take() {
    Value value{};
    const auto size = std::min<std::size_t>(sizeof value, static_cast<std::size_t>(m_End - m_At));
    if (size > 0) std::memcpy(&value, m_At, size);
    m_At += size;
    return value;
  }

 private:
  const std::uint8_t* m_At;
  const std::uint8_t* m_End;
};

// Flags, width and precision, in the order they must have.
std::string Shape(Source& source) {
  std::string shape;
  const auto flags = source.Take<std::uint8_t>();
  for (int bit = 0; bit < 5; ++bit) {
    if (flags >> bit & 1) shape += "-+ 0#"[bit];
  }
  if (flags >> 5 & 1) shape += std::to_string(1 + source.Take<std::uint16_t>() % 2100);
  if (flags >> 6 & 1) shape += "." + std::to_string(source.Take<std::uint16_t>() % 2100);
  return shape;
}

template <class Value>
void AgreesWithTheRuntime(const std::string& format, Value value) {
  char expected[4 * kLongest] = "";
  std::snprintf(expected, sizeof expected, format.c_str(), value);
  const std::string_view whole = std::strlen(expected) > kLongest ? "" : expected;
  const auto got = pxFormat(std::wstring(format.begin(), format.end()).c_str(), value);
  FUZZ_ASSERT(std::wstring_view(got) == std::wstring(whole.begin(), whole.end()));
}

void WellFormedNumber(Source source) {
  const std::string shape = "%" + Shape(source);
  const auto pick = [&source](std::string_view letters) {
    return letters[source.Take<std::uint8_t>() % letters.size()];
  };
  switch (source.Take<std::uint8_t>() % 4) {
    case 0:
      return AgreesWithTheRuntime(shape + pick("diuoxX"), source.Take<int>());
    case 1:
      return AgreesWithTheRuntime(shape + "hh" + pick("diuoxX"), source.Take<int>());
    case 2:
      return AgreesWithTheRuntime(shape + "ll" + pick("diuoxX"), source.Take<long long>());
    default:
      const auto value = source.Take<double>();
      if (!std::isnan(value)) AgreesWithTheRuntime(shape + pick("eEfFgG"), value);
  }
}

// Every argument that a format could ask for is there: pointers to zeros serve as numbers and as empty texts.
void AnyFormat(const std::wstring& format) {
  static const long double zeros[4] = {};
  const void* const p = zeros;
  const double d = 1.5;
  constexpr std::ptrdiff_t kMost = 6;
  if (std::count(format.begin(), format.end(), L'%') + std::count(format.begin(), format.end(), L'*') > kMost)
    return;
  const auto text =
      pxFormat(format.c_str(), d, d, d, d, d, d, p, p, p, p, p, p, p, p, p, p, p, p, p, p, p, p, p, p, p, p);
  FUZZ_ASSERT(static_cast<std::size_t>(text.GetLength()) <= kLongest);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  WellFormedNumber(Source(data, size));
  AnyFormat(AsciiUnits(data, size));
  return 0;
}
