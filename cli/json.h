// Writes one JSON object on one line, member by member:
//
//   JsonObject().Add("input", "7-3-24").Add("days", 12).Add("error", nullptr).Line()
//   gives {"input":"7-3-24","days":12,"error":null} and a line end
#ifndef QEL_CLI_JSON_H
#define QEL_CLI_JSON_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Cli {

class JsonObject {
 public:
  JsonObject& Add(std::string_view key, std::string_view text);
  JsonObject& Add(std::string_view key, const char* text) { return Add(key, std::string_view(text)); }
  JsonObject& Add(std::string_view key, int number);
  JsonObject& Add(std::string_view key, std::int64_t number);
  JsonObject& Add(std::string_view key, bool truth);
  // With as many digits as it takes to read the same double back; null for what is no number.
  JsonObject& Add(std::string_view key, double number);
  JsonObject& Add(std::string_view key, const JsonObject& object);
  JsonObject& Add(std::string_view key, std::nullptr_t);

  std::string Line() const { return m_Text + "}\n"; }

 private:
  void AddRaw(std::string_view key, std::string_view value);

  std::string m_Text = "{";
};

}  // namespace Cli

#endif  // QEL_CLI_JSON_H
