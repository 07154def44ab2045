// Text files in any of the encodings that the library decodes, read one character after the other: memory does not
// grow with the file.
#ifndef QEL_CLI_TEXT_FILE_H
#define QEL_CLI_TEXT_FILE_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "character_codec.h"
#include "pxfile.h"
#include "pxfile2.h"

namespace Cli {

// As they are typed and shown: utf-8, utf-16le, utf-16be, 1256.
const std::vector<std::string>& EncodingNames();
std::string NameOf(Qel::TextEncoding encoding);
// Of one of the names.
Qel::TextEncoding EncodingNamed(const std::string& name);

// "FE FF"
std::string HexPairs(std::string_view bytes);

// Where a character stands: lines end with CR LF, LF or CR, columns are characters, offsets bytes of the file.
struct TextPosition {
  std::int64_t line = 1, column = 1, offset = 0;
};

// How many lines end so.
struct LineEnds {
  std::int64_t crlf = 0, lf = 0, cr = 0;
};

class TextFile {
 public:
  // 0, or the system's code.
  long Open(const std::string& name);
  std::int64_t Size() const { return m_File.GetFileSize(); }

  // Null when there is none.
  const TEncodingSignature* Signature() const { return m_Signature; }
  std::string SignatureShown() const;
  // What the signature says, nothing when that is none of ours; without one what the bytes look like, all of which are
  // read for it.
  std::optional<Qel::TextEncoding> Detect();

  // Reads from the start, behind the signature of this encoding.
  void ReadAs(Qel::TextEncoding encoding);
  // The next character; false at the end and when the system does not read on, which Status() tells.
  bool Next(Qel::TDecodedCharacter& character);
  long Status() const { return m_Status; }
  // Of the character last read: where it stands, and its bytes until the next is read.
  const TextPosition& Position() const { return m_Position; }
  std::string_view Bytes() const { return {m_Buffer.data() + m_At - m_Taken, m_Taken}; }
  const LineEnds& Ends() const { return m_Ends; }

 private:
  void Fill();
  void Rewind();
  void Advance(char32_t next);
  bool IsSigned(Qel::TextEncoding encoding) const;

  TPXFile m_File;
  const TEncodingSignature* m_Signature = nullptr;
  Qel::TextEncoding m_Encoding = Qel::TextEncoding::Utf8;
  long m_Status = 0;

  std::string m_Buffer;  // of bytes, of which those from m_At on are not read yet
  std::size_t m_At = 0;
  std::size_t m_Taken = 0;  // by the last character
  bool m_FromStart = true;  // the buffer begins where the file does
  bool m_Ended = false;     // nothing comes behind the buffer

  char32_t m_Last = 0;
  TextPosition m_Position;
  LineEnds m_Ends;
};

}  // namespace Cli

#endif  // QEL_CLI_TEXT_FILE_H
