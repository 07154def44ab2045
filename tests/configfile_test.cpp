#include "configfile.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <functional>
#include <limits>
#include <numeric>
#include <sstream>
#include <string>
#include <vector>

#include "px_format.h"
#include "regconfig.h"
#include "support/raises.h"
#include "support/slots.h"
#include "support/temp_registry.h"
#include "support/text_store.h"

using Qel::Sys::Text::pxFormat;

namespace {

constexpr wchar_t kSection[] = L"Window";
constexpr wchar_t kEntry[] = L"Entry";
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct TextPlace {
  TextStore file;
};
struct RegistryPlace {
  TempRegistry registry;
  TRegConfigFile file{L"Test", HKEY_CURRENT_USER};
};

// Sees to it that a changed precision does not outlive its test.
struct PrecisionGuard {
  ~PrecisionGuard() { TConfigFile::SetPrecision(-1); }
};

// What a reader gave: its numbers, behind "no" when it said false.
template <class... Numbers>
std::wstring Answer(bool read, Numbers... numbers) {
  std::wstring text = read ? L"" : L"no ";
  ((text += std::to_wstring(numbers) + L" "), ...);
  text.pop_back();
  return text;
}

// Readers into outputs full of sevens, which they must leave alone when they say false.

std::wstring Bool(const TConfigFile& file) {
  return Answer(true, file.ReadBool(kSection, kEntry, true), file.ReadBool(kSection, kEntry, false));
}

std::wstring Double(const TConfigFile& file) {
  const double value = file.ReadDouble(kSection, kEntry, -7.5);
  return value == -7.5 ? std::wstring(L"no") : std::wstring(pxFormat(L"%.17g", value));
}

std::wstring SystemTime(const TConfigFile& file) {
  TSystemTime t = SYSTEMTIME{7, 7, 7, 7, 7, 7, 7, 7};
  const bool read = file.ReadSystemTime(kSection, kEntry, t);
  return Answer(read, t.Year(), t.Month(), t.DayOfWeek(), t.Day(), t.Hour(), t.Minute(), t.Second(),
                t.Milliseconds());
}

std::wstring TimeOfDay(const TConfigFile& file) {
  TTime t(7, 7, 7);
  const bool read = file.ReadTime(kSection, kEntry, t);
  return Answer(read, t.Hour(), t.Minute(), t.Second());
}

std::wstring Day(const TConfigFile& file) {
  TDate date(7, 7, 7);
  const bool read = file.ReadDate(kSection, kEntry, date);
  return Answer(read, date.Day(), date.Month(), date.Year());
}

std::wstring Color(const TConfigFile& file) {
  TColor color(7, 7, 7);
  const bool read = file.ReadColor(kSection, kEntry, color);
  return Answer(read, color.Red(), color.Green(), color.Blue());
}

std::wstring Point(const TConfigFile& file) {
  TPoint point{7, 7};
  const bool read = file.ReadPoint(kSection, kEntry, point);
  return Answer(read, point.x, point.y);
}

std::wstring Size(const TConfigFile& file) {
  TSize size{7, 7};
  const bool read = file.ReadSize(kSection, kEntry, size);
  return Answer(read, size.cx, size.cy);
}

std::wstring Rect(const TConfigFile& file) {
  TRect rect{7, 7, 7, 7};
  const bool read = file.ReadRect(kSection, kEntry, rect);
  return Answer(read, rect.left, rect.top, rect.right, rect.bottom);
}

std::wstring FontText(const TConfigFile& file) {
  LOGFONTW f{7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, L"seven"};
  const bool read = file.ReadFont(kSection, kEntry, f);
  return Answer(read, f.lfHeight, f.lfWidth, f.lfWeight, f.lfItalic, f.lfUnderline, f.lfStrikeOut,
                f.lfEscapement, f.lfOrientation, f.lfCharSet, f.lfOutPrecision, f.lfClipPrecision,
                f.lfQuality, f.lfPitchAndFamily) +
         L" " + f.lfFaceName;
}

std::wstring TextOf(const TConfigFile& file, const wchar_t* entry = kEntry) {
  CString text;
  file.ReadString(CString(kSection), CString(entry), text, nullptr);
  return std::wstring(text);
}

template <class Place>
class TypedEntriesTest : public testing::Test {
 protected:
  Place m_Place;
  TConfigFile& m_File = m_Place.file;
};
using Places = testing::Types<TextPlace, RegistryPlace>;
TYPED_TEST_SUITE(TypedEntriesTest, Places);

}  // namespace

