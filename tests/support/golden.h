// Recorded answers of Windows as test tables: one file of tests/data each, tab-separated, first line the
// columns.
//
//   for (const auto& row : GoldenTable("codepage.tsv")) {
//     SCOPED_TRACE(row.where);
//     ExpectAnswer(row, Convert(row["codepage"], row["input"]));
//   }
//
// Column `expected` is what Windows answers, and what must be answered here. Where Wine is known to differ,
// column `wine` holds its answer ("-" or no column: it does not); that is accepted under Wine alone, and
// reported as a "known deviation:" line, which the test summary collects.
#ifndef QEL_TESTS_GOLDEN_H
#define QEL_TESTS_GOLDEN_H

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct GoldenRow {
  std::string where;  // file and line, for messages
  std::map<std::string, std::string> fields;

  // The field as it stands in the file. An unknown column ends the test program.
  const std::string& operator[](const std::string& column) const;
  // The field as text: \uXXXX is one unit, \\ a backslash, <empty> nothing, <null> no text at all.
  std::optional<std::wstring> Wide(const std::string& column) const;
  // The field as bytes, from hex pairs; <empty> and <null> as above.
  std::optional<std::string> Bytes(const std::string& column) const;
  int Int(const std::string& column) const;
};

// All rows of tests/data/<file>. A file that is missing, empty or ragged ends the test program.
std::vector<GoldenRow> GoldenTable(const std::string& file);

// All of tests/data/<file>, a file of another form.
std::string GoldenText(const std::string& file);

// Expects `answer` to be the row's `expected` (or, under Wine, its `wine`).
void ExpectAnswer(const GoldenRow& row, const std::string& answer);

// How answers are spelled in the files: the opposite of Wide() and Bytes().
std::string Spelled(std::wstring_view text);
std::string SpelledBytes(std::string_view bytes);

// Whether this is a Windows program, and whether it runs under Wine.
bool RunsOnWindows();
bool RunsUnderWine();

#endif  // QEL_TESTS_GOLDEN_H
