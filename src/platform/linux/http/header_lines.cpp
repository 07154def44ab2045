#include "header_lines.h"

#include <algorithm>

namespace {

char Lower(char ch) {
  return ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch | 0x20) : ch;
}

}  // namespace

std::string_view TakeLine(std::string_view& rest) {
  const std::size_t end = std::min(rest.find_first_of("\r\n"), rest.size());
  const std::string_view line = rest.substr(0, end);
  const std::size_t skip = rest.substr(end).starts_with("\r\n") ? 2 : 1;
  rest.remove_prefix(std::min(end + skip, rest.size()));
  return line;
}

std::string_view HeaderName(std::string_view line) {
  const std::size_t colon = line.find(':');
  return colon == line.npos ? std::string_view() : line.substr(0, colon);
}

std::string_view HeaderValue(std::string_view line) {
  line.remove_prefix(std::min(line.find(':') + 1, line.size()));
  line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  return line.substr(0, line.find_last_not_of(" \t") + 1);
}

bool IsHeader(std::string_view line, std::string_view name) {
  const auto same = [](char a, char b) { return Lower(a) == Lower(b); };
  return std::ranges::equal(HeaderName(line), name, same);
}
