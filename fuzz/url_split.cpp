// Addresses: any text is split, or refused, as one regular expression says.
#include <cwchar>
#include <regex>
#include <string>

#include "fuzz.h"
#include "url.h"

namespace {

struct Split {
  bool valid = false;
  std::wstring host, path, query;
  int port = 0;
  bool secure = false;
};

Split ByExpression(const std::wstring& url) {
  static const std::wregex whole(
      LR"(http(s?)://(?:[^@/?#]*@|(?![^/?#]*@))(\[[^\]/?#]+\]|[^:/?#\[][^:/?#]*)(?::([0-9]*))?((?:/[^?#]*)?)((?:[?#][^]*)?))",
      std::regex::ECMAScript | std::regex::icase);
  std::wsmatch match;
  Split split;
  if (!std::regex_match(url, match, whole)) return split;
  const std::wstring digits = match[3].str();
  const std::size_t first = digits.find_first_not_of(L'0');
  const std::wstring number = first == digits.npos ? L"0" : digits.substr(first);
  split.secure = match[1].length() != 0;
  if (number.size() > 5 || std::stoi(number) > 65535) return {};
  split.port = !digits.empty() ? std::stoi(number) : split.secure ? 443 : 80;
  split.valid = true;
  split.host = match[2].str();
  split.path = match[4].str();
  split.query = match[5].str();
  return split;
}

void Check(const std::wstring& url) {
  const UrlComponents ours(url.c_str());
  const Split expected = ByExpression(url);
  FUZZ_ASSERT(ours.Valid() == expected.valid && ours.Secure() == expected.secure &&
              ours.Port() == expected.port);
  FUZZ_ASSERT(ours.Host() == expected.host.c_str() && ours.Path() == expected.path.c_str());
  FUZZ_ASSERT(ours.Query() == expected.query.c_str() &&
              ours.FullPath() == (expected.path + expected.query).c_str());
}

}  // namespace

// As it is, and behind a scheme, which few inputs find.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kMost = 1000;  // the expression recurses
  const std::wstring text = AsciiUnits(data, size < kMost ? size : kMost).c_str();
  Check(text);
  Check(L"HTTPs://" + text);
  Check(Units(data, size < kMost ? size : kMost).c_str());
  return 0;
}
