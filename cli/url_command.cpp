#include "url.h"

#include <string_view>

#include "commands.h"
#include "output.h"
#include "refusal.h"
#include "setting.h"
#include "text.h"
#include "utf8.h"

namespace Cli {

namespace {

const char* SchemeOf(const UrlComponents& url) {
  return url.Secure() ? "https" : "http";
}

void Line(Text name, const std::string& value) {
  constexpr int kWidth = 11;
  const std::string padding = value.empty() ? "" : Padding(Say(name), kWidth);
  Print(Joined({Say(name), padding, Plain(value), "\n"}));
}

int Split(const std::string& typed, const Options& options) {
  const UrlComponents url(Wide(typed));
  if (!url.Valid()) return Refuse(typed, {"no_url", 1, Say(Text::NoUrl)}, options);
  const std::string host = Utf8(url.Host()), path = Utf8(url.Path()), query = Utf8(url.Query());
  if (options.json) {
    JsonObject object;
    object.Add("input", typed).Add("scheme", SchemeOf(url)).Add("host", host).Add("port", int{url.Port()});
    Print(object.Add("path", path).Add("query", query).Add("error", nullptr).Line());
    return kDone;
  }
  Line(Text::UrlScheme, SchemeOf(url));
  Line(Text::UrlHost, host);
  Line(Text::UrlPort, std::to_string(url.Port()));
  Line(Text::UrlPath, path);
  Line(Text::UrlQuery, query);
  return kDone;
}

// The result; that it lost something when it did.
int Show(const std::string& typed, const CString& result, const std::optional<Refusal>& lost,
         const Options& options) {
  const std::string text = Qel::ToUtf8(result.View());  // NUL is text here
  if (options.json) {
    JsonObject object;
    object.Add("input", typed).Add("text", text);
    Print((lost ? object.Add("error", AsJson(*lost)) : object.Add("error", nullptr)).Line());
    return lost ? kUnreadable : kDone;
  }
  Print(Plain(text) + "\n");
  return lost ? Refuse(typed, *lost, options) : kDone;
}

// The first character that did not fit into two bytes.
std::optional<Refusal> Lost(const CString& text) {
  constexpr wchar_t kLast = 0x7FF;
  for (int i = 0; i < text.GetLength(); ++i) {
    if (text[i] <= kLast) continue;
    const int units = text[i] >= 0xD800 && text[i] <= 0xDBFF ? 2 : 1;
    return Refusal{"three_bytes", i + 1, Say(Text::UrlLost, {Utf8(text.Mid(i, units)), InUserDigits(i + 1)})};
  }
  return std::nullopt;
}

int Encode(const std::string& typed, const Options& options) {
  const CString text = Wide(typed);
  return Show(typed, CURLEncode::Encode(text, options.reserved), Lost(text), options);
}

int Decode(const std::string& typed, const Options& options) {
  return Show(typed, CURLEncode::Decode(Wide(typed)), std::nullopt, options);
}

}  // namespace

int RunUrlSplit(const Options& options) {
  return RunOnEach(options, Split);
}
int RunUrlEncode(const Options& options) {
  return RunOnEach(options, Encode);
}
int RunUrlDecode(const Options& options) {
  return RunOnEach(options, Decode);
}

}  // namespace Cli
