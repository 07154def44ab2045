#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <cstdio>
#include <string>

#include "platform/platform.h"
#include "support/golden.h"

namespace {

constexpr WORD kUntouched = 4711;

std::string BitsOf(double value) {
  char text[17];
  std::snprintf(text, sizeof text, "%016llX",
                static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(value)));
  return text;
}

// "1 year month day-of-week day hour minute second msec", or "0" when refused and nothing was written.
std::string RecordOf(double date) {
  SYSTEMTIME time;
  WORD* const fields[] = {&time.wYear, &time.wMonth,  &time.wDayOfWeek, &time.wDay,
                          &time.wHour, &time.wMinute, &time.wSecond,    &time.wMilliseconds};
  for (WORD* field : fields) *field = kUntouched;
  const int result = VariantTimeToSystemTime(date, &time);
  std::string text = std::to_string(result);
  for (const WORD* field : fields)
    if (result != 0 || *field != kUntouched) text.append(" ").append(std::to_string(*field));
  return text;
}

// "1 bits", or "0" when refused and nothing was written. The day of the week must not count.
std::string DateOf(const GoldenRow& row) {
  const auto word = [&row](const char* column) { return static_cast<WORD>(row.Int(column)); };
  SYSTEMTIME time = {word("year"),   word("month"),  9,           word("day"), word("hour"),
                     word("minute"), word("second"), word("msec")};
  double date = kUntouched;
  const int result = SystemTimeToVariantTime(&time, &date);
  std::string text = std::to_string(result);
  if (result != 0 || date != kUntouched) text.append(" ").append(BitsOf(date));
  return text;
}

}  // namespace

TEST(OleDateTest, DatesBecomeTheRecordedRecords) {
  for (const auto& row : GoldenTable("oledate_to_record.tsv")) {
    SCOPED_TRACE(row.where);
    ExpectAnswer(row, RecordOf(std::bit_cast<double>(std::uint64_t{std::stoull(row["bits"], nullptr, 16)})));
  }
}

TEST(OleDateTest, RecordsBecomeTheRecordedDates) {
  for (const auto& row : GoldenTable("oledate_from_record.tsv")) {
    SCOPED_TRACE(row.where + ": " + row["date"]);
    ExpectAnswer(row, DateOf(row));
  }
}