TYPED_TEST(TypedEntriesTest, WritersStoreTheFixedForms) {
  const auto write = [](auto writer, const auto& value) {
    return [=](TConfigFile& file) { return (file.*writer)(kSection, kEntry, value); };
  };
  using WriteSize = bool (TConfigFile::*)(const wchar_t*, const wchar_t*, const TSize&);
  const auto writeTime = [](TConfigFile& file) {
    TTime time(23, 5, 58);
    return file.WriteTime(kSection, kEntry, time);
  };
  const LOGFONTW bold{-13, 4, 900, -900, 700, 1, 0, 1, 178, 1, 2, 3, 34, L"Arial, fett"};
  LOGFONTW full{0, 0, 0, 0, 699, 0, 1, 1, 255, 0, 0, 0, 0, L""};
  std::fill_n(full.lfFaceName, LF_FACESIZE, L'x');  // no room for a terminator
  const struct {
    const char* name;
    std::function<bool(TConfigFile&)> write;
    std::wstring stored;
  } rows[] = {
      {"true", write(&TConfigFile::WriteBool, true), L"yes"},
      {"false", write(&TConfigFile::WriteBool, false), L"no"},
      {"system time", write(&TConfigFile::WriteSystemTime, SYSTEMTIME{2024, 3, 4, 7, 23, 59, 58, 997}),
       L"2024,3,4,7,23,59,58,997"},
      {"time", writeTime, L"h=23 m=5 s=58"},
      {"date", write(&TConfigFile::WriteDate, TDate(7, 3, 2024)), L"03/07/2024"},
      {"channels as characters", write(&TConfigFile::WriteColor, TColor(200, 44, 53)),
       L"R=\u00C8u,G=,u,B=5u"},
      {"channel 0 ends the text", write(&TConfigFile::WriteColor, TColor(0, 1, 2)), L"R="},
      {"point", write(&TConfigFile::WritePoint, TPoint{10, -20}), L"X=10,Y=-20"},
      {"size", write(WriteSize(&TConfigFile::WriteSize), TSize{30, 40}), L"W=30,H=40"},
      {"rectangle", write(&TConfigFile::WriteRect, TRect{10, 20, 40, 15}), L"L=10,T=20,W=30,H=-5"},
      {"bold font", write(&TConfigFile::WriteFont, bold), L"-13,4,BIS,900,-900,178,1,2,3,34,Arial, fett"},
      {"no font", write(&TConfigFile::WriteFont, full), L"0,0,NUS,0,0,255,0,0,0,0," + std::wstring(32, L'x')},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_TRUE(row.write(this->m_File));
    EXPECT_EQ(TextOf(this->m_File), row.stored);
  }
}

