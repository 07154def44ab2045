#include "legacydate.h"

#include <istream>
#include <string_view>

#include "day_number.h"
#include "px_format.h"

namespace {

enum PrintOption { kLong, kShort, kNumeric };

int g_PrintOption = kLong;

constexpr const wchar_t* kMonths[] = {L"January",   L"February", L"March",    L"April",
                                      L"May",       L"June",     L"July",     L"August",
                                      L"September", L"October",  L"November", L"December"};
constexpr int kLastYear = 9999;

bool IsDay(int day, int month, int year) noexcept {
  if (month < 1 || month > 12 || year < 1 || year > kLastYear) return false;
  return day >= 1 && day <= Qel::Sys::DateTime::MonthLength(year, month);
}

using Traits = std::wistream::traits_type;

bool NextIs(std::wistream& stream, std::wstring_view set) {
  const auto next = stream.peek();
  return !Traits::eq_int_type(next, Traits::eof()) &&
         set.find(Traits::to_char_type(next)) != std::wstring_view::npos;
}

// Digit by digit, since the stream's own way of reading numbers asks its locale. 0 when there is none; anything
// above the last year stays above it.
int ReadNumber(std::wistream& stream) {
  int value = 0;
  while (NextIs(stream, L"0123456789")) {
    const int digit = static_cast<int>(stream.get() - L'0');
    if (value <= kLastYear) value = value * 10 + digit;
  }
  return value;
}

bool SkipSeparator(std::wistream& stream) {
  if (!NextIs(stream, L"/-.")) return false;
  stream.get();
  return true;
}

}  // namespace

TDate::TDate(int day, int month, int year) noexcept {
  if (!IsDay(day, month, year)) return;
  m_Day = day;
  m_Month = month;
  m_Year = year;
}

TDate::TDate(std::wistream& stream) {
  while (NextIs(stream, L" \t\r\n\v\f")) stream.get();
  const int month = ReadNumber(stream);
  if (!SkipSeparator(stream)) return;
  const int day = ReadNumber(stream);
  if (!SkipSeparator(stream)) return;
  *this = TDate(day, month, ReadNumber(stream));
}

CString TDate::AsString() const {
  using Qel::Sys::Text::pxFormat;
  if (!IsValid()) return {};
  if (g_PrintOption == kNumeric) return pxFormat(L"%02d/%02d/%04d", m_Month, m_Day, m_Year);
  const std::wstring_view name = kMonths[m_Month - 1];
  if (g_PrintOption == kShort) return pxFormat(L"%d-%.3s-%d", m_Day, name.data(), m_Year);
  return pxFormat(L"%s %d, %d", name.data(), m_Day, m_Year);
}

int TDate::SetPrintOption(int option) noexcept {
  const int before = g_PrintOption;
  g_PrintOption = option;
  return before;
}
