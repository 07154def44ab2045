#include "deadline.h"

#include <algorithm>

namespace {

constexpr std::int64_t kNoLimit = 3600000;  // as good as none for one look at the network

}  // namespace

int Deadline::Limit(Phase phase) const {
  switch (phase) {
    case Phase::Resolve:
      return m_Timeouts.resolve;
    case Phase::Connect:
      return m_Timeouts.connect;
    case Phase::Send:
      return m_Timeouts.send;
    default:
      return m_Timeouts.receive;
  }
}

int Deadline::Left(Phase phase) {
  if (phase != m_Phase) Restart();
  m_Phase = phase;
  const int limit = Limit(phase);
  if (limit == 0) return kNoLimit;
  const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - m_Since).count();
  return static_cast<int>(std::max<std::int64_t>(limit - passed, 0));
}
