#include <charconv>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>

#include "commands.h"
#include "file_output.h"
#include "http_error.h"
#include "http_progress.h"
#include "httpclient.h"
#include "output.h"
#include "platform/platform.h"
#include "refusal.h"
#include "setting.h"
#include "text.h"
#include "utf8.h"

namespace Cli {

namespace {

constexpr DWORD kFirstRefusal = 400;
constexpr DWORD kBasic = 1;
constexpr int kCarriageReturn = 1;  // characters at the end of each line of headers

// Why the options cannot be used; empty when they can.
std::string WhatIsWrong(const Options& options) {
  for (const std::string& line : options.headers)
    if (line.find(':') == line.npos || line.starts_with(':') || line.find_first_of("\r\n") != line.npos)
      return Say(Text::HttpNoHeader, {line});
  if (!options.user.empty() && options.user.find(':') == std::string::npos) return Say(Text::HttpNoUser);
  int timeout = 0;
  if (!options.timeout.empty() && (ReadCount(options.timeout, timeout) || timeout < 0))
    return Say(Text::HttpNoTimeout, {options.timeout});
  return {};
}

void Prepare(HttpClient& client, const Options& options) {
  for (const std::string& line : options.headers) client.AddHeader(Wide(line));
  if (const std::size_t colon = options.user.find(':'); colon != std::string::npos)
    client.SetCredentials(Wide(options.user.substr(0, colon)), Wide(options.user.substr(colon + 1)), kBasic);
  if (!options.authority.empty()) client.SetAuthorityFile(Wide(options.authority));
  if (int timeout = 0; !options.timeout.empty() && !ReadCount(options.timeout, timeout))
    client.SetTimeouts(timeout, timeout, timeout, timeout);
}

std::string HeaderLine(const HttpResponse& head, long index) {
  const CString& line = head.headers[index];
  return Utf8(line.Left(line.GetLength() - kCarriageReturn));
}

std::uint64_t LengthOf(const HttpResponse& head) {
  constexpr int kName = 15;
  for (long i = 0; i < head.headers.GetCount(); ++i) {
    if (head.headers[i].Left(kName).CompareNoCase(L"Content-Length:") != 0) continue;
    const std::string value = Utf8(CString(head.headers[i].Mid(kName)).Trim());
    std::uint64_t length = 0;
    std::from_chars(value.data(), value.data() + value.size(), length);
    return length;
  }
  return 0;
}

// One answer on its way to whoever asked.
class Answer {
 public:
  Answer(const UrlComponents& url, const Options& options) : m_Url(url), m_Options(options) {}

  bool Open() { return m_Options.output.empty() || m_File.Open(m_Options.output); }
  bool TakeHead(const HttpResponse& head);
  bool TakePiece(const char* data, std::size_t size);
  // An exit code. What cannot be written is said.
  int Finish(const HttpResponse& head);
  int NotWritten() const;
  // Says that there was none, and why.
  int Fail(DWORD code);

 private:
  void PrintObject(const HttpResponse& head) const;

