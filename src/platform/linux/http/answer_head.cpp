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
  if (m_Complete) return true;
  line = WithoutEnd(line);
  if (m_Text.size() + line.size() + 2 > kMost) return false;
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
  std::string_view rest = m_Text;
  while (!rest.empty()) {
    const std::string_view line = TakeLine(rest);
    if (IsHeader(line, name)) return HeaderValue(line);
  }
  return {};
}
