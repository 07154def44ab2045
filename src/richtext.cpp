#include "richtext.h"

#include <utility>

#include "rtf_text.h"
#include "theme.h"

using namespace Qel::UI;

namespace {

constexpr std::uint32_t kNoColour = 0xFFFFFFFF;
constexpr unsigned long kNormalSize = 16;
constexpr unsigned long kMainHdrSize = 29;
constexpr unsigned long kSubHdrSize = 20;

constexpr char kHeaderToFont[] =
    "{\\rtf1\\fbidis\\ansi\\ansicpg1256\\deff0\\deflang10241{\\fonttbl{\\f0\\fswiss\\fcharset178 ";
constexpr char kHeaderFromFont[] = ";}}\\viewkind4\\uc1\\pard\\ltrpar\\f0\\fs16 ";

// A theme may name any font, so the name is escaped like any text.
std::string Header(const CString& font) {
  std::string header = kHeaderToFont;
  std::wstring store;
  Qel::Rtf::AppendLine(header, Qel::Rtf::InUnits(font, store));
  return header += kHeaderFromFont;
}

// `unsigned long` is wider on some systems.
std::uint32_t Resolved(unsigned long colour) {
  const auto low = static_cast<std::uint32_t>(colour);
  return low == kNoColour ? static_cast<std::uint32_t>(GetColor(CI_NORMAL)) : low;
}

std::string Channel(const char* word, unsigned long value) {
  return word + std::to_string(value & 0xFF);
}

}  // namespace

TRichText::TRichText() : m_Header(Header(GetAppTheme()->GetFontName())) {}

bool TRichText::AddString(const wchar_t* text, unsigned long colour, unsigned long size, bool bold,
                          bool underline) {
  const std::uint32_t wanted = Resolved(colour);
  const auto halfPoints = static_cast<std::int32_t>(size == 0 ? kNormalSize : size);
  const std::size_t before = m_Body.size();
  if (wanted != m_Colour) AddNumber("\\cf", ColourNumber(wanted));
  if (halfPoints != m_Size) AddNumber("\\fs", halfPoints);
  if (bold != m_Bold) m_Body += bold ? "\\b" : "\\b0";
  if (underline != m_UnderLine) m_Body += bold ? "\\ul" : "\\ulnone";
  // A word of AddPara needs its end too, or the text would become a part of it.
  if (m_Body.size() != before || m_WordOpen) m_Body += ' ';
  Qel::Rtf::AppendText(m_Body, text);
  m_Colour = wanted;
  m_Size = halfPoints;
  m_Bold = bold;
  m_UnderLine = underline;
  m_WordOpen = false;
  return true;
}

bool TRichText::AddTitle(const wchar_t* text) {
  return AddString(CString(text) + L": ", GetColor(CI_TITLE), kNormalSize, true, false);
}
bool TRichText::AddMainHdrText(const wchar_t* text) {
  return AddString(CString(text) + L"\n", GetColor(CI_MAIN_HDR), kMainHdrSize, true, false);
}
bool TRichText::AddSubHdrText(const wchar_t* text) {
  return AddString(CString(text) + L"\n", GetColor(CI_SUB_HDR), kSubHdrSize, true, false);
}
bool TRichText::AddNormalText(const wchar_t* text) {
  return AddString(CString(text) + L"\n", GetColor(CI_NORMAL), kNormalSize, false, false);
}
bool TRichText::AddErrorText(const wchar_t* text) {
  return AddString(CString(text) + L"\n", GetColor(CI_ERROR), kNormalSize, false, false);
}
bool TRichText::AddText(const wchar_t* text, bool bold) {
  return AddString(text, GetColor(CI_NORMAL), kNormalSize, bold, false);
}

bool TRichText::Add2Text(const wchar_t* title, const wchar_t* text) {
  return AddTitle(title) && AddNormalText(text);
}

bool TRichText::NewLine(int count) {
  for (; count > 0; --count)
    if (!AddText(L"\n", false)) return false;
  return true;
}

bool TRichText::SetBold(bool on) {
  return AddPara(on, m_Bold, L"\\b", L"\\b0");
}
bool TRichText::SetUnderLine(bool on) {
  return AddPara(on, m_UnderLine, L"\\ul", L"\\ulnone");
}
bool TRichText::SetParaRTL(bool on) {
  return AddPara(on, m_ParaRTL, L"\\rtlpar", L"\\ltrpar");
}

CString TRichText::GetString() const {
  std::string document = m_Header;
  if (m_Colours.GetCount() > 0) document += "{\\colortbl ;";
  for (long i = 0; i < m_Colours.GetCount(); ++i) {
    const unsigned long colour = m_Colours[i];
    document +=
        Channel("\\red", colour >> 16) + Channel("\\green", colour >> 8) + Channel("\\blue", colour) + ';';
  }
  if (m_Colours.GetCount() > 0) document += '}';
  document.reserve(document.size() + m_Body.size() + 1);
  document += m_Body;
  return Qel::Rtf::Wide(document += '}');
}

CString TRichText::ParseRichText(const wchar_t* text) {
  std::string rtf;
  Qel::Rtf::AppendText(rtf, text);
  return Qel::Rtf::Wide(rtf);
}

std::vector<CString> TRichText::SplitLines(const wchar_t* text, long width) {
  std::wstring store;
  const std::size_t atMost = width > 0 ? static_cast<std::size_t>(width) : Qel::Rtf::kAnyWidth;
  std::wstring_view rest = Qel::Rtf::InUnits(text, store), line;
  std::vector<CString> lines;
  for (bool more = true; more;) {
    more = Qel::Rtf::TakeLine(rest, atMost, line);
    lines.emplace_back(line);
  }
  return lines;
}

bool TRichText::AddPara(bool on, bool& state, const wchar_t* onWord, const wchar_t* offWord) {
  if (on == state) return true;
  for (const wchar_t* at = on ? onWord : offWord; *at; ++at) m_Body += static_cast<char>(*at);
  state = on;
  m_WordOpen = true;
  return true;
}

long TRichText::ColourNumber(std::uint32_t colour) {
  if (const auto known = m_Numbers.find(colour); known != m_Numbers.end()) return known->second;
  m_Colours.append(colour);
  return m_Numbers[colour] = m_Colours.GetCount();
}

void TRichText::AddNumber(const char* word, long number) {
  (m_Body += word) += std::to_string(number);
}
