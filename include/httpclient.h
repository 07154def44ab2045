// A client for http and https: one request at a time, the calling thread waiting for it.
//
//   HttpClient client;
//   client.AddHeader(L"Accept: text/plain");
//   const HttpResponse answer = client.Get(L"https://example.com/rates?day=7");
//   if (answer.status == 200) Show(answer.content);
//
//   client.GetBytes(L"https://example.com/list.pdf", [&](const char* data, std::size_t size) {
//     return file.Write(data, size) == size;  // piece by piece, whatever the size of the whole
//   });
//
// What goes wrong on the way is raised as a WinHttpException with the system's code, whose text
// GetWinSendErrorString has. Redirections are followed, from https to http alone they are not, and the answer is that
// of the last one. Cookies live as long as the client. Certificates are verified. A body is handed on as it was sent:
// nothing is asked for in a compressed form and nothing is unpacked.
//
// Kept: a client talks to the host and port of its first address; of later ones path and query alone count, because
// the applications make one client a server.
//
// A client may be used from one thread at a time; Cancel alone may be called from any.
#ifndef QEL_HTTPCLIENT_H
#define QEL_HTTPCLIENT_H

#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "exceptions.h"
#include "list.h"
#include "platform_types.h"
#include "qel_cstring.h"
#include "qel_export.h"

// What goes wrong with a request. The message is "WinHttpException".
class QEL_API WinHttpException : public Qel::Sys::Exceptions::qel_exception {
 public:
  WinHttpException(DWORD code, const wchar_t* source, const char* function, int line,
                   boost::stacktrace::stacktrace trace);
  ~WinHttpException() override;

  // Of Windows, on every system:
  //   2, 3, 5  the file of authorities cannot be read
  //   12002    a time-out           12005  an address that cannot be asked    12007  no such host
  //   12017    ended by Cancel, or a body larger than SetMaxContent allows
  //   12029    no connection        12030  the connection broke               12032  the body would be needed again
  //   12152    no HTTP              12153  a header line without a colon      12156  too many redirections
  //   12175    a certificate that is not trusted, or another failure of TLS    12183  headers of more than 64 KB
  DWORD GetErrorCode() const noexcept { return m_Code; }

 private:
  DWORD m_Code;
};

namespace Qel::Sys::Exceptions {
using ::WinHttpException;  // where QEL_RAISE looks for it
}

struct HttpResponse {
  // 0 when there was no answer at all.
  DWORD status = 0;
  CString content;
  // The lines of the last answer, the one with the status first.
  // Kept: each ends in a carriage return and the last is nothing else, because hosts cut one character off.
  Qel::List<CString> headers;
};

// Takes a piece of a body, at least one byte. False ends the transfer.
using HttpSink = std::function<bool(const char* data, std::size_t size)>;
// Takes status and headers before the first piece. False ends the transfer.
using HttpHeadSink = std::function<bool(const HttpResponse& head)>;

class QEL_API HttpClient {
 public:
  // Opens nothing: the first request does.
  HttpClient();
  // `agent` is how the client names itself to the server, "HttpClient" otherwise. Null is empty.
  explicit HttpClient(const wchar_t* agent);
  // Kept: a copy has the same session and connection, and the first of the two that is destroyed closes them; the
  // other then gets no answers (status 0). Hosts hand a client over by value and let the old one go.
  HttpClient(const HttpClient&) = default;
  HttpClient& operator=(const HttpClient&) = default;
  ~HttpClient();

  // One whole header line without its end, as "Accept: text/plain", for all further requests.
  void AddHeader(const wchar_t* line);
  // For all further requests; an empty user is none. `scheme` is 1 for Basic, which goes out with the first request,
  // 2 for NTLM, 8 for digest.
  // Kept: with another number, 0 among them, requests go out without credentials and nothing is said, because hosts
  // that never chose a scheme reach open servers so.
  void SetCredentials(const wchar_t* user, const wchar_t* password, DWORD scheme);
  // Kept and changes nothing: hosts call it.
  void SetSilentMode(bool silent);

  // Both take an absolute address. Status 0, and nothing raised, for one that is none and when the session has been
  // closed by a copy; GetLastError tells the latter. All else that goes wrong up to the last header raises
  // WinHttpException.
  //
  // The content is the body read as UTF-8, what is none becoming U+FFFD.
  // Kept: each piece that arrives is read by itself up to its first zero byte, and a body that breaks off is a shorter
  // content, with the code in GetLastError, because of the applications' servers, which send short texts. On Windows a
  // character that comes in two pieces is lost. GetBytes has none of this.
  HttpResponse Get(const wchar_t* url);
  // `body` goes out in the thread's own code page, which is 1256 on Linux; null sends none.
  // Kept: as many bytes as it has UTF-16 units, cut or filled with zero bytes when the page needs more or fewer,
  // because servers count so. PostBytes sends what it is given.
  HttpResponse Post(const wchar_t* url, const wchar_t* body);

