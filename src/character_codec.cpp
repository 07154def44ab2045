#include "character_codec.h"

#include <cstddef>

#include "platform/platform.h"
#include "utf8_character.h"

namespace Qel {

namespace {

constexpr char32_t kAsciiEnd = 0x80;
constexpr char32_t kUnitEnd = 0x10000;

// 0xD800 for the first half of a pair, 0xDC00 for the second.
constexpr char32_t HalfOf(char32_t unit) {
  return unit & 0xFFFFFC00;
}

char32_t UnitAt(std::string_view bytes, bool bigEndian) {
  const auto first = static_cast<unsigned char>(bytes[0]), second = static_cast<unsigned char>(bytes[1]);
  return static_cast<char32_t>(bigEndian ? first << 8 | second : second << 8 | first);
}

TDecodedCharacter DecodeUnits(std::string_view bytes, bool bigEndian) {
  if (bytes.size() < 2) return {kReplacement, 1, true};
  const char32_t unit = UnitAt(bytes, bigEndian);
  const bool first = HalfOf(unit) == 0xD800;
  if (!first && HalfOf(unit) != 0xDC00) return {unit, 2, false};
  const char32_t next = first && bytes.size() >= 4 ? UnitAt(bytes.substr(2), bigEndian) : 0;
  if (HalfOf(next) != 0xDC00) return {kReplacement, 2, true};
  return {kUnitEnd + ((unit & 0x3FF) << 10) + (next & 0x3FF), 4, false};
}

TDecodedCharacter DecodeUtf8(std::string_view bytes) {
  const char* at = bytes.data();
  const char32_t character = NextOfUtf8(at, at + bytes.size());
  const bool broken = character == kReplacement && !bytes.starts_with("\xEF\xBF\xBD");  // as itself
  return {character, static_cast<int>(at - bytes.data()), broken};
}

char32_t UnitOf1256(char byte) {
  wchar_t unit = L'\0';
  MultiByteToWideChar(kArabicCodePage, 0, &byte, 1, &unit, 1);
  return static_cast<char32_t>(unit);
}

struct Units {
  wchar_t units[2];
  int count;
};

Units UnitsOf(char32_t character) {
  if (character < kUnitEnd) return {{static_cast<wchar_t>(character)}, 1};
  return {
      {static_cast<wchar_t>(0xD7C0 + (character >> 10)), static_cast<wchar_t>(0xDC00 | (character & 0x3FF))},
      2};
}

TEncodedCharacter EncodeUnits(char32_t character, bool bigEndian) {
  const Units text = UnitsOf(character);
  TEncodedCharacter encoded{{}, 2 * text.count, true};
  char* out = encoded.bytes;
  for (int i = 0; i < text.count; ++i) {
    const auto unit = static_cast<char16_t>(text.units[i]);
    *out++ = static_cast<char>(bigEndian ? unit >> 8 : unit);
    *out++ = static_cast<char>(bigEndian ? unit : unit >> 8);
  }
  return encoded;
}

TEncodedCharacter EncodeNarrow(UINT codePage, char32_t character) {
  if (character < kAsciiEnd) return {{static_cast<char>(character)}, 1, true};
  const Units text = UnitsOf(character);
  TEncodedCharacter encoded{{}, 0, true};
  encoded.size = WideCharToMultiByte(codePage, 0, text.units, text.count, encoded.bytes, sizeof encoded.bytes,
                                     nullptr, nullptr);
  if (codePage == kArabicCodePage) encoded.exact = UnitOf1256(encoded.bytes[0]) == character;
  return encoded;
}

}  // namespace

TDecodedCharacter DecodeCharacter(TextEncoding encoding, std::string_view bytes) {
  switch (encoding) {
    case TextEncoding::Utf8:
      return DecodeUtf8(bytes);
    case TextEncoding::Utf16LE:
    case TextEncoding::Utf16BE:
      return DecodeUnits(bytes, encoding == TextEncoding::Utf16BE);
    default:
      return {UnitOf1256(bytes[0]), 1, false};
  }
}

TEncodedCharacter EncodeCharacter(TextEncoding encoding, char32_t character) {
  switch (encoding) {
    case TextEncoding::Utf16LE:
    case TextEncoding::Utf16BE:
      return EncodeUnits(character, encoding == TextEncoding::Utf16BE);
    default:
      return EncodeNarrow(encoding == TextEncoding::Utf8 ? CP_UTF8 : kArabicCodePage, character);
  }
}

}  // namespace Qel
