// Numbers as users type them: plain, with thousands separators, as a small sum, or with a unit behind.
//
//   ATOF2(L"1,234.5")   1234.5          ATOF2(L"12*3")    36
//   ATOF2(L"2k")        2000            ATOF2(L"3 d")     36, three dozen
//
// Only the first 100 characters count, thousands separators not included. Locale-free, reentrant, allocates
// nothing; reads SysFormat.ThousandSep.
#ifndef QEL_ATOF2_H
#define QEL_ATOF2_H

#include "format.h"
#include "qel_export.h"

namespace Qel::Sys::Text::Conversion {

// How a text was read. Indices are into the text as given; -1 is none.
struct NumberReading {
  using Refusal = Settings::Format::NumericEvaluator::Refusal;

  double value = 0;
  // Why and at which character the text is no expression for the evaluator, and is read as number and suffix
  // instead; `refusedAt` as NumericEvaluator::Evaluation::position. None for an expression.
  Refusal refusal = Refusal::None;
  int refusedAt = -1;
  // Of a refused text: the index behind the number at its start, 0 when it starts with none.
  int consumed = 0;
  // Of a refused text: the first character that is no decimal digit, blank, comma or point, 0 for none, and
  // what it multiplies by: 1000 for k, K and kaf, 12 for d, D and dal, 1 for any other.
  wchar_t suffix = 0;
  double factor = 1;
  // The first character that had no part in the reading, not being white space either: neither in the
  // expression, nor in the number, nor the suffix behind it.
  int ignoredAt = -1;
};

// Reads all that ATOF2 does and tells how. Never raises; null reads as empty.
QEL_API NumberReading ReadNumberText(const wchar_t* text) noexcept;

// The number that `text` means: the value of the whole text when NumericEvaluator accepts it. Otherwise that
// of the decimal number at its start (white space, sign, digits in any of the three shapes, point, exponent;
// 0 when there is none), times 1000 or 12 for the suffix. Never raises; null gives 0.
//
// Kept: the suffix is the first character that is no decimal digit, blank, comma or point, wherever it
// stands, because users know it so: "-2k" is -2 (its suffix is "-"), "1 234k" is 1000, "5/0" is 5.
// Kept: the separator goes wherever it stands, because hosts set it to the one that their users type: when it
// is ".", "1.234,5" is 1234.
QEL_API long double ATOF2(const wchar_t* text) noexcept;

}  // namespace Qel::Sys::Text::Conversion

#endif  // QEL_ATOF2_H
