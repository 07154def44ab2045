// Servers that break every rule, and what the client makes of them: it ends, and says why with the code of Windows.
#include <gtest/gtest.h>

#include <iostream>

#include "http/client_calls.h"

namespace {

// The server and the path behind its address; what Get and GetBytes answer on Windows, and under Wine where that is
// otherwise.
struct Fault {
  const char *name, *server, *path, *get, *bytes, *getUnderWine = nullptr, *bytesUnderWine = nullptr;
};

// What Wine does not survive: it takes a failed receive for 4 GB of body, and copies them.
constexpr char kCrash[] = "crashes";

constexpr int kShort = 600;  // milliseconds, where the fault is that nothing comes

// Wine tells of an answer that does not come now by its own code, now by the socket's.
std::string WithoutSocketCode(std::string answer) {
  const std::size_t at = answer.find("10054");
  return at == std::string::npos ? answer : answer.replace(at, 5, "12152");
}

void Expect(const Fault& fault, const char* call, const std::string& answer, const char* windows,
            const char* wine) {
  std::cout << "fault: " << fault.name << " | " << call << " | " << answer << "\n";
  if (RunsUnderWine() && wine != nullptr && WithoutSocketCode(answer) == WithoutSocketCode(wine))
    std::cout << "known deviation: " << fault.name << ", " << call << ": Wine answers " << wine
              << ", Windows " << windows << "\n";
  else
    EXPECT_EQ(answer, windows) << fault.name << ", " << call;
}

// A body of at most a megabyte, trusting the tests' own authority.
void Meet(const Fault& fault, int timeout) {
  if (RunsUnderWine() && fault.getUnderWine == kCrash) return Expect(fault, "Get", kCrash, fault.get, kCrash);
  HttpClient client;
  client.SetTimeouts(timeout, timeout, timeout, timeout);
  client.SetMaxContent(1 << 20);
  client.SetAuthorityFile(ServerUrl("authority").c_str());
  const std::wstring url = ServerUrl(fault.server, fault.path);
  Expect(fault, "Get", Got(client, url), fault.get, fault.getUnderWine);
  Expect(fault, "GetBytes", GotBytes(client, url), fault.bytes, fault.bytesUnderWine);
}

}  // namespace

TEST(HttpFaultsTest, HeadsThatBreakOffOrAreNone) {
  const Fault faults[] = {
      {"closed before the head", "http", "/f/closenow", "raises 12030", "raises 12030 after 0 bytes",
       "raises 12152", "raises 12152 after 0 bytes"},
      {"reset before the head", "http", "/f/resetnow", "raises 12030", "raises 12030 after 0 bytes",
       "raises 12152", "raises 12152 after 0 bytes"},
      {"closed within the head", "http", "/f/half", "raises 12030", "raises 12030 after 0 bytes",
       "200 <empty>", "200 0 bytes"},
      {"reset within the head", "http", "/f/resethead", "raises 12030", "raises 12030 after 0 bytes", kCrash},
      {"a status line that is none", "http", "/f/garbage", "raises 12152", "raises 12152 after 0 bytes"},
      {"a status that is no number", "http", "/f/badstatus", "raises 12152", "raises 12152 after 0 bytes",
       "2 hi", "2 2 bytes"},
      {"a head of 1 MB", "http", "/f/longhdr/1048576", "raises 12183", "raises 12183 after 0 bytes", "200 hi",
       "200 2 bytes"},
      {"a head without end", "http", "/f/endlesshdr", "raises 12183", "raises 12183 after 0 bytes",
       "200 <empty>", "200 0 bytes"},
  };
  for (const Fault& fault : faults) Meet(fault, 10000);
}

TEST(HttpFaultsTest, BodiesThatBreakOffOrAreWrong) {
  const Fault faults[] = {
      {"reset within the body", "http", "/f/resetmid", "200 only\\u0020this, error 12030",
       "raises 12030 after 9 bytes", "200 only\\u0020this, error 10054", "raises 10054 after 9 bytes"},
      {"a body shorter than its length", "http", "/f/short", "200 only\\u0020this, error 12030",
       "raises 12030 after 9 bytes", "200 only\\u0020this"},
      {"a body longer than its length", "http", "/f/lensmall", "200 hel", "200 3 bytes", "200 hello",
       "200 5 bytes"},
      {"a negative length", "http", "/f/lenneg", "raises 12152", "raises 12152 after 0 bytes", "200 hello",
       "raises 12030 after 5 bytes"},
      {"a length that is text", "http", "/f/lentext", "raises 12152", "raises 12152 after 0 bytes",
       "200 <empty>", "200 0 bytes"},
      {"a length beyond 64 bits", "http", "/f/lenhuge", "200 hello", "200 5 bytes", nullptr,
       "raises 12030 after 5 bytes"},
      {"a length of 10^18, then little", "http", "/f/lenlong", "200 hello, error 12030",
       "raises 12030 after 5 bytes", "200 hello"},
      {"a chunk without a size", "http", "/f/chunkbad", "200 <empty>, error 12152",
       "raises 12152 after 0 bytes", "200 <empty>, error 122", "raises 122 after 0 bytes"},
      {"chunks that break off", "http", "/f/chunkcut", "200 hellowo, error 12030",
       "raises 12030 after 7 bytes", "200 hellowo", "200 7 bytes"},
      {"a body without end", "http", "/f/endless", "raises 12017", "raises 12017"},
      {"one byte more than allowed", "http", "/f/bodylen/1048577", "raises 12017", "raises 12017"},
      {"as much as allowed", "http", "/f/bodylen/1048576", "200 1048576 characters", "200 1048576 bytes"},
      {"a zero byte", "http", "/f/pieces/6162006364", "200 ab", "200 5 bytes"},
  };
  for (const Fault& fault : faults) Meet(fault, 10000);
}

