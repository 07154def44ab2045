// One request by the platform's own functions, in the order in which the client calls them, and what each answered.
#ifndef QEL_TESTS_HTTP_CALLS_H
#define QEL_TESTS_HTTP_CALLS_H

#include <optional>
#include <string>

#include "platform/platform.h"

// Closes itself.
class HttpHandle {
 public:
  explicit HttpHandle(HINTERNET handle) : m_Handle(handle) {}
  HttpHandle(const HttpHandle&) = delete;
  HttpHandle& operator=(const HttpHandle&) = delete;
  ~HttpHandle() {
    if (m_Handle != nullptr) WinHttpCloseHandle(m_Handle);
  }
  operator HINTERNET() const { return m_Handle; }

 private:
  HINTERNET m_Handle;
};

struct HttpRequest {
  std::wstring verb, path;
  bool secure = false;
  std::wstring headers;  // lines with CR LF between them
  std::optional<std::string> body;
  std::optional<std::wstring> user, password;
  DWORD scheme = 0;
  int timeout = 0;  // milliseconds, of each kind; 0: as the session has them
};

// Each step is "-" (not taken), "ok" (a write: "ok <bytes written>") or "fail <last error>".
struct HttpAnswer {
  std::string addHeaders = "-", setCredentials = "-", send = "-", write = "-", receive = "-";
  DWORD status = 0;
  std::string headSize = "-";  // "fail 122 size <need> then ok size <written>"
  std::wstring head;
  std::string content;
  std::string bodyFault;  // "q-fail <last error>" or "r-fail <last error>" where the body ended so
};

// Goes on where headers or credentials are refused.
HttpAnswer Perform(HINTERNET connection, const HttpRequest& request);

#endif  // QEL_TESTS_HTTP_CALLS_H
