// The text of files one character after the other, in the encodings that the applications' files have, for files that
// are too large to be held whole and for readers that must tell what was wrong where.
//
//   Qel::DecodeCharacter(Qel::TextEncoding::Utf16BE, "\x06\x45 ...")    U+0645 of 2 bytes
//   Qel::EncodeCharacter(Qel::TextEncoding::Cp1256, U'À')               "A", not exact
//
// Any thread may call.
#ifndef QEL_CHARACTER_CODEC_H
#define QEL_CHARACTER_CODEC_H

#include <string_view>

#include "qel_export.h"

namespace Qel {

enum class TextEncoding { Utf8, Utf16LE, Utf16BE, Cp1256 };

struct TDecodedCharacter {
  char32_t character;
  int size;     // bytes it takes, 1 to 4
  bool broken;  // the bytes are no character, which is U+FFFD then
};

// The first character of `bytes`, of which there are at least 4, or as many as are left of the text but at least one.
// Broken are what FromUtf8 takes for it, surrogates without their partner and half a unit at the end.
QEL_API TDecodedCharacter DecodeCharacter(TextEncoding encoding, std::string_view bytes);

struct TEncodedCharacter {
  char bytes[4];
  int size;
  bool exact;  // or the encoding lacks the character, and it is the best fit or "?"
};

// `character` is any but a surrogate.
// Kept: one above U+FFFF is "??" in 1256, because ConvertW2A writes it so.
QEL_API TEncodedCharacter EncodeCharacter(TextEncoding encoding, char32_t character);

}  // namespace Qel

#endif  // QEL_CHARACTER_CODEC_H
