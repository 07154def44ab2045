// Number entry: the evaluator and ATOF2 give, bit by bit, what the steps written down one by one give, and what
// they tell about a text lies inside it.
#include <bit>
#include <cstdint>
#include <string>

#include "atof2.h"
#include "fuzz.h"
#include "support/literal_atof2.h"

using namespace Qel::Sys::Text::Conversion;
using Qel::Sys::Settings::SysFormat;
using Evaluator = Qel::Sys::Settings::Format::NumericEvaluator;

namespace {

bool SameBits(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

// ASCII as it is; the other bytes stand for what number entry knows beyond it.
std::wstring TypedText(const std::uint8_t* data, std::size_t size) {
  static const std::wstring kBeyond = L"\u0660\u0665\u0669\u066A\u06F0\u06F5\u06F9\u06FA\u0643\u062F";
  std::wstring text;
  for (std::size_t i = 0; i < size && data[i] != 0; ++i)
    text += data[i] < 0x80 ? static_cast<wchar_t>(data[i]) : kBeyond[data[i] % kBeyond.size()];
  return text;
}

void CheckEvaluator(const std::wstring& text) {
  long double ours = 0;
  double literally = 0;
  const bool accepted = Evaluator::EvaluateExpression(text.c_str(), ours);
  FUZZ_ASSERT(accepted == literal::EvaluateExpression(text.c_str(), literally));
  if (accepted) FUZZ_ASSERT(SameBits(static_cast<double>(ours), literally));
  const auto evaluation = Evaluator::Evaluate(text);
  FUZZ_ASSERT(accepted == (evaluation.refusal == Evaluator::Refusal::None));
  FUZZ_ASSERT(evaluation.position >= -1 && evaluation.position <= static_cast<int>(text.size()));
}

void CheckReading(const std::wstring& text, wchar_t separator) {
  SysFormat.ThousandSep[0] = separator;
  const NumberReading reading = ReadNumberText(text.c_str());
  FUZZ_ASSERT(SameBits(reading.value, literal::ATOF2(text.c_str(), separator)));
  FUZZ_ASSERT(SameBits(reading.value, static_cast<double>(ATOF2(text.c_str()))));
  const int size = static_cast<int>(text.size());
  FUZZ_ASSERT(reading.refusedAt >= -1 && reading.refusedAt <= size);
  FUZZ_ASSERT(reading.consumed >= 0 && reading.consumed <= size);
  FUZZ_ASSERT(reading.ignoredAt >= -1 && reading.ignoredAt < size);
  FUZZ_ASSERT(reading.ignoredAt == -1 || reading.ignoredAt >= reading.consumed);
  FUZZ_ASSERT(reading.suffix == 0 || text.find(reading.suffix) != std::wstring::npos);
}

}  // namespace

// The first byte chooses the thousands separator.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  constexpr wchar_t kSeparators[] = {L',', L'.', L' ', L'\0', L'-', L'5'};
  const std::wstring text = TypedText(data + 1, size - 1);
  CheckEvaluator(text);
  CheckReading(text, kSeparators[data[0] % std::size(kSeparators)]);
  return 0;
}