  // The same for bytes: the body goes to `sink` as it comes, and memory does not grow with it; the content stays empty.
  // A body that is cut short raises. What `sink` or `head` raises comes through, and the client stays usable. `data`
  // may be null when `size` is 0; at most 4 GB less one byte.
  HttpResponse GetBytes(const wchar_t* url, const HttpSink& sink, const HttpHeadSink& head = {});
  HttpResponse PostBytes(const wchar_t* url, const void* data, std::size_t size, const HttpSink& sink,
                         const HttpHeadSink& head = {});

  // In milliseconds for each single step of further requests: to find the host, to connect, to send a piece and to
  // wait for one; 0 or less is no limit. 0, 60000, 30000 and 30000 at first. A server that goes on sending little by
  // little meets none of them: SetMaxContent and Cancel end that.
  void SetTimeouts(int resolve, int connect, int send, int receive);
  // The certificates (PEM) that are trusted in place of the system's; empty are the system's again. Read with the next
  // request, which raises when that fails, and which chooses the host anew.
  void SetAuthorityFile(const wchar_t* path);
  // The largest body in bytes; 0 for no limit. A larger one raises 12017 as soon as it is.
  void SetMaxContent(unsigned long long bytes);

  // Ends the request under way, which raises 12017 in its thread; nothing happens when there is none. On Windows its
  // current step is ended first, by the server or the time-out: the system takes no call that interrupts it.
  void Cancel();

  // The code of the last step that failed, 0 after a request went out and nothing did.
  DWORD GetLastError() const noexcept { return m_LastError; }

  // For one value within a query: what is no ASCII digit or letter and not of ~!*()'=. becomes "%" and two digits.
  // Kept: of each UTF-16 unit the low 8 bits alone, in small digits ("\u0643" gives "%43"), because the servers of the
  // applications know them so. CURLEncode is the one for others' servers.
  static CString EncodeUrl(const CString& text);

  // The code's text, "Error Code not found" for those it does not know.
  // Kept: with its misspellings, by which support finds reports.
  static CString GetWinSendErrorString(DWORD code);

 private:
  class SharedHandle;
  // What Cancel needs of the request under way. A copy has none.
  struct CallUnderWay {
    CallUnderWay() = default;
    CallUnderWay(const CallUnderWay&) noexcept {}
    CallUnderWay& operator=(const CallUnderWay&) noexcept { return *this; }
    std::atomic<void*> request{nullptr};
    std::atomic<bool> cancelled{false};
  };
  class Request;
  struct Body {
    const char* data = nullptr;  // null: none
    DWORD size = 0;
  };

  bool Connect(const CString& host, WORD port);
  bool OpenSession();
  bool OpenRequest(const wchar_t* verb, const wchar_t* path, bool secure, Request& request);
  bool AddRequestHeaders(void* request);
  void Authenticate(void* request);
  bool SendRequest(void* request, DWORD length);
  bool ReceiveHeaders(void* request, HttpResponse& response);
  bool ReceiveContent(void* request, CString& content);
  void ReceiveBytes(void* request, const HttpSink& sink, bool hasBody);
  DWORD ReceiveBody(void* request, const HttpSink& take);
  bool Failed();
  bool CheckResult(int result);
  void Raise(DWORD code);
  bool Send(const wchar_t* verb, const wchar_t* url, const Body& body, Request& request,
            HttpResponse& response);
  HttpResponse SendForText(const wchar_t* verb, const wchar_t* url, const Body& body);
  HttpResponse SendForBytes(const wchar_t* verb, const wchar_t* url, const Body& body, const HttpSink& sink,
                            const HttpHeadSink& head);

  DWORD m_LastError = 0;
  std::shared_ptr<SharedHandle> m_Session;
  std::shared_ptr<SharedHandle> m_Connection;
  CString m_Agent;
  CString m_User;
  CString m_Password;
  DWORD m_Scheme = 0;
  Qel::List<CString> m_Headers;
  bool m_Silent = false;
  // What came later stands behind those, in this order.
  int m_Timeouts[4] = {};
  bool m_HasTimeouts = false;
  CString m_AuthorityFile;
  bool m_AuthorityFileIsNew = false;
  unsigned long long m_MaxContent = 0;
  CallUnderWay m_Call;
};

#endif  // QEL_HTTPCLIENT_H
