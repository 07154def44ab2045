#include "character_codec.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "support/golden.h"

namespace {

using Qel::TextEncoding;

std::string Encoded(TextEncoding encoding, char32_t character) {
  const Qel::TEncodedCharacter encoded = Qel::EncodeCharacter(encoding, character);
  return std::string(encoded.bytes, static_cast<std::size_t>(encoded.size));
}

// All characters in UTF-8, the broken ones in brackets.
std::string Decoded(TextEncoding encoding, std::string_view bytes) {
  std::string text;
  while (!bytes.empty()) {
    const Qel::TDecodedCharacter decoded = Qel::DecodeCharacter(encoding, bytes);
    const std::string character = Encoded(TextEncoding::Utf8, decoded.character);
    text += decoded.broken ? "[" + character + "]" : character;
    bytes.remove_prefix(static_cast<std::size_t>(decoded.size));
  }
  return text;
}

}  // namespace

TEST(CharacterCodecTest, BytesThatAreNoCharactersAreTold) {
  using namespace std::string_literals;
  const struct {
    TextEncoding encoding;
    std::string bytes, text;
  } rows[] = {
      {TextEncoding::Utf8, "a\xD9\x85\xE2\x82\xAC\xF0\x9F\x98\x80\0\xEF\xBF\xBD"s, "aم€😀\0\uFFFD"s},
      {TextEncoding::Utf8, "\xFFz\xE2\x82z\xC0\xAF\xF0\x9F\x98",
       "[\uFFFD]z[\uFFFD]z[\uFFFD][\uFFFD][\uFFFD]"},
      {TextEncoding::Utf16LE, "\x45\x06\x3D\xD8\x00\xDEz\0\xFF\xFE"s, "م😀z\uFEFF"},
      {TextEncoding::Utf16BE, "\x06\x45\xD8\x3D\xDE\x00\0z"s, "م😀z"},
      {TextEncoding::Utf16LE, "\x3D\xD8z\0\x00\xDE\x3D\xD8"s, "[\uFFFD]z[\uFFFD][\uFFFD]"},
      {TextEncoding::Utf16BE, "\xD8\x3D\xDE"s, "[\uFFFD][\uFFFD]"},
      {TextEncoding::Cp1256, "\xE3\x80z\xFF\0"s, "م€zے\0"s},
  };
  for (const auto& row : rows)
    EXPECT_EQ(Decoded(row.encoding, row.bytes), row.text) << SpelledBytes(row.bytes);
}

TEST(CharacterCodecTest, WhatIsWrittenReadsBackAndWhatIsLostIsTold) {
  for (char32_t character = 0; character <= 0x10FFFF; character += character < 0x3000 ? 1 : 7) {
    if (character >= 0xD800 && character < 0xE000) continue;
    for (const auto encoding :
         {TextEncoding::Utf8, TextEncoding::Utf16LE, TextEncoding::Utf16BE, TextEncoding::Cp1256}) {
      const bool exact = Qel::EncodeCharacter(encoding, character).exact;
      const auto back = Qel::DecodeCharacter(encoding, Encoded(encoding, character));
      ASSERT_TRUE(exact || encoding == TextEncoding::Cp1256) << std::hex << std::uint32_t{character};
      ASSERT_EQ(back.character == character && !back.broken, exact) << std::hex << std::uint32_t{character};
    }
  }
  EXPECT_EQ(Encoded(TextEncoding::Cp1256, U'م') + Encoded(TextEncoding::Cp1256, U'À'),
            "\xE3"
            "A");
  EXPECT_EQ(Encoded(TextEncoding::Cp1256, U'中') + Encoded(TextEncoding::Cp1256, U'😀'), "???");
}
