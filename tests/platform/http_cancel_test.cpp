#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <thread>

#include "platform/platform.h"

namespace {

// Takes connections and never answers.
class SilentServer {
 public:
  SilentServer() : m_Socket(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (bind(m_Socket, reinterpret_cast<sockaddr*>(&address), size) != 0 || listen(m_Socket, 8) != 0 ||
        getsockname(m_Socket, reinterpret_cast<sockaddr*>(&address), &size) != 0)
      ADD_FAILURE() << "no server";
    m_Port = ntohs(address.sin_port);
  }
  SilentServer(const SilentServer&) = delete;
  SilentServer& operator=(const SilentServer&) = delete;
  ~SilentServer() { close(m_Socket); }

  INTERNET_PORT Port() const { return m_Port; }
  // Returns when a request is here.
  void Await() const {
    const int connection = accept(m_Socket, nullptr, nullptr);
    char head = 0;
    EXPECT_EQ(recv(connection, &head, 1, MSG_PEEK), 1);
    m_Accepted = connection;
  }
  void Drop() const { close(m_Accepted); }

 private:
  const int m_Socket;
  mutable int m_Accepted = -1;
  INTERNET_PORT m_Port = 0;
};

// Ends without one of the time-outs, which are half a minute.
TEST(HttpCancelTest, ClosingARequestEndsTheCallOfAnotherThread) {
  const SilentServer server;
  const HINTERNET session = WinHttpOpen(L"test", 0, nullptr, nullptr, 0);
  const HINTERNET connection = WinHttpConnect(session, L"127.0.0.1", server.Port(), 0);
  const HINTERNET request = WinHttpOpenRequest(connection, L"GET", L"/", nullptr, nullptr, nullptr, 0);
  DWORD code = 0;
  std::thread caller([&] {
    if (WinHttpSendRequest(request, nullptr, 0, nullptr, 0, 0, 0) && WinHttpReceiveResponse(request, nullptr))
      return;
    code = GetLastError();
  });
  server.Await();
  EXPECT_TRUE(WinHttpCloseHandle(request));
  caller.join();
  server.Drop();
  // Closed between the two calls, the second finds no handle.
  EXPECT_TRUE(code == 12017 || code == 6) << code;
  EXPECT_TRUE(WinHttpCloseHandle(connection));
  EXPECT_TRUE(WinHttpCloseHandle(session));
}

}  // namespace
