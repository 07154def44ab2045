#include "commands.h"
#include "document.h"
#include "pane.h"
#include "richtext.h"
#include "text.h"
#include "theme.h"

namespace Cli {

namespace {

using namespace Qel::UI;

struct Style {
  COLOR_INDEX colour;
  unsigned long size;
  bool bold;
};

// Those of the library's own kinds of lines, whose texts have one run each.
Style StyleOf(PaneKind kind) {
  switch (kind) {
    case PaneKind::MainHeader:
      return {CI_MAIN_HDR, 29, true};
    case PaneKind::SubHeader:
      return {CI_SUB_HDR, 20, true};
    case PaneKind::Error:
      return {CI_ERROR, 16, false};
    default:
      return {CI_NORMAL, 16, false};
  }
}

void Add(TRichText& pane, const PaneRun& run, const Style& style) {
  pane.SetUnderLine(run.underlined);  // a run by itself does not switch it as it says
  pane.AddString(run.text.c_str(), GetColor(style.colour), style.size, style.bold || run.bold,
                 run.underlined);
}

void Add(TRichText& pane, const std::vector<PaneRun>& runs, const wchar_t* end, const Style& style) {
  for (const PaneRun& run : runs) Add(pane, run, style);
  Add(pane, PaneRun{end}, style);
}

std::string Write(const std::vector<std::string>& lines, const Options&) {
  TRichText pane;
  for (const PaneLine& line : ReadPane(lines)) {
    pane.SetParaRTL(line.rightToLeft);
    if (line.kind == PaneKind::Titled) Add(pane, line.title, L": ", {CI_TITLE, 16, true});
    Add(pane, line.text, L"\n", StyleOf(line.kind));
  }
  return Utf8(pane.GetString());
}

}  // namespace

int RunRtf(const Options& options) {
  return RunOnText(options, Write);
}

}  // namespace Cli
