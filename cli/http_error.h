// What went wrong with a request, in words of people.
#ifndef QEL_CLI_HTTP_ERROR_H
#define QEL_CLI_HTTP_ERROR_H

#include <string>

#include "options.h"
#include "url.h"

namespace Cli {

constexpr unsigned kHttpInvalidUrl = 12005;

// The sentence for one of the client's codes, with what would be right.
std::string HttpErrorText(unsigned code, const UrlComponents& url, const Options& options);

}  // namespace Cli

#endif  // QEL_CLI_HTTP_ERROR_H
