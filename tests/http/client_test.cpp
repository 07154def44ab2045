#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <fstream>
#include <stdexcept>
#include <thread>

#include "http/client_calls.h"

namespace {

std::wstring Url(const std::string& path) {
  return ServerUrl("http", path);
}

// What the server has had of that case since it was last asked.
std::string Saw(const std::string& name) {
  HttpClient client;
  return Spelled(client.Get(Url("/saw/" + name).c_str()).content.View());
}

// How often `part` stands in `text`.
int Times(const std::string& text, const std::string& part) {
  int times = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++times;
  return times;
}

// The most memory this process has ever had, in KB; 0 where that is not told.
long PeakMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("VmHWM:")) return std::stol(line.substr(6));
  return 0;
}

// How much more of it, in KB, a transfer of any length may take. The address sanitizer holds back what was freed.
#ifdef __SANITIZE_ADDRESS__
constexpr long kFlat = 400 * 1024;
#else
constexpr long kFlat = 16 * 1024;
#endif

// Cancels what `client` does in another thread again and again, until `body` has raised; the code.
template <class Body>
DWORD CodeWhenCancelled(HttpClient& client, Body body) {
  std::atomic<bool> done{false};
  std::thread other([&] {
    while (!done) {
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      client.Cancel();
    }
  });
  const DWORD code = RaisedCode(body);
  done = true;
  other.join();
  return code;
}

}  // namespace

TEST(HttpClientServerTest, HeaderLinesAreThoseOfTheAnswerEachWithItsCarriageReturn) {
  HttpClient client;
  const HttpResponse answer = client.Get(Url("/h/dup").c_str());
  std::string lines;
  for (long i = 0; i < answer.headers.GetCount(); ++i) lines += Spelled(answer.headers[i].View()) + "|";
  EXPECT_EQ(lines,
            "HTTP/1.1\\u0020200\\u0020OK\\u000D|Set-Cookie:\\u0020a=1\\u000D|X-D:\\u00201\\u000D|"
            "Set-Cookie:\\u0020b=2;\\u0020Path=/"
            "\\u000D|X-D:\\u00202\\u000D|Content-Length:\\u00202\\u000D|\\u000D|");
}

TEST(HttpClientServerTest, TextsArePostedAsOneByteAUnit) {
  const struct {
    const wchar_t* body;
    const char* received;
  } rows[] = {{nullptr, "POST []"}, {L"", "POST []"}, {L"abc", "POST [abc]"}, {L"a\U0001F600", "POST [a??]"}};
  for (const auto& row : rows) {
    HttpClient client;
    EXPECT_EQ(client.Post(Url("/p/echo").c_str(), row.body).content, CString(row.received));
  }
}

TEST(HttpClientServerTest, LinesAndCredentialsGoWithEveryRequest) {
  HttpClient client(L"Agent");
  client.AddHeader(L"X-A: 1");
  client.AddHeader(L"X-B: 2");
  client.SetCredentials(L"user", L"secret", 1);
  for (int i = 0; i < 2; ++i) EXPECT_EQ(Got(client, Url("/lines/login/user/secret")), "200 welcome");
  const std::string saw = Saw("lines");
  for (const char* part : {"X-A:", "X-B:", "User-Agent:\\\\x20Agent", "Authorization:"})
    EXPECT_EQ(Times(saw, part), 2) << part << " in " << saw;
  client.SetCredentials(L"user", L"wrong", 1);
  EXPECT_EQ(Got(client, Url("/lines/login/user/secret")), "401 denied");
  HttpClient broken;
  broken.AddHeader(L"no colon");
  EXPECT_EQ(Got(broken, Url("/lines/ok")), "raises 12153");
}

TEST(HttpClientServerTest, ALaterAddressGoesToTheFirstServerAndCookiesStayWithTheClient) {
  HttpClient client, other;
  EXPECT_EQ(Got(client, Url("/c/cookie")), "200 cookie\\u0020header:\\u0020(none)");
  EXPECT_EQ(Got(client, ServerUrl("refusing", "/c/cookie")),
            "200 cookie\\u0020header:\\u0020sid=42");  // kept
  EXPECT_EQ(Got(other, Url("/c/cookie")), "200 cookie\\u0020header:\\u0020(none)");
}

TEST(HttpClientServerTest, ContentIsUtf8) {
  HttpClient client;
  EXPECT_EQ(Got(client, Url("/u/pieces/61ff62")), "200 a\\uFFFDb");
  EXPECT_EQ(Got(client, Url("/u/pieces/efbbbfd985")), "200 \\uFEFF\\u0645");
  // A character in two pieces: whole where the pieces were joined, lost where not.
  const std::string split = Got(client, Url("/u/chunkhex/d985d8/b1d8ad"));
  EXPECT_TRUE(split == "200 \\u0645\\u0631\\u062D" || split == "200 \\u0645\\uFFFD\\uFFFD\\u062D") << split;
}

