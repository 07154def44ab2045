#include <algorithm>
#include <charconv>

#include "code_page.h"
#include "request.h"
#include "status.h"

namespace {

constexpr DWORD kInvalidParameter = 87;
constexpr DWORD kInsufficientBuffer = 122;
constexpr DWORD kToTheEnd = 0xFFFFFFFF;

DWORD GiveNumber(DWORD number, void* buffer, DWORD* size) {
  const bool fits = buffer && *size >= sizeof number;
  *size = sizeof number;
  if (!fits) return kInsufficientBuffer;
  *static_cast<DWORD*>(buffer) = number;
  return 0;
}

DWORD GiveLength(const AnswerHead& head, void* buffer, DWORD* size) {
  if (head.Find("Transfer-Encoding")) return kHttpHeaderNotFound;  // which then tells the length
  const auto text = head.Find("Content-Length");
  DWORD length = 0;
  const bool isNumber =
      text && std::from_chars(text->data(), text->data() + text->size(), length).ec == std::errc();
  return isNumber ? GiveNumber(length, buffer, size) : kHttpHeaderNotFound;
}

// Sizes count two bytes a unit, whatever a unit takes here.
DWORD GiveText(const std::string& bytes, void* buffer, DWORD* size) {
  const std::wstring text = Decode(kArabicCodePage, bytes);
  const auto need = static_cast<DWORD>(text.size() * 2);
  const bool fits = buffer && *size >= need + 2;
  *size = fits ? need : need + 2;
  if (!fits) return kInsufficientBuffer;
  std::copy_n(text.c_str(), text.size() + 1, static_cast<wchar_t*>(buffer));
  return 0;
}

DWORD Query(const AnswerHead& head, DWORD what, void* buffer, DWORD* size) {
  switch (what) {
    case WINHTTP_QUERY_STATUS_CODE | WINHTTP_QUERY_FLAG_NUMBER:
      return GiveNumber(head.Status(), buffer, size);
    case WINHTTP_QUERY_CONTENT_LENGTH | WINHTTP_QUERY_FLAG_NUMBER:
      return GiveLength(head, buffer, size);
    case WINHTTP_QUERY_RAW_HEADERS_CRLF:
      return GiveText(head.Text(), buffer, size);
    default:
      return kInvalidParameter;
  }
}

}  // namespace

HINTERNET WinHttpOpenRequest(HINTERNET connection, const wchar_t* verb, const wchar_t* path, const wchar_t*,
                             const wchar_t*, const wchar_t**, DWORD flags) {
  auto to = FindHttp<Connection>(connection);
  if (!to) return nullptr;
  const bool secure = (flags & WINHTTP_FLAG_SECURE) != 0;
  return MakeHttpHandle(
      std::make_shared<Request>(std::move(to), secure, verb ? verb : L"GET", path ? path : L""));
}

BOOL WinHttpAddRequestHeaders(HINTERNET request, const wchar_t* headers, DWORD length, DWORD) {
  const auto found = FindHttp<Request>(request);
  if (!found) return 0;
  if (!headers) return Answer(kInvalidParameter);
  const std::wstring_view text =
      length == kToTheEnd ? std::wstring_view(headers) : std::wstring_view(headers, length);
  return Answer(found->AddLines(Encode(kArabicCodePage, text)));
}

BOOL WinHttpSetCredentials(HINTERNET request, DWORD target, DWORD scheme, const wchar_t* user,
                           const wchar_t* password, void*) {
  const auto found = FindHttp<Request>(request);
  if (!found) return 0;
  const bool known = target == WINHTTP_AUTH_TARGET_SERVER && scheme == WINHTTP_AUTH_SCHEME_BASIC;
  return Answer(known ? found->SetCredentials(user, password) : kInvalidParameter);
}

BOOL WinHttpSetTimeouts(HINTERNET handle, int resolve, int connect, int send, int receive) {
  const auto object = FindHttpObject(handle);
  if (!object) return 0;
  if (std::min({resolve, connect, send, receive}) < 0) return Answer(kInvalidParameter);
  const Timeouts timeouts{resolve, connect, send, receive};
  if (const auto session = std::dynamic_pointer_cast<Session>(object)) {
    session->SetTimeouts(timeouts);
    return 1;
  }
  const auto request = FindHttp<Request>(handle);
  if (request) request->SetTimeouts(timeouts);
  return request ? 1 : 0;
}

BOOL WinHttpSendRequest(HINTERNET request, const wchar_t*, DWORD, void*, DWORD, DWORD totalLength,
                        std::uintptr_t) {
  const auto found = FindHttp<Request>(request);
  return found ? Answer(found->Send(totalLength)) : 0;
}

BOOL WinHttpWriteData(HINTERNET request, const void* data, DWORD size, DWORD* written) {
  if (written) *written = 0;
  const auto found = FindHttp<Request>(request);
  if (!found || !Answer(found->Write(static_cast<const BYTE*>(data), size))) return 0;
  if (written) *written = size;
  return 1;
}

BOOL WinHttpReceiveResponse(HINTERNET request, void*) {
  const auto found = FindHttp<Request>(request);
  return found ? Answer(found->Receive()) : 0;
}

BOOL WinHttpQueryHeaders(HINTERNET request, DWORD what, const wchar_t*, void* buffer, DWORD* size, DWORD*) {
  const auto found = FindHttp<Request>(request);
  if (!found) return 0;
  const Exchange* const exchange = found->Answered();
  if (!exchange) return Answer(kHttpIncorrectState);
  return Answer(size ? Query(exchange->Head(), what, buffer, size) : kInvalidParameter);
}

BOOL WinHttpQueryDataAvailable(HINTERNET request, DWORD* available) {
  if (available) *available = 0;
  const auto found = FindHttp<Request>(request);
  if (!found || !Answer(found->WaitForBody())) return 0;
  if (available) *available = static_cast<DWORD>(found->Answered()->Held());
  return 1;
}

BOOL WinHttpReadData(HINTERNET request, void* buffer, DWORD size, DWORD* read) {
  if (read) *read = 0;
  const auto found = FindHttp<Request>(request);
  if (!found) return 0;
  if (size == 0 && found->Answered()) return 1;  // even after a failure
  if (!buffer) return Answer(kInvalidParameter);
  if (!Answer(found->WaitForBody())) return 0;
  const std::size_t taken = found->Answered()->TakeBody(static_cast<BYTE*>(buffer), size);
  if (read) *read = static_cast<DWORD>(taken);
  return 1;
}
