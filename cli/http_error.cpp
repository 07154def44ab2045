#include "http_error.h"

#include "settings.h"
#include "text.h"

namespace Cli {

namespace {

// Those of a file; with a request they are about that of the authorities.
bool IsOfFile(unsigned code) {
  return code == 2 || code == 3 || code == 5;
}

}  // namespace

std::string HttpErrorText(unsigned code, const UrlComponents& url, const Options& options) {
  const struct {
    unsigned code;
    Text text;
  } known[] = {
      {12002, Text::HttpTimeout},     {12004, Text::HttpInternal},    {12005, Text::NoUrl},
      {12007, Text::HttpNoHost},      {12017, Text::HttpEnded},       {12029, Text::HttpNoService},
      {12030, Text::HttpBroke},       {12032, Text::HttpResend},      {12150, Text::HttpNoLocation},
      {12152, Text::HttpNoHttp},      {12156, Text::HttpRedirection}, {12175, Text::HttpNotTrusted},
      {12183, Text::HttpHeadTooLong},
  };
  if (IsOfFile(code)) return Joined({options.authority, ": ", StatusText(static_cast<long>(code))});
  for (const auto& row : known)
    if (row.code == code) return Say(row.text, {Utf8(url.Host()), std::to_string(url.Port())});
  return Say(Text::StatusOther, {std::to_string(code)});
}

}  // namespace Cli
