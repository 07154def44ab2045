#include "json.h"

#include <charconv>
#include <cmath>

namespace Cli {

namespace {

// Quoted, with what the format forbids inside quotes escaped. Other characters stay as they are: JSON is
// UTF-8.
std::string Quoted(std::string_view text) {
  constexpr char kHex[] = "0123456789abcdef";
  std::string quoted = "\"";
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\')
      (quoted += '\\') += c;
    else if (code >= 0x20)
      quoted += c;
    else
      (((quoted += "\\u00") += kHex[code >> 4]) += kHex[code & 15]);
  }
  return quoted += '"';
}

template <class Number>
std::string Written(Number number) {
  char digits[32];
  return std::string(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

}  // namespace

JsonObject& JsonObject::Add(std::string_view key, std::string_view text) {
  AddRaw(key, Quoted(text));
  return *this;
}

JsonObject& JsonObject::Add(std::string_view key, int number) {
  AddRaw(key, Written(number));
  return *this;
}

JsonObject& JsonObject::Add(std::string_view key, std::int64_t number) {
  AddRaw(key, Written(number));
  return *this;
}

JsonObject& JsonObject::Add(std::string_view key, bool truth) {
  AddRaw(key, truth ? "true" : "false");
  return *this;
}

JsonObject& JsonObject::Add(std::string_view key, double number) {
  AddRaw(key, std::isfinite(number) ? Written(number) : "null");
  return *this;
}

JsonObject& JsonObject::Add(std::string_view key, const JsonObject& object) {
  AddRaw(key, object.m_Text + '}');
  return *this;
}

JsonObject& JsonObject::Add(std::string_view key, std::nullptr_t) {
  AddRaw(key, "null");
  return *this;
}

void JsonObject::AddRaw(std::string_view key, std::string_view value) {
  if (m_Text.size() > 1) m_Text += ',';
  ((m_Text += Quoted(key)) += ':') += value;
}

}  // namespace Cli
