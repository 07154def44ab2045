// Where a request goes.
#ifndef QEL_PLATFORM_LINUX_HTTP_TARGET_H
#define QEL_PLATFORM_LINUX_HTTP_TARGET_H

#include <string>
#include <string_view>

// Path and query as they are sent: from "/", without the fragment, and with blanks, controls and what is beyond ASCII
// as UTF-8 in percent signs.
std::string EscapedPath(const wchar_t* path);
// The host's name as it is asked for, in ASCII; empty when it can be none.
std::string HostInAscii(const wchar_t* host);

// An address where an answer sent the request on to.
struct Redirection {
  std::string url;
  bool sameServer = false;  // scheme, host and port are as they were
  bool leavesTls = false;
  bool isHttp = false;  // or https
};
// `location` may be relative to `url`. An empty url: it is no address.
Redirection Redirect(const std::string& url, std::string_view location);

#endif  // QEL_PLATFORM_LINUX_HTTP_TARGET_H
