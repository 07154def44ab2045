#include <algorithm>
#include <array>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>

#include "configfile.h"
#include "px_format.h"
#include "registry/stored_text.h"
#include "registry/text_scan.h"

using Qel::Sys::Text::pxFormat;

namespace {

constexpr int kAllDigits = 20;
constexpr int kUsualDigits = 6;

// Text behind the next "=" must begin with a digit, else the whole list is refused. `values` may then be half filled.
template <class Values>
bool ReadAfterEquals(std::wstring_view text, Values& values) {
  TextScan scan(text);
  return std::all_of(std::begin(values), std::end(values), [&](int& value) {
    if (!scan.SkipPast(L'=') || scan.Rest().empty() || !IsAsciiDigit(scan.Rest().front())) return false;
    value = IntAtStart(scan.Rest());
    return true;
  });
}

int WrappingSum(int a, int b) {
  return static_cast<int>(static_cast<unsigned>(a) + static_cast<unsigned>(b));
}

// One channel: "R=255" or the number alone. `letter` is the small one.
int ReadChannel(std::wstring_view text, wchar_t letter) {
  text = WithoutBlanks(text);
  if (!text.empty() && AsciiLower(text.front()) == letter) {
    text = WithoutBlanks(text.substr(1));
    if (text.starts_with(L'=')) text.remove_prefix(1);
  }
  return IntAtStart(text);
}

// The text up to the first comma, which goes with it.
std::wstring_view TakeField(std::wstring_view& rest) {
  const std::size_t comma = std::min(rest.find(L','), rest.size());
  const std::wstring_view field = rest.substr(0, comma);
  rest.remove_prefix(std::min(comma + 1, rest.size()));
  return WithoutBlanks(field);
}

BYTE ByteAtStart(std::wstring_view text) {
  return static_cast<BYTE>(std::clamp(IntAtStart(text), 0, 255));
}

enum FontField {
  kHeight,
  kWidth,
  kStyle,
  kEscapement,
  kOrientation,
  kCharSet,
  kOutPrecision,
  kClipPrecision,
  kQuality,
  kPitchAndFamily,
  kFace,
  kFontFields
};

constexpr LONG kBold = 700;
constexpr LONG kNormal = 400;

std::wstring StyleOf(const LOGFONTW& font) {
  std::wstring style = font.lfWeight >= kBold ? L"B" : L"N";
  if (font.lfItalic) style += L'I';
  if (font.lfUnderline) style += L'U';
  if (font.lfStrikeOut) style += L'S';
  return style;
}

LOGFONTW FontOf(const std::array<std::wstring_view, kFontFields>& fields) {
  const auto has = [style = fields[kStyle]](wchar_t letter) { return style.find(letter) != style.npos; };
  LOGFONTW font{};
  font.lfHeight = IntAtStart(fields[kHeight]);
  font.lfWidth = IntAtStart(fields[kWidth]);
  font.lfWeight = has(L'B') ? kBold : kNormal;
  font.lfItalic = has(L'I');
  font.lfUnderline = has(L'U');
  font.lfStrikeOut = has(L'S');
  font.lfEscapement = IntAtStart(fields[kEscapement]);
  font.lfOrientation = IntAtStart(fields[kOrientation]);
  font.lfCharSet = ByteAtStart(fields[kCharSet]);
  font.lfOutPrecision = ByteAtStart(fields[kOutPrecision]);
  font.lfClipPrecision = ByteAtStart(fields[kClipPrecision]);
  font.lfQuality = ByteAtStart(fields[kQuality]);
  font.lfPitchAndFamily = ByteAtStart(fields[kPitchAndFamily]);
  WithoutBlanks(fields[kFace].substr(0, LF_FACESIZE - 1)).copy(font.lfFaceName, LF_FACESIZE - 1);
  return font;
}

// Puts the class-wide option back also when AsString raises.
class NumericDates {
 public:
  NumericDates() : m_Before(TDate::SetPrintOption(2)) {}
  ~NumericDates() { TDate::SetPrintOption(m_Before); }
  NumericDates(const NumericDates&) = delete;
  NumericDates& operator=(const NumericDates&) = delete;

