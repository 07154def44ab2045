// HTML: fragments of escaped texts are elements that close in order, and a small reader finds the texts again.
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz.h"
#include "html.h"

namespace {

// The text that a browser shows; an element for a line end is one.
std::wstring Shown(std::wstring_view html) {
  static const std::map<std::wstring_view, wchar_t> entities = {
      {L"amp", L'&'}, {L"lt", L'<'}, {L"gt", L'>'}, {L"quot", L'"'}, {L"#39", L'\''}};
  std::wstring text;
  std::vector<std::wstring_view> open;
  while (!html.empty()) {
    const wchar_t first = html[0];
    const std::size_t end = first == L'<' ? html.find(L'>') : first == L'&' ? html.find(L';') : 0;
    FUZZ_ASSERT(end != html.npos && first != L'>');
    const std::wstring_view inside = html.substr(1, end == 0 ? 0 : end - 1);
    html.remove_prefix(end + 1);
    if (first == L'&') {
      FUZZ_ASSERT(entities.contains(inside));
      text += entities.at(inside);
    } else if (first != L'<') {
      text += first;
    } else if (inside == L"BR") {
      FUZZ_ASSERT(html.starts_with(L"\n"));
    } else if (inside[0] == L'/') {
      FUZZ_ASSERT(!open.empty() && open.back() == inside.substr(1));
      open.pop_back();
    } else {
      open.push_back(inside.substr(0, inside.find(L' ')));
    }
  }
  FUZZ_ASSERT(open.empty());
  return text;
}

bool IsControl(wchar_t unit) {
  return (unit < L' ' && unit != L'\t' && unit != L'\n' && unit != L'\r') || (unit >= 0x7F && unit <= 0x9F);
}

std::wstring CaptionShown(std::wstring caption) {
  if (!caption.ends_with(L'\n')) return caption + L": ";
  caption.pop_back();
  while (caption.find(L':') != caption.npos && !caption.ends_with(L':')) caption.pop_back();
  return caption;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::wstring text = Units(data, size).c_str();
  const CString escaped = HTMLEscape(text.c_str());
  std::erase_if(text, IsControl);
  const unsigned long colour = size % 3 == 0 ? static_cast<unsigned long>(-1) : size * 7919;
  FUZZ_ASSERT(Shown(HTMLRTLPara(HTMLFixBr(HTMLColor(HTMLBold(escaped), colour))).View()) == text);
  FUZZ_ASSERT(Shown(HTMLLTRPara(HTMLCapVal(escaped, escaped, colour, ~colour)).View()) ==
              CaptionShown(text) + text);
  return 0;
}
