// The client and the platform's functions against nginx; run by nginx.py.
#include <gtest/gtest.h>

#include "http/client_calls.h"
#include "http/replay.h"

TEST(NginxTest, AnswersAreThoseRecorded) {
  ReplayRows({{":39180", "nginx"}, {":39143", "nginx_tls"}}, {"n_", "t_"});
}

TEST(NginxTest, TlsIsSpokenWhereTheAuthorityIsTrusted) {
  HttpClient client, other;
  client.SetAuthorityFile(ServerUrl("authority").c_str());
  other.SetAuthorityFile(ServerUrl("other_authority").c_str());
  EXPECT_EQ(Got(client, ServerUrl("nginx_tls", "/hello.txt")), "200 hello\\u0020world\\u000A");
  EXPECT_EQ(GotBytes(client, ServerUrl("nginx_tls", "/large.bin")), "200 67108864 bytes");
  EXPECT_EQ(Got(other, ServerUrl("nginx_tls", "/hello.txt")), "raises 12175");
}

TEST(NginxTest, ARedirectionDoesNotLeaveTls) {
  HttpClient client;
  client.SetAuthorityFile(ServerUrl("authority").c_str());
  EXPECT_EQ(Got(client, ServerUrl("nginx_tls", "/rhttp")), "raises 12156");
}

TEST(NginxTest, ThePasswordIsAskedFor) {
  const std::pair<const wchar_t*, const char*> rows[] = {{L"secret", "200 hello\\u0020world\\u000A"},
                                                         {L"wrong", "401 172 characters"}};
  for (const auto& [password, answer] : rows) {
    HttpClient client;
    client.SetCredentials(L"user", password, 1);
    EXPECT_EQ(Got(client, ServerUrl("nginx", "/auth")), answer);
  }
}

TEST(NginxTest, LargeBodiesPassInBothDirections) {
  HttpClient client;
  EXPECT_EQ(GotBytes(client, ServerUrl("nginx", "/large.bin")), "200 67108864 bytes");
  EXPECT_EQ(GotBytes(client, ServerUrl("nginx", "/echo/n/chunked/9000/100000/1")), "200 109001 bytes");
  const std::string body(20 << 20, 'n');
  std::string answer;
  const auto keep = [&answer](const char* data, std::size_t size) {
    return !answer.append(data, size).empty();
  };
  client.PostBytes(ServerUrl("nginx", "/echo/n/received").c_str(), body.data(), body.size(), keep);
  EXPECT_EQ(answer, "20971520 7e6ba535");
}