TEST(HttpFaultsTest, ServersThatTakeTheirTime) {
  const Fault faults[] = {
      {"no answer", "http", "/f/never", "raises 12002", "raises 12002 after 0 bytes", "raises 12152",
       "raises 12152 after 0 bytes"},
      {"no answer to the connection", "unanswering", "/", "raises 12002", "raises 12002 after 0 bytes"},
      {"a body that stops", "http", "/f/stall", "200 only\\u0020this, error 12002",
       "raises 12002 after 9 bytes", "200 only\\u0020this, error 10060", "raises 10060 after 9 bytes"},
      {"a body byte by byte", "http", "/f/drip/20/30", "200 xxxxxxxxxxxxxxxxxxxx", "200 20 bytes"},
      {"a head byte by byte", "http", "/f/driphead/10", "200 hi", "200 2 bytes"},
  };
  for (const Fault& fault : faults) Meet(fault, kShort);
}

TEST(HttpFaultsTest, ServersThatAreNotThereOrNotTrusted) {
  const Fault faults[] = {
      {"a port that refuses", "refusing", "/", "raises 12029", "raises 12029 after 0 bytes"},
      {"an expired certificate", "https_expired", "/f/ok", "raises 12175", "raises 12175 after 0 bytes",
       "raises 12157", "raises 12157 after 0 bytes"},
      {"a certificate for another host", "https_wrong_host", "/f/ok", "raises 12175",
       "raises 12175 after 0 bytes", "raises 12157", "raises 12157 after 0 bytes"},
      {"an authority that is not trusted", "https_unknown", "/f/ok", "raises 12175",
       "raises 12175 after 0 bytes"},
      {"TLS to a server without", "tls_to_plain", "/f/ok", "raises 12175", "raises 12175 after 0 bytes",
       "raises 12157", "raises 12157 after 0 bytes"},
      {"401 without credentials", "http", "/f/login/user/secret", "401 denied", "401 6 bytes"},
  };
  for (const Fault& fault : faults) Meet(fault, 10000);
}

TEST(HttpFaultsTest, AServerThatDoesNotReadEndsTheSending) {
  HttpClient client;
  client.SetTimeouts(0, 10000, kShort, 10000);
  const std::string body(32 << 20, 'x');
  const Fault fault{"a server that does not read", "http", "/f/deaf", "raises 12002", ""};
  const auto sink = [](const char*, std::size_t) { return true; };
  const DWORD code = RaisedCode(
      [&] { client.PostBytes(ServerUrl(fault.server, fault.path).c_str(), body.data(), body.size(), sink); });
  Expect(fault, "PostBytes", "raises " + std::to_string(code), fault.get, "raises 10060");
}

// What Windows does about these is its own business.
TEST(LinuxHttpFaultsTest, AnswersWhosePartsHaveNoEndOrContradictEachOther) {
  if (RunsOnWindows()) GTEST_SKIP() << "WinHTTP alone decides there";
  const Fault faults[] = {
      {"interim answers without end", "http", "/f/endlessinfo", "raises 12183", "raises 12183 after 0 bytes"},
      {"lines behind the body without end", "http", "/f/endlesstrailer", "200 hello, error 12183",
       "raises 12183 after 5 bytes"},
      {"a redirection that drips", "http", "/f/redirdrip", "200 ok\\u0020body", "200 7 bytes"},
      {"a redirection behind a lone CR", "http", "/f/lonecr", "raises 12150", "raises 12150 after 0 bytes"},
      {"chunks beside another length", "http", "/f/bothlong", "200 hello", "200 5 bytes"},
      {"no content, with a length", "http", "/f/nocontent", "204 <empty>", "204 0 bytes"},
  };
  for (const Fault& fault : faults) Meet(fault, kShort);
}
