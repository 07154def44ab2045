#include "typed_color.h"

#include <algorithm>
#include <charconv>

#include "digits.h"
#include "text.h"

namespace Cli {

namespace {

#define QEL_NAMED(name) \
  { #name, TColor::name }
constexpr NamedColor kNames[] = {
    QEL_NAMED(Black),
    QEL_NAMED(LtGray),
    QEL_NAMED(Gray),
    QEL_NAMED(LtRed),
    QEL_NAMED(LtGreen),
    QEL_NAMED(LtYellow),
    QEL_NAMED(LtBlue),
    QEL_NAMED(LtMagenta),
    QEL_NAMED(LtCyan),
    QEL_NAMED(White),
    QEL_NAMED(None),
    QEL_NAMED(Transparent),
    QEL_NAMED(SysScrollbar),
    QEL_NAMED(SysDesktop),
    QEL_NAMED(SysActiveCaption),
    QEL_NAMED(SysInactiveCaption),
    QEL_NAMED(SysMenu),
    QEL_NAMED(SysWindow),
    QEL_NAMED(SysWindowFrame),
    QEL_NAMED(SysMenuText),
    QEL_NAMED(SysWindowText),
    QEL_NAMED(SysCaptionText),
    QEL_NAMED(SysActiveBorder),
    QEL_NAMED(SysInactiveBorder),
    QEL_NAMED(SysAppWorkspace),
    QEL_NAMED(SysHighlight),
    QEL_NAMED(SysHighlightText),
    QEL_NAMED(Sys3dFace),
    QEL_NAMED(Sys3dShadow),
    QEL_NAMED(SysGrayText),
    QEL_NAMED(SysBtnText),
    QEL_NAMED(SysInactiveCaptionText),
    QEL_NAMED(Sys3dHilight),
    QEL_NAMED(Sys3dDkShadow),
    QEL_NAMED(Sys3dLight),
    QEL_NAMED(SysInfoText),
    QEL_NAMED(SysInfoBk),
};
#undef QEL_NAMED

std::string LowerAscii(std::string text) {
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

// Reads text, digits in ASCII, from its start.
class Reader {
 public:
  explicit Reader(const CString& text) : m_Text(text.View()) {}

  int Position() const { return static_cast<int>(m_At) + 1; }
  bool AtEnd() const { return m_At == m_Text.size(); }
  std::string Next() const { return Utf8(CString(m_Text.substr(m_At, 1))); }
  bool Take(std::wstring_view anyOf) {
    const bool there = !AtEnd() && anyOf.find(m_Text[m_At]) != anyOf.npos;
    if (there) ++m_At;
    return there;
  }
  // The digits that follow, as far as the base knows them.
  std::string Digits(std::wstring_view known) {
    std::string digits;
    while (!AtEnd() && known.find(m_Text[m_At]) != known.npos) digits += static_cast<char>(m_Text[m_At++]);
    return digits;
  }

 private:
  std::wstring_view m_Text;
  std::size_t m_At = 0;
};

constexpr std::wstring_view kHexadecimal = L"0123456789ABCDEFabcdef";

Refusal NotExpected(const Reader& reader) {
  const std::string position = InUserDigits(reader.Position());
  const std::string what = Say(Text::ColorStopped, {reader.Next(), position});
  return {"left_over", reader.Position(), Say(Text::TwoClauses, {what, Say(Text::WriteColor)})};
}

Refusal AboveByte(const std::string& digits, int position) {
  const std::string range =
      Say(Text::OutsideRange, {InUserDigits(digits), InUserDigits(0), InUserDigits(255)});
  return {"range", position, range + Say(Text::AtPosition, {InUserDigits(position)})};
}

// What follows "#" (exactly six digits, red first) or "0x" (the stored word).
std::optional<Refusal> ReadHexadecimal(Reader& reader, bool stored, TColor& color) {
  const int start = reader.Position();
  const std::string digits = reader.Digits(kHexadecimal);
  if (!reader.AtEnd()) return NotExpected(reader);
  const std::string count = InUserDigits(static_cast<int>(digits.size()));
  if (!stored && digits.size() != 6)
    return Refusal{"digits", start, Say(Text::ColorDigits, {count, InUserDigits(6)})};
  if (digits.empty() || digits.size() > 8)
    return Refusal{"digits", start, Say(Text::ColorWordDigits, {count, InUserDigits(8)})};
  unsigned value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
  color = stored
              ? TColor(value)
              : TColor(static_cast<int>(value >> 16), static_cast<int>(value >> 8), static_cast<int>(value));
  return std::nullopt;
}

// "230, 10, 0"; the Arabic comma will do.
std::optional<Refusal> ReadParts(Reader& reader, TColor& color) {
  int parts[3] = {};
  for (int& part : parts) {
    if (&part != parts && !reader.Take(L",\u060C")) {
      if (!reader.AtEnd()) return NotExpected(reader);
      return Refusal{"parts", reader.Position(), Say(Text::ColorParts, {InUserDigits(reader.Position())})};
    }
    while (reader.Take(L" ")) continue;
    const int start = reader.Position();
    const std::string digits = reader.Digits(kHexadecimal.substr(0, 10));
    if (digits.empty() && !reader.AtEnd()) return NotExpected(reader);
    if (digits.empty()) return Refusal{"parts", start, Say(Text::ColorParts, {InUserDigits(start)})};
    const auto status = std::from_chars(digits.data(), digits.data() + digits.size(), part).ec;
    if (status != std::errc() || part > 255) return AboveByte(digits, start);
    while (reader.Take(L" ")) continue;
  }
  if (!reader.AtEnd()) return NotExpected(reader);
  color = TColor(parts[0], parts[1], parts[2]);
  return std::nullopt;
}

std::optional<Refusal> ReadName(const std::string& typed, TColor& color) {
  const std::string name = LowerAscii(typed);
  std::string alike;
  for (const NamedColor& known : kNames) {
    const std::string knownName = LowerAscii(known.name);
    if (knownName == name) {
      color = known.color;
      return std::nullopt;
    }
    if (knownName.find(name) != knownName.npos) (alike += alike.empty() ? "" : ", ") += known.name;
  }
  return Refusal{"name", 1, alike.empty() ? Say(Text::ColorUnknown) : Say(Text::ColorDidYouMean, {alike})};
}

}  // namespace

std::span<const NamedColor> NamedColors() {
  return kNames;
}

std::optional<Refusal> ReadTypedColor(const std::string& typed, TColor& color) {
  const CString text = Qel::Sys::Text::FoldDigits(Wide(typed));
  if (text.IsEmpty())
    return Refusal{"empty", 1, Say(Text::TwoClauses, {Say(Text::ColorEmpty), Say(Text::WriteColor)})};
  Reader reader(text);
  if (reader.Take(L"#")) return ReadHexadecimal(reader, false, color);
  if (text.Left(2) == L"0x" || text.Left(2) == L"0X") {
    reader.Take(L"0");
    reader.Take(L"xX");
    return ReadHexadecimal(reader, true, color);
  }
  const bool number = text[0] >= L'0' && text[0] <= L'9';
  return number ? ReadParts(reader, color) : ReadName(Utf8(text), color);
}

}  // namespace Cli
