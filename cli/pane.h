// The line language of panes: what `qel rtf` and `qel html` are written from.
//
//   # text    main header           ## text   sub header          ! text   error
//   name: text   a title and its text; the name has at most 30 characters, the last of them no blank
//   >         right to left from here, <  left to right; alone in a line, or in front of any of these
//   **bold** and __underlined__ within a line; a mark without its partner is text
#ifndef QEL_CLI_PANE_H
#define QEL_CLI_PANE_H

#include <string>
#include <string_view>
#include <vector>

namespace Cli {

struct PaneRun {
  std::wstring text;
  bool bold = false;
  bool underlined = false;
};

enum class PaneKind { Normal, MainHeader, SubHeader, Error, Titled };

struct PaneLine {
  PaneKind kind = PaneKind::Normal;
  bool rightToLeft = false;
  std::vector<PaneRun> title;  // of Titled
  std::vector<PaneRun> text;
};

std::vector<PaneLine> ReadPane(const std::vector<std::string>& lines);

}  // namespace Cli

#endif  // QEL_CLI_PANE_H
