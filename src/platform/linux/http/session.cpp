#include "session.h"

#include "code_page.h"
#include "header_lines.h"
#include "target.h"

namespace {

constexpr DWORD kInvalidParameter = 87;
constexpr DWORD kSecureFailure = 12175;

// A line break would begin another header.
std::string OneLine(const wchar_t* text) {
  const std::string narrow = Encode(kArabicCodePage, text);
  std::string_view rest = narrow;
  return std::string(TakeLine(rest));
}

// Names a file that there is none of, has it read and names it no more. To name it for each request would leave its
// memory behind at each.
void TurnCookiesOn(CURL* easy) {
  Curl().easySet(easy, CURLOPT_COOKIEFILE, "");
  Curl().easySet(easy, CURLOPT_COOKIELIST, "RELOAD");
  Curl().easySet(easy, CURLOPT_COOKIEFILE, nullptr);
}

}  // namespace

Session::Session(const wchar_t* agent) : m_Agent(OneLine(agent)) {}

Session::~Session() {
  m_Lanes.clear();
  if (m_Share) Curl().shareCleanup(m_Share);
}

Session::Settings Session::Current() {
  const std::lock_guard lock(m_Lock);
  return m_Settings;
}

void Session::SetTimeouts(const Timeouts& timeouts) {
  const std::lock_guard lock(m_Lock);
  m_Settings.timeouts = timeouts;
}

void Session::SetAuthorities(Authorities authorities) {
  const std::lock_guard lock(m_Lock);
  m_Settings.authorities = std::move(authorities);
}

std::unique_ptr<Lane> Session::TakeLane() {
  const std::lock_guard lock(m_Lock);
  if (!m_Lanes.empty()) {
    std::unique_ptr<Lane> lane = std::move(m_Lanes.back());
    m_Lanes.pop_back();
    return lane;
  }
  if (!m_Share) MakeShare();
  auto lane = std::make_unique<Lane>();
  if (!lane->easy || !lane->multi) return nullptr;
  TurnCookiesOn(lane->easy);
  Curl().easySet(lane->easy, CURLOPT_SHARE, m_Share);
  return lane;
}

void Session::GiveLane(std::unique_ptr<Lane> lane) {
  const std::lock_guard lock(m_Lock);
  m_Lanes.push_back(std::move(lane));
}

void Session::MakeShare() {
  m_Share = Curl().shareInit();
  if (!m_Share) return;
  Curl().shareSet(m_Share, CURLSHOPT_USERDATA, this);
  Curl().shareSet(m_Share, CURLSHOPT_LOCKFUNC, &Session::Lock);
  Curl().shareSet(m_Share, CURLSHOPT_UNLOCKFUNC, &Session::Unlock);
  for (const curl_lock_data data : {CURL_LOCK_DATA_COOKIE, CURL_LOCK_DATA_DNS, CURL_LOCK_DATA_SSL_SESSION})
    Curl().shareSet(m_Share, CURLSHOPT_SHARE, data);
}

void Session::Lock(CURL*, curl_lock_data data, curl_lock_access, void* session) {
  static_cast<Session*>(session)->m_ShareLocks[data].lock();
}

void Session::Unlock(CURL*, curl_lock_data data, void* session) {
  static_cast<Session*>(session)->m_ShareLocks[data].unlock();
}

HINTERNET WinHttpOpen(const wchar_t* agent, DWORD, const wchar_t*, const wchar_t*, DWORD) {
  return MakeHttpHandle(std::make_shared<Session>(agent ? agent : L""));
}

HINTERNET WinHttpConnect(HINTERNET session, const wchar_t* host, INTERNET_PORT port, DWORD) {
  auto of = FindHttp<Session>(session);
  if (!of) return nullptr;
  if (!host) SetLastError(kInvalidParameter);
  return host ? MakeHttpHandle(std::make_shared<Connection>(std::move(of), HostInAscii(host), port))
              : nullptr;
}

DWORD TrustAuthorities(void* session, const wchar_t* path) {
  const auto of = FindHttp<Session>(session);
  if (!of) return GetLastError();
  if (!path || !*path) {
    of->SetAuthorities(nullptr);
    return 0;
  }
  std::vector<BYTE> content;
  if (const LONG status = ReadWholeFile(path, content); status != 0) return static_cast<DWORD>(status);
  std::string certificates(content.begin(), content.end());
  if (certificates.find("-----BEGIN CERTIFICATE-----") == certificates.npos) return kSecureFailure;
  of->SetAuthorities(std::make_shared<const std::string>(std::move(certificates)));
  return 0;
}