TYPED_TEST(TypedEntriesTest, ReadersTakeTheFixedFormsAlone) {
  using Reader = std::wstring (*)(const TConfigFile&);
  const struct {
    const char* name;
    Reader read;
    const wchar_t *stored, *answer;
  } rows[] = {
      {"yes", Bool, L"On", L"1 1"},
      {"no", Bool, L"FALSE", L"0 0"},
      {"other words", Bool, L"maybe", L"1 0"},
      {"number before text", Double, L" -2.5e1x", L"-25"},
      {"text has no sign", Double, L"-x", L"0"},
      {"hexadecimal", Double, L"0x1.8P4", L"24"},
      {"hexadecimal fraction", Double, L"0x.8", L"0.5"},
      {"no hexadecimal digit", Double, L"0xg", L"0"},
      {"two signs", Double, L"+-1", L"0"},
      {"too large", Double, L"-1e999", L"-inf"},
      {"too small", Double, L"1e-999", L"0"},
      {"other digits", Double, L"\u0661", L"0"},
      {"whole system time", SystemTime, L"2024,3,4,7,23,59,58,997", L"2024 3 4 7 23 59 58 997"},
      {"what cannot be read is 0", SystemTime, L" 2024, 3 ,4", L"2024 3 0 0 0 0 0 0"},
      {"low 16 bits", SystemTime, L"70000,-1,9999999999", L"4464 65535 65535 0 0 0 0 0"},
      {"whole time", TimeOfDay, L"h=23 m=5 s=58", L"23 5 58"},
      {"blanks that may be missing", TimeOfDay, L"h=1m= 2   s=3", L"1 2 3"},
      {"wrong order", TimeOfDay, L"h=1 s=3 m=2", L"1 0 0"},
      {"blank before the sign", TimeOfDay, L"h =1", L"0 0 0"},
      {"date", Day, L"03/07/2024", L"7 3 2024"},
      {"other separators and shorter", Day, L" 3-7.99 12:00", L"7 3 99"},
      {"leap day", Day, L"02/29/2024", L"29 2 2024"},
      {"no leap day", Day, L"02/29/2023", L"no 7 7 7"},
      {"year 10000", Day, L"1/1/10000", L"no 7 7 7"},
      {"colour", Color, L"R=255, G=0, B=128", L"255 0 128"},
      {"small letters, blanks", Color, L"r = 1,g\t= 2,b = 3", L"1 2 3"},
      {"bare numbers", Color, L"255,0,128", L"255 0 128"},
      {"letter without sign", Color, L"R5,G 6,B", L"5 6 0"},
      {"no numbers", Color, L"R=,G=,B=", L"0 0 0"},
      {"another channel's letter", Color, L"G=1,G=2,B=3", L"0 2 3"},
      {"more commas", Color, L"1,2,3,4", L"1 2 3"},
      {"as written", Color, L"R=5u,G=,u,B=5u", L"5 0 0"},
      {"one comma", Color, L"1,2", L"no 7 7 7"},
      {"256", Color, L"R=0,G=256,B=0", L"no 7 7 7"},
      {"below 0", Color, L"R=0,G=0,B=-1", L"no 7 7 7"},
      {"beyond 32 bits", Color, L"4294967296,0,0", L"no 7 7 7"},
      {"point", Point, L"X=10,Y=20", L"10 20"},
      {"beyond 32 bits", Point, L"X=99999999999,Y=1", L"2147483647 1"},
      {"below 0", Point, L"X=10,Y=-2", L"no 7 7"},
      {"blank before the digit", Point, L"X= 5,Y=1", L"no 7 7"},
      {"other digits", Point, L"X=1,Y=\u0661", L"no 7 7"},
      {"one number", Size, L"W=30", L"no 7 7"},
      {"rectangle", Rect, L"L=10,T=20,W=30,H=40", L"10 20 40 60"},
      {"rectangle below 0", Rect, L"L=-5,T=0,W=1,H=1", L"no 7 7 7 7"},
      {"sum beyond 32 bits", Rect, L"=1=0=2147483647=0", L"1 0 -2147483648 0"},
      {"font", FontText, L"-13, 4 ,SIB,900,-900,178,1,2,3,34,\tArial, fett ",
       L"-13 4 700 1 0 1 900 -900 178 1 2 3 34 Arial, fett"},
      {"clamped bytes, weights", FontText, L"1,1,NU,1,1,256,-1,x,,1,", L"1 1 400 0 1 0 1 1 255 0 0 0 1 "},
      {"long face", FontText, L"0,0,N,0,0,0,0,0,0,0,1234567890123456789012345678901!",
       L"0 0 400 0 0 0 0 0 0 0 0 0 0 1234567890123456789012345678901"},
      {"ten fields", FontText, L"1,2,B,0,0,0,0,0,0,Arial", L"no 7 7 7 7 7 7 7 7 7 7 7 7 7 seven"},
      {"empty", Bool, L"", L"1 0"},
      {"empty", Double, L"", L"no"},
      {"empty", SystemTime, L"", L"no 7 7 7 7 7 7 7 7"},
      {"empty", TimeOfDay, L"", L"no 7 7 7"},
      {"empty", Day, L"", L"no 7 7 7"},
      {"empty", Color, L"", L"no 7 7 7"},
      {"empty", Rect, L"", L"no 7 7 7 7"},
      {"empty", FontText, L"", L"no 7 7 7 7 7 7 7 7 7 7 7 7 7 seven"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name + std::string(" of ") + testing::PrintToString(row.stored));
    this->m_File.WriteString(kSection, kEntry, row.stored);
    EXPECT_EQ(row.read(this->m_File), row.answer);
    if (*row.stored != L'\0') continue;
    this->m_File.EraseEntry(kSection, kEntry);
    EXPECT_EQ(row.read(this->m_File), row.answer) << "missing";
  }
}

