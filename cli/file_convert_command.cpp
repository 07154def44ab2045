#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "commands.h"
#include "file_output.h"
#include "file_report.h"
#include "output.h"
#include "text.h"
#include "text_file.h"

namespace Cli {

using Qel::TextEncoding;

namespace {

std::string_view BytesOf(const Qel::TEncodedCharacter& encoded) {
  return {encoded.bytes, static_cast<std::size_t>(encoded.size)};
}

// What was written, as it reads there.
std::string WrittenShown(TextEncoding to, std::string_view bytes) {
  std::string shown;
  while (!bytes.empty()) {
    const Qel::TDecodedCharacter character = Qel::DecodeCharacter(to, bytes);
    shown += BytesOf(Qel::EncodeCharacter(TextEncoding::Utf8, character.character));
    bytes.remove_prefix(static_cast<std::size_t>(character.size));
  }
  return shown;
}

// Text of files on its way into one encoding.
class Conversion {
 public:
  Conversion(const Options& options, TextEncoding to, bool writesSignature)
      : m_Options(options), m_To(to), m_SignaturePending(writesSignature) {}

  // Everything: an exit code.
  int Run();

 private:
  void Add(const std::string& name);
  std::optional<TextEncoding> EncodingOf(TextFile& file, const FileReport& report) const;
  void PutSignature(const TextFile& file, TextEncoding from);
  void Copy(TextFile& file, TextEncoding from, const FileReport& report);
  bool LosesItsSource() const;
  int NotWritten(Text why) const;

  const Options& m_Options;
  TextEncoding m_To;
  bool m_SignaturePending;
  FileOutput m_Output;
  int m_Unread = 0;                       // files
  std::int64_t m_Broken = 0, m_Lost = 0;  // characters
};

std::optional<TextEncoding> Conversion::EncodingOf(TextFile& file, const FileReport& report) const {
  if (!m_Options.from.empty()) return EncodingNamed(m_Options.from);
  const auto found = file.Detect();
  if (found && !file.Signature()) report.Guessed(*found);
  return found;
}

// UTF-16 always has one, UTF-8 when the first file had it, 1256 has none.
void Conversion::PutSignature(const TextFile& file, TextEncoding from) {
  constexpr char32_t kMark = 0xFEFF;
  const bool hadIt = from == m_To && file.Position().offset > 0;
  const bool wanted = m_To == TextEncoding::Utf8 ? hadIt : m_To != TextEncoding::Cp1256;
  if (wanted && m_SignaturePending) m_Output.Put(BytesOf(Qel::EncodeCharacter(m_To, kMark)));
  m_SignaturePending = false;
}

void Conversion::Copy(TextFile& file, TextEncoding from, const FileReport& report) {
  for (Qel::TDecodedCharacter character{}; file.Next(character);) {
    const Qel::TEncodedCharacter encoded = Qel::EncodeCharacter(m_To, character.character);
    m_Output.Put(BytesOf(encoded));
    if (!character.broken && encoded.exact) continue;
    const std::string written = WrittenShown(m_To, BytesOf(encoded));
    ++(character.broken ? m_Broken : m_Lost);
    if (character.broken)
      report.Broken(file, from, written);
    else
      report.Lost(file, character.character, written);
  }
}

void Conversion::Add(const std::string& name) {
  const FileReport report(name, m_Options, m_Options.output.empty());
  TextFile file;
  long status = file.Open(name);
  const auto from = status == 0 ? EncodingOf(file, report) : std::nullopt;
  if (from) {
    file.ReadAs(*from);
    PutSignature(file, *from);
    Copy(file, *from, report);
  }
  status = status != 0 ? status : file.Status();
  if (status != 0)
    report.NotRead(status);
  else if (!from)
    report.NotDecoded(file);
  m_Unread += status != 0 || !from;
}

// What could not be decoded is nowhere else when the file itself is replaced. One that was read and is not there as it
// was written was found by another case of its name, and may be any.
bool Conversion::LosesItsSource() const {
  namespace fs = std::filesystem;
  std::error_code ignored;
  const fs::path output = PathOf(m_Options.output);
  const auto isOutput = [&](const std::string& name) {
    const fs::path source = PathOf(name);
    return !fs::exists(source, ignored) || fs::equivalent(source, output, ignored);
  };
  return m_Broken > 0 && fs::exists(output, ignored) &&
         std::any_of(m_Options.operands.begin(), m_Options.operands.end(), isOutput);
}

int Conversion::NotWritten(Text why) const {
  const std::string text = Say(why);
  const FileReport report(m_Options.output, m_Options, false);
  report.Tell(report.Object().Add("error", JsonObject().Add("rule", "output").Add("text", text)), text);
  return kNotWritten;
}

int Conversion::Run() {
  const bool toFile = !m_Options.output.empty();
  if (!m_Output.Open(m_Options.output)) return NotWritten(Text::FileNotWritten);
  for (const std::string& name : m_Options.operands) Add(name);
  if (toFile && (m_Unread > 0 || LosesItsSource())) {
    NotWritten(Text::FileNothingWritten);
    return kUnreadable;
  }
  if (!m_Output.Finish()) return NotWritten(Text::FileNotWritten);
  if (toFile && m_Options.json)
    Print(JsonObject()
              .Add("file", m_Options.output)
              .Add("encoding", NameOf(m_To))
              .Add("broken", m_Broken)
              .Add("lost", m_Lost)
              .Add("error", nullptr)
              .Line());
  return m_Unread + m_Broken > 0 ? kUnreadable : m_Lost > 0 ? kNo : kDone;
}

}  // namespace

int RunFileCat(const Options& options) {
  return Conversion(options, TextEncoding::Utf8, false).Run();
}
int RunFileConvert(const Options& options) {
  return Conversion(options, EncodingNamed(options.to), true).Run();
}

}  // namespace Cli
