#include "http/calls.h"

#include <vector>

namespace {

std::string Result(BOOL ok, const char* word = "") {
  return ok ? std::string("ok") : word + std::string("fail ") + std::to_string(GetLastError());
}

// Takes one step when all before it went well.
class Steps {
 public:
  template <class Step>
  void Take(std::string& result, Step step) {
    if (!m_Well) return;
    const BOOL ok = step();
    result = Result(ok);
    m_Well = ok != 0;
  }
  bool Well() const { return m_Well; }

 private:
  bool m_Well = true;
};

void Prepare(HINTERNET handle, const HttpRequest& request, HttpAnswer& answer) {
  if (request.timeout != 0)
    WinHttpSetTimeouts(handle, request.timeout, request.timeout, request.timeout, request.timeout);
  if (!request.headers.empty())
    answer.addHeaders = Result(WinHttpAddRequestHeaders(handle, request.headers.c_str(),
                                                        static_cast<DWORD>(-1), WINHTTP_ADDREQ_FLAG_ADD));
  if (request.user)
    answer.setCredentials =
        Result(WinHttpSetCredentials(handle, WINHTTP_AUTH_TARGET_SERVER, request.scheme,
                                     request.user->c_str(), request.password->c_str(), nullptr));
}

void ReadHead(HINTERNET handle, HttpAnswer& answer) {
  DWORD size = sizeof answer.status;
  WinHttpQueryHeaders(handle, WINHTTP_QUERY_STATUS_CODE | WINHTTP_QUERY_FLAG_NUMBER, nullptr, &answer.status,
                      &size, nullptr);
  size = 0;
  BOOL ok = WinHttpQueryHeaders(handle, WINHTTP_QUERY_RAW_HEADERS_CRLF, nullptr, nullptr, &size, nullptr);
  answer.headSize = Result(ok) + " size " + std::to_string(size);
  // The platform counts two bytes a unit on every system.
  std::vector<wchar_t> text(size / 2 + 1);
  ok = WinHttpQueryHeaders(handle, WINHTTP_QUERY_RAW_HEADERS_CRLF, nullptr, text.data(), &size, nullptr);
  answer.headSize += " then " + Result(ok) + " size " + std::to_string(size);
  answer.head.assign(text.data(), size / 2);
}

void ReadContent(HINTERNET handle, HttpAnswer& answer) {
  for (DWORD available = 0; answer.bodyFault.empty();) {
    if (!WinHttpQueryDataAvailable(handle, &available)) answer.bodyFault = Result(0, "q-");
    if (available == 0) return;
    std::string piece(available, '\0');
    DWORD read = 0;
    if (!WinHttpReadData(handle, piece.data(), available, &read)) answer.bodyFault = Result(0, "r-");
    answer.content.append(piece, 0, read);
    available = 0;
  }
}

}  // namespace

HttpAnswer Perform(HINTERNET connection, const HttpRequest& request) {
  HttpAnswer answer;
  const HttpHandle handle(WinHttpOpenRequest(connection, request.verb.c_str(), request.path.c_str(), nullptr,
                                             nullptr, nullptr, request.secure ? WINHTTP_FLAG_SECURE : 0));
  Prepare(handle, request, answer);
  Steps steps;
  steps.Take(answer.send, [&] {
    const DWORD length = request.body ? static_cast<DWORD>(request.body->size()) : 0;
    return WinHttpSendRequest(handle, nullptr, 0, nullptr, 0, length, 0);
  });
  DWORD written = 0;
  if (request.body)
    steps.Take(answer.write, [&, size = static_cast<DWORD>(request.body->size())] {
      return WinHttpWriteData(handle, request.body->data(), size, &written);
    });
  if (answer.write == "ok") answer.write.append(1, ' ').append(std::to_string(written));
  steps.Take(answer.receive, [&] { return WinHttpReceiveResponse(handle, nullptr); });
  if (!steps.Well()) return answer;
  ReadHead(handle, answer);
  ReadContent(handle, answer);
  return answer;
}
