// The head of an answer, put together from the lines that come in.
#ifndef QEL_PLATFORM_LINUX_HTTP_ANSWER_HEAD_H
#define QEL_PLATFORM_LINUX_HTTP_ANSWER_HEAD_H

#include <optional>
#include <string>
#include <string_view>

#include "platform/platform.h"

class AnswerHead {
 public:
  // A line with its end. Lines of interim answers and those behind the body are left out. False: all of them together
  // are longer than Windows takes of a head (64 KB); a server could send them without end.
  bool AddLine(std::string_view line);
  // Has the empty line that ends the final answer's head come?
  bool IsComplete() const { return m_Complete; }

  // 0 when the first line names none.
  DWORD Status() const;
  // The lines with CR LF behind each, the empty one too.
  const std::string& Text() const { return m_Text; }
  // The value of the first header with this name, in any case, without blanks around it.
  std::optional<std::string_view> Find(std::string_view name) const;

 private:
  std::string m_Text;
  std::size_t m_Received = 0;  // with what is left out
  bool m_Complete = false;
};

#endif  // QEL_PLATFORM_LINUX_HTTP_ANSWER_HEAD_H
