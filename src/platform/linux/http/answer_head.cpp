#include "answer_head.h"

#include "header_lines.h"

namespace {

constexpr std::size_t kMost = 65536;

std::string_view WithoutEnd(std::string_view line) {
  while (line.ends_with('\n') || line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

bool IsInterim(DWORD status) {
  return status >= 100 && status < 200 && status != 101;
}

}  // namespace

bool AnswerHead::AddLine(std::string_view line) {
  line = WithoutEnd(line);
  m_Received += line.size() + 2;
  if (m_Received > kMost) return false;
  if (m_Complete) return true;
  m_Text.append(line).append("\r\n");
  if (!line.empty()) return true;
  m_Complete = !IsInterim(Status());
  if (!m_Complete) m_Text.clear();
  return true;
}

DWORD AnswerHead::Status() const {
  DWORD status = 0;
  std::size_t at = m_Text.find(' ');
  if (at == m_Text.npos) return 0;
  for (int digits = 0; digits < 3; ++digits) {
    const char digit = m_Text[++at];
    if (digit < '0' || digit > '9') return 0;
    status = status * 10 + static_cast<DWORD>(digit - '0');
  }
  return status;
}

std::optional<std::string_view> AnswerHead::Find(std::string_view name) const {
  // A lone CR ends no line here: behind it a server may repeat what somebody else made up.
  for (std::size_t at = 0, end; (end = m_Text.find("\r\n", at)) != m_Text.npos; at = end + 2) {
    const auto line = std::string_view(m_Text).substr(at, end - at);
    if (IsHeader(line, name)) return HeaderValue(line);
  }
  return {};
}
