#include "http/replay.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <memory>
#include <sstream>
#include <vector>

#include "http/addresses.h"
#include "http/calls.h"
#include "support/golden.h"

namespace {

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

std::vector<std::string> Split(const std::string& text, const std::string& separator) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  for (std::size_t at; (at = text.find(separator, start)) != std::string::npos; start = at + separator.size())
    parts.push_back(text.substr(start, at - start));
  parts.push_back(text.substr(start));
  return parts;
}

// The order of header lines is nobody's promise.
std::string SortedLines(const std::string& saw) {
  std::string result;
  for (const std::string& request : Split(saw, " || ")) {
    const auto headAndBody = Split(request, " {BODY} ");
    auto lines = Split(headAndBody.front(), "\\x0D\\x0A");
    std::sort(lines.begin() + 1, lines.end());
    for (const std::string& line : lines) result += line + "\n";
    result += "body " + headAndBody.back() + "\n";
  }
  return result;
}

// Sizes of pieces are nobody's promise either; how they end is: "q-fail 122", or "".
std::string BodyFault(const std::string& pieces) {
  const std::size_t at = pieces.find("-fail ");
  return at == std::string::npos ? "" : pieces.substr(at - 1, pieces.find(' ', at + 6) - (at - 1));
}

// With the server's dates as the file has them.
std::string WithoutDates(std::string head) {
  for (const std::string name : {"Date:\\u0020", "Last-Modified:\\u0020"}) {
    const std::size_t at = head.find(name);
    if (at == std::string::npos) continue;
    const std::size_t start = at + name.size();
    head.replace(start, head.find("\\u000D", start) - start, "{DATE}");
  }
  return head;
}

// As the file spells bytes; long ones are told by their length and a hash.
std::string SpelledContent(const std::string& content) {
  unsigned hash = 2166136261U;
  std::string spelled;
  for (const char c : content) {
    const auto byte = static_cast<unsigned char>(c);
    hash = (hash ^ byte) * 16777619U;
    char text[8];
    const bool plain = byte > 0x20 && byte < 0x7F && byte != '<' && byte != '\\';
    std::snprintf(text, sizeof text, plain ? "%c" : byte == '\\' ? "\\\\" : "\\x%02X", byte);
    spelled += text;
  }
  if (content.empty()) return "<empty>";
  if (content.size() <= 400) return spelled;
  char text[64];
  std::snprintf(text, sizeof text, "len %zu fnv1a %08X", content.size(), hash);
  return text;
}

// "{x*1024}" is x so many times.
std::string Expanded(std::string text) {
  for (std::size_t at = 0; (at = text.find('{', at)) != std::string::npos; ++at) {
    if (text.substr(at + 2, 1) != "*") continue;
    const std::size_t end = text.find('}', at);
    text.replace(at, end - at + 1, std::stoul(text.substr(at + 3)), text[at + 1]);
  }
  return text;
}

// In the code page of the thread, as the client sends it.
std::string Body(const std::wstring& text) {
  std::string bytes(text.size(), '\0');
  if (!text.empty())
    WideCharToMultiByte(CP_THREAD_ACP, 0, text.c_str(), static_cast<int>(text.size()), bytes.data(),
                        static_cast<int>(bytes.size()), nullptr, nullptr);
  return bytes;
}

HttpRequest RequestOf(const GoldenRow& row, const std::wstring& target, bool secure) {
  HttpRequest request;
  request.verb = row.Wide("verb").value();
  request.path = target;
  request.secure = secure;
  if (row["headers"] != "-") request.headers = row.Wide("headers").value();
  if (row["body"] != "-")
    request.body = Body(GoldenRow{row.where, {{"body", Expanded(row["body"])}}}.Wide("body").value());
  if (row["credentials"] != "-") {
    std::wistringstream fields(row.Wide("credentials").value());
    std::getline(fields, request.user.emplace(), L':');
    std::getline(fields, request.password.emplace(), L':');
    fields >> request.scheme;
  }
  if (row["options"].starts_with("timeout=")) request.timeout = std::stoi(row["options"].substr(8));
  return request;
}

// Compares what the rows hold with what is answered here.
class Replay {
 public:
  explicit Replay(const std::vector<RecordedServer>& servers) {
    for (const auto& [recorded, name] : servers)
      m_Ports.emplace_back(recorded, ServerAddress(name).substr(ServerAddress(name).rfind(':')));
  }

  void Play(const GoldenRow& row) {
    const std::wstring url = Url(row);
    const std::size_t host = url.find(L"//") + 2, path = std::min(url.find(L'/', host), url.size());
    if (row["options"] != "reuse") Connect(url.substr(host, path - host), url.starts_with(L"https"));
    const HttpAnswer answer =
        Perform(*m_Connection, RequestOf(row, url.substr(path), url.starts_with(L"https")));
    m_Deviates = false;
    Compare(row, answer);
    if (row["server_saw"].find("{BODY}") != std::string::npos) CompareRequests(row, url.substr(path));
    if (m_Deviates)
      std::cout << "known deviation: " << row.where << " " << row["id"] << ": "
                << m_Windows.at(row["id"])["reason"] << "\n";
  }