TEST(HttpClientServerTest, BytesArriveUnchangedAndASinkMayEndTheTransfer) {
  HttpClient client;
  std::string bytes;
  const auto keep = [&bytes](const char* data, std::size_t size) {
    bytes.append(data, size);
    return true;
  };
  EXPECT_EQ(client.GetBytes(Url("/b/pieces/610062/00").c_str(), keep).status, 200u);
  EXPECT_EQ(bytes, std::string("a\0b\0", 4));
  int calls = 0;
  const auto stop = [&calls](const char*, std::size_t) { return ++calls == 0; };
  EXPECT_EQ(RaisedCode([&] { client.GetBytes(Url("/b/endless").c_str(), stop); }), 0u);
  EXPECT_EQ(calls, 1);
  const auto fail = [](const char*, std::size_t) -> bool { throw std::runtime_error("full"); };
  EXPECT_THROW(client.GetBytes(Url("/b/endless").c_str(), fail), std::runtime_error);
  EXPECT_EQ(RaisedCode([&] { client.GetBytes(Url("/b/empty").c_str(), fail); }), 0u);
  const std::string large(3 << 20, 'x');  // its CRC-32 by zlib
  bytes.clear();
  client.PostBytes(Url("/b/received").c_str(), large.data(), large.size(), keep);
  EXPECT_EQ(bytes, "3145728 becc1448");
}

TEST(HttpClientServerTest, AGigabyteTakesNoMemory) {
  HttpClient client;
  // Wine hands out 8 KB at a time, and its memory is not told.
  const unsigned long long length = RunsOnWindows() ? 1ULL << 26 : 1ULL << 30;
  unsigned long long received = 0;
  const auto count = [&received](const char*, std::size_t size) { return (received += size) != 0; };
  EXPECT_EQ(Got(client, Url("/g/ok")), "200 ok\\u0020body");
  const long before = PeakMemory();
  client.GetBytes(Url("/g/bodylen/" + std::to_string(length)).c_str(), count);
  EXPECT_EQ(received, length);
  EXPECT_LT(PeakMemory() - before, kFlat);
}

TEST(HttpClientServerTest, AnotherThreadEndsARequestAndTheNextGoesOn) {
  HttpClient client;
  client.Cancel();
  EXPECT_EQ(Got(client, Url("/k/ok")), "200 ok\\u0020body");
  const auto ignore = [](const char*, std::size_t) { return true; };
  EXPECT_EQ(CodeWhenCancelled(client, [&] { client.GetBytes(Url("/k/drip/2000/5").c_str(), ignore); }),
            12017u);
  EXPECT_EQ(CodeWhenCancelled(client, [&] { client.Get(Url("/k/endless").c_str()); }), 12017u);
  EXPECT_EQ(Got(client, Url("/k/ok")), "200 ok\\u0020body");
}

TEST(HttpClientServerTest, AServerThatSaysNothingIsLeftAtOnceWhereTheSystemCan) {
  HttpClient client;
  const auto start = std::chrono::steady_clock::now();
  const DWORD code = CodeWhenCancelled(client, [&] { client.Get(Url("/k/never").c_str()); });
  const auto took = std::chrono::steady_clock::now() - start;
  if (RunsOnWindows()) {
    EXPECT_NE(code, 0u);  // only when the server gives up
  } else {
    EXPECT_EQ(code, 12017u);
    EXPECT_LT(took, std::chrono::seconds(2));
  }
}

TEST(HttpClientServerTest, TheFirstCopyThatGoesClosesTheConnectionOfAll) {
  HttpClient client;
  EXPECT_EQ(Got(client, Url("/y/ok")), "200 ok\\u0020body");
  {
    HttpClient copy(client);
    EXPECT_EQ(Got(copy, Url("/y/ok")), "200 ok\\u0020body");
    EXPECT_EQ(Got(client, Url("/y/ok")), "200 ok\\u0020body");
  }
  EXPECT_EQ(Got(client, Url("/y/ok")), "0 <empty>, error 6");  // kept
}

TEST(HttpClientServerTest, ClientsWorkInThreadsOfTheirOwn) {
  const auto ask = [] {
    HttpClient client;
    int good = 0;
    for (int i = 0; i < 100; ++i) good += Got(client, Url("/t/ok")) == "200 ok\\u0020body";
    EXPECT_EQ(good, 100);
  };
  std::thread first(ask), second(ask);
  first.join();
  second.join();
}

TEST(HttpClientServerTest, AnAuthorityOfOnesOwnTakesTheSystemsPlace) {
  const struct {
    const char *server, *authority, *answer;
  } rows[] = {{"https_good", "authority", "200 ok\\u0020body"},
              {"https_unknown", "other_authority", "200 ok\\u0020body"},
              {"https_good", "other_authority", "raises 12175"}};
  for (const auto& row : rows) {
    HttpClient client;
    client.SetAuthorityFile(ServerUrl(row.authority).c_str());
    EXPECT_EQ(Got(client, ServerUrl(row.server, "/a/ok")), row.answer) << row.server;
  }
}
