#include "target.h"

#include <unicode/uidna.h>

#include <memory>

#include "curl_library.h"
#include "utf8.h"

namespace {

bool MustBeEscaped(char ch) {
  const auto byte = static_cast<unsigned char>(ch);
  return byte <= 0x20 || byte >= 0x7F;
}

bool IsAscii(std::string_view text) {
  for (const char ch : text)
    if (static_cast<unsigned char>(ch) >= 0x80) return false;
  return true;
}

// No character that would end the host's place in an address.
bool IsHostText(std::string_view host) {
  if (host.starts_with('[')) return host.find_first_not_of("0123456789abcdefABCDEF:.%[]") == host.npos;
  for (const char ch : host)
    if (MustBeEscaped(ch) || std::string_view("/?#@:[]\\%<>\"^`{|}").find(ch) != std::string_view::npos)
      return false;
  return true;
}

std::string ToAsciiName(const std::string& host) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UIDNA, decltype(&uidna_close)> idna(
      uidna_openUTS46(UIDNA_NONTRANSITIONAL_TO_ASCII, &status), &uidna_close);
  if (U_FAILURE(status)) return {};
  UIDNAInfo info = UIDNA_INFO_INITIALIZER;
  char name[256];
  const int length = uidna_nameToASCII_UTF8(idna.get(), host.data(), static_cast<int>(host.size()), name,
                                            sizeof name, &info, &status);
  if (U_FAILURE(status) || info.errors != 0 || length >= static_cast<int>(sizeof name)) return {};
  return {name, static_cast<std::size_t>(length)};
}

struct Url {
  Url() : handle(Curl().url()) {}
  Url(const Url&) = delete;
  Url& operator=(const Url&) = delete;
  ~Url() { Curl().urlCleanup(handle); }

  bool Set(const std::string& text, unsigned flags) const {
    return Curl().urlSet(handle, CURLUPART_URL, text.c_str(), flags) == CURLUE_OK;
  }
  // Empty when there is none.
  std::string Get(CURLUPart part) const {
    char* text = nullptr;
    if (Curl().urlGet(handle, part, &text, CURLU_DEFAULT_PORT | CURLU_PATH_AS_IS) != CURLUE_OK) return {};
    std::string copy = text;
    Curl().free(text);
    return copy;
  }
  std::string Server() const {
    return Get(CURLUPART_SCHEME) + ' ' + Get(CURLUPART_HOST) + ' ' + Get(CURLUPART_PORT);
  }

  CURLU* const handle;
};

}  // namespace

std::string EscapedPath(const wchar_t* path) {
  std::string escaped;
  const std::string utf8 = Qel::ToUtf8(path);
  if (!utf8.starts_with('/')) escaped = '/';
  for (const char ch : std::string_view(utf8).substr(0, utf8.find('#'))) {
    if (!MustBeEscaped(ch)) {
      escaped += ch;
      continue;
    }
    const auto byte = static_cast<unsigned char>(ch);
    escaped += {'%', "0123456789ABCDEF"[byte >> 4], "0123456789ABCDEF"[byte & 15]};
  }
  return escaped;
}

std::string HostInAscii(const wchar_t* host) {
  std::string utf8 = Qel::ToUtf8(host);
  if (utf8.find(':') != utf8.npos && !utf8.starts_with('[')) utf8 = '[' + utf8 + ']';
  const std::string name = IsAscii(utf8) ? utf8 : ToAsciiName(utf8);
  return IsHostText(name) ? name : std::string();
}

Redirection Redirect(const std::string& url, std::string_view location) {
  const Url from, to;
  if (!from.Set(url, CURLU_PATH_AS_IS) || !to.Set(url, CURLU_PATH_AS_IS)) return {};
  if (!to.Set(std::string(location), CURLU_URLENCODE | CURLU_PATH_AS_IS | CURLU_NON_SUPPORT_SCHEME))
    return {};
  const std::string scheme = to.Get(CURLUPART_SCHEME);
  return {to.Get(CURLUPART_URL), from.Server() == to.Server(),
          from.Get(CURLUPART_SCHEME) == "https" && scheme != "https", scheme == "http" || scheme == "https"};
}