TYPED_TEST(TypedEntriesTest, DoublesHaveThePrecisionsDigitsAndComeBackByDefault) {
  const PrecisionGuard guard;
  const struct {
    int precision;
    double value;
    const wchar_t* stored;
  } rows[] = {
      {-1, 0.1, L"0.10000000000000000555"},
      {-9, 1.0 / 3, L"0.33333333333333331483"},
      {-1, 5e-324, L"4.9406564584124654418e-324"},
      {-1, -1.7976931348623157e308, L"-1.7976931348623157081e+308"},
      {-1, -0.0, L"-0"},
      {-1, kInfinity, L"inf"},
      {0, 1234567, L"1.23457e+06"},
      {3, 0.1, L"0.1"},
      {3, 2.0 / 3, L"0.667"},
  };
  for (const auto& row : rows) {
    TConfigFile::SetPrecision(row.precision);
    EXPECT_TRUE(this->m_File.WriteDouble(kSection, kEntry, row.value));
    EXPECT_EQ(TextOf(this->m_File), row.stored);
    if (row.precision >= 0) continue;
    const double read = this->m_File.ReadDouble(kSection, kEntry, 7);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(read), std::bit_cast<std::uint64_t>(row.value)) << row.stored;
  }
}

TEST(ConfigFileTest, IntegersAreTheNumberAtTheTextsStart) {
  const struct {
    const wchar_t* stored;
    int read;
  } rows[] = {{L" -12AB", -12},
              {L"AB", 0},
              {L"", 7},
              {L"99999999999999999999", 2147483647},
              {L"-99999999999999999999", -2147483647 - 1}};
  TextStore store;
  for (const auto& row : rows) {
    store.WriteString(kSection, kEntry, row.stored);
    EXPECT_EQ(store.ReadInteger(kSection, kEntry, 7), row.read) << testing::PrintToString(row.stored);
  }
  EXPECT_TRUE(store.WriteInteger(kSection, kEntry, -2147483647 - 1));
  EXPECT_EQ(TextOf(store), L"-2147483648");
  try {
    store.ReadInteger(kSection, nullptr, 7);
    FAIL() << "a null entry was read";
  } catch (Qel::Sys::Exceptions::TXAssertion* e) {
    EXPECT_EQ(e->GetError() + L" " + e->GetFile(), L"entry != nullptr src/registry/configfile");
    EXPECT_EQ(e->GetLineNumber(), 218);
    e->Delete();
  }
}

TEST(ConfigFileTest, BytesStandAtEveryThirdCharacter) {
  TextStore store;
  std::uint8_t written[] = {0x01, 0xAB};
  EXPECT_TRUE(store.WriteData(kSection, kEntry, written, 2));
  EXPECT_EQ(TextOf(store), L"01 AB ");
  const struct {
    const wchar_t* stored;
    unsigned size;
    bool read;
    std::vector<std::uint8_t> data;
  } rows[] = {
      {L"01 AB ", 2, true, {0x01, 0xAB, 7, 7}},
      {L"01 AB ", 4, true, {0x01, 0xAB, 7, 7}},
      {L"01 AB 03", 2, true, {0x01, 0xAB, 7, 7}},
      {L"01 aB3A", 4, true, {0x01, 0xAB, 0x0A, 7}},
      {L" 1\t2 3", 4, true, {0x01, 0x02, 7, 7}},
      {L"1  ZZ 3", 4, true, {0x01, 7, 7, 7}},
      {L"-1 02", 4, true, {7, 7, 7, 7}},
      {L"0x", 4, true, {0x00, 7, 7, 7}},
      {L"", 4, false, {7, 7, 7, 7}},
      {L"01", 0, false, {7, 7, 7, 7}},
      {L"01", 0xFFFFFFFF, false, {7, 7, 7, 7}},
  };
  for (const auto& row : rows) {
    store.WriteString(kSection, kEntry, row.stored);
    std::vector<std::uint8_t> data(4, 7);
    EXPECT_EQ(store.ReadData(kSection, kEntry, data.data(), row.size), row.read);
    EXPECT_EQ(data, row.data) << testing::PrintToString(row.stored);
  }
}

