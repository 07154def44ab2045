#include <iconv.h>
#include <unicode/ucnv.h>

#include <string>

#include "compare.h"
#include "encoding.h"

namespace {

using namespace Qel::Sys::Text;

// "Received with thanks, 1,250 " in Arabic and ASCII, repeated to the length asked for.
std::string Narrow(std::size_t length) {
  const std::string piece = "\xC7\xD3\xCA\xE1\xE3\xE4\xC7 \xE3\xDA \xC7\xE1\xD4\xDF\xD1 1,250 ";
  std::string text;
  while (text.size() < length) text += piece;
  text.resize(length);
  return text;
}

UConverter* Icu1256() {
  UErrorCode status = U_ZERO_ERROR;
  static UConverter* const s_Converter = ucnv_open("windows-1256", &status);
  return s_Converter;
}

template <int Length>
void OursDecode(benchmark::State& state) {
  const std::string text = Narrow(Length);
  for (auto _ : state) benchmark::DoNotOptimize(Encoding::ConvertA2W(text.c_str()));
}

template <int Length>
void IcuDecode(benchmark::State& state) {
  const std::string text = Narrow(Length);
  for (auto _ : state) {
    UErrorCode status = U_ZERO_ERROR;
    std::u16string result(text.size(), u'\0');
    const int32_t length = ucnv_toUChars(Icu1256(), result.data(), static_cast<int32_t>(result.size()),
                                         text.c_str(), static_cast<int32_t>(text.size()), &status);
    result.resize(static_cast<std::size_t>(length));
    benchmark::DoNotOptimize(result);
  }
}

// One iconv pass into a string of the result's type.
template <class To, class From>
To Iconv(iconv_t converter, From& text, std::size_t room) {
  To result(room, 0);
  char* in = reinterpret_cast<char*>(text.data());
  std::size_t inLeft = text.size() * sizeof(text[0]);
  char* out = reinterpret_cast<char*>(result.data());
  std::size_t outLeft = result.size() * sizeof(result[0]);
  iconv(converter, &in, &inLeft, &out, &outLeft);
  result.resize(result.size() - outLeft / sizeof(result[0]));
  return result;
}

template <int Length>
void IconvDecode(benchmark::State& state) {
  std::string text = Narrow(Length);
  static const iconv_t s_Converter = iconv_open("WCHAR_T", "CP1256");
  for (auto _ : state) benchmark::DoNotOptimize(Iconv<std::wstring>(s_Converter, text, text.size()));
}

template <int Length>
void OursEncode(benchmark::State& state) {
  const std::wstring text = Encoding::ConvertA2W(Narrow(Length).c_str());
  for (auto _ : state) benchmark::DoNotOptimize(Encoding::ConvertW2A(text.c_str()));
}

template <int Length>
void IcuEncode(benchmark::State& state) {
  const std::wstring wide = Encoding::ConvertA2W(Narrow(Length).c_str());
  const std::u16string text(wide.begin(), wide.end());
  for (auto _ : state) {
    UErrorCode status = U_ZERO_ERROR;
    std::string result(text.size(), '\0');
    const int32_t length = ucnv_fromUChars(Icu1256(), result.data(), static_cast<int32_t>(result.size()),
                                           text.data(), static_cast<int32_t>(text.size()), &status);
    result.resize(static_cast<std::size_t>(length));
    benchmark::DoNotOptimize(result);
  }
}

template <int Length>
void IconvEncode(benchmark::State& state) {
  std::wstring text = Encoding::ConvertA2W(Narrow(Length).c_str());
  static const iconv_t s_Converter = iconv_open("CP1256", "WCHAR_T");
  for (auto _ : state) benchmark::DoNotOptimize(Iconv<std::string>(s_Converter, text, text.size()));
}

const bool kAdded =
    Compare("1256 decode 1 KB", OursDecode<1024>,
            {{"ICU", AtLeast(1.5), IcuDecode<1024>}, {"iconv", AtLeast(2), IconvDecode<1024>}}) &&
    Compare("1256 encode 1 KB", OursEncode<1024>,
            {{"ICU", AtLeast(2), IcuEncode<1024>}, {"iconv", AtLeast(3), IconvEncode<1024>}}) &&
    Compare("1256 decode 16 bytes", OursDecode<16>, {{"ICU", AtLeast(1), IcuDecode<16>}}) &&
    Compare("1256 encode 16 bytes", OursEncode<16>, {{"ICU", AtLeast(1), IcuEncode<16>}});

}  // namespace
