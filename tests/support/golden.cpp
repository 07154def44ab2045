#include "support/golden.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>

namespace {

[[noreturn]] void GiveUp(const std::string& why) {
  std::cerr << "test data: " << why << std::endl;
  std::abort();
}

std::vector<std::string> Fields(const std::string& line) {
  std::vector<std::string> fields;
  std::istringstream stream(line);
  for (std::string field; std::getline(stream, field, '\t');) fields.push_back(field);
  return fields;
}

unsigned long Hex(const std::string& text, std::size_t at, std::size_t digits) {
  return std::stoul(text.substr(at, digits), nullptr, 16);
}

std::string HexOf(const char* form, unsigned value) {
  char text[16];
  std::snprintf(text, sizeof text, form, value);
  return text;
}

}  // namespace

const std::string& GoldenRow::operator[](const std::string& column) const {
  const auto found = fields.find(column);
  if (found == fields.end()) GiveUp(where + " has no column " + column);
  return found->second;
}

std::optional<std::wstring> GoldenRow::Wide(const std::string& column) const {
  const std::string& field = (*this)[column];
  if (field == "<null>") return std::nullopt;
  std::wstring text;
  if (field == "<empty>") return text;
  for (std::size_t i = 0; i < field.size(); ++i) {
    if (field[i] != '\\') {
      text += static_cast<wchar_t>(field[i]);
    } else if (field[++i] == 'u') {
      text += static_cast<wchar_t>(Hex(field, i + 1, 4));
      i += 4;
    } else {
      text += L'\\';
    }
  }
  return text;
}

std::optional<std::string> GoldenRow::Bytes(const std::string& column) const {
  const std::string& field = (*this)[column];
  if (field == "<null>") return std::nullopt;
  std::string bytes;
  if (field == "<empty>") return bytes;
  for (std::size_t i = 0; i < field.size(); i += 2) bytes += static_cast<char>(Hex(field, i, 2));
  return bytes;
}

int GoldenRow::Int(const std::string& column) const {
  return std::stoi((*this)[column]);
}

std::vector<GoldenRow> GoldenTable(const std::string& file) {
  std::ifstream stream(std::string(QEL_TEST_DATA) + "/" + file);
  std::string line;
  if (!std::getline(stream, line)) GiveUp("cannot read " + file);
  const std::vector<std::string> columns = Fields(line);
  std::vector<GoldenRow> rows;
  for (int number = 2; std::getline(stream, line); ++number) {
    GoldenRow row{file + ":" + std::to_string(number), {}};
    const std::vector<std::string> fields = Fields(line);
    if (fields.size() != columns.size()) GiveUp(row.where + " is ragged");
    for (std::size_t i = 0; i < columns.size(); ++i) row.fields[columns[i]] = fields[i];
    rows.push_back(std::move(row));
  }
  if (rows.empty()) GiveUp(file + " has no rows");
  return rows;
}

std::string GoldenText(const std::string& file) {
  std::ifstream stream(std::string(QEL_TEST_DATA) + "/" + file, std::ios::binary);
  if (!stream) GiveUp("cannot read " + file);
  return {std::istreambuf_iterator(stream), {}};
}

void ExpectAnswer(const GoldenRow& row, const std::string& answer) {
  const std::string& expected = row["expected"];
  const auto wine = row.fields.find("wine");
  const bool known =
      RunsUnderWine() && wine != row.fields.end() && wine->second != "-" && wine->second == answer;
  if (known && answer != expected) {
    std::cout << "known deviation: " << row.where << ": Wine answers " << answer << ", Windows " << expected
              << "\n";
    return;
  }
  EXPECT_EQ(answer, expected) << row.where;
}

std::string Spelled(std::wstring_view text) {
  std::string result;
  for (const wchar_t unit : text) {
    if (unit == L'\\') {
      result += "\\\\";
    } else if (unit > 0x20 && unit < 0x7F && unit != L'<') {
      result += static_cast<char>(unit);
    } else {
      result += HexOf("\\u%04X", static_cast<unsigned>(unit));
    }
  }
  return result.empty() ? "<empty>" : result;
}

std::string SpelledBytes(std::string_view bytes) {
  std::string result;
  for (const char byte : bytes) result += HexOf("%02X", static_cast<unsigned char>(byte));
  return result.empty() ? "<empty>" : result;
}
