// What a client does with one address, as a line of text.
#ifndef QEL_TESTS_HTTP_CLIENT_CALLS_H
#define QEL_TESTS_HTTP_CLIENT_CALLS_H

#include <string>
#include <utility>

#include "http/addresses.h"
#include "httpclient.h"
#include "support/golden.h"
#include "support/raises.h"

// The code that `body` raises, or 0.
template <class Body>
DWORD RaisedCode(Body&& body) {
  const auto raised = Raised(std::forward<Body>(body));
  const auto* http = dynamic_cast<const WinHttpException*>(raised.get());
  return raised == nullptr ? 0 : http == nullptr ? 1 : http->GetErrorCode();
}

// The status and the content, and the last error when there is one; or "raises <code>".
inline std::string Got(HttpClient& client, const std::wstring& url) {
  std::string result;
  const DWORD code = RaisedCode([&] {
    const HttpResponse answer = client.Get(url.c_str());
    const std::string content = answer.content.GetLength() > 40
                                    ? std::to_string(answer.content.GetLength()) + " characters"
                                    : Spelled(answer.content.View());
    result = std::to_string(answer.status) + " " + content;
    if (client.GetLastError() != 0) result += ", error " + std::to_string(client.GetLastError());
  });
  return code == 0 ? result : "raises " + std::to_string(code);
}

// The status and how many bytes came; or "raises <code>" and how many came before, which is not told of a transfer that
// was ended on this side.
inline std::string GotBytes(HttpClient& client, const std::wstring& url) {
  unsigned long long bytes = 0;
  DWORD status = 0;
  const auto count = [&bytes](const char*, std::size_t size) { return (bytes += size) != 0; };
  const DWORD code = RaisedCode([&] { status = client.GetBytes(url.c_str(), count).status; });
  if (code == 12017) return "raises 12017";
  return (code == 0 ? std::to_string(status) + " " : "raises " + std::to_string(code) + " after ") +
         std::to_string(bytes) + " bytes";
}

#endif  // QEL_TESTS_HTTP_CLIENT_CALLS_H
