#include "status.h"

namespace {

constexpr DWORD kOutOfMemory = 14;
constexpr DWORD kNameNotResolved = 12007;
constexpr DWORD kCannotConnect = 12029;

}  // namespace

DWORD HttpStatus(CURLcode result, std::string_view message) {
  // The same result as for a connection that broke.
  const bool badChunk = message.find("chunked-encoding") != message.npos;
  switch (static_cast<int>(result)) {
    case CURLE_OK:
      return 0;
    case CURLE_UNSUPPORTED_PROTOCOL:
    case CURLE_WEIRD_SERVER_REPLY:
      return kHttpInvalidAnswer;
    case CURLE_URL_MALFORMAT:
      return kHttpInvalidUrl;
    case CURLE_COULDNT_RESOLVE_PROXY:
    case CURLE_COULDNT_RESOLVE_HOST:
      return kNameNotResolved;
    case CURLE_COULDNT_CONNECT:
      return kCannotConnect;
    case CURLE_PARTIAL_FILE:
    case CURLE_GOT_NOTHING:
    case CURLE_SEND_ERROR:
    case CURLE_RECV_ERROR:
      return badChunk ? kHttpInvalidAnswer : kHttpConnectionError;
    case CURLE_OUT_OF_MEMORY:
      return kOutOfMemory;
    case CURLE_OPERATION_TIMEDOUT:
      return kHttpTimeout;
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_SSL_CERTPROBLEM:
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CACERT_BADFILE:
    case CURLE_SSL_ISSUER_ERROR:
    case CURLE_SSL_PINNEDPUBKEYNOTMATCH:
    case CURLE_SSL_INVALIDCERTSTATUS:
      return kHttpSecureFailure;
    case CURLE_SEND_FAIL_REWIND:
      return kHttpResendRequest;
    default:
      return kHttpInternalError;
  }
}
