#include <climits>

#include "exchange.h"
#include "header_lines.h"

namespace {

constexpr long kReadAtOnce = 65536;

bool HasHeader(const std::vector<std::string>& lines, std::string_view name) {
  for (const std::string& line : lines)
    if (IsHeader(line, name)) return true;
  return false;
}

// libcurl's own limit, for both together, so that it goes on to a host's next address in time. A search without a
// limit ends by itself.
long ConnectLimit(const Timeouts& timeouts) {
  const long limit = long{timeouts.connect} + timeouts.resolve;
  return timeouts.connect == 0 || limit > INT_MAX ? INT_MAX : limit;
}

void TrustOnly(CURL* easy, const std::string& authorities) {
  curl_blob blob{const_cast<char*>(authorities.data()), authorities.size(), CURL_BLOB_COPY};
  Curl().easySet(easy, CURLOPT_CAINFO_BLOB, &blob);
  Curl().easySet(easy, CURLOPT_CAPATH, nullptr);
}

}  // namespace

void Exchange::SetUp(const Order& order, const Session::Settings& settings) {
  CURL* const easy = m_Lane.easy;
  const auto set = Curl().easySet;
  set(easy, CURLOPT_NOSIGNAL, 1L);
  set(easy, CURLOPT_QUICK_EXIT, 1L);  // a lookup that is given up is not waited for
  set(easy, CURLOPT_URL, order.url.c_str());
  set(easy, CURLOPT_PATH_AS_IS, 1L);
  set(easy, CURLOPT_HTTP_VERSION, long{CURL_HTTP_VERSION_1_1});
  set(easy, CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
  set(easy, CURLOPT_CONNECTTIMEOUT_MS, ConnectLimit(settings.timeouts));
  set(easy, CURLOPT_BUFFERSIZE, kReadAtOnce);
  set(easy, CURLOPT_ERRORBUFFER, m_Message);
  set(easy, CURLOPT_HEADERFUNCTION, &Exchange::OnHeader);
  set(easy, CURLOPT_HEADERDATA, this);
  set(easy, CURLOPT_WRITEFUNCTION, &Exchange::OnAnswer);
  set(easy, CURLOPT_WRITEDATA, this);
  if (settings.authorities) TrustOnly(easy, *settings.authorities);
  if (order.hasCredentials) {
    set(easy, CURLOPT_HTTPAUTH, CURLAUTH_BASIC);
    set(easy, CURLOPT_USERNAME, order.user.c_str());
    set(easy, CURLOPT_PASSWORD, order.password.c_str());
  }
  SetUpMethod(order);
  SetUpLines(order.lines);
}

void Exchange::SetUpMethod(const Order& order) {
  CURL* const easy = m_Lane.easy;
  const auto set = Curl().easySet;
  if (order.verb == "HEAD") set(easy, CURLOPT_NOBODY, 1L);
  if (order.bodySize == 0 && (order.verb == "GET" || order.verb == "HEAD")) return;
  // Everything else says how long its body is, 0 too.
  set(easy, CURLOPT_POST, 1L);
  set(easy, CURLOPT_CUSTOMREQUEST, order.verb.c_str());
  set(easy, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(order.bodySize));
  if (order.bodySize == 0) set(easy, CURLOPT_POSTFIELDS, "");
  set(easy, CURLOPT_READFUNCTION, &Exchange::OnAsk);
  set(easy, CURLOPT_READDATA, this);
}

// Also takes away what libcurl would send by itself. It writes an empty value with ";".
void Exchange::SetUpLines(const std::vector<std::string>& lines) {
  const auto add = [this](const char* line) {
    if (curl_slist* const list = Curl().listAppend(m_Lines, line)) m_Lines = list;
  };
  for (const std::string& line : lines)
    add(HeaderValue(line).empty() ? (std::string(HeaderName(line)) + ';').c_str() : line.c_str());
  for (const char* const own : {"Accept:", "Expect:", "Content-Type:"})
    if (!HasHeader(lines, HeaderName(own))) add(own);
  Curl().easySet(m_Lane.easy, CURLOPT_HTTPHEADER, m_Lines);
}
