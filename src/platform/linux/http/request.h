// A request: what is asked, and the exchange that does it.
#ifndef QEL_PLATFORM_LINUX_HTTP_REQUEST_H
#define QEL_PLATFORM_LINUX_HTTP_REQUEST_H

#include <atomic>
#include <mutex>
#include <optional>

#include "exchange.h"
#include "session.h"

class Request : public HttpObject {
 public:
  Request(std::shared_ptr<Connection> connection, bool secure, const wchar_t* verb, const wchar_t* path);
  ~Request() override;
  void Cancel() override;

  // Each gives 0 or the code of Windows.
  DWORD AddLines(std::string_view lines);
  DWORD SetCredentials(const wchar_t* user, const wchar_t* password);
  void SetTimeouts(const Timeouts& timeouts) { m_Settings.timeouts = timeouts; }
  DWORD Send(std::uint64_t bodySize);
  DWORD Write(const BYTE* data, std::size_t size);
  // Follows the answer where it sends the request on to.
  DWORD Receive();
  DWORD WaitForBody();

  // Null before the answer is here.
  Exchange* Answered() { return m_Answered ? &*m_Exchange : nullptr; }

 private:
  DWORD TakeLane();
  DWORD Follow();
  DWORD SendAgain();
  bool HasLine(std::string_view name) const;
  void RemoveLines(std::initializer_list<std::string_view> names);

  const std::shared_ptr<Connection> m_Connection;
  Session::Settings m_Settings;
  Order m_Order;
  std::uint64_t m_BodyLeft = 0;
  int m_Redirections = 0;
  bool m_Answered = false;
  std::atomic<bool> m_Cancelled = false;
  std::mutex m_Lock;  // guards the lane's place, not its use
  std::unique_ptr<Lane> m_Lane;
  std::optional<Exchange> m_Exchange;
};

#endif  // QEL_PLATFORM_LINUX_HTTP_REQUEST_H
