#include "httpclient.h"

#include <algorithm>
#include <iterator>

#include "code_page.h"
#include "http_text.h"
#include "platform/platform.h"
#include "url.h"

#define QEL_SOURCE L"src/httpclient"

namespace {

// Crash reports are grouped by these, whichever step failed and whichever compiler built the library.
constexpr char kCheckResult[] = "bool __thiscall HttpClient::CheckResult(int)";
constexpr int kLineOfCheckResult = 260;
constexpr int kLineOfSendRequest = 312;

constexpr DWORD kCancelled = 12017;
constexpr DWORD kConnectionBroke = 12030;
constexpr DWORD kRoomTooSmall = 122;
constexpr DWORD kNoContent = 204, kNotModified = 304;  // have no body, whatever length they announce
constexpr DWORD kUpToTerminator = 0xFFFFFFFF;
constexpr unsigned long long kMostToSend = 0xFFFFFFFF;

std::wstring Joined(const Qel::List<CString>& lines) {
  std::wstring text;
  for (long i = 0; i < lines.GetCount(); ++i) {
    if (i > 0) text += L"\r\n";
    text += lines[i].View();
  }
  return text;
}

// An element above U+FFFF, which a literal can bring on Linux, stands for two.
std::size_t CountUnits(std::wstring_view text) {
  std::size_t count = 0;
  for (const wchar_t element : text) {
    const auto unit = static_cast<char32_t>(element);
    count += unit > 0xFFFF ? 2 : 1;
  }
  return count;
}

// Whoever looks into a failure holds both.
bool DiagnosisKeysAreDown() {
  const auto isDown = [](int key) { return (GetAsyncKeyState(key) & 0x8000) != 0; };
  return isDown(VK_SHIFT) && isDown(VK_CONTROL);
}

bool QueryRawHeaders(HINTERNET request, std::wstring& block) {
  DWORD size = 0;
  const auto query = [&](wchar_t* buffer) {
    return WinHttpQueryHeaders(request, WINHTTP_QUERY_RAW_HEADERS_CRLF, nullptr, buffer, &size, nullptr) != 0;
  };
  if (query(nullptr) || GetLastError() != kRoomTooSmall) return false;
  block.resize(size / 2 + 1);  // bytes, two a unit on every system
  if (!query(block.data())) return false;
  block.resize(size / 2);
  return true;
}

// The length that the server announces; 0 when it tells none, or one beyond 32 bits.
DWORD AnnouncedLength(HINTERNET request) {
  DWORD length = 0, size = sizeof length;
  constexpr DWORD kAsNumber = WINHTTP_QUERY_CONTENT_LENGTH | WINHTTP_QUERY_FLAG_NUMBER;
  return WinHttpQueryHeaders(request, kAsNumber, nullptr, &length, &size, nullptr) ? length : 0;
}

}  // namespace

WinHttpException::WinHttpException(DWORD code, const wchar_t* source, const char* function, int line,
                                   boost::stacktrace::stacktrace trace)
    : qel_exception(L"WinHttpException", source, function, line, std::move(trace)), m_Code(code) {}
WinHttpException::~WinHttpException() = default;

// A handle of all copies of a client. It is closed once: the system may give its number to somebody else afterwards.
class HttpClient::SharedHandle {
 public:
  explicit SharedHandle(HINTERNET handle) : m_Handle(handle) {}
  SharedHandle(const SharedHandle&) = delete;
  SharedHandle& operator=(const SharedHandle&) = delete;
  ~SharedHandle() { Close(); }

  HINTERNET Get() const { return m_Handle; }  // null, which no function takes, once it is closed
  void Close() {
    if (const HINTERNET handle = m_Handle.exchange(nullptr)) WinHttpCloseHandle(handle);
  }

 private:
  std::atomic<HINTERNET> m_Handle;
};

// The request under way, closed on every path.
class HttpClient::Request {
 public:
  explicit Request(CallUnderWay& call) : m_Call(call) { m_Call.cancelled = false; }
  Request(const Request&) = delete;
  Request& operator=(const Request&) = delete;
  ~Request() {
    m_Call.request = nullptr;
    if (m_Handle) CloseRequest(m_Handle);
  }

  void Hold(HINTERNET handle) { m_Call.request = m_Handle = handle; }
  HINTERNET Handle() const { return m_Handle; }

 private:
  CallUnderWay& m_Call;
  HINTERNET m_Handle = nullptr;
};

HttpClient::HttpClient() : HttpClient(L"HttpClient") {}
HttpClient::HttpClient(const wchar_t* agent) : m_Agent(agent) {}

HttpClient::~HttpClient() {
  if (m_Connection) m_Connection->Close();
  if (m_Session) m_Session->Close();
}

void HttpClient::AddHeader(const wchar_t* line) {
  m_Headers.append(line);
}

