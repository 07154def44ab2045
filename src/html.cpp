#include "html.h"

#include <string_view>

#include "markup_entity.h"

namespace {

// `unsigned long` is wider on some systems, and "no colour" comes as 32 ones or as all ones.
bool IsNoColour(unsigned long colour) {
  return (colour & 0xFFFFFFFF) == 0xFFFFFFFF;
}

CString Coloured(const CString& text, unsigned long colour) {
  return IsNoColour(colour) ? text : HTMLColor(text, colour);
}

CString Caption(const wchar_t* caption) {
  const CString text(caption);
  const std::wstring_view view = text.View();
  if (!view.ends_with(L'\n')) return text + L": ";
  const std::size_t colon = view.rfind(L':');
  return CString(view.substr(0, colon == view.npos ? view.size() - 1 : colon + 1));
}

// What a unit is written as; empty for those that stay. HTML has known a name for the apostrophe only since its fifth
// version.
constexpr std::wstring_view EntityOf(wchar_t unit) {
  return unit == L'\'' ? std::wstring_view(L"&#39;") : Qel::Sys::Text::MarkupEntity(unit);
}

constexpr bool IsNoHtml(wchar_t unit) {
  const bool control = unit < L' ' || (unit >= 0x7F && unit <= 0x9F);
  return control && unit != L'\t' && unit != L'\n' && unit != L'\r';
}

}  // namespace

CString HTMLBold(const wchar_t* text) {
  return CString(L"<b>") + text + L"</b>";
}

CString HTMLColor(const wchar_t* text, unsigned long colour) {
  return L"<font color=\"#" + ColorToHex(colour) + L"\">" + text + L"</font>";
}

CString HTMLFixBr(const wchar_t* text) {
  CString fixed(text);
  fixed.Replace(L"\n", L"<BR>\n");
  return fixed;
}

CString HTMLLTRPara(const wchar_t* text) {
  return CString(L"<p dir=\"ltr\">") + text + L"</p>";
}

CString HTMLRTLPara(const wchar_t* text) {
  return CString(L"<p dir=\"rtl\">") + text + L"</p>";
}

CString HTMLCapVal(const wchar_t* caption, const wchar_t* value, unsigned long captionColour,
                   unsigned long valueColour) {
  return Coloured(Caption(caption), captionColour) + Coloured(HTMLBold(value), valueColour);
}

CString HTMLEscape(const wchar_t* text) {
  std::wstring escaped;
  for (const wchar_t unit : text ? std::wstring_view(text) : std::wstring_view()) {
    const std::wstring_view entity = EntityOf(unit);
    if (!entity.empty())
      escaped += entity;
    else if (!IsNoHtml(unit))
      escaped += unit;
  }
  return escaped;
}

CString ColorToHex(unsigned long colour) {
  CString hex(L'0', 6);
  for (int place = 5; place >= 0; --place, colour >>= 4) hex.SetAt(place, L"0123456789ABCDEF"[colour & 0xF]);
  return hex;
}
