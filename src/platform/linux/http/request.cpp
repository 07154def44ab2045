#include "request.h"

#include "code_page.h"
#include "header_lines.h"
#include "status.h"
#include "target.h"
#include "utf8.h"

namespace {

constexpr DWORD kInvalidParameter = 87;
constexpr int kMostRedirections = 10;

// Empty when the host can be none.
std::string UrlOf(const Connection& to, bool secure, const wchar_t* path) {
  if (to.host.empty()) return {};
  return (secure ? "https://" : "http://") + to.host + ':' + std::to_string(to.port) + EscapedPath(path);
}

bool IsRedirection(DWORD status) {
  return (status >= 301 && status <= 303) || status == 307 || status == 308;
}

// Is the request repeated as a question without its body?
bool BecomesGet(DWORD status, const std::string& verb) {
  return status == 303 ? verb != "GET" && verb != "HEAD" : status <= 302 && verb == "POST";
}

}  // namespace

Request::Request(std::shared_ptr<Connection> connection, bool secure, const wchar_t* verb,
                 const wchar_t* path)
    : m_Connection(std::move(connection)), m_Settings(m_Connection->session->Current()) {
  m_Order.verb = Qel::ToUtf8(verb);
  m_Order.url = UrlOf(*m_Connection, secure, path);
}

Request::~Request() {
  m_Exchange.reset();
  if (m_Lane) m_Connection->session->GiveLane(std::move(m_Lane));
}

void Request::Cancel() {
  const std::lock_guard lock(m_Lock);
  m_Cancelled = true;
  if (m_Lane) Curl().multiWakeup(m_Lane->multi);
}

DWORD Request::AddLines(std::string_view lines) {
  std::vector<std::string> added;
  while (!lines.empty()) {
    const std::string_view line = TakeLine(lines);
    if (line.empty()) continue;
    if (HeaderName(line).empty()) return kHttpInvalidHeader;
    added.emplace_back(line);
  }
  m_Order.lines.insert(m_Order.lines.end(), added.begin(), added.end());
  return 0;
}

DWORD Request::SetCredentials(const wchar_t* user, const wchar_t* password) {
  if (!user || !password) return kInvalidParameter;
  m_Order.hasCredentials = true;
  m_Order.user = Qel::ToUtf8(user);
  m_Order.password = Qel::ToUtf8(password);
  return 0;
}

DWORD Request::Send(std::uint64_t bodySize) {
  if (m_Exchange) return kHttpIncorrectState;
  if (m_Order.url.empty()) return kHttpInvalidUrl;
  if (const DWORD error = TakeLane(); error != 0) return error;
  const std::string& agent = m_Connection->session->Agent();
  if (!agent.empty() && !HasLine("User-Agent")) m_Order.lines.push_back("User-Agent: " + agent);
  if (!HasLine("Connection")) m_Order.lines.emplace_back("Connection: Keep-Alive");
  m_Order.bodySize = m_BodyLeft = bodySize;
  return SendAgain();
}

DWORD Request::Write(const BYTE* data, std::size_t size) {
  if (!m_Exchange) return kHttpIncorrectState;
  if (size > m_BodyLeft || (size > 0 && !data)) return kInvalidParameter;
  m_BodyLeft -= size;
  return size > 0 ? m_Exchange->SendBody(data, size) : 0;
}

DWORD Request::Receive() {
  if (!m_Exchange || m_Answered) return kHttpIncorrectState;
  for (;;) {
    if (const DWORD error = m_Exchange->ReceiveHead(); error != 0) return error;
    if (!IsRedirection(m_Exchange->Head().Status())) break;
    if (const DWORD error = Follow(); error != 0) return error;
  }
  m_Answered = true;
  return 0;
}

DWORD Request::WaitForBody() {
  return m_Answered ? m_Exchange->ReceiveBody() : kHttpIncorrectState;
}

DWORD Request::TakeLane() {
  if (!LoadCurl()) return kHttpInternalError;
  std::unique_ptr<Lane> lane = m_Connection->session->TakeLane();
  if (!lane) return kHttpInternalError;
  const std::lock_guard lock(m_Lock);
  m_Lane = std::move(lane);
  return 0;
}

// Sends the request on to where the answer says.
DWORD Request::Follow() {
  const AnswerHead& head = m_Exchange->Head();
  const auto location = head.Find("Location");
  if (!location) return kHttpHeaderNotFound;
  const bool asGet = BecomesGet(head.Status(), m_Order.verb);
  const Redirection to = Redirect(m_Order.url, *location);
  if (++m_Redirections > kMostRedirections || to.leavesTls) return kHttpRedirectFailed;
  if (to.url.empty() || !to.isHttp) return to.url.empty() ? kHttpInvalidUrl : kHttpRedirectFailed;
  if (m_Order.bodySize > 0 && !asGet) return kHttpResendRequest;
  if (asGet) {
    m_Order.verb = "GET";
    m_Order.bodySize = m_BodyLeft = 0;
    RemoveLines({"Content-Length", "Content-Type"});
  }
  if (!to.sameServer) {
    m_Order.hasCredentials = false;
    RemoveLines({"Host", "Authorization", "Cookie"});
  }
  m_Order.url = to.url;
  m_Exchange->DropBody();
  return SendAgain();
}

DWORD Request::SendAgain() {
  m_Exchange.reset();
  m_Exchange.emplace(*m_Lane, m_Order, m_Settings, m_Cancelled);
  return m_Exchange->SendHead();
}

bool Request::HasLine(std::string_view name) const {
  for (const std::string& line : m_Order.lines)
    if (IsHeader(line, name)) return true;
  return false;
}

void Request::RemoveLines(std::initializer_list<std::string_view> names) {
  for (const std::string_view name : names)
    std::erase_if(m_Order.lines, [&](const std::string& line) { return IsHeader(line, name); });
}
