// Records as text: every record comes back, and every text is read as the layout says, step by step, with nothing
// read behind its end and nothing written unless all of it is good.
#include <algorithm>
#include <memory>
#include <optional>

#include "encoding.h"
#include "exceptions.h"
#include "fuzz.h"
#include "pxsf.h"

namespace {

enum class Answer { kRead, kOtherSize, kRaised };

struct Outcome {
  Answer answer;
  std::string record;
  bool operator==(const Outcome&) const = default;
};

std::optional<std::size_t> Digit(const std::string& text, std::size_t at) {
  if (at >= text.size()) return 0;
  const std::size_t value = std::string_view("0123456789ABCDEFabcdef").find(text[at]);
  if (value == std::string_view::npos) return std::nullopt;
  return value < 16 ? value : value - 6;
}

Outcome StepByStep(const std::string& before, const wchar_t* text) {
  const std::string digits = Qel::Sys::Text::Encoding::Convert2A(text);
  std::size_t length = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    const auto digit = Digit(digits, i);
    if (!digit) return {Answer::kRaised, before};
    length = length * 16 + *digit;
  }
  if (length != before.size()) return {Answer::kOtherSize, before};
  std::string record;
  for (std::size_t i = 0; i < length; ++i) {
    const auto high = Digit(digits, 4 + 2 * i), low = Digit(digits, 5 + 2 * i);
    if (!high || !low) return {Answer::kRaised, before};
    record += static_cast<char>(*high * 16 + *low);
  }
  return {Answer::kRead, record};
}

Outcome Decoded(std::string record, const wchar_t* text) {
  try {
    const bool read = StringToStruct(record.data(), static_cast<int>(record.size()), text);
    return {read ? Answer::kRead : Answer::kOtherSize, record};
  } catch (Qel::Sys::Exceptions::TXAssertion* e) {
    e->Delete();
    return {Answer::kRaised, record};
  }
}

// Read from a block of its own, so that a sanitizer sees a step behind the end.
void CheckText(const std::wstring& text, std::size_t size) {
  const auto block = std::make_unique<wchar_t[]>(text.size() + 1);
  std::copy(text.begin(), text.end(), block.get());
  const std::string before(size, '.');
  FUZZ_ASSERT(Decoded(before, block.get()) == StepByStep(before, block.get()));
}

}  // namespace

// The first byte is the size of the record that a text is read into, and how much of a good text is kept.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string record(data + 1, data + std::min<std::size_t>(size, 3998));
  const std::wstring text = StructToString(record.data(), static_cast<int>(record.size())).GetString();
  FUZZ_ASSERT(Decoded(std::string(record.size(), '.'), text.c_str()) == (Outcome{Answer::kRead, record}));
  CheckText(text.substr(0, *data), record.size());
  CheckText(AsciiUnits(data + 1, size - 1), *data);
  CheckText(Units(data + 1, size - 1), *data);
  return 0;
}