void HttpClient::SetCredentials(const wchar_t* user, const wchar_t* password, DWORD scheme) {
  m_User = user;
  m_Password = password;
  m_Scheme = scheme;
}

void HttpClient::SetSilentMode(bool silent) {
  m_Silent = silent;
}

void HttpClient::SetTimeouts(int resolve, int connect, int send, int receive) {
  const int all[] = {resolve, connect, send, receive};
  std::transform(std::begin(all), std::end(all), m_Timeouts, [](int time) { return std::max(time, 0); });
  m_HasTimeouts = true;
}

void HttpClient::SetAuthorityFile(const wchar_t* path) {
  m_AuthorityFile = path;
  m_AuthorityFileIsNew = true;
}

void HttpClient::SetMaxContent(unsigned long long bytes) {
  m_MaxContent = bytes;
}

// The order matters: a request that is not seen here sees that it was cancelled.
void HttpClient::Cancel() {
  m_Call.cancelled = true;
  if (void* const request = m_Call.request) InterruptRequest(request);
}

HttpResponse HttpClient::Get(const wchar_t* url) {
  return SendForText(L"GET", url, {});
}

HttpResponse HttpClient::Post(const wchar_t* url, const wchar_t* body) {
  if (!body) return SendForText(L"POST", url, {});
  const std::wstring_view text(body);
  std::string narrow = Encode(CP_THREAD_ACP, text);
  narrow.resize(CountUnits(text));
  return SendForText(L"POST", url, {narrow.data(), static_cast<DWORD>(narrow.size())});
}

HttpResponse HttpClient::GetBytes(const wchar_t* url, const HttpSink& sink, const HttpHeadSink& head) {
  return SendForBytes(L"GET", url, {}, sink, head);
}

HttpResponse HttpClient::PostBytes(const wchar_t* url, const void* data, std::size_t size,
                                   const HttpSink& sink, const HttpHeadSink& head) {
  QEL_REQUIRE(size <= kMostToSend, L"size <= 0xFFFFFFFF");
  return SendForBytes(L"POST", url, {static_cast<const char*>(data), static_cast<DWORD>(size)}, sink, head);
}

HttpResponse HttpClient::SendForText(const wchar_t* verb, const wchar_t* url, const Body& body) {
  HttpResponse response;
  Request request(m_Call);
  if (Send(verb, url, body, request, response))
    CheckResult(ReceiveContent(request.Handle(), response.content));
  return response;
}

HttpResponse HttpClient::SendForBytes(const wchar_t* verb, const wchar_t* url, const Body& body,
                                      const HttpSink& sink, const HttpHeadSink& head) {
  HttpResponse response;
  Request request(m_Call);
  if (!Send(verb, url, body, request, response)) return response;
  const bool hasBody = response.status != kNoContent && response.status != kNotModified;
  if (!head || head(response)) ReceiveBytes(request.Handle(), sink, hasBody);
  return response;
}

// Everything up to the last header. False: no request could be made, and the response is as it was.
bool HttpClient::Send(const wchar_t* verb, const wchar_t* url, const Body& body, Request& request,
                      HttpResponse& response) {
  const UrlComponents address(url);
  if (!address.Valid() || !Connect(address.Host(), address.Port())) return false;
  if (!OpenRequest(verb, address.FullPath(), address.Secure(), request)) return false;
  CheckResult(AddRequestHeaders(request.Handle()));
  CheckResult(SendRequest(request.Handle(), body.size));
  DWORD written = 0;
  if (body.size > 0) CheckResult(WinHttpWriteData(request.Handle(), body.data, body.size, &written));
  return CheckResult(ReceiveHeaders(request.Handle(), response));
}

bool HttpClient::OpenSession() {
  const HINTERNET session = WinHttpOpen(m_Agent, WINHTTP_ACCESS_TYPE_DEFAULT_PROXY, nullptr, nullptr, 0);
  if (!session) return Failed();
  m_Session = std::make_shared<SharedHandle>(session);
  return true;
}

bool HttpClient::Connect(const CString& host, WORD port) {
  if (!m_Session && !OpenSession()) return false;
  if (m_AuthorityFileIsNew) {
    if (const DWORD code = TrustAuthorities(m_Session->Get(), m_AuthorityFile)) Raise(code);
    m_AuthorityFileIsNew = false;
    if (m_Connection) m_Connection->Close();  // Windows trusts for connections that are named afterwards
    m_Connection.reset();
  }
  if (m_Connection) return true;
  const HINTERNET connection = WinHttpConnect(m_Session->Get(), host, port, 0);
  if (!connection) return Failed();
  m_Connection = std::make_shared<SharedHandle>(connection);
  return true;
}

