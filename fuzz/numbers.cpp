// Number entry: the evaluator stays inside its text, agrees with the run-time library on plain literals, and
// adding nothing changes nothing.
#include <cmath>

#include "format.h"
#include "fuzz.h"

using Evaluator = Qel::Sys::Settings::Format::NumericEvaluator;

namespace {

// A literal of few digits is exact up to the rounding of each step.
bool AgreesOnPlainLiteral(const std::wstring& text, double value) {
  if (text.size() > 15 || text.find_first_not_of(L"0123456789.") != std::wstring::npos) return true;
  const double read = std::wcstod(text.c_str(), nullptr);
  return std::abs(value - read) <= 1e-13 * read;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::wstring text = AsciiUnits(data, size);
  const auto result = Evaluator::Evaluate(text);
  FUZZ_ASSERT(result.position >= -1 && result.position <= static_cast<int>(text.size()));
  FUZZ_ASSERT((result.position == -1) == (result.refusal == Evaluator::Refusal::None ||
                                          result.refusal == Evaluator::Refusal::EmptyText));
  if (result.refusal != Evaluator::Refusal::None) return 0;
  FUZZ_ASSERT(AgreesOnPlainLiteral(text, result.value));
  const auto same = Evaluator::Evaluate(text + L"+0");
  FUZZ_ASSERT(same.refusal == result.refusal);
  FUZZ_ASSERT(same.value == result.value || (std::isnan(same.value) && std::isnan(result.value)));
  return 0;
}
