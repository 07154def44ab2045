#include "text_file.h"

#include <algorithm>

#include "text.h"

namespace Cli {

using Qel::TextEncoding;

namespace {

constexpr std::size_t kPiece = 65536;
constexpr std::size_t kLongest = 4;  // bytes of a character, and of a signature

std::optional<TextEncoding> EncodingOf(const TEncodingSignature& signature) {
  constexpr int kUtf8 = 1, kUtf16 = 2;
  if (signature.id == kUtf8) return TextEncoding::Utf8;
  if (signature.id != kUtf16) return std::nullopt;
  return signature.bytes[0] == 0xFE ? TextEncoding::Utf16BE : TextEncoding::Utf16LE;
}

}  // namespace

const std::vector<std::string>& EncodingNames() {
  static const std::vector<std::string> names = {"utf-8", "utf-16le", "utf-16be",
                                                 "1256"};  // in the order of the type
  return names;
}

std::string NameOf(TextEncoding encoding) {
  return EncodingNames()[static_cast<std::size_t>(encoding)];
}

TextEncoding EncodingNamed(const std::string& name) {
  const auto& names = EncodingNames();
  return static_cast<TextEncoding>(std::find(names.begin(), names.end(), name) - names.begin());
}

std::string HexPairs(std::string_view bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string pairs;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (!pairs.empty()) pairs += ' ';
    (pairs += kDigits[byte >> 4]) += kDigits[byte & 15];
  }
  return pairs;
}

long TextFile::Open(const std::string& name) {
  if (!m_File.Open(Wide(name), FA_READ)) return static_cast<long>(m_File.GetErrorCode());
  while (!m_Ended && m_Buffer.size() < kLongest) Fill();
  m_Signature = TPXFile2::FindSignature(m_Buffer.data(), m_Buffer.size());
  return m_Status;
}

std::string TextFile::SignatureShown() const {
  if (!m_Signature) return "";
  return HexPairs({reinterpret_cast<const char*>(m_Signature->bytes), m_Signature->length});
}

std::optional<TextEncoding> TextFile::Detect() {
  if (m_Signature) return EncodingOf(*m_Signature);
  ReadAs(TextEncoding::Utf8);
  Qel::TDecodedCharacter character{};
  while (Next(character))
    if (character.broken) return TextEncoding::Cp1256;
  return TextEncoding::Utf8;
}

bool TextFile::IsSigned(TextEncoding encoding) const {
  return m_Signature && EncodingOf(*m_Signature) == encoding;
}

void TextFile::ReadAs(TextEncoding encoding) {
  m_Encoding = encoding;
  if (!m_FromStart) Rewind();
  m_At = m_Taken = 0;
  m_Last = 0;
  m_Position = {};
  m_Ends = {};
  if (!IsSigned(encoding)) return;
  m_At = std::min<std::size_t>(m_Signature->length, m_Buffer.size());
  m_Position.offset = static_cast<std::int64_t>(m_At);
}

// Pipes cannot.
void TextFile::Rewind() {
  m_Buffer.clear();
  m_At = 0;
  m_FromStart = true;
  m_Ended = m_File.Seek(0, 0) != 0;
  m_Status = m_Ended ? static_cast<long>(m_File.GetErrorCode()) : 0;
  Fill();
}

// Reads on behind what is left.
void TextFile::Fill() {
  if (m_Ended) return;
  m_FromStart = m_FromStart && m_At == 0;
  m_Buffer.erase(0, m_At);
  m_At = 0;
  const std::size_t left = m_Buffer.size();
  m_Buffer.resize(left + kPiece);
  const int got = m_File.Read(m_Buffer.data() + left, kPiece);
  m_Buffer.resize(left + static_cast<std::size_t>(got));
  m_Ended = got == 0;
  if (m_Ended) m_Status = static_cast<long>(m_File.GetErrorCode());
}

// Moves the position to where `next` stands, behind the character last read; 0 is the end of the file.
void TextFile::Advance(char32_t next) {
  const bool between = m_Last == U'\r' && next == U'\n';
  m_Position.offset += static_cast<std::int64_t>(m_Taken);
  m_Position.column += m_Taken > 0 ? 1 : 0;
  if (!between && (m_Last == U'\n' || m_Last == U'\r'))
    m_Position = {m_Position.line + 1, 1, m_Position.offset};
  if (m_Last == U'\r' && !between) ++m_Ends.cr;
  if (next == U'\n') ++(between ? m_Ends.crlf : m_Ends.lf);
  m_Last = next;
}

bool TextFile::Next(Qel::TDecodedCharacter& character) {
  while (!m_Ended && m_Buffer.size() - m_At < kLongest) Fill();
  const std::string_view left = std::string_view(m_Buffer).substr(m_At);
  if (!left.empty()) character = Qel::DecodeCharacter(m_Encoding, left);
  Advance(left.empty() ? 0 : character.character);
  m_Taken = left.empty() ? 0 : static_cast<std::size_t>(character.size);
  m_At += m_Taken;
  return m_Taken > 0;
}

}  // namespace Cli