 private:
  int m_Before;
};

}  // namespace

bool TConfigFile::ReadBool(const wchar_t* section, const wchar_t* entry, bool defaultValue) const {
  const StoredText<20> text(*this, section, entry);
  bool value = defaultValue;
  StringToBool(text.GetString(), &value);
  return value;
}

bool TConfigFile::WriteBool(const wchar_t* section, const wchar_t* entry, bool value) {
  return WriteString(section, entry, BoolToString(value).GetString());
}

double TConfigFile::ReadDouble(const wchar_t* section, const wchar_t* entry, double defaultValue) const {
  const StoredText<80> text(*this, section, entry);
  return text.IsEmpty() ? defaultValue : DoubleAtStart(text.View());
}

bool TConfigFile::WriteDouble(const wchar_t* section, const wchar_t* entry, double value) {
  const int precision = GetPrecision();
  const int digits = precision < 0 ? kAllDigits : precision == 0 ? kUsualDigits : precision;
  return WriteString(section, entry, pxFormat(L"%1.*g", digits, value).GetString());
}

bool TConfigFile::ReadSystemTime(const wchar_t* section, const wchar_t* entry, TSystemTime& value) const {
  const StoredText<80> text(*this, section, entry);
  if (text.IsEmpty()) return false;
  SYSTEMTIME record{};
  TextScan scan(text.View());
  WORD* const fields[] = {&record.wYear, &record.wMonth,  &record.wDayOfWeek, &record.wDay,
                          &record.wHour, &record.wMinute, &record.wSecond,    &record.wMilliseconds};
  for (WORD* field : fields) {
    if (!scan.ReadWord(*field) || !scan.Skip(L',')) break;
  }
  value = record;
  return true;
}

bool TConfigFile::WriteSystemTime(const wchar_t* section, const wchar_t* entry, const TSystemTime& value) {
  return WriteString(
      section, entry,
      pxFormat(L"%hu,%hu,%hu,%hu,%hu,%hu,%hu,%hu", value.Year(), value.Month(), value.DayOfWeek(),
               value.Day(), value.Hour(), value.Minute(), value.Second(), value.Milliseconds())
          .GetString());
}

bool TConfigFile::ReadTime(const wchar_t* section, const wchar_t* entry, TTime& value) const {
  const StoredText<80> text(*this, section, entry);
  if (text.IsEmpty()) return false;
  TextScan scan(text.View());
  int parts[3] = {};
  constexpr wchar_t kLetters[] = {L'h', L'm', L's'};
  for (int i = 0; i < 3; ++i) {
    if (!scan.Skip(kLetters[i]) || !scan.Skip(L'=') || !scan.ReadInt(parts[i])) break;
    scan.SkipSpace();
  }
  value = TTime(static_cast<unsigned>(parts[0]), static_cast<unsigned>(parts[1]),
                static_cast<unsigned>(parts[2]));
  return true;
}

bool TConfigFile::WriteTime(const wchar_t* section, const wchar_t* entry, TTime& value) {
  return WriteString(section, entry,
                     pxFormat(L"h=%u m=%u s=%u", value.Hour(), value.Minute(), value.Second()).GetString());
}

bool TConfigFile::ReadDate(const wchar_t* section, const wchar_t* entry, TDate& value) const {
  const StoredText<80> text(*this, section, entry);
  std::wistringstream stream{std::wstring(text.View())};
  const TDate date(stream);
  if (!date.IsValid()) return false;
  value = date;
  return true;
}

bool TConfigFile::WriteDate(const wchar_t* section, const wchar_t* entry, const TDate& value) {
  const NumericDates numeric;
  return WriteString(section, entry, value.AsString().GetString());
}