 private:
  std::wstring Url(const GoldenRow& row) const {
    std::string url = row["url"];
    for (const auto& [recorded, here] : m_Ports) url = Replaced(url, recorded, here);
    return GoldenRow{row.where, {{"url", url}}}.Wide("url").value();
  }

  void Connect(const std::wstring& hostAndPort, bool secure) {
    const std::size_t colon = std::min(hostAndPort.find(L':'), hostAndPort.size());
    const int port = colon < hostAndPort.size() ? std::stoi(hostAndPort.substr(colon + 1))
                     : secure                   ? 443
                                                : 80;
    m_Connection.reset();
    m_Session = std::make_unique<HttpHandle>(
        WinHttpOpen(L"HttpClient", WINHTTP_ACCESS_TYPE_DEFAULT_PROXY, nullptr, nullptr, 0));
    m_Connection = std::make_unique<HttpHandle>(WinHttpConnect(
        *m_Session, hostAndPort.substr(0, colon).c_str(), static_cast<INTERNET_PORT>(port), 0));
  }

  void Compare(const GoldenRow& row, const HttpAnswer& answer) {
    CompareOne(row, "addheaders", answer.addHeaders);
    CompareOne(row, "setcredentials", answer.setCredentials);
    CompareOne(row, "send", answer.send);
    CompareOne(row, "write", answer.write);
    CompareOne(row, "receive", answer.receive);
    CompareOne(row, "status", std::to_string(answer.status));
    CompareOne(row, "rawheaders_size", answer.headSize);
    CompareOne(row, "raw_headers", answer.receive == "ok" ? WithoutDates(Spelled(answer.head)) : "-");
    CompareOne(row, "content", SpelledContent(answer.content));
    CompareOne(row, "pieces", answer.bodyFault, BodyFault);
  }

  void CompareRequests(const GoldenRow& row, const std::wstring& path) {
    HttpRequest ask;
    ask.verb = L"GET";
    ask.path = L"/saw" + path.substr(0, path.find(L'/', 1));
    // Wine gives a redirected POST up as it sends it, so the server may read it a moment later.
    const std::size_t recorded = CountRequests(row["server_saw"]);
    std::string saw;
    for (int asked = 0; asked == 0 || (RunsUnderWine() && asked < 50 && CountRequests(saw) < recorded);
         ++asked) {
      const std::string more = AsRecorded(Perform(*m_Connection, ask).content);
      if (!saw.empty() && !more.empty()) saw += " || ";
      saw += more;
    }
    CompareOne(row, "server_saw", SortedLines(saw), SortedLines);
  }

  static std::size_t CountRequests(const std::string& saw) {
    constexpr std::string_view kBody = "{BODY}";
    std::size_t count = 0;
    for (std::size_t at = saw.find(kBody); at != saw.npos; at = saw.find(kBody, at + 1)) ++count;
    return count;
  }

  // With the ports of the recording.
  std::string AsRecorded(std::string text) const {
    for (const auto& [recorded, here] : m_Ports) text = Replaced(text, here, recorded);
    return text;
  }

  // `form` makes the file's spelling comparable with `answer`.
  void CompareOne(
      const GoldenRow& row, const char* column, const std::string& answer,
      std::string (*form)(const std::string&) = [](const std::string& text) { return text; }) {
    const auto windows = m_Windows.find(row["id"]);
    const bool otherwise = windows != m_Windows.end() && windows->second.fields.contains(column) &&
                           windows->second[column] != "=";
    // Wine tells of a reset now by its own code, now by the socket's.
    const std::string wine = otherwise && answer == "fail 10054" ? answer : form(row[column]);
    const std::string expected = otherwise ? form(Expanded(windows->second[column])) : wine;
    if (RunsUnderWine() && answer == wine) {
      m_Deviates |= answer != expected;
    } else {
      EXPECT_EQ(answer, expected) << row.where << " " << row["id"] << " " << column;
    }
  }

  // Where Windows is known, or taken, to answer otherwise than Wine did.
  static std::map<std::string, GoldenRow> WindowsRows() {
    std::map<std::string, GoldenRow> rows;
    for (const auto& row : GoldenTable("http_windows.tsv")) rows[row["id"]] = row;
    return rows;
  }

  const std::map<std::string, GoldenRow> m_Windows = WindowsRows();
  bool m_Deviates = false;  // the row under way answers as Wine does and Windows does not
  std::vector<std::pair<std::string, std::string>> m_Ports;  // ":<port>" as recorded, and here
  std::unique_ptr<HttpHandle> m_Session, m_Connection;       // the second goes first
};

}  // namespace

void ReplayRows(const std::vector<RecordedServer>& servers, std::initializer_list<const char*> prefixes) {
  Replay replay(servers);
  int played = 0;
  for (const auto& row : GoldenTable("http.tsv")) {
    const auto starts = [&row](const char* prefix) { return row["id"].starts_with(prefix); };
    if (std::none_of(prefixes.begin(), prefixes.end(), starts)) continue;
    replay.Play(row);
    ++played;
  }
  EXPECT_GT(played, 0);
}
