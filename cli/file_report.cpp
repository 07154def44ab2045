#include "file_report.h"

#include "output.h"
#include "platform/platform.h"
#include "settings.h"
#include "text.h"

namespace Cli {

namespace {

std::string Shown(std::int64_t number) {
  return InUserDigits(std::to_string(number));
}

std::string InUtf8(char32_t character) {
  const Qel::TEncodedCharacter encoded = Qel::EncodeCharacter(Qel::TextEncoding::Utf8, character);
  return std::string(encoded.bytes, static_cast<std::size_t>(encoded.size));
}

// U+00E9
std::string CodeOf(char32_t character) {
  std::string digits;
  for (auto rest = static_cast<unsigned>(character); rest > 0 || digits.size() < 4; rest >>= 4)
    digits.insert(digits.begin(), "0123456789ABCDEF"[rest & 15]);
  return "U+" + digits;
}

std::string Place(const TextPosition& at) {
  return Say(Text::AtLine, {Shown(at.line), Shown(at.column)});
}

void AddPlace(JsonObject& object, const TextPosition& at) {
  object.Add("line", at.line).Add("column", at.column).Add("offset", at.offset);
}

}  // namespace

void FileReport::Tell(const JsonObject& object, std::string_view text) const {
  if (!m_Json)
    Complain(Joined({m_Name, ": ", text}));
  else if (m_Besides)
    WriteMessage(object.Line());
  else
    Print(object.Line());
}

int FileReport::NotRead(long status) const {
  const std::string text = StatusText(status);
  Tell(Object().Add("error", JsonObject().Add("rule", "file").Add("text", text)), text);
  return kUnreadable;
}

int FileReport::NotDecoded(const TextFile& file) const {
  const std::string text = Say(Text::FileNotDecoded, {Utf8(file.Signature()->name), file.SignatureShown()});
  Tell(Object().Add("error", JsonObject().Add("rule", "encoding").Add("text", text)), text);
  return kUnreadable;
}

void FileReport::Guessed(Qel::TextEncoding encoding) const {
  const std::string text =
      Say(encoding == Qel::TextEncoding::Utf8 ? Text::FileGuessedUtf8 : Text::FileGuessed1256);
  Tell(Object().Add("guessed", NameOf(encoding)).Add("text", text), text);
}

std::string FileReport::BrokenText(const TextFile& file, Qel::TextEncoding encoding,
                                   std::string_view written) {
  const TextPosition& at = file.Position();
  return Place(at) + Say(written.empty() ? Text::FileBrokenAt : Text::FileBroken,
                         {HexPairs(file.Bytes()), Shown(at.offset), NameOf(encoding), written});
}

void FileReport::Broken(const TextFile& file, Qel::TextEncoding encoding, std::string_view written) const {
  const std::string text = BrokenText(file, encoding, written);
  JsonObject object = Object().Add("rule", "broken");
  AddPlace(object, file.Position());
  Tell(object.Add("bytes", HexPairs(file.Bytes())).Add("written", written).Add("text", text), text);
}

void FileReport::Lost(const TextFile& file, char32_t character, std::string_view written) const {
  const std::string shown = InUtf8(character), code = CodeOf(character);
  const std::string text = Place(file.Position()) + Say(Text::FileLost, {shown, code, written});
  JsonObject object = Object().Add("rule", "lost");
  AddPlace(object, file.Position());
  Tell(object.Add("character", shown).Add("code", code).Add("written", written).Add("text", text), text);
}

}  // namespace Cli
