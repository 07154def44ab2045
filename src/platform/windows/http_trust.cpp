#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string_view>

#include "platform/platform.h"

// WinHTTP trusts what the system trusts, and has no option for less or more. A request whose session has authorities of
// its own is therefore told to let an unknown authority pass, and what it must not let pass is looked at here: when
// the connection stands and before anything is sent on it, WinHTTP says so, and the server's chain must then end
// in one of the certificates given. Name and date it still checks itself. Closing the request in that call is how it is
// stopped.
//
// Wine sends the head although the request is closed. The call fails all the same, and no answer is taken.

namespace {

struct CloseStore {
  void operator()(void* store) const { CertCloseStore(store, 0); }
};
using Authorities = std::shared_ptr<void>;  // a store of certificates

struct Trust {
  std::mutex lock;
  std::map<HINTERNET, Authorities> authorities;  // of sessions, and of their requests
  std::set<HINTERNET> refused;  // requests that are closed, and that their owner has not let go
};

Trust& TheTrust() {
  // Never destroyed: WinHTTP may still close handles while the process ends.
  static auto* const s_Trust = new Trust;
  return *s_Trust;
}

Authorities AuthoritiesOf(HINTERNET handle) {
  Trust& trust = TheTrust();
  const std::lock_guard lock(trust.lock);
  const auto found = trust.authorities.find(handle);
  return found == trust.authorities.end() ? nullptr : found->second;
}

void SetAuthorities(HINTERNET handle, const Authorities& authorities) {
  Trust& trust = TheTrust();
  const std::lock_guard lock(trust.lock);
  if (authorities)
    trust.authorities[handle] = authorities;
  else
    trust.authorities.erase(handle);
}

void ForgetAuthorities(HINTERNET handle) {
  const std::lock_guard lock(TheTrust().lock);
  TheTrust().authorities.erase(handle);
}

void Refuse(HINTERNET request) {
  {
    const std::lock_guard lock(TheTrust().lock);
    TheTrust().refused.insert(request);
  }
  WinHttpCloseHandle(request);
}

bool AddCertificate(HCERTSTORE store, std::string_view pem) {
  BYTE encoded[16384];
  DWORD size = sizeof encoded;
  return CryptStringToBinaryA(pem.data(), static_cast<DWORD>(pem.size()), CRYPT_STRING_BASE64HEADER, encoded,
                              &size, nullptr, nullptr) &&
         CertAddEncodedCertificateToStore(store, X509_ASN_ENCODING, encoded, size, CERT_STORE_ADD_ALWAYS,
                                          nullptr);
}

// Null when there is no certificate in the text, or one that cannot be read.
Authorities ReadAuthorities(std::string_view text) {
  constexpr std::string_view kBegin = "-----BEGIN CERTIFICATE-----", kEnd = "-----END CERTIFICATE-----";
  const Authorities store(CertOpenStore(CERT_STORE_PROV_MEMORY, 0, 0, 0, nullptr), CloseStore());
  std::size_t at = text.find(kBegin);
  if (!store || at == text.npos) return nullptr;
  for (; at != text.npos; at = text.find(kBegin, at)) {
    const std::size_t end = text.find(kEnd, at);
    if (end == text.npos) return nullptr;
    if (!AddCertificate(store.get(), text.substr(at, end + kEnd.size() - at))) return nullptr;
    at = end;
  }
  return store;
}

using Engine = std::unique_ptr<void, decltype(&CertFreeCertificateChainEngine)>;
using Chain = std::unique_ptr<const CERT_CHAIN_CONTEXT, decltype(&CertFreeCertificateChain)>;
using Certificate = std::unique_ptr<const CERT_CONTEXT, decltype(&CertFreeCertificateContext)>;

// An engine for which these certificates alone are roots.
Engine MakeEngine(HCERTSTORE roots) {
  CERT_CHAIN_ENGINE_CONFIG config{};
  config.cbSize = offsetof(CERT_CHAIN_ENGINE_CONFIG, dwExclusiveFlags);  // Wine knows no younger one
  config.hExclusiveRoot = roots;
  HCERTCHAINENGINE engine = nullptr;
  if (!CertCreateCertificateChainEngine(&config, &engine)) engine = nullptr;
  return {engine, &CertFreeCertificateChainEngine};
}

Chain BuildChain(HCERTCHAINENGINE engine, PCCERT_CONTEXT certificate) {
  char serverUsage[] = szOID_PKIX_KP_SERVER_AUTH;
  char* usages[] = {serverUsage};
  CERT_CHAIN_PARA wanted{};
  wanted.cbSize = sizeof wanted;
  wanted.RequestedUsage.dwType = USAGE_MATCH_TYPE_AND;
  wanted.RequestedUsage.Usage = {1, usages};
  PCCERT_CHAIN_CONTEXT chain = nullptr;
  const BOOL built = CertGetCertificateChain(engine, certificate, nullptr, certificate->hCertStore, &wanted,
                                             0, nullptr, &chain);
  return {built ? chain : nullptr, &CertFreeCertificateChain};
}

// The whole address that the request asks for now; empty where that cannot be told, which is under Wine.
std::wstring UrlOf(HINTERNET request) {
  DWORD size = 0;
  WinHttpQueryOption(request, WINHTTP_OPTION_URL, nullptr, &size);
  std::wstring url(size / sizeof(wchar_t) + 1, L'\0');
  size = static_cast<DWORD>(url.size() * sizeof(wchar_t));
  return WinHttpQueryOption(request, WINHTTP_OPTION_URL, url.data(), &size) ? url.c_str() : L"";
}

std::wstring HostOf(const std::wstring& url) {
  URL_COMPONENTS parts{};
  parts.dwStructSize = sizeof parts;
  parts.dwHostNameLength = 1;
  if (url.empty() || !WinHttpCrackUrl(url.c_str(), 0, 0, &parts)) return {};
  return {parts.lpszHostName, parts.dwHostNameLength};
}

// `host` may be empty: WinHTTP has checked it too.
bool IsTrusted(const Authorities& authorities, PCCERT_CONTEXT certificate, std::wstring host) {
  const Engine engine = MakeEngine(authorities.get());
  const Chain chain =
      engine ? BuildChain(engine.get(), certificate) : Chain(nullptr, &CertFreeCertificateChain);
  // The policy alone is not enough: Wine's lets a chain pass that ends in nothing.
  if (!chain || chain->TrustStatus.dwErrorStatus != CERT_TRUST_NO_ERROR) return false;
  SSL_EXTRA_CERT_CHAIN_POLICY_PARA ssl{};
  ssl.cbSize = sizeof ssl;
  ssl.dwAuthType = AUTHTYPE_SERVER;
  ssl.fdwChecks = host.empty() ? SECURITY_FLAG_IGNORE_CERT_CN_INVALID : 0;
  ssl.pwszServerName = host.empty() ? nullptr : host.data();
  CERT_CHAIN_POLICY_PARA policy{};
  policy.cbSize = sizeof policy;
  policy.pvExtraPolicyPara = &ssl;
  CERT_CHAIN_POLICY_STATUS status{};
  status.cbSize = sizeof status;
  return CertVerifyCertificateChainPolicy(CERT_CHAIN_POLICY_SSL, chain.get(), &policy, &status) &&
         status.dwError == 0;
}

void CheckServer(HINTERNET request) {
  const Authorities authorities = AuthoritiesOf(request);
  if (!authorities) return;
  PCCERT_CONTEXT found = nullptr;
  DWORD size = sizeof found;
  SetLastError(0);
  const BOOL hasOne = WinHttpQueryOption(request, WINHTTP_OPTION_SERVER_CERT_CONTEXT, &found, &size);
  // A proxy is asked for the way: TLS begins behind it, and there this is called again.
  if (!hasOne && GetLastError() == ERROR_WINHTTP_INCORRECT_HANDLE_STATE) return;
  const Certificate certificate(hasOne ? found : nullptr, &CertFreeCertificateContext);
  const std::wstring url = UrlOf(request);
  const bool plain = !certificate && _wcsnicmp(url.c_str(), L"https:", 6) != 0;
  if (!plain && !(certificate && IsTrusted(authorities, certificate.get(), HostOf(url)))) Refuse(request);
}

// A new handle of the session. Only requests take the option.
void PassOn(HINTERNET session, HINTERNET handle) {
  const Authorities authorities = AuthoritiesOf(session);
  DWORD pass = SECURITY_FLAG_IGNORE_UNKNOWN_CA;
  const bool isRequest =
      authorities && WinHttpSetOption(handle, WINHTTP_OPTION_SECURITY_FLAGS, &pass, sizeof pass);
  SetAuthorities(handle, isRequest ? authorities : nullptr);
}

void CALLBACK OnStatus(HINTERNET handle, DWORD_PTR session, DWORD status, void* information, DWORD) {
  if (status == WINHTTP_CALLBACK_STATUS_HANDLE_CREATED)
    PassOn(reinterpret_cast<HINTERNET>(session), *static_cast<HINTERNET*>(information));
  else if (status == WINHTTP_CALLBACK_STATUS_HANDLE_CLOSING)
    ForgetAuthorities(handle);
  else if (status == WINHTTP_CALLBACK_STATUS_SENDING_REQUEST)
    CheckServer(handle);
}

// Has the session's handles, the later ones too, report to OnStatus and tell it whose they are.
bool Watch(HINTERNET session) {
  auto context = reinterpret_cast<DWORD_PTR>(session);
  constexpr DWORD kEvents = WINHTTP_CALLBACK_FLAG_HANDLES | WINHTTP_CALLBACK_FLAG_SEND_REQUEST;
  return WinHttpSetOption(session, WINHTTP_OPTION_CONTEXT_VALUE, &context, sizeof context) &&
         WinHttpSetStatusCallback(session, OnStatus, kEvents, 0) != WINHTTP_INVALID_STATUS_CALLBACK;
}

}  // namespace

DWORD TrustAuthorities(void* session, const wchar_t* path) {
  if (!path || !*path) {
    SetAuthorities(session, nullptr);
    return 0;
  }
  std::vector<BYTE> content;
  if (const LONG status = ReadWholeFile(path, content); status != 0) return static_cast<DWORD>(status);
  const Authorities authorities =
      ReadAuthorities({reinterpret_cast<const char*>(content.data()), content.size()});
  if (!authorities) return ERROR_WINHTTP_SECURE_FAILURE;
  if (!Watch(session)) return GetLastError();
  SetAuthorities(session, authorities);
  return 0;
}

DWORD HttpError(void* request) {
  const DWORD code = GetLastError();  // before the lock, which clears it when it is the first
  Trust& trust = TheTrust();
  const std::lock_guard lock(trust.lock);
  SetLastError(trust.refused.count(request) != 0 ? ERROR_WINHTTP_SECURE_FAILURE : code);
  return GetLastError();
}

void CloseRequest(void* request) {
  Trust& trust = TheTrust();
  {
    const std::lock_guard lock(trust.lock);
    if (trust.refused.erase(request) != 0) return;
  }
  WinHttpCloseHandle(request);
}
