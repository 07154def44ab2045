// A clock that stands still, in the context of the test process.
#ifndef QEL_TESTS_FIXED_CLOCK_H
#define QEL_TESTS_FIXED_CLOCK_H

#include <memory>

#include "iappcontext.h"

class TestContext : public IAppContext {
 public:
  void InitContext() override {}
};

// From construction to destruction the context's clock shows `now`. Registers a context when there is none;
// it stays, with the system's clock.
class FixedClock {
 public:
  explicit FixedClock(SYSTEMTIME now) : m_Provider(std::make_shared<Provider>(now)) {
    if (!IAppContext::IsValidAppContext()) CreateAppContext<TestContext>();
    IAppContext::GetAppContext()->SetTimeProvider(m_Provider);
  }
  ~FixedClock() { IAppContext::GetAppContext()->SetTimeProvider(std::make_shared<TQelTimeProvider>()); }
  FixedClock(const FixedClock&) = delete;
  FixedClock& operator=(const FixedClock&) = delete;

  // How often the clock was read.
  int Readings() const { return m_Provider->readings; }
  void Set(SYSTEMTIME now) { m_Provider->now = now; }

 private:
  struct Provider : ISysTimeProvider {
    explicit Provider(SYSTEMTIME time) : now(time) {}
    SYSTEMTIME GetTickCount() override {
      ++readings;
      return now;
    }
    SYSTEMTIME now;
    int readings = 0;
  };

  std::shared_ptr<Provider> m_Provider;
};

#endif  // QEL_TESTS_FIXED_CLOCK_H
