#include "document.h"

#include <cerrno>
#include <filesystem>
#include <fstream>

#include "json.h"
#include "output.h"
#include "platform/platform.h"
#include "settings.h"
#include "text.h"

namespace Cli {

namespace {

constexpr int kOtherError = EIO;

std::filesystem::path PathOf(const std::string& utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

// A name for the system's number of what went wrong with a file that should be there, or be made.
std::string WhyNot(int error, bool isThere) {
  constexpr long kNoFile = 2, kNoFolder = 3, kNoRight = 5, kDiskFull = 112;
  switch (error) {
    case ENOENT:
      return StatusText(isThere ? kNoFile : kNoFolder);
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
      return StatusText(kNoRight);
    case ENOSPC:
      return StatusText(kDiskFull);
    default:
      return Say(Text::StatusOther, {std::to_string(error)});
  }
}

// 0, or the system's number of what went wrong.
int ReadLines(const std::string& file, std::vector<std::string>& lines) {
  if (file == "-") {
    for (std::string line; ReadInputLine(line);) lines.push_back(line);
    return 0;
  }
  errno = kOtherError;
  std::ifstream stream(PathOf(file), std::ios::binary);
  if (!stream) return errno;
  for (std::string line; std::getline(stream, line); lines.push_back(line))
    if (line.ends_with('\r')) line.pop_back();
  return stream.bad() ? errno : 0;
}

int WriteFile(const std::string& file, const std::string& text) {
  errno = kOtherError;
  std::ofstream stream(PathOf(file), std::ios::binary);
  if (!stream) return errno;
  stream.write(text.data(), static_cast<std::streamsize>(text.size()));
  stream.close();
  return stream ? 0 : errno;
}

int Failed(const std::string& file, const std::string& why, int exit, const Options& options) {
  if (options.json)
    Print(JsonObject().Add("file", file).Add("error", why).Line());
  else
    Complain(Joined({file, ": ", why}));
  return exit;
}

}  // namespace

int RunOnText(const Options& options,
              std::string (*write)(const std::vector<std::string>& lines, const Options& options)) {
  const std::string input = options.operands.empty() ? "-" : options.operands[0];
  std::vector<std::string> lines;
  if (const int error = ReadLines(input, lines); error != 0)
    return Failed(input, WhyNot(error, true), kUnreadable, options);
  constexpr std::string_view kSignature = "\xEF\xBB\xBF";  // that editors put in front of UTF-8
  if (!lines.empty() && lines[0].starts_with(kSignature)) lines[0].erase(0, kSignature.size());
  const std::string document = write(lines, options) + "\n";
  if (options.output.empty()) {
    Print(options.json ? JsonObject().Add("file", input).Add("text", document).Add("error", nullptr).Line()
                       : document);
    return kDone;
  }
  if (const int error = WriteFile(options.output, document); error != 0)
    return Failed(options.output, WhyNot(error, false), kNotWritten, options);
  if (options.json) Print(JsonObject().Add("file", options.output).Add("error", nullptr).Line());
  return kDone;
}

}  // namespace Cli
