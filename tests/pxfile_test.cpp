#include "pxfile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "pxfile2.h"
#include "pxfilestream.h"
#include "support/documents.h"
#include "support/golden.h"
#include "support/raises.h"
#include "support/slots.h"
#include "utf8.h"

namespace {

class PXFileTest : public testing::Test {
 protected:
  CString Path(const char* name) const { return Qel::FromUtf8((m_Folder.Path() / name).string()); }
  CString Make(const char* name, const std::string& content) const {
    std::ofstream(m_Folder.Path() / name, std::ios::binary) << content;
    return Path(name);
  }
  std::string Content(const char* name) const {
    std::ifstream file(m_Folder.Path() / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  const TempFolder m_Folder;
};
using PXFile2Test = PXFileTest;
using PXFileStreamTest = PXFileTest;
using LinuxFileStreamTest = PXFileTest;

// UTF-16LE.
std::string Bytes(std::u16string_view text) {
  std::string bytes;
  for (const char16_t unit : text) bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
  return bytes;
}

template <class File>
std::vector<std::wstring> Lines(File& file) {
  std::vector<std::wstring> lines;
  CString line;
  for (int length = file.ReadLine(line); length > 0; length = file.ReadLine(line)) {
    EXPECT_EQ(length, line.GetLength());
    lines.emplace_back(line.View());
  }
  EXPECT_TRUE(line.IsEmpty());
  EXPECT_TRUE(file.Eof());
  return lines;
}

}  // namespace

TEST_F(PXFileTest, LinesEndAndAreSkippedAsLaidDown) {
  const std::u16string longest(70000, u'x');
  const struct {
    const char* name;
    std::string content;
    std::vector<std::wstring> lines;
    std::vector<int> positions;  // behind each
  } rows[] = {
      {"nothing", "", {}, {}},
      {"pairs and blank lines", Bytes(u"\r\nab\r\n\n\rc\n"), {L"ab", L"c"}, {10, 20}},
      {"no end", Bytes(u"ab\ncd"), {L"ab", L"cd"}, {6, 10}},
      {"half a unit at the end", Bytes(u"ab\ncd") + "x", {L"ab", L"cd"}, {6, 11}},
      {"half a unit alone", "x", {}, {}},
      {"mark in front", Bytes(u"\uFEFFab\n"), {L"ab"}, {8}},
      {"mark inside", Bytes(u"ab\uFEFFcd\uFEFF\r\n\uFEFF\nef"), {L"ef"}, {24}},
      {"pair of surrogates", Bytes(u"\xD83D\xDE00\n\xDE00"), {L"\xD83D\xDE00", L"\xDE00"}, {6, 8}},
      {"bytes of CR and LF in other units",
       Bytes(u"\u0D0A\u0A0D\u0D00\u0A00\uFFFE\n"),
       {L"\u0D0A\u0A0D\u0D00\u0A00\uFFFE"},
       {12}},
      {"longer than a block",
       Bytes(longest + u"\n" + longest),
       {std::wstring(70000, L'x'), std::wstring(70000, L'x')},
       {140002, 280002}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    TPXFile file(Make("file", row.content), FA_READ);
    CString line;
    for (std::size_t i = 0; i < row.lines.size(); ++i) {
      EXPECT_EQ(file.ReadLine(line), static_cast<int>(row.lines[i].size()));
      EXPECT_EQ(line.View(), row.lines[i]);
      EXPECT_EQ(file.GetPos(), row.positions[i]);
    }
    EXPECT_EQ(Lines(file), std::vector<std::wstring>());
    EXPECT_EQ(file.GetErrorCode(), 0u);
    EXPECT_EQ(file.GetPos(), static_cast<int>(row.content.size()));
  }
}

TEST_F(PXFileTest, ReadsSeeksCopiesAndTheHandleAreWhereTheLinesAre) {
  Make("file", Bytes(u"one\ntwo\nthree\nfour\n"));
  TPXFile file(Path("file"), FA_READWRITE);
  CString line;
  char bytes[3] = {};
  file.ReadLine(line);
  EXPECT_EQ(file.Read(bytes, 2), 2);
  EXPECT_EQ(std::string(bytes), "t");
  EXPECT_EQ(file.Seek(-2, 1), 8);
  EXPECT_EQ(file.Write(L"T"), 2);
  file.ReadLine(line);
  EXPECT_EQ(line, L"wo");
  TPXFile copy(file);
  EXPECT_EQ(copy.ReadLine(line), 5);
  EXPECT_EQ(file.GetPos(), 28);
  TPXFile assigned;
  assigned = file;
  file.Close();
  EXPECT_EQ(assigned.ReadLine(line), 4);
  EXPECT_EQ(copy.GetPos(), 38);
  EXPECT_EQ(copy.Append("x", 1), 1);
  EXPECT_STREQ(copy.GetFileName(), Path("file"));
  copy.Close();
  assigned.Close();
  EXPECT_EQ(Content("file"), Bytes(u"one\nTwo\nthree\nfour\n") + "x");
}

TEST_F(PXFileTest, OpensByMode) {
  const struct {
    const char* name;
    TFileAccessMode mode;
    DWORD code;
    DWORD readCode;  // of a read
    int written;     // by a write of one byte
    const char* left;
  } rows[] = {
      {"file", FA_NONE, 87, 0, 0, "ab"},     {"file", static_cast<TFileAccessMode>(5), 87, 0, 0, "ab"},
      {"file", FA_READ, 0, 0, 0, "ab"},      {"file", FA_WRITE, 0, 5, 1, "xb"},
      {"file", FA_READWRITE, 0, 0, 1, "ax"}, {"file", FA_CREATE, 0, 5, 1, "x"},
      {"none", FA_READ, 2, 0, 0, ""},        {"none", FA_WRITE, 2, 0, 0, ""},
      {"none", FA_READWRITE, 2, 0, 0, ""},   {"none", FA_CREATE, 0, 5, 1, "x"},
      {"none/none", FA_CREATE, 3, 0, 0, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.name) + " " + std::to_string(row.mode));
    std::filesystem::remove(Qel::ToUtf8(Path("none")));
    Make("file", "ab");
    TPXFile file;
    EXPECT_EQ(file.Open(Path(row.name), row.mode) != 0, row.code == 0);
    EXPECT_EQ(file.GetErrorCode(), row.code);
    EXPECT_STREQ(file.GetFileName(), Path(row.name));
    char one = 0;
    if (row.code == 0) {
      EXPECT_EQ(file.Read(&one, 1), row.readCode ? 0 : 1);
      EXPECT_EQ(file.GetErrorCode(), row.readCode);
      if (row.written) {
        EXPECT_EQ(file.Write(L""), 0);
        EXPECT_EQ(file.GetErrorCode(), 0u);
      }
      EXPECT_EQ(file.Write("x"), row.written);
      EXPECT_EQ(file.GetErrorCode(), row.written ? 0u : 5u);
    }
    file.Close();
    EXPECT_EQ(Content(row.name), row.left);
  }
}

TEST_F(PXFileTest, RepairsNamesAndKeepsWhatFits) {
  Make("file", "x");
  TPXFile file((L" \"" + Path("file") + L"\" ").GetString(), FA_READ);
  EXPECT_EQ(file.GetFileSize(), 1);
  EXPECT_STREQ(file.GetFileName(), Path("file"));
  EXPECT_EQ(file.GetAttributes() & 0x10, 0u);
  const CString tooLong(std::wstring(300, L'n'));
  EXPECT_FALSE(file.Open(tooLong, FA_READ));
  EXPECT_STREQ(file.GetFileName(), tooLong.Left(259));
  EXPECT_EQ(file.GetFileSize(), 0);
}

TEST_F(PXFileTest, ReadersAreTogetherAndWritersAlone) {
  for (const auto first : {FA_READ, FA_WRITE, FA_READWRITE, FA_CREATE})
    for (const auto second : {FA_READ, FA_WRITE, FA_READWRITE, FA_CREATE}) {
      Make("file", "0123456789");
      TPXFile one(Path("file"), first), two;
      const bool both = first == FA_READ && second == FA_READ;
      EXPECT_EQ(two.Open(Path("file"), second) != 0, both) << first << second;
      EXPECT_EQ(two.GetErrorCode(), both ? 0u : 32u);
      EXPECT_EQ(one.GetFileSize(), first == FA_CREATE ? 0 : 10);
    }
}

TEST_F(PXFileTest, WritesTextInUnitsAndBytesAsTheyAre) {
  TPXFile file(Path("file"), FA_CREATE);
  const std::wstring longText(10000, L'\u0645');
  EXPECT_EQ(file.Write(L"ab\U0001F600"), 8);  // one element on Linux, two units all the same
  EXPECT_EQ(file.Write(L"cd", 1), 2);
  EXPECT_EQ(file.Write(CString(L"ef"), 10), 4);
  EXPECT_EQ(file.Write("gh"), 2);
  EXPECT_EQ(file.Write("ij", 1), 1);
  EXPECT_EQ(file.Write(CString(longText)), 20000);
  EXPECT_EQ(file.Seek(0, 0), 0);
  EXPECT_EQ(file.Append("z", 1), 1);
  EXPECT_EQ(file.Seek(-1, 0), -1);
  EXPECT_EQ(file.GetErrorCode(), 131u);
  EXPECT_EQ(file.Seek(0, 3), -1);
  EXPECT_EQ(file.GetErrorCode(), 87u);
  EXPECT_EQ(file.GetPos(), 20018);
  EXPECT_EQ(file.GetErrorCode(), 0u);
  file.Close();
  EXPECT_EQ(Content("file"), Bytes(u"ab\xD83D\xDE00"
                                   u"cef") +
                                 "ghi" + Bytes(std::u16string(10000, u'\u0645')) + "z");
}

TEST_F(PXFileTest, SizesHave64Bits) {
  TPXFile file(Path("file"), FA_CREATE);
  file.Seek(0x7FFFFFFF, 0);
  file.Seek(0x7FFFFFFF, 1);
  EXPECT_EQ(file.Seek(100, 1), 98);
  EXPECT_EQ(file.Write("x"), 1);
  EXPECT_EQ(file.GetFileSize(), 4294967395);
}

TEST_F(PXFileTest, EndIsRememberedUntilTheNextOpeningForReading) {
  Make("file", "x");
  TPXFile file(Path("file"), FA_READWRITE);
  char bytes[2];
  EXPECT_EQ(file.Read(bytes, 0), 0);
  EXPECT_EQ(file.Read(bytes, 2), 1);
  EXPECT_FALSE(file.Eof());
  EXPECT_EQ(file.Read(bytes, 2), 0);
  EXPECT_TRUE(file.Eof());
  EXPECT_EQ(file.GetErrorCode(), 0u);
  file.Open(Path("file"), FA_READWRITE);
  EXPECT_TRUE(file.Eof());
  file.Open(Path("file"), FA_READ);
  EXPECT_FALSE(file.Eof());
}

TEST_F(PXFileTest, ClosedFilesRaise) {
  TPXFile file;
  CString line(L"old");
  char one = 0;
  const std::function<void()> calls[] = {
      [&] { file.Read(&one, 1); }, [&] { file.Write(&one, 1); }, [&] { file.Write(L"x"); },
      [&] { file.Write("x"); },    [&] { file.Write(line); },    [&] { file.Append(&one, 1); },
      [&] { file.Seek(0, 0); },    [&] { file.GetPos(); },       [&] { file.ReadLine(line); },
  };
  for (const auto& call : calls) EXPECT_EQ(RaisedBy(call), L"hFile != INVALID_HANDLE_VALUE");
  const auto raised = Raised(calls[0]);
  EXPECT_EQ(raised->GetFile(), L"src/pxfile");
  EXPECT_EQ(raised->GetLineNumber(), 133);
  EXPECT_NE(std::string(raised->GetFunctionName()).find("int TPXFile::Read(void*, unsigned int)"),
            std::string::npos);
  EXPECT_EQ(RaisedBy([&] { file.GetAttributes(); }), L"*FileName != NULL");
  file.Close();
  EXPECT_FALSE(file.Eof());
  EXPECT_STREQ(file.GetFileName(), L"");
  ExpectSlotsFrom(2, &TPXFile::GetFileName, &TPXFile::ReadLine);
}

TEST_F(PXFile2Test, FirstBytesTellTheEncoding) {
  const std::string arabic = "\xD9\x85\xD9\x84\xD9\x81";
  const struct {
    std::string content;
    int id;
    std::vector<std::wstring> lines;
  } rows[] = {
      {"", 0, {}},
      {"\xEF\xBB\xBF\r\n" + arabic + "\r\n\n\xFF", 1, {L"\u0645\u0644\u0641", L"\uFFFD"}},
      {"\xEF\xBB", 0, {L"\uBBEF"}},
      {std::string("\xFE\xFF\x06\x45\0\n\0b\0", 9), 2, {L"\u0645", L"b"}},
      {"\xFF\xFE" + Bytes(u"\u0645\nb\uFEFF") + "x", 2, {L"\u0645", L"b\uFEFF"}},
      {std::string("\xFF\xFE\0\0a\0", 6), 2, {{L"\0a", 2}}},
      {std::string("\0\0\xFE\xFF", 4), 3, {{L"\0\uFFFE", 2}}},
      {std::string("\0\0\xFF\xFE", 4), 3, {{L"\0\uFEFF", 2}}},
      {std::string("\x0E\xFE\xFF\0", 4), 4, {L"\uFE0E\u00FF"}},
      {"\x2B\x2F\x76\x38", 5, {L"\u2F2B\u3876"}},
      {"\x2B\x2F\x76\x39", 5, {L"\u2F2B\u3976"}},
      {"\x2B\x2F\x76\x2B", 5, {L"\u2F2B\u2B76"}},
      {"\x2B\x2F\x76\x2F", 5, {L"\u2F2B\u2F76"}},
      {"\x2B\x2F\x76\x2E", 0, {L"\u2F2B\u2E76"}},
      {"\xDD\x73\x66\x73", 6, {L"\u73DD\u7366"}},
      {"\xFB\xEE\x28\x28", 7, {L"\uEEFB\u2828"}},
      {Bytes(u"a\r\n\r\nb"), 0, {L"a", L"b"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(SpelledBytes(row.content));
    TPXFile2 file(Make("file", row.content));
    EXPECT_EQ(file.GetSignature() ? file.GetSignature()->id : 0, row.id);
    EXPECT_FALSE(file.Eof());
    TPXFile2 copy(file);
    EXPECT_EQ(Lines(file), row.lines);
    EXPECT_EQ(Lines(copy), row.lines);
    EXPECT_EQ(file.GetErrorCode(), 0u);
  }
}

TEST_F(PXFile2Test, FilesThatCannotBeReadHaveNoLines) {
  TPXFile2 file((L"'" + Path("none") + L"'").GetString());
  EXPECT_STREQ(file.GetFileName(), Path("none"));
  EXPECT_EQ(file.GetErrorCode(), 2u);
  EXPECT_EQ(Lines(file), std::vector<std::wstring>());
}

TEST_F(PXFileStreamTest, TextIsWrittenInUtf16AndReadBack) {
  const std::wstring longText(5000, L'\u0645');
  TPXFileStream stream(Path("log"), FSM_APPEND);
  stream << CString(L"orders: ") << -12 << L' ' << 7u << " \xE3\r\n"
         << 0.1 << L" " << -9223372036854775807LL << L"\n";
  EXPECT_EQ(Content("log"), "");
  EXPECT_TRUE(stream.flush());
  EXPECT_EQ(Content("log"), Bytes(u"\uFEFForders: -12 7 \u0645\r\n0.1 -9223372036854775807\n"));
  EXPECT_TRUE(stream.open(Path("log"), FSM_APPEND));
  stream << longText.c_str();
  stream << longText.c_str() << L"\n"
         << static_cast<const wchar_t*>(nullptr) << static_cast<const char*>(nullptr);
  EXPECT_EQ(TPXFile2(Path("log")).GetErrorCode(), 32u);
  EXPECT_TRUE(stream.close());
  const std::vector<std::wstring> lines = {L"orders: -12 7 \u0645", L"0.1 -9223372036854775807",
                                           longText + longText};
  TPXFile file(Path("log"), FA_READ);
  EXPECT_EQ(Lines(file), lines);
  TPXFile2 whole(Path("log"));
  EXPECT_EQ(Lines(whole), lines);
}

TEST_F(PXFileStreamTest, BytesAreWrittenAsTheyAre) {
  Make("log", "old");
  const std::string bytes(20000, 'b');
  {
    TPXFileStream stream(Path("log"), FSM_CREATE);
    EXPECT_TRUE(stream.write("a", 1));
    EXPECT_TRUE(stream.write(bytes.data(), 20000));
    EXPECT_TRUE(stream.write("c", 1));
  }
  EXPECT_EQ(Content("log"),
            "\xFF\xFE"
            "a" +
                bytes + "c");
}

TEST_F(PXFileStreamTest, WithoutAFileNothingIsGood) {
  TPXFileStream stream;
  EXPECT_FALSE(stream.open(Path("none/log"), FSM_CREATE));
  stream << L"lost";
  EXPECT_FALSE(stream.good() || stream.clear() || stream.write("x", 1) || stream.flush() || stream.close());
}

TEST_F(LinuxFileStreamTest, AFullDiskIsNoticedAndForgotten) {
  if (RunsOnWindows()) GTEST_SKIP() << "a device of Linux";
  TPXFileStream stream(L"\\dev\\full", FSM_APPEND);
  EXPECT_TRUE(stream.write("x", 1));
  EXPECT_FALSE(stream.flush());
  EXPECT_FALSE(stream.good());
  EXPECT_FALSE(stream.write("x", 1));
  EXPECT_TRUE(stream.clear());
  EXPECT_TRUE(stream.flush());
}