bool HttpClient::OpenRequest(const wchar_t* verb, const wchar_t* path, bool secure, Request& request) {
  const HINTERNET handle = WinHttpOpenRequest(m_Connection->Get(), verb, path, nullptr, nullptr, nullptr,
                                              secure ? WINHTTP_FLAG_SECURE : 0);
  if (!handle) return Failed();
  request.Hold(handle);
  if (m_HasTimeouts)
    CheckResult(WinHttpSetTimeouts(handle, m_Timeouts[0], m_Timeouts[1], m_Timeouts[2], m_Timeouts[3]));
  return true;
}

bool HttpClient::AddRequestHeaders(void* request) {
  const std::wstring lines = Joined(m_Headers);
  return lines.empty() ||
         WinHttpAddRequestHeaders(request, lines.c_str(), kUpToTerminator, WINHTTP_ADDREQ_FLAG_ADD) != 0;
}

void HttpClient::Authenticate(void* request) {
  if (m_User.IsEmpty()) return;
  WinHttpSetCredentials(request, WINHTTP_AUTH_TARGET_SERVER, m_Scheme, m_User, m_Password, nullptr);
}

bool HttpClient::SendRequest(void* request, DWORD length) {
  Authenticate(request);
  m_LastError = 0;
  ::SetLastError(0);
  if (WinHttpSendRequest(request, nullptr, 0, nullptr, 0, length, 0)) return true;
  Failed();
  if (DiagnosisKeysAreDown())
    QEL_RAISE_AT(qel_exception, QEL_SOURCE, kLineOfSendRequest,
                 (L"SendRequest Error: " + std::to_wstring(m_LastError)).c_str());
  ::SetLastError(m_LastError);
  return false;
}

bool HttpClient::ReceiveHeaders(void* request, HttpResponse& response) {
  if (!WinHttpReceiveResponse(request, nullptr)) return Failed();
  DWORD size = sizeof response.status;
  constexpr DWORD kAsNumber = WINHTTP_QUERY_STATUS_CODE | WINHTTP_QUERY_FLAG_NUMBER;
  if (!WinHttpQueryHeaders(request, kAsNumber, nullptr, &response.status, &size, nullptr)) return false;
  std::wstring block;
  if (!QueryRawHeaders(request, block)) return false;
  SplitHeaderLines(block, response.headers);
  return true;
}

// Kept: to be told nothing of what comes next is the end of the content, because of the applications' servers that
// close early.
bool HttpClient::ReceiveContent(void* request, CString& content) {
  HttpContent text;
  text.Reserve(AnnouncedLength(request));
  const DWORD brokeOff = ReceiveBody(request, [&](const char* data, std::size_t size) {
    text.Append(data, size);
    return true;
  });
  if (brokeOff != 0) m_LastError = brokeOff;
  content = std::move(text.Text());
  return true;
}

// The system may take a connection that is closed early for the end of the body, so the length decides too.
void HttpClient::ReceiveBytes(void* request, const HttpSink& sink, bool hasBody) {
  const DWORD announced = hasBody ? AnnouncedLength(request) : 0;
  unsigned long long received = 0;
  bool wanted = true;
  const DWORD brokeOff = ReceiveBody(request, [&](const char* data, std::size_t size) {
    received += size;
    return wanted = sink(data, size);
  });
  if (brokeOff != 0) Raise(brokeOff);
  if (wanted && received < announced) Raise(kConnectionBroke);
}

// Hands every piece to `take`. Result: 0 at the end, the code when there is no telling what comes next. Raises when a
// piece that is there cannot be read.
DWORD HttpClient::ReceiveBody(void* request, const HttpSink& take) {
  std::unique_ptr<char[]> piece;
  DWORD room = 0;
  unsigned long long received = 0;
  for (;;) {
    DWORD available = 0;  // a query that fails leaves it alone
    const bool told = WinHttpQueryDataAvailable(request, &available) != 0;
    const DWORD code = told ? 0 : HttpError(request);
    CheckResult(1);  // unless it was cancelled meanwhile
    if (available == 0) return code;
    if (available > room) piece.reset(new char[room = available]);
    DWORD read = 0;
    CheckResult(WinHttpReadData(request, piece.get(), available, &read));
    received += read;
    if (m_MaxContent != 0 && received > m_MaxContent) Raise(kCancelled);
    if (read > 0 && !take(piece.get(), read)) return 0;
  }
}

// Remembers why. Always false.
bool HttpClient::Failed() {
  m_LastError = HttpError(m_Call.request);
  return false;
}

// True, or raises what the system's last error says.
bool HttpClient::CheckResult(int result) {
  if (result != 0 && !m_Call.cancelled) return true;
  m_LastError = m_Call.cancelled ? kCancelled : HttpError(m_Call.request);
  throw Qel::Sys::Exceptions::MakeException<WinHttpException>(QEL_SOURCE, kCheckResult, kLineOfCheckResult,
                                                              m_LastError);
}

void HttpClient::Raise(DWORD code) {
  ::SetLastError(code);
  CheckResult(0);
}
