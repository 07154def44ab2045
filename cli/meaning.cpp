#include "meaning.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <vector>

#include "configfile.h"
#include "pxsf.h"
#include "setting.h"
#include "text.h"

namespace Cli {

namespace {

// One text in the place of every entry: what the library's typed readers and writers make of it.
class OneText : public TConfigFile {
 public:
  explicit OneText(CString text) : TConfigFile(L""), m_Text(std::move(text)) {}
  const CString& Text() const { return m_Text; }
  // The room, in units, of the last reader.
  unsigned int Room() const { return m_Room; }

  using TConfigFile::ReadString;
  using TConfigFile::WriteString;
  int ReadSection(const wchar_t*, wchar_t*, unsigned int) const override { return 0; }
  int ReadSections(wchar_t*, unsigned int) const override { return 0; }
  bool EraseSection(const wchar_t*) override { return false; }
  bool EraseEntry(const wchar_t*, const wchar_t*) override { return false; }
  void UpdateFile() override {}
  int ReadString(const wchar_t*, const wchar_t*, wchar_t* buffer, unsigned int size,
                 const wchar_t*) const override {
    m_Room = size;
    const std::wstring_view text = m_Text.View().substr(0, size - 1);
    *std::copy(text.begin(), text.end(), buffer) = L'\0';
    return static_cast<int>(text.size());
  }
  bool WriteString(const wchar_t*, const wchar_t*, const wchar_t* value) override {
    m_Text = value;
    return true;
  }