  const UrlComponents& m_Url;
  const Options& m_Options;
  FileOutput m_File;
  std::optional<HttpProgress> m_Progress;
  std::string m_Body;  // for an object alone
  std::int64_t m_Received = 0;
};

bool Answer::TakeHead(const HttpResponse& head) {
  if (m_Options.verbose)
    for (long i = 0; i + 1 < head.headers.GetCount(); ++i)  // the last is empty
      WriteMessage(Joined({"< ", Plain(HeaderLine(head, i)), "\n"}));
  const bool bodyIsSeen = m_Options.output.empty() && OutputPaints();
  if (!bodyIsSeen) m_Progress.emplace(LengthOf(head));
  return true;
}

bool Answer::TakePiece(const char* data, std::size_t size) {
  const std::string_view piece(data, size);
  m_Received += static_cast<std::int64_t>(size);
  if (m_Progress) m_Progress->Add(size);
  if (!m_Options.output.empty()) return m_File.Put(piece);
  if (m_Options.json)
    m_Body += piece;
  else
    Print(piece);
  return AllPrinted();
}

void Answer::PrintObject(const HttpResponse& head) const {
  JsonObject object;
  object.Add("url", m_Options.operands[0]).Add("status", static_cast<int>(head.status));
  std::string lines;
  for (long i = 0; i + 1 < head.headers.GetCount(); ++i) lines += HeaderLine(head, i) + "\n";
  object.Add("head", lines).Add("bytes", static_cast<double>(m_Received));
  if (m_Options.output.empty())
    object.Add("body", Qel::ToUtf8(Wide(m_Body).View()));  // what is no UTF-8 becomes U+FFFD
  else
    object.Add("body", nullptr);
  Print(object.Add("error", nullptr).Line());
}

int Answer::NotWritten() const {
  Complain(Joined({m_Options.output, ": ", Say(Text::FileNotWritten)}));
  return kNotWritten;
}

int Answer::Finish(const HttpResponse& head) {
  m_Progress.reset();
  if (!m_Options.output.empty() && !m_File.Finish()) return NotWritten();
  if (m_Options.json) PrintObject(head);
  return head.status >= kFirstRefusal ? kNo : kDone;
}

int Answer::Fail(DWORD code) {
  m_Progress.reset();
  const std::string text = HttpErrorText(code, m_Url, m_Options);
  const std::string& typed = m_Options.operands[0];
  if (m_Options.json)
    Print(JsonObject()
              .Add("url", typed)
              .Add("status", nullptr)
              .Add("error", JsonObject().Add("code", static_cast<int>(code)).Add("text", text))
              .Line());
  else
    Complain(Joined({"\"", typed, "\": ", text, " (", std::to_string(code), ")"}));
  return code == kHttpInvalidUrl ? kUnreadable : kNetwork;
}

// The body that is sent. "-" is all of the input, byte by byte.
std::string BodyOf(const Options& options) {
  if (options.data != "-") return options.data;
  return std::string(std::istreambuf_iterator<char>(std::cin), {});
}

std::string TargetOf(const UrlComponents& url) {
  return Joined({url.Path().IsEmpty() ? "/" : "", Plain(Utf8(url.FullPath()))});
}

HttpResponse Ask(HttpClient& client, bool post, const Options& options, Answer& answer) {
  const CString url = Wide(options.operands[0]);
  const auto head = [&](const HttpResponse& response) { return answer.TakeHead(response); };
  const auto sink = [&](const char* data, std::size_t size) { return answer.TakePiece(data, size); };
  if (!post) return client.GetBytes(url, sink, head);
  const std::string body = BodyOf(options);
  return client.PostBytes(url, body.data(), body.size(), sink, head);
}

int Run(bool post, const Options& options) {
  const std::string& typed = options.operands[0];
  const UrlComponents url(Wide(typed));
  if (!url.Valid()) return Refuse(typed, {"no_url", 1, Say(Text::NoUrl)}, options);
  if (const std::string wrong = WhatIsWrong(options); !wrong.empty()) {
    Complain(wrong);
    return kUsage;
  }
  Answer answer(url, options);
  if (!answer.Open()) return answer.NotWritten();
  HttpClient client(L"qel/" QEL_VERSION);
  Prepare(client, options);
  if (options.verbose) WriteMessage(Joined({post ? "> POST " : "> GET ", TargetOf(url), "\n"}));
  try {
    const HttpResponse response = Ask(client, post, options, answer);
    return response.status != 0 ? answer.Finish(response) : answer.Fail(client.GetLastError());
  } catch (WinHttpException* e) {
    const DWORD code = e->GetErrorCode();
    e->Delete();
    return answer.Fail(code);
  }
}

}  // namespace

int RunHttpGet(const Options& options) {
  return Run(false, options);
}
int RunHttpPost(const Options& options) {
  return Run(true, options);
}

}  // namespace Cli
