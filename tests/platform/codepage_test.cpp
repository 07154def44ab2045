#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/platform.h"
#include "support/golden.h"

namespace {

constexpr DWORD kUnset = 0xDEAD;

unsigned Code(const GoldenRow& row, const std::string& column) {
  return static_cast<unsigned>(std::stoul(row[column], nullptr, 16));
}

// "result, last error, what was written": an untouched buffer and an untouched last error are told apart.
template <class Text>
std::string Answer(int result, const Text& out, std::size_t room,
                   std::string (*spell)(std::basic_string_view<typename Text::value_type>)) {
  const DWORD error = GetLastError();
  // A buffer is filled with a value that no row writes, so what is left of it shows how far the call came.
  std::size_t written = room;
  while (written > 0 && out[written - 1] == static_cast<typename Text::value_type>(0x7E)) --written;
  return std::to_string(result) + " " + (error == kUnset ? "-" : std::to_string(error)) + " " +
         (written == 0 ? "untouched"
                       : spell(std::basic_string_view<typename Text::value_type>(out).substr(0, written)));
}

std::string Encoded(const GoldenRow& row, UINT codePage, int length, int room) {
  const std::wstring text = row.Wide("input").value();
  std::string out(static_cast<std::size_t>(room) + 1, '\x7E');
  SetLastError(kUnset);
  const int result = WideCharToMultiByte(codePage, 0, text.c_str(), length, room == 0 ? nullptr : out.data(),
                                         room, nullptr, nullptr);
  return Answer(result, out, static_cast<std::size_t>(room), SpelledBytes);
}

std::string Decoded(const GoldenRow& row, UINT codePage, int length, int room) {
  const std::string bytes = row.Bytes("input").value();
  std::wstring out(static_cast<std::size_t>(room) + 1, L'\x7E');
  SetLastError(kUnset);
  const int result =
      MultiByteToWideChar(codePage, 0, bytes.c_str(), length, room == 0 ? nullptr : out.data(), room);
  return Answer(result, out, static_cast<std::size_t>(room), Spelled);
}

}  // namespace

TEST(CodePageTest, EveryByteOf1256DecodesAsRecorded) {
  for (const auto& row : GoldenTable("cp1256_decode.tsv")) {
    const char encoded = static_cast<char>(Code(row, "byte"));
    wchar_t unit = 0;
    EXPECT_EQ(MultiByteToWideChar(kArabicCodePage, 0, &encoded, 1, &unit, 1), 1) << row.where;
    EXPECT_EQ(static_cast<unsigned>(unit), Code(row, "expected")) << row.where;
  }
}

// Alone and all in one text: a single character and the long run take different paths.
TEST(CodePageTest, EveryUnitEncodesAsRecordedAndAllOthersAsQuestionMark) {
  std::wstring units;
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) units += static_cast<wchar_t>(unit);
  std::string expected(units.size(), '?');
  for (const auto& row : GoldenTable("cp1256_encode.tsv"))
    expected[Code(row, "unit")] = static_cast<char>(Code(row, "expected"));

  const int count = static_cast<int>(units.size());
  std::string bytes(units.size(), '\0');
  ASSERT_EQ(
      WideCharToMultiByte(kArabicCodePage, 0, units.data(), count, bytes.data(), count, nullptr, nullptr),
      count);
  for (std::size_t i = 0; i < units.size(); ++i) {
    char alone = '\0';
    EXPECT_EQ(WideCharToMultiByte(kArabicCodePage, 0, &units[i], 1, &alone, 1, nullptr, nullptr), 1);
    ASSERT_EQ(SpelledBytes({&bytes[i], 1}), SpelledBytes({&expected[i], 1})) << "unit " << i;
    ASSERT_EQ(alone, bytes[i]) << "unit " << i;
  }
}

TEST(CodePageTest, TextsLengthsAndRoomsAnswerAsRecorded) {
  for (const auto& row : GoldenTable("codepage.tsv")) {
    SCOPED_TRACE(row.where);
    const UINT codePage = static_cast<UINT>(row.Int("codepage"));
    const int room = row["room"] == "query" ? 0 : row.Int("room");
    const bool encode = row["function"] == "WideCharToMultiByte";
    ExpectAnswer(row, (encode ? Encoded : Decoded)(row, codePage, row.Int("length"), room));
  }
}

TEST(CodePageTest, EveryCharacterGoesThroughUtf8AndBack) {
  for (char32_t ch = 1; ch <= 0x10FFFF; ++ch) {
    if (ch >= 0xD800 && ch <= 0xDFFF) continue;
    const wchar_t pair[] = {static_cast<wchar_t>(0xD7C0 + (ch >> 10)),
                            static_cast<wchar_t>(0xDC00 + (ch & 0x3FF))};
    const std::wstring text =
        ch < 0x10000 ? std::wstring(1, static_cast<wchar_t>(ch)) : std::wstring(pair, 2);
    char bytes[8];
    wchar_t back[8];
    const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes, 8,
                                           nullptr, nullptr);
    ASSERT_EQ(length, ch < 0x80 ? 1 : ch < 0x800 ? 2 : ch < 0x10000 ? 3 : 4);
    const int units = MultiByteToWideChar(CP_UTF8, 0, bytes, length, back, 8);
    ASSERT_EQ(std::wstring(back, static_cast<std::size_t>(units)), text);
  }
}

TEST(CodePageTest, NullArgumentsAreRefused) {
  char bytes[4] = "abc";
  wchar_t units[4] = L"abc";
  EXPECT_EQ(MultiByteToWideChar(kArabicCodePage, 0, nullptr, 1, units, 4), 0);
  EXPECT_EQ(MultiByteToWideChar(kArabicCodePage, 0, bytes, 3, nullptr, 4), 0);
  EXPECT_EQ(MultiByteToWideChar(kArabicCodePage, 0, bytes, 3, units, -1), 0);
  EXPECT_EQ(WideCharToMultiByte(kArabicCodePage, 0, nullptr, 1, bytes, 4, nullptr, nullptr), 0);
  EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, units, 3, nullptr, 4, nullptr, nullptr), 0);
  EXPECT_EQ(GetLastError(), 87u);
}

// On Linux the literal is one element, on Windows it is two already.
TEST(CodePageTest, ACharacterBeyondTheUnitsCountsAsTwo) {
  const wchar_t* const text = L"x\U0001F600y";
  const struct {
    UINT codePage;
    int room;
    const char* bytes;
  } rows[] = {{kArabicCodePage, 5, "x??y"}, {kArabicCodePage, 0, ""}, {CP_UTF8, 7, "x\xF0\x9F\x98\x80y"}};
  for (const auto& row : rows) {
    char bytes[8] = "";
    const int length = WideCharToMultiByte(row.codePage, 0, text, -1, bytes, row.room, nullptr, nullptr);
    EXPECT_EQ(length, row.codePage == CP_UTF8 ? 7 : 5);
    EXPECT_STREQ(bytes, row.bytes);
  }
  char cut[4] = "";
  EXPECT_EQ(WideCharToMultiByte(kArabicCodePage, 0, text, -1, cut, 2, nullptr, nullptr), 0);
  EXPECT_STREQ(cut, "x?");
}