 private:
  CString m_Text;
  mutable unsigned int m_Room = 0;
};

constexpr const wchar_t* kAny = L"";

struct Meaning {
  std::string text;
  unsigned int room;  // of the reader, in the bytes that the settings' own reader takes
};

// Whether the text is what the writer of the type writes for what its reader reads.
template <class Value, class Read, class Write>
bool IsForm(const CString& text, Value& value, unsigned int& room, Read read, Write write) {
  OneText store(text);
  if (!(store.*read)(kAny, kAny, value)) return false;
  room = store.Room();
  return (store.*write)(kAny, kAny, value) && store.Text() == text;
}

std::string Shown(int number) {
  return InUserDigits(number);
}

std::string TwoDigits(unsigned int number) {
  return InUserDigits(Joined({number < 10 ? "0" : "", std::to_string(number)}));
}

std::string DayShown(unsigned int year, unsigned int month, unsigned int day) {
  return Joined({InUserDigits(std::to_string(year)), "-", TwoDigits(month), "-", TwoDigits(day)});
}

std::string TimeShown(unsigned int hour, unsigned int minute, unsigned int second) {
  return Joined({TwoDigits(hour), ":", TwoDigits(minute), ":", TwoDigits(second)});
}

std::optional<Meaning> AsShape(const CString& text) {
  TPoint point;
  TSize size;
  TRect rect;
  unsigned int room = 0;
  if (IsForm(text, point, room, &TConfigFile::ReadPoint, &TConfigFile::WritePoint))
    return Meaning{Say(Text::IsPoint, {Shown(point.x), Shown(point.y)}), room};
  using WriteSize = bool (TConfigFile::*)(const wchar_t*, const wchar_t*, const TSize&);
  if (IsForm(text, size, room, &TConfigFile::ReadSize, WriteSize(&TConfigFile::WriteSize)))
    return Meaning{Say(Text::IsSize, {Shown(size.cx), Shown(size.cy)}), room};
  if (IsForm(text, rect, room, &TConfigFile::ReadRect, &TConfigFile::WriteRect))
    return Meaning{
        Say(Text::IsRect, {Shown(rect.Width()), Shown(rect.Height()), Shown(rect.left), Shown(rect.top)}),
        room};
  return std::nullopt;
}

std::optional<Meaning> AsMoment(const CString& text) {
  TDate day;
  TTime time;
  TSystemTime moment;
  unsigned int room = 0;
  if (IsForm(text, day, room, &TConfigFile::ReadDate, &TConfigFile::WriteDate))
    return Meaning{Say(Text::IsDay, {DayShown(static_cast<unsigned int>(day.Year()),
                                              static_cast<unsigned int>(day.Month()),
                                              static_cast<unsigned int>(day.Day()))}),
                   room};
  if (IsForm(text, time, room, &TConfigFile::ReadTime, &TConfigFile::WriteTime))
    return Meaning{Say(Text::IsTime, {TimeShown(time.Hour(), time.Minute(), time.Second())}), room};
  if (IsForm(text, moment, room, &TConfigFile::ReadSystemTime, &TConfigFile::WriteSystemTime))
    return Meaning{Say(Text::IsMoment, {DayShown(moment.Year(), moment.Month(), moment.Day()),
                                        TimeShown(moment.Hour(), moment.Minute(), moment.Second()),
                                        InUserDigits(moment.Milliseconds())}),
                   room};
  return std::nullopt;
}

std::optional<Meaning> AsFont(const CString& text) {
  LOGFONTW font{};
  unsigned int room = 0;
  if (!IsForm(text, font, room, &TConfigFile::ReadFont, &TConfigFile::WriteFont)) return std::nullopt;
  std::string said = Say(Text::IsFont, {Utf8(font.lfFaceName), Shown(font.lfHeight)});
  const struct {
    bool set;
    Text name;
  } styles[] = {{font.lfWeight >= 700, Text::Bold},
                {font.lfItalic != 0, Text::Italic},
                {font.lfUnderline != 0, Text::Underlined},
                {font.lfStrikeOut != 0, Text::StruckOut}};
  for (const auto& style : styles)
    if (style.set) said = Say(Text::Listed, {said, Say(style.name)});
  return Meaning{said, room};
}

// What is written differs from what is read, so the letter in front tells the form.
std::optional<Meaning> AsColor(const CString& text) {
  TColor color;
  const OneText store(text);
  const CString start = CString(text).TrimLeft(L" \t").Left(1);
  if (start.CompareNoCase(L"R") != 0 || !store.ReadColor(kAny, kAny, color)) return std::nullopt;
  const unsigned char channels[] = {color.Red(), color.Green(), color.Blue()};
  std::string digits;
  for (const unsigned char channel : channels) digits += PairsOf(&channel, 1);
  return Meaning{Say(Text::IsColor, {digits}), store.Room()};
}

// Of the words for yes and no; their digits are numbers to most readers.
std::optional<Meaning> AsBool(const CString& text) {
  bool value = false;
  const OneText store(text);
  if (text == L"0" || text == L"1" || !TConfigFile::StringToBool(text, &value)) return std::nullopt;
  store.ReadBool(kAny, kAny, value);
  return Meaning{Say(Text::IsBool, {Say(value ? Text::Yes : Text::No)}), store.Room()};
}

std::optional<Meaning> AsRecord(const CString& text) {
  constexpr int kLengthDigits = 4;
  const std::wstring_view digits = text.View();
  const int size = (text.GetLength() - kLengthDigits) / 2;
  if (size <= 0 || digits.find_first_not_of(L"0123456789ABCDEFabcdef") != digits.npos) return std::nullopt;
  std::vector<unsigned char> bytes(static_cast<std::size_t>(size));
  if (text.GetLength() != kLengthDigits + 2 * size || !StringToStruct(bytes.data(), size, text))
    return std::nullopt;
  return Meaning{Say(Text::IsRecord, {Shown(size), PairsOf(bytes.data(), bytes.size())}), 0};
}

std::optional<Meaning> AsBytes(const CString& text) {
  constexpr int kPerByte = 3;
  std::vector<unsigned char> bytes(static_cast<std::size_t>(text.GetLength() / kPerByte));
  const auto size = static_cast<unsigned int>(bytes.size());
  OneText store(text);
  if (size == 0 || !store.ReadData(kAny, kAny, bytes.data(), size)) return std::nullopt;
  store.WriteData(kAny, kAny, bytes.data(), size);
  if (!(store.Text() == text)) return std::nullopt;
  return Meaning{Say(Text::IsBytes, {Shown(static_cast<int>(size))}), 0};
}

// Digits, a sign, a point and an exponent alone, so that the whole text is the number.
std::optional<Meaning> AsNumber(const CString& text) {
  const std::wstring_view digits = text.View();
  if (digits.find_first_not_of(L"0123456789+-.e") != digits.npos ||
      digits.find_first_of(L"0123456789") == digits.npos)
    return std::nullopt;
  const OneText store(text);
  const double number = store.ReadDouble(kAny, kAny, 0);
  char shortest[32];
  char* const end = std::to_chars(shortest, shortest + sizeof shortest, number).ptr;
  return Meaning{Say(Text::IsNumber, {InUserDigits(std::string(&shortest[0], end))}), store.Room()};
}

}  // namespace

std::string MeaningOf(const Setting& setting) {
  if (!IsText(setting.type)) return {};
  const CString text = TextOf(setting);
  if (text.IsEmpty()) return {};
  for (const auto as : {AsShape, AsMoment, AsFont, AsColor, AsBool, AsRecord, AsBytes, AsNumber}) {
    const auto meaning = as(text);
    if (!meaning) continue;
    if (meaning->room == 0 || setting.data.size() <= meaning->room) return meaning->text;
    const int most = static_cast<int>(meaning->room / 2) - 1;
    return Say(Text::TwoClauses, {meaning->text, Say(Text::TooLong, {Shown(most)})});
  }
  return {};
}

std::string PairsOf(const unsigned char* bytes, std::size_t count) {
  constexpr std::size_t kMost = 64;
  const std::string pairs = AllPairsOf(bytes, std::min(count, kMost));
  return count <= kMost ? pairs : Say(Text::MoreBytes, {pairs, InUserDigits(static_cast<int>(count))});
}

std::string AllPairsOf(const unsigned char* bytes, std::size_t count) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string pairs;
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) pairs += ' ';
    (pairs += kDigits[bytes[i] >> 4]) += kDigits[bytes[i] & 15];
  }
  return pairs;
}

}  // namespace Cli
