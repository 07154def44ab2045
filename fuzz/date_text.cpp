// Typed dates: what a reading reports holds together, a refused text changes nothing, and a day that was read
// comes back from its written form, in both calendars and every order.
#include "date_text.h"

#include "fuzz.h"
#include "hcalendar.h"

using namespace Qel::Sys::DateTime;
using namespace Qel::Sys::Text::Conversion;
using Qel::Sys::Settings::SysFormat;
using Rule = DateReading::Rule;

namespace {

// One byte a unit, the last five bits of it choosing among the characters that dates are made of; others
// stand for themselves, so that every plane of digits and white space turns up.
std::wstring TypedText(const std::uint8_t* data, std::size_t size) {
  static constexpr wchar_t kAlphabet[] =
      L"0123456789--- +/\t\u0660\u0663\u0669\u06F0\u06F7\u06F9\u00A0\u3000\uFF17x";
  constexpr std::size_t kLetters = sizeof(kAlphabet) / sizeof(wchar_t) - 1;
  std::wstring text;
  for (std::size_t i = 0; i < size; ++i)
    text += data[i] < 0xE0 ? kAlphabet[data[i] % kLetters] : static_cast<wchar_t>(data[i]);
  return text;
}

bool CountsHold(const DateReading& reading, const std::wstring& text) {
  const std::size_t length = text.find(L'\0') == std::wstring::npos ? text.size() : text.find(L'\0');
  if (reading.fields < 0 || reading.fields > 3) return false;
  if (reading.attempts != 0 && length == 0) return false;
  return reading.stopped >= -1 && reading.stopped < static_cast<int>(length);
}

// An attempt is refused for what ValidDate says of its numbers, and only the last one may have been taken.
bool AttemptsHold(const DateReading& reading) {
  for (int i = 0; i < reading.attempts; ++i) {
    const DateReading::Attempt& attempt = reading.attempt[i];
    const bool taken = attempt.broken == Rule::None;
    if (taken != ValidDate(attempt.day, attempt.month, attempt.year)) return false;
    if (taken != (reading.valid && i + 1 == reading.attempts)) return false;
    if (attempt.year < 100 || (attempt.broken == Rule::Day && (attempt.lastDay < 28 || attempt.lastDay > 31)))
      return false;
  }
  return reading.valid || reading.attempts == 2;
}

void CheckText(const std::wstring& text) {
  const Date fill(15, 10, 2024);
  const DateReading reading = ReadDateText(text.c_str(), &fill);
  FUZZ_ASSERT(CountsHold(reading, text));
  FUZZ_ASSERT(AttemptsHold(reading));

  Date out(5, 5, 1955);
  const bool taken = StrToDate(text.c_str(), out);
  FUZZ_ASSERT(taken || out == Date(5, 5, 1955));
  FUZZ_ASSERT(taken == reading.valid || reading.fields < 3);  // without parts to fill in
  FUZZ_ASSERT(StrToDateG(text.c_str(), 0, fill) ==
              (reading.valid && !text.empty() && text[0] ? reading.date : fill));
  if (!reading.valid || reading.attempts == 0) return;

  const CString written = SysFormat.UseHijri ? THCalendar().ToString(reading.date) : ToString(reading.date);
  FUZZ_ASSERT(StrToDate(written, out));
  FUZZ_ASSERT(out == reading.date);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  SysFormat.DateFmt = static_cast<Format::DATE_FORMAT>(data[0] % 4);
  SysFormat.UseHijri = data[0] / 4 % 2 != 0;
  CheckText(TypedText(data + 1, size - 1));
  CheckText(Units(data + 1, size - 1));
  return 0;
}
