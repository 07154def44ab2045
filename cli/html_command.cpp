#include "commands.h"
#include "document.h"
#include "html.h"
#include "pane.h"
#include "text.h"
#include "theme.h"

namespace Cli {

namespace {

using namespace Qel::UI;

// What was typed is escaped here, once; from here on all is HTML.
CString HtmlOf(const std::vector<PaneRun>& runs) {
  CString html;
  for (const PaneRun& run : runs) {
    CString text = HTMLEscape(run.text.c_str());
    if (run.underlined) text = L"<u>" + text + L"</u>";
    html += run.bold ? HTMLBold(text) : text;
  }
  return html;
}

CString Paragraph(const CString& html, bool rightToLeft) {
  return rightToLeft ? HTMLRTLPara(html) : HTMLLTRPara(html);
}

CString Header(const wchar_t* level, const CString& html, bool rightToLeft) {
  const CString direction = rightToLeft ? L" dir=\"rtl\">" : L" dir=\"ltr\">";
  return CString(L"<") + level + direction + html + L"</" + level + L">";
}

CString HtmlOf(const PaneLine& line) {
  const CString text = HtmlOf(line.text);
  switch (line.kind) {
    case PaneKind::MainHeader:
      return Header(L"h1", HTMLColor(text, GetColor(CI_MAIN_HDR)), line.rightToLeft);
    case PaneKind::SubHeader:
      return Header(L"h2", HTMLColor(text, GetColor(CI_SUB_HDR)), line.rightToLeft);
    case PaneKind::Error:
      return Paragraph(HTMLColor(text, GetColor(CI_ERROR)), line.rightToLeft);
    case PaneKind::Titled:
      return Paragraph(HTMLCapVal(HtmlOf(line.title), text, GetColor(CI_TITLE)), line.rightToLeft);
    default:  // one without text keeps its height
      return Paragraph(text.IsEmpty() ? HTMLFixBr(L"\n") : text, line.rightToLeft);
  }
}

// The text of the first header; a page must have one.
CString TitleOf(const std::vector<PaneLine>& pane) {
  CString title;
  for (const PaneLine& line : pane) {
    if (line.kind != PaneKind::MainHeader) continue;
    for (const PaneRun& run : line.text) title += run.text.c_str();
    break;
  }
  return title.IsEmpty() ? CString(L"qel") : HTMLEscape(title);
}

// Colours and underlining by elements, as the library writes them, are valid in this version of HTML.
constexpr char kPageStart[] =
    R"(<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01 Transitional//EN" "http://www.w3.org/TR/html4/loose.dtd">
<html>
<head>
<meta http-equiv="Content-Type" content="text/html; charset=utf-8">
<title>)";

std::string Page(const CString& title, const std::string& body) {
  return Joined({kPageStart, Utf8(title), "</title>\n</head>\n<body>\n", body, "\n</body>\n</html>"});
}

std::string Write(const std::vector<std::string>& lines, const Options& options) {
  const std::vector<PaneLine> pane = ReadPane(lines);
  std::string body;
  for (const PaneLine& line : pane) {
    if (!body.empty()) body += '\n';
    body += Utf8(HtmlOf(line));
  }
  return options.fragment ? body : Page(TitleOf(pane), body);
}

}  // namespace

int RunHtml(const Options& options) {
  return RunOnText(options, Write);
}

}  // namespace Cli
