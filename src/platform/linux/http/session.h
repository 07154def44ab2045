// A session: what its requests have in common.
#ifndef QEL_PLATFORM_LINUX_HTTP_SESSION_H
#define QEL_PLATFORM_LINUX_HTTP_SESSION_H

#include <array>
#include <mutex>
#include <string>
#include <vector>

#include "curl_library.h"
#include "handles.h"

// Milliseconds, 0 for no limit.
struct Timeouts {
  int resolve = 0, connect = 60000, send = 30000, receive = 30000;
};

// What one request at a time works with, and the connections that it left open.
struct Lane {
  Lane() : easy(Curl().easyInit()), multi(Curl().multiInit()) {}
  Lane(const Lane&) = delete;
  Lane& operator=(const Lane&) = delete;
  ~Lane() {
    Curl().easyCleanup(easy);
    Curl().multiCleanup(multi);
  }

  CURL* const easy;
  CURLM* const multi;
  std::vector<BYTE> body;  // room for what is held of an answer
};

// Requests may come from several threads at once: each has a lane of its own, and what they share has locks.
class Session : public HttpObject {
 public:
  explicit Session(const wchar_t* agent);
  ~Session() override;

  // Certificates in PEM; null: those of the system.
  using Authorities = std::shared_ptr<const std::string>;
  struct Settings {
    Timeouts timeouts;
    Authorities authorities;
  };
  Settings Current();
  void SetTimeouts(const Timeouts& timeouts);
  void SetAuthorities(Authorities authorities);

  // The header's value; empty: none is sent.
  const std::string& Agent() const { return m_Agent; }

  // The lane that came back last, whose connections are the freshest, else a new one. Null when libcurl cannot give
  // one. LoadCurl has been called.
  std::unique_ptr<Lane> TakeLane();
  void GiveLane(std::unique_ptr<Lane> lane);

 private:
  static void Lock(CURL* easy, curl_lock_data data, curl_lock_access access, void* session);
  static void Unlock(CURL* easy, curl_lock_data data, void* session);
  void MakeShare();

  const std::string m_Agent;
  std::mutex m_Lock;
  Settings m_Settings;
  std::vector<std::unique_ptr<Lane>> m_Lanes;
  CURLSH* m_Share = nullptr;  // cookies, addresses and TLS sessions
  std::array<std::mutex, CURL_LOCK_DATA_LAST> m_ShareLocks;
};

// A server by its name; no connection of the network.
struct Connection : HttpObject {
  Connection(std::shared_ptr<Session> of, std::string name, INTERNET_PORT number)
      : session(std::move(of)), host(std::move(name)), port(number) {}

  const std::shared_ptr<Session> session;
  const std::string host;  // empty: a text that can be none
  const INTERNET_PORT port;
};

#endif  // QEL_PLATFORM_LINUX_HTTP_SESSION_H
