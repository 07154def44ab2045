#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <map>
#include <string>
#include <thread>

#ifdef QEL_BENCH_CURL
#include <curl/curl.h>
#endif

#include "compare.h"
#include "httpclient.h"

namespace {

std::string Repeated(const char* text, std::size_t size) {
  std::string whole;
  while (whole.size() < size) whole += text;
  return whole;
}

// A server on loopback that keeps connections open and answers GET /small, /ascii and /arabic.
class Server {
 public:
  Server() {
    for (const auto& [name, body] :
         {std::pair{"small", std::string("ok body")},
          std::pair{"ascii", Repeated("Once upon a time there was a list of prices. ", 1 << 20)},
          std::pair{"arabic", Repeated("استلمنا البضاعة والحمد لله 12 ", 1 << 20)}})
      m_Answers[name] =
          "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
    m_Listener = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof place;
    auto* const address = reinterpret_cast<sockaddr*>(&place);
    if (bind(m_Listener, address, size) != 0 || listen(m_Listener, 8) != 0) return;
    getsockname(m_Listener, address, &size);
    m_Port = ntohs(place.sin_port);
    std::thread([this] { Accept(); }).detach();
  }

  std::string Url(const char* name) const {
    return "http://127.0.0.1:" + std::to_string(m_Port) + "/" + name;
  }

 private:
  void Accept() {
    for (;;) {
      const int connection = accept(m_Listener, nullptr, nullptr);
      if (connection < 0) return;
      const int on = 1;
      setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
      std::thread([this, connection] { Serve(connection); }).detach();
    }
  }

  void Serve(int connection) {
    char request[4096];
    for (ssize_t size = 0; (size = read(connection, request, sizeof request)) > 0;) {
      const std::string head(request, static_cast<std::size_t>(size));
      const std::string& answer = m_Answers[head.substr(5, head.find(' ', 5) - 5)];
      for (std::size_t sent = 0; sent < answer.size();) {
        const ssize_t piece = send(connection, answer.data() + sent, answer.size() - sent, MSG_NOSIGNAL);
        if (piece <= 0) break;
        sent += static_cast<std::size_t>(piece);
      }
    }
    close(connection);
  }

  std::map<std::string, std::string> m_Answers;
  int m_Listener = -1;
  int m_Port = 0;
};

std::string Url(const char* name) {
  static const Server* const s_Server = new Server;  // its threads outlast main
  return s_Server->Url(name);
}

constexpr char kSmall[] = "small", kAscii[] = "ascii", kArabic[] = "arabic";

HttpClient& Client() {
  static HttpClient s_Client;
  return s_Client;
}

template <const char* Name>
void Text(benchmark::State& state) {
  const std::string narrow = Url(Name);
  const std::wstring url(narrow.begin(), narrow.end());
  for (auto _ : state) benchmark::DoNotOptimize(Client().Get(url.c_str()));
}

template <const char* Name>
void Bytes(benchmark::State& state) {
  const std::string narrow = Url(Name);
  const std::wstring url(narrow.begin(), narrow.end());
  for (auto _ : state) {
    std::string body;
    Client().GetBytes(url.c_str(), [&](const char* data, std::size_t size) {
      body.append(data, size);
      return true;
    });
    benchmark::DoNotOptimize(body);
  }
}

#ifdef QEL_BENCH_CURL
std::size_t Take(const char* data, std::size_t, std::size_t size, void* body) {
  static_cast<std::string*>(body)->append(data, size);
  return size;
}

template <const char* Name>
void Curl(benchmark::State& state) {
  static CURL* const s_Easy = curl_easy_init();
  const std::string url = Url(Name);
  curl_easy_setopt(s_Easy, CURLOPT_URL, url.c_str());
  curl_easy_setopt(s_Easy, CURLOPT_WRITEFUNCTION, &Take);
  for (auto _ : state) {
    std::string body;
    curl_easy_setopt(s_Easy, CURLOPT_WRITEDATA, &body);
    if (curl_easy_perform(s_Easy) != CURLE_OK) state.SkipWithError("no answer");
    benchmark::DoNotOptimize(body);
  }
}
template <const char* Name>
constexpr Body kCurl = Curl<Name>;
#else
template <const char* Name>
constexpr Body kCurl = nullptr;
#endif

const bool kAdded = Compare("HTTP GET, small, kept alive", Text<kSmall>,
                            {{"libcurl, same handle", AtMost(1.15), kCurl<kSmall>}}, Clocked::Elapsed) &&
                    Compare("HTTP GET 1 MB, bytes", Bytes<kAscii>, {{"libcurl", AtMost(1.3), kCurl<kAscii>}},
                            Clocked::Elapsed) &&
                    Compare("HTTP GET 1 MB, wide ASCII", Text<kAscii>,
                            {{"libcurl, bytes", AtMost(2), kCurl<kAscii>}}, Clocked::Elapsed) &&
                    Compare("HTTP GET 1 MB, wide Arabic", Text<kArabic>,
                            {{"libcurl, bytes", AtMost(3.5), kCurl<kArabic>}}, Clocked::Elapsed);

}  // namespace