TEST(ConfigFileTest, WhatAStoreLeavesUnterminatedIsCutAtTheBuffer) {
  struct Unterminated : TextStore {
    using TConfigFile::ReadString;
    int ReadString(const wchar_t*, const wchar_t*, wchar_t* buffer, unsigned size,
                   const wchar_t*) const override {
      std::fill_n(buffer, size, L'1');
      return static_cast<int>(size);
    }
  } store;
  std::uint8_t data[] = {7, 7, 7};
  EXPECT_TRUE(store.ReadData(kSection, kEntry, data, 2));
  EXPECT_EQ(data[1] << 8 | data[2], 0x1107);
  EXPECT_EQ(TextOf(store), std::wstring(259, L'1'));
  EXPECT_EQ(Rect(store), L"no 7 7 7 7");
}

TEST(ConfigFileTest, AnEmptyTextReadsAsTheDefaultUnlessThatIsNull) {
  TextStore store;
  CString value = L"before";
  EXPECT_EQ(store.ReadString(CString(kSection), CString(kEntry), value, L"abc"), 3);
  EXPECT_EQ(value, L"abc");
  EXPECT_EQ(store.ReadString(CString(kSection), CString(kEntry), value, nullptr), 0);
  EXPECT_EQ(value, L"");
}

TEST(ConfigFileTest, NamesAsAStringAreTheFirstOneWithTheLengthOfAll) {
  const struct {
    int entries, length, listsRead;
  } rows[] = {{0, 0, 1}, {2, 13, 1}, {800, 4801, 1}, {852, 5113, 1}, {853, 5119, 2}, {1100, 6601, 3}};
  for (const auto& row : rows) {
    TextStore store;
    for (int i = 0; i < row.entries; ++i)
      store.WriteString(kSection, pxFormat(L"e%04d", i).GetString(), L"1");
    CString names = L"before";
    EXPECT_EQ(store.ReadSection(CString(kSection), names), row.length);
    EXPECT_EQ(names, row.entries == 0 ? L"" : L"e0000");
    EXPECT_EQ(store.listsRead, row.listsRead) << row.entries;
    EXPECT_EQ(store.SectionExists(kSection), row.entries != 0);
  }
}

TEST(ConfigFileTest, AStoreThatAlwaysTellsOfMoreIsLeft) {
  struct Boundless : TextStore {
    using TConfigFile::ReadSections;
    int ReadSections(wchar_t*, unsigned) const override { return std::numeric_limits<int>::max(); }
  };
  CString names;
  EXPECT_EQ(Boundless().ReadSections(names), std::numeric_limits<int>::max());
}

TEST(ConfigFileTest, LoadingMergesTextsAndNumbers) {
  const std::wstring longText(300, L'x');
  TextStore source;
  source.sections = {{L"A",
                      {{L"text", L" \ttwo words\t"},
                       {L"hex", L"ABC"},
                       {L"zeros", L" 0042 "},
                       {L"huge", L"99999999999"},
                       {L"max", L"2147483647"},
                       {L"below", L"2147483646"},
                       {L"minus", L"-5"},
                       {L"lines", L"12\nxyz"},
                       {L"blanks", L"  "},
                       {L"empty", L""},
                       {L"long", longText},
                       {L"", L"nameless"}}},
                     {L"B", {{L"one", L"x"}}}};
  TextStore target;
  target.sections = {{L"A", {{L"kept", L"k"}, {L"empty", L"before"}}}};
  target.LoadValues(source);
  const TextStore::Section expected = {
      {L"text", L"two words"}, {L"hex", L"0"},        {L"zeros", L"42"}, {L"below", L"2147483646"},
      {L"minus", L"-5"},       {L"lines", L"12"},     {L"blanks", L"0"}, {L"long", longText.substr(0, 259)},
      {L"", L"nameless"},      {L"empty", L"before"}, {L"kept", L"k"}};
  EXPECT_EQ(target.sections[L"A"], expected);
  EXPECT_EQ(target.sections[L"B"], source.sections[L"B"]);
}

