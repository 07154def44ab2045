#include "httpclient.h"

#include <gtest/gtest.h>

#include <string>

#include "http_text.h"
#include "support/raises.h"

#define QEL_SOURCE L"tests/httpclient"

namespace {

// Port 9 is that of discarded data, which nobody offers any more.
constexpr wchar_t kNobodyThere[] = L"http://127.0.0.1:9/";

std::wstring LinesOf(const Qel::List<CString>& lines) {
  std::wstring text;
  for (long i = 0; i < lines.GetCount(); ++i) text += L"[" + std::wstring(lines[i].View()) + L"]";
  return text;
}

std::wstring ContentOf(std::initializer_list<std::string_view> pieces) {
  HttpContent content;
  for (const std::string_view piece : pieces) content.Append(piece.data(), piece.size());
  return content.Text();
}

}  // namespace

TEST(HttpClientTest, ValuesOfQueriesAreWrittenInTheLowBytesOfTheirUnits) {
  const std::pair<const wchar_t*, const wchar_t*> rows[] = {
      {L"a b-c", L"a%20b%2dc"},
      {L"x=1.0", L"x=1.0"},
      {L"AZaz09~!*()'=.", L"AZaz09~!*()'=."},
      {L"_/@[`{\x01", L"%5f%2f%40%5b%60%7b%01"},
      {L"\u00E9\u0643\u0661", L"%e9%43%61"},  // kept
      {L"\U0001F600", L"%3d%00"},             // D83D DE00
      {L"", L""},
  };
  for (const auto& [text, encoded] : rows) EXPECT_EQ(HttpClient::EncodeUrl(text), encoded) << text;
}

TEST(HttpClientTest, CodesHaveTheirTexts) {
  const std::pair<DWORD, const wchar_t*> rows[] = {
      {12001, L"Out of handles"},
      {12002, L"Time out"},
      {12004, L"Internal Error"},
      {12005, L"Invalid Url"},
      {12006, L"Unrecognized Scheme"},
      {12007, L"Name not resolved"},
      {12009, L"Invalid Option"},
      {12011, L" Option not Settable"},
      {12012, L"Shutdown"},
      {12015, L"Login Failed"},
      {12017, L"Operation Canceld"},
      {12018, L"Incorrect Handle Type"},
      {12019, L"Incorrct Handle State"},
      {12029, L"Cann't Connect"},
      {12030, L"Connection Error"},
      {12032, L"Resend Request"},
      {12003, L"Error Code not found"},
      {0, L"Error Code not found"},
  };
  for (const auto& [code, text] : rows) EXPECT_EQ(HttpClient::GetWinSendErrorString(code), text) << code;
}

TEST(HttpClientTest, WhatIsNoAddressGetsNoAnswerAndRaisesNothing) {
  HttpClient client(L"tests");
  for (const wchar_t* url : {L"ftp://127.0.0.1/", L"127.0.0.1", L"", static_cast<const wchar_t*>(nullptr)}) {
    const HttpResponse response = client.Post(url, L"text");
    EXPECT_EQ(response.status, 0u);
    EXPECT_TRUE(response.content.IsEmpty() && response.headers.GetCount() == 0);
    EXPECT_EQ(client.GetBytes(url, nullptr).status, 0u);
  }
}

TEST(HttpClientTest, AFailedConnectionRaisesItsCodeFromAFixedPlace) {
  HttpClient client;
  client.SetCredentials(L"user", L"password", 0);  // of no scheme: no more is done about them
  const auto e = Raised([&] { client.Get(kNobodyThere); });
  ASSERT_TRUE(e);
  const auto* const http = dynamic_cast<WinHttpException*>(e.get());
  ASSERT_TRUE(http);
  EXPECT_EQ(http->GetErrorCode(), 12029u);
  EXPECT_EQ(client.GetLastError(), 12029u);
  EXPECT_EQ(e->GetError(), L"WinHttpException");
  EXPECT_EQ(e->GetFile(), L"src/httpclient");
  EXPECT_EQ(e->GetFunctionName(), "bool __thiscall HttpClient::CheckResult(int)");
  EXPECT_EQ(e->GetLineNumber(), 260);
}

TEST(HttpClientTest, BytesThatCannotBeSentRaise) {
  HttpClient client;
  EXPECT_EQ(RaisedBy([&] { client.PostBytes(kNobodyThere, "", std::size_t{1} << 32, nullptr); }),
            L"size <= 0xFFFFFFFF");
  client.AddHeader(L"no colon");
  EXPECT_EQ(RaisedBy([&] { client.PostBytes(kNobodyThere, "ab", 2, nullptr); }), L"WinHttpException");
  EXPECT_EQ(client.GetLastError(), 12153u);
}

TEST(HttpClientTest, AFileOfAuthoritiesThatIsNotThereRaises) {
  HttpClient client;
  client.SetAuthorityFile(L"no/such/file.pem");
  EXPECT_EQ(RaisedBy([&] { client.Get(kNobodyThere); }), L"WinHttpException");
  EXPECT_TRUE(client.GetLastError() == 2 || client.GetLastError() == 3) << client.GetLastError();
}

TEST(HttpClientTest, HostsRaiseItToo) {
  const auto e = Raised([] { QEL_RAISE(WinHttpException, DWORD{12002}); });
  ASSERT_TRUE(dynamic_cast<WinHttpException*>(e.get()));
  EXPECT_EQ(e->GetFile(), L"tests/httpclient");
}

TEST(HttpTextTest, HeadersAreTheLinesThatAreNotEmpty) {
  Qel::List<CString> lines;
  SplitHeaderLines(L"HTTP/1.1 200 OK\r\nX-A: b\n\n c\r\n\r\nlast", lines);
  EXPECT_EQ(LinesOf(lines), L"[HTTP/1.1 200 OK\r][X-A: b][ c\r][\r][last]");
}

TEST(HttpTextTest, EachPieceOfAContentIsReadByItself) {
  using namespace std::string_view_literals;
  EXPECT_EQ(ContentOf({"\xD9\x85\xD8", "\xB1\xD8\xAD"}), L"\u0645\uFFFD\uFFFD\u062D");
  EXPECT_EQ(ContentOf({"ab\0cd"sv, "\0e"sv, "f"}), L"abf");
  EXPECT_EQ(ContentOf({"\xEF\xBB\xBFhi"}), L"\uFEFFhi");
  EXPECT_EQ(ContentOf({}), L"");
}

TEST(HttpTextTest, LongPiecesAreReadLikeShortOnes) {
  const std::pair<std::string, std::wstring> rows[] = {
      {"a", L"a"},
      {"\xD9\x85", L"\u0645"},
      {"\xE2\x82\xAC", L"\u20AC"},
      {"\xF0\x9F\x98\x80", L"\xD83D\xDE00"},
      {"\x80", L"\uFFFD"},
  };
  for (const auto& [character, units] : rows) {
    // Shifted by one byte after the other, so that every place of the character meets the end of a block.
    for (std::size_t shift = 0; shift < character.size(); ++shift) {
      std::string piece(shift, '-');
      std::wstring expected(shift, L'-');
      for (int i = 0; i < 5000; ++i) {
        piece += character;
        expected += units;
      }
      EXPECT_EQ(ContentOf({piece}), expected) << shift;
    }
  }
}

TEST(HttpTextTest, ALengthThatIsALieGetsNoMemory) {
  HttpContent content;
  content.Reserve(std::size_t{1} << 40);
  EXPECT_LE(content.Text().capacity(), std::size_t{1} << 23);
}
