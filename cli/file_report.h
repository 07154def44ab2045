// What is told about a file and about places in it, as a message or as JSON.
#ifndef QEL_CLI_FILE_REPORT_H
#define QEL_CLI_FILE_REPORT_H

#include <string>
#include <string_view>

#include "json.h"
#include "options.h"
#include "text_file.h"

namespace Cli {

class FileReport {
 public:
  // With `besides`, JSON goes to the messages: the output of the program is text.
  FileReport(std::string name, const Options& options, bool besides)
      : m_Name(std::move(name)), m_Json(options.json), m_Besides(besides) {}

  // The system's code, and a signature that none of our encodings has. Both return kUnreadable.
  int NotRead(long status) const;
  int NotDecoded(const TextFile& file) const;

  void Guessed(Qel::TextEncoding encoding) const;
  // The character last read, and what was written in its place, if anything was.
  static std::string BrokenText(const TextFile& file, Qel::TextEncoding encoding, std::string_view written);
  void Broken(const TextFile& file, Qel::TextEncoding encoding, std::string_view written) const;
  void Lost(const TextFile& file, char32_t character, std::string_view written) const;

  // {"file": ...}, to be added to.
  JsonObject Object() const { return JsonObject().Add("file", m_Name); }
  // A line of JSON or a message, whichever was asked for.
  void Tell(const JsonObject& object, std::string_view text) const;

 private:
  std::string m_Name;
  bool m_Json;
  bool m_Besides;
};

}  // namespace Cli

#endif  // QEL_CLI_FILE_REPORT_H
