// How far a transfer has come, for those who wait for a long one.
#ifndef QEL_CLI_HTTP_PROGRESS_H
#define QEL_CLI_HTTP_PROGRESS_H

#include <chrono>
#include <cstdint>

namespace Cli {

// Says nothing in the first second. After that a terminal has one line that changes every second; elsewhere a line
// comes when twice the time of the one before has gone, so that logs stay short.
class HttpProgress {
 public:
  // Of a body of `whole` bytes; 0 when nobody knows.
  explicit HttpProgress(std::uint64_t whole);
  HttpProgress(const HttpProgress&) = delete;
  HttpProgress& operator=(const HttpProgress&) = delete;
  ~HttpProgress();  // ends the line

  void Add(std::uint64_t bytes);

 private:
  using Clock = std::chrono::steady_clock;
  void Show();

  std::uint64_t m_Whole;
  std::uint64_t m_Received = 0;
  bool m_OnTerminal;
  bool m_LineIsOpen = false;
  Clock::time_point m_Start = Clock::now();
  Clock::time_point m_Next = m_Start + std::chrono::seconds(1);
};

}  // namespace Cli

#endif  // QEL_CLI_HTTP_PROGRESS_H