bool TConfigFile::ReadColor(const wchar_t* section, const wchar_t* entry, TColor& value) const {
  const StoredText<40> text(*this, section, entry);
  const std::wstring_view all = text.View();
  const std::size_t first = all.find(L',');
  const std::size_t second = first == all.npos ? all.npos : all.find(L',', first + 1);
  if (second == all.npos) return false;
  const int red = ReadChannel(all.substr(0, first), L'r');
  const int green = ReadChannel(all.substr(first + 1, second - first - 1), L'g');
  const int blue = ReadChannel(all.substr(second + 1), L'b');
  for (const int channel : {red, green, blue}) {
    if (channel < 0 || channel > 255) return false;
  }
  value = TColor(red, green, blue);
  return true;
}

// Kept: each channel as the character of that code and a "u" behind it, 0 ending the text, because the applications
// compare stored entries with what this writes.
bool TConfigFile::WriteColor(const wchar_t* section, const wchar_t* entry, const TColor& value) {
  std::wstring text = L"R=";
  (text += static_cast<wchar_t>(value.Red())) += L"u,G=";
  (text += static_cast<wchar_t>(value.Green())) += L"u,B=";
  (text += static_cast<wchar_t>(value.Blue())) += L"u";
  return WriteString(section, entry, text.c_str());
}

bool TConfigFile::ReadPoint(const wchar_t* section, const wchar_t* entry, TPoint& value) const {
  int values[2];
  if (!ReadAfterEquals(StoredText<40>(*this, section, entry).View(), values)) return false;
  value = {values[0], values[1]};
  return true;
}

bool TConfigFile::WritePoint(const wchar_t* section, const wchar_t* entry, const TPoint& value) {
  return WriteString(section, entry, pxFormat(L"X=%d,Y=%d", value.x, value.y).GetString());
}

bool TConfigFile::ReadSize(const wchar_t* section, const wchar_t* entry, TSize& value) const {
  int values[2];
  if (!ReadAfterEquals(StoredText<40>(*this, section, entry).View(), values)) return false;
  value = {values[0], values[1]};
  return true;
}

bool TConfigFile::WriteSize(const wchar_t* section, const wchar_t* entry, const TSize& value) {
  return WriteString(section, entry, pxFormat(L"W=%d,H=%d", value.cx, value.cy).GetString());
}

bool TConfigFile::WriteSize(const CString& section, const CString& entry, const TSize& value) {
  return WriteSize(section.GetString(), entry.GetString(), value);
}

bool TConfigFile::ReadRect(const wchar_t* section, const wchar_t* entry, TRect& value) const {
  int values[4];
  if (!ReadAfterEquals(StoredText<40>(*this, section, entry).View(), values)) return false;
  const auto [left, top, width, height] = values;
  value = {left, top, WrappingSum(left, width), WrappingSum(top, height)};
  return true;
}

bool TConfigFile::WriteRect(const wchar_t* section, const wchar_t* entry, const TRect& value) {
  return WriteString(
      section, entry,
      pxFormat(L"L=%d,T=%d,W=%d,H=%d", value.left, value.top, value.Width(), value.Height()).GetString());
}

bool TConfigFile::ReadFont(const wchar_t* section, const wchar_t* entry, LOGFONTW& value) const {
  const StoredText<kTextRoom> text(*this, section, entry);
  std::wstring_view rest = text.View();
  if (std::count(rest.begin(), rest.end(), L',') < kFontFields - 1) return false;
  std::array<std::wstring_view, kFontFields> fields;
  for (int field = 0; field < kFace; ++field) fields[static_cast<std::size_t>(field)] = TakeField(rest);
  fields[kFace] = WithoutBlanks(rest);
  value = FontOf(fields);
  return true;
}

bool TConfigFile::WriteFont(const wchar_t* section, const wchar_t* entry, const LOGFONTW& value) {
  return WriteString(section, entry,
                     pxFormat(L"%d,%d,%s,%d,%d,%d,%d,%d,%d,%d,%.*s", int(value.lfHeight), int(value.lfWidth),
                              StyleOf(value).c_str(), int(value.lfEscapement), int(value.lfOrientation),
                              value.lfCharSet, value.lfOutPrecision, value.lfClipPrecision, value.lfQuality,
                              value.lfPitchAndFamily, LF_FACESIZE, value.lfFaceName)
                         .GetString());
}
