// How long something takes, on a clock that nobody sets.
//
//   TDurationCounter counter;             // counts from here
//   Import(file);
//   event[L"Import_ms"] = counter;        // of the metrics log: the milliseconds so far
//
// A value; one may be used from one thread at a time.
#ifndef QEL_DURATION_H
#define QEL_DURATION_H

#include <chrono>
#include <cstdint>

class TDurationCounter {
 public:
  using Clock = std::chrono::steady_clock;

  // Counts from now, or from `start`.
  TDurationCounter() noexcept : TDurationCounter(Clock::now()) {}
  explicit TDurationCounter(Clock::time_point start) noexcept : m_Start(start) {}

  // Counts from now on.
  void Start() noexcept { m_Start = Clock::now(); }

  // Whole milliseconds and whole seconds since then, what is left over being cut.
  std::int64_t ElapsedMs() const { return Elapsed<std::chrono::milliseconds>(); }
  std::int64_t ElapsedSeconds() const { return Elapsed<std::chrono::seconds>(); }

 private:
  template <class Unit>
  std::int64_t Elapsed() const {
    return std::chrono::duration_cast<Unit>(Clock::now() - m_Start).count();
  }

  Clock::time_point m_Start;
};

#endif  // QEL_DURATION_H