// A registry's ReadString and ReadInteger both take the bytes that are stored, whatever their type.
TEST(ConfigFileTest, LoadingFromARegistryTakesFourBytesForAnInteger) {
  RegistryPlace source;
  const std::wstring longName(250, L'n');
  const struct {
    std::wstring entry;
    const wchar_t *text, *loaded;
  } rows[] = {{L"text", L" two words ", L"two words"},
              {L"eight bytes", L"123", nullptr},
              {L"four bytes", L"7", L"55"},
              {L"", L"nameless", L"nameless"},
              {L"last", L"-", L"-"}};
  for (const auto& row : rows) source.file.WriteString(kSection, row.entry.c_str(), row.text);
  source.file.WriteInteger(kSection, L"seven", 7);
  source.file.WriteInteger(L"Other", L"digits", 0x00350031);
  for (int i = 0; i < 20; ++i) source.file.WriteInteger(L"Long", (longName + std::to_wstring(i)).c_str(), 7);
  TextStore target;
  target.LoadValues(source.file);
  for (const auto& row : rows) {
    EXPECT_EQ(target.sections[kSection].contains(row.entry), row.loaded != nullptr);
    EXPECT_EQ(target.sections[kSection][row.entry], row.loaded ? row.loaded : L"");
  }
  EXPECT_EQ(target.sections[kSection][L"seven"], L"\u0007");
  EXPECT_EQ(target.sections[L"Other"][L"digits"], L"3473457");
  EXPECT_EQ(target.sections[L"Long"].size(), 20U);
  TRegConfigFile copy(L"Copy", HKEY_CURRENT_USER);
  copy.LoadValues(source.file);
  EXPECT_EQ(copy.ReadInteger(kSection, L"seven", 0), 7);
}

TEST(ConfigFileTest, LoadingLosesNoEntryOfLongSections) {
  for (const bool tellsNeed : {true, false}) {
    for (const int entries : {1, 682, 683, 800, 5000}) {
      TextStore source, target;
      source.tellsNeed = tellsNeed;
      for (int i = 0; i < entries; ++i) source.WriteString(kSection, pxFormat(L"e%04d", i).GetString(), L"1");
      target.LoadValues(source);
      EXPECT_EQ(target.sections, source.sections) << entries;
    }
  }
}

TEST(LegacyDateTest, PrintsByItsOptionWhichWritingLeavesAlone) {
  TextStore store;
  const struct {
    int option;
    const wchar_t* text;
  } rows[] = {{0, L"March 7, 2024"}, {1, L"7-Mar-2024"}, {2, L"03/07/2024"}, {3, L"March 7, 2024"}};
  for (const auto& row : rows) {
    const int before = TDate::SetPrintOption(row.option);
    EXPECT_EQ(TDate(7, 3, 2024).AsString(), row.text);
    EXPECT_EQ(TDate(31, 4, 2024).AsString(), L"");
    store.WriteDate(kSection, kEntry, TDate(7, 3, 2024));
    EXPECT_EQ(TDate::SetPrintOption(before), row.option);
  }
}

#ifdef __x86_64__
TEST(ConfigFileTest, SlotsStandWhereModulesCallThem) {
  using Forms = TConfigFile;
  int slot = 2;  // the destructor takes two in this layout
  EXPECT_EQ(SlotOf(&Forms::LoadValues), slot++);
  EXPECT_EQ(SlotOf(&Forms::SectionExists), slot++);
  EXPECT_EQ(SlotOf<int (Forms::*)(const wchar_t*, wchar_t*, unsigned) const>(&Forms::ReadSection), slot++);
  EXPECT_EQ(SlotOf<int (Forms::*)(wchar_t*, unsigned) const>(&Forms::ReadSections), slot++);
  EXPECT_EQ(SlotOf(&Forms::EraseSection), slot++);
  EXPECT_EQ(SlotOf(&Forms::EraseEntry), slot++);
  EXPECT_EQ(SlotOf(&Forms::UpdateFile), slot++);
  using ReadText = int (Forms::*)(const wchar_t*, const wchar_t*, wchar_t*, unsigned, const wchar_t*) const;
  EXPECT_EQ(SlotOf<ReadText>(&Forms::ReadString), slot++);
  using WriteText = bool (Forms::*)(const wchar_t*, const wchar_t*, const wchar_t*);
  EXPECT_EQ(SlotOf<WriteText>(&Forms::WriteString), slot++);
  EXPECT_EQ(SlotOf(&Forms::ReadData), slot++);
  EXPECT_EQ(SlotOf(&Forms::WriteData), slot++);
  EXPECT_EQ(SlotOf(&Forms::ReadInteger), slot++);
  EXPECT_EQ(SlotOf(&Forms::WriteInteger), slot++);
}
#endif
