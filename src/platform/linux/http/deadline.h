// How long a step may wait for the network.
#ifndef QEL_PLATFORM_LINUX_HTTP_DEADLINE_H
#define QEL_PLATFORM_LINUX_HTTP_DEADLINE_H

#include <chrono>

#include "session.h"

enum class Direction { Send, Receive };
enum class Phase { Resolve, Connect, Send, Receive };

// To find the host and to connect have a limit each; to send and to receive have one from one sign of life to the next.
class Deadline {
 public:
  explicit Deadline(const Timeouts& timeouts) : m_Timeouts(timeouts) {}

  // Something moved, or another step begins.
  void Restart() { m_Since = Clock::now(); }
  // Milliseconds from now, at least 0.
  int Left(Phase phase);

 private:
  using Clock = std::chrono::steady_clock;
  int Limit(Phase phase) const;

  const Timeouts m_Timeouts;
  Phase m_Phase = Phase::Resolve;
  Clock::time_point m_Since = Clock::now();
};

#endif  // QEL_PLATFORM_LINUX_HTTP_DEADLINE_H
