#include "pane.h"

#include <utility>

#include "text.h"

namespace Cli {

namespace {

constexpr std::size_t kLongestName = 30;
constexpr std::size_t kMark = 2;

std::vector<PaneRun> RunsOf(std::wstring_view text) {
  std::vector<PaneRun> runs;
  PaneRun run;
  for (std::size_t at = 0; at < text.size();) {
    const std::wstring_view mark = text.substr(at, kMark);
    const bool bold = mark == L"**";
    const bool known = bold || mark == L"__";
    const bool on = bold ? run.bold : run.underlined;
    // One that opens has something before its partner.
    if (!known || (!on && text.find(mark, at + kMark + 1) == text.npos)) {
      run.text += text[at++];
      continue;
    }
    if (!run.text.empty()) runs.push_back(run);
    run.text.clear();
    (bold ? run.bold : run.underlined) = !on;
    at += kMark;
  }
  if (!run.text.empty()) runs.push_back(std::move(run));
  return runs;
}

// The direction that a line asks for, and what is left of the line.
bool TakeDirection(std::wstring_view& text, bool& rightToLeft) {
  if (text != L">" && text != L"<" && !text.starts_with(L"> ") && !text.starts_with(L"< ")) return false;
  rightToLeft = text.front() == L'>';
  text.remove_prefix(text.size() == 1 ? 1 : kMark);
  return true;
}

PaneKind TakeKind(std::wstring_view& text) {
  const struct {
    std::wstring_view mark;
    PaneKind kind;
  } kinds[] = {{L"# ", PaneKind::MainHeader}, {L"## ", PaneKind::SubHeader}, {L"! ", PaneKind::Error}};
  for (const auto& row : kinds) {
    if (!text.starts_with(row.mark)) continue;
    text.remove_prefix(row.mark.size());
    return row.kind;
  }
  return PaneKind::Normal;
}

PaneLine LineOf(std::wstring_view text, bool rightToLeft) {
  PaneLine line{TakeKind(text), rightToLeft, {}, {}};
  const std::size_t colon = text.find(L": ");
  const bool named = colon != text.npos && colon > 0 && colon <= kLongestName && text[colon - 1] != L' ';
  if (line.kind == PaneKind::Normal && named) {
    line.kind = PaneKind::Titled;
    line.title = RunsOf(text.substr(0, colon));
    text.remove_prefix(colon + kMark);
  }
  line.text = RunsOf(text);
  return line;
}

}  // namespace

std::vector<PaneLine> ReadPane(const std::vector<std::string>& lines) {
  std::vector<PaneLine> pane;
  bool rightToLeft = false;
  for (const std::string& line : lines) {
    std::wstring whole(Wide(line).View());
    std::erase(whole, L'\0');  // the formatters would take it for the text's end
    std::wstring_view text = whole;
    const bool directed = TakeDirection(text, rightToLeft);
    if (!directed || !text.empty()) pane.push_back(LineOf(text, rightToLeft));
  }
  return pane;
}

}  // namespace Cli
