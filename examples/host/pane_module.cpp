// The module of the panes. What it is told has a heading, then lines, of which "name: text" is a title with its text.
#include <iostream>

#include "host_modules.h"

#define QEL_SOURCE L"host/pane"

namespace {

class TPane : public IAppUX {
 public:
  explicit TPane(const std::string& folder) : m_Folder(Qel::FromUtf8(folder)) {}

  // Shows a pane, which also reads back as it was last shown.
  void Notify(const wchar_t* text) override {
    const std::vector<CString> lines = TRichText::SplitLines(text, 0);
    TRichText pane;
    CString html = HTMLBold(HTMLEscape(lines[0])) + L"\n";
    pane.AddMainHdrText(lines[0]);
    for (std::size_t n = 1; n < lines.size(); ++n) {
      const int colon = lines[n].Find(L": ");
      const CString title = colon < 0 ? CString() : lines[n].Left(colon);
      const CString value = lines[n].Mid(colon < 0 ? 0 : colon + 2);
      pane.Add2Text(title, value);
      html += HTMLCapVal(HTMLEscape(title), HTMLEscape(value), Qel::UI::GetColor(Qel::UI::CI_TITLE)) + L"\n";
    }
    std::cout << Qel::ToUtf8(text) << '\n';
    Write(L"pane.rtf", Qel::ToUtf8(pane.GetString()));
    WritePage(L"pane.html", HTMLLTRPara(HTMLFixBr(html)));
  }

  // Shows a message; here, where nobody is to press the button, it is a page.
  void OkBox(const wchar_t* text) override {
    std::cout << Qel::ToUtf8(TRichText::SplitLines(text, 0)[2]) << '\n';
    WritePage(L"report.html", HTMLLTRPara(HTMLFixBr(HTMLEscape(text))));
  }
  bool YesNoBox(const wchar_t*) override { return false; }
  Answer YesNoCancelBox(const wchar_t*) override { return Answer::Cancel; }

 private:
  void WritePage(const wchar_t* name, const CString& body) const {
    Write(name, "<!DOCTYPE html>\n<meta charset=\"utf-8\">\n" + Qel::ToUtf8(body) + "\n");
  }

  void Write(const wchar_t* name, const std::string& content) const {
    TPXFile file(m_Folder + L"\\" + name, FA_CREATE);
    const auto size = static_cast<unsigned>(content.size());
    QEL_REQUIRE(file.Write(content.data(), size) == static_cast<int>(size), L"file.Write() == size");
  }

  CString m_Folder;
};

}  // namespace

std::shared_ptr<IAppUX> MakePane(const std::string& folder) {
  return std::make_shared<TPane>(folder);
}
