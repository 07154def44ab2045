#include "pxsf.h"

#include <gtest/gtest.h>

#include <string>

#include "support/raises.h"

TEST(StructCodecTest, RecordsBecomeLengthAndDigits) {
  const struct {
    std::string bytes;
    int size;
    const wchar_t* text;
  } rows[] = {
      {"\x01\xAB", 2, L"000201AB"},
      {std::string("\0\x10\xFF", 3), 3, L"00030010FF"},
      {"", 0, L"0000"},
      {"", -1, L"FFFF"},
      {"", -65534, L"0002"},
  };
  for (const auto& row : rows) EXPECT_EQ(StructToString(row.bytes.data(), row.size), row.text) << row.size;
}

TEST(StructCodecTest, TheLargestRecordComesBackAndOneMoreByteEndsTheProcess) {
  std::string record(3998, '\0'), back(3997, '\0');
  for (std::size_t i = 0; i < record.size(); ++i) record[i] = static_cast<char>(i * 7);
  const Qel::Sys::TString text = StructToString(record.data(), 3997);
  ASSERT_EQ(text.GetLength(), 7998);
  EXPECT_EQ(text.Left(8), L"0F9D0007");
  EXPECT_TRUE(StringToStruct(back.data(), 3997, text));
  EXPECT_EQ(back, record.substr(0, 3997));
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(StructToString(record.data(), 3998), "");

  // Texts of larger records can still be read.
  std::string large(65535, '\0');
  EXPECT_TRUE(StringToStruct(large.data(), 65535, (L"FFFF" + std::wstring(131069, L'2') + L'3').c_str()));
  EXPECT_EQ(large, std::string(65534, '\x22') + '\x23');
}

TEST(StructCodecTest, TextIsReadOrLeavesTheRecordAlone) {
  EXPECT_TRUE(StringToStruct(nullptr, 0, L"0000"));
  const std::string before = "....";
  const struct {
    const char* name;
    const wchar_t* text;
    int size;
    const char* answer;  // or the text raised
    std::string bytes;
  } rows[] = {
      {"either case", L"0002aBcD", 2, "true", "\xAB\xCD.."},
      {"more than announced", L"000141xyz", 1, "true", "A..."},
      {"cut off", L"000341425", 3, "true", "ABP."},
      {"cut off before the bytes", L"0002", 2, "true", std::string("\0\0..", 4)},
      {"cut off in the length, so 0", L"000", 0, "true", before},
      {"empty", L"", 0, "true", before},
      {"null", nullptr, 0, "true", before},
      {"Arabic-Indic digits", L"٠٠٠١٤١", 1, "true", "A..."},
      {"best fit", L"0002414\u00C0", 2, "true", "AJ.."},
      {"shorter record", L"000341424344", 4, "false", before},
      {"longer record, digits not looked at", L"0003zz", 2, "false", before},
      {"no such size", L"FFFF", -1, "false", before},
      {"bad length", L"00G241", 2, "!c", before},
      {"bad last digit", L"0002414:", 2, "!c", before},
      {"no digit of the page", L"0002\u4E2D141", 2, "!c", before},
      {"low byte of a digit", L"0001\u0141\u0131", 1, "!c", before},
      {"blank", L"0001 1", 1, "!c", before},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    std::string record = before, answer;
    const std::wstring raised =
        RaisedBy([&] { answer = StringToStruct(record.data(), row.size, row.text) ? "true" : "false"; });
    EXPECT_EQ(answer + std::string(raised.begin(), raised.end()), row.answer);
    EXPECT_EQ(record, row.bytes);
  }
}
