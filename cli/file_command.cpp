#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "commands.h"
#include "file_report.h"
#include "output.h"
#include "text.h"
#include "text_file.h"

namespace Cli {

namespace {

std::string Shown(std::int64_t number) {
  return InUserDigits(std::to_string(number));
}

// "CR LF", or "CR LF (12) / LF (1)" for a mixture.
std::string EndsShown(const LineEnds& ends) {
  const std::pair<const char*, std::int64_t> kinds[] = {
      {"CR LF", ends.crlf}, {"LF", ends.lf}, {"CR", ends.cr}};
  const std::int64_t all = ends.crlf + ends.lf + ends.cr;
  std::string shown;
  for (const auto& [name, count] : kinds) {
    if (count == all && all > 0) return Say(Text::FileEnds, {name});
    if (count > 0) shown += Joined({shown.empty() ? "" : " / ", name, " (", Shown(count), ")"});
  }
  return shown.empty() ? Say(Text::FileNoEnds) : Say(Text::FileEnds, {shown});
}

std::string Reason(const TextFile& file, Qel::TextEncoding encoding) {
  if (file.Signature()) return Say(Text::FileSigned, {file.SignatureShown()});
  return Say(encoding == Qel::TextEncoding::Utf8 ? Text::FileLooksUtf8 : Text::FileLooksOther);
}

// What is told of a file that can be read.
struct Detected {
  std::string encoding;
  std::optional<Qel::TextEncoding> readable;  // or the name is all that is known
  std::string broken;                         // the first place that is, empty for none
  std::int64_t places = 0;
};

Detected Look(TextFile& file) {
  Detected detected;
  detected.readable = file.Detect();
  detected.encoding = detected.readable ? NameOf(*detected.readable) : Utf8(file.Signature()->name);
  if (!detected.readable) return detected;
  file.ReadAs(*detected.readable);
  for (Qel::TDecodedCharacter character{}; file.Next(character);)
    if (character.broken && detected.places++ == 0)
      detected.broken = FileReport::BrokenText(file, *detected.readable, "");
  return detected;
}

void ShowJson(JsonObject object, const TextFile& file, const Detected& detected) {
  object.Add("encoding", detected.encoding);
  if (file.Signature())
    object.Add("signature", file.SignatureShown());
  else
    object.Add("signature", nullptr);
  object.Add("guessed", !file.Signature()).Add("size", file.Size());
  const LineEnds& ends = file.Ends();
  if (detected.readable)
    object.Add("ends", JsonObject().Add("crlf", ends.crlf).Add("lf", ends.lf).Add("cr", ends.cr))
        .Add("broken", detected.places);
  const JsonObject error = JsonObject().Add("rule", "broken").Add("text", detected.broken);
  Print((detected.places > 0 ? object.Add("error", error) : object.Add("error", nullptr)).Line());
}

void Show(const std::string& name, const TextFile& file, const Detected& detected) {
  const std::string size = Shown(file.Size());
  if (detected.readable)
    Print(Say(Text::FileDetected,
              {name, detected.encoding, Reason(file, *detected.readable), size, EndsShown(file.Ends())}) +
          "\n");
  else
    Print(Say(Text::FileNamed,
              {name, detected.encoding, Say(Text::FileSigned, {file.SignatureShown()}), size}) +
          "\n");
  if (detected.places > 0) Complain(Joined({name, ": ", detected.broken}));
}

int Detect(const std::string& name, const Options& options) {
  const FileReport report(name, options, false);
  TextFile file;
  if (const long status = file.Open(name); status != 0) return report.NotRead(status);
  const Detected detected = Look(file);
  if (file.Status() != 0) return report.NotRead(file.Status());
  if (options.json)
    ShowJson(report.Object(), file, detected);
  else
    Show(name, file, detected);
  return detected.places > 0 ? kUnreadable : kDone;
}

}  // namespace

int RunFileDetect(const Options& options) {
  int exit = kDone;
  for (const std::string& name : options.operands) exit = std::max(exit, Detect(name, options));
  return exit;
}

}  // namespace Cli
