#include "round.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <iterator>

namespace Qel::Sys::Math::Round {

using Settings::Format;
using Settings::SysFormat;

namespace {

// A step as a fraction of small integers: 0.05 is no double, 1/20 loses nothing.
struct Step {
  int numerator;
  int denominator;
};

// By the number of ROUND_PREC.
constexpr Step kSteps[] = {
    {0, 1},   {1, 100}, {1, 20}, {1, 10}, {1, 2},   {1, 1},   {5, 1},    {10, 1},  {50, 1},
    {100, 1}, {1, 4},   {5, 2},  {25, 1}, {250, 1}, {500, 1}, {1, 1000}, {1, 200}, {1, 40},
};

constexpr double kMostSnapped = 1e14;               // 15 digits show every half up to here
constexpr double kNoFraction = 9007199254740992.0;  // 2^53

double SnapTo15Digits(double value) {
  char text[32];
  const auto end = std::to_chars(text, std::end(text), value, std::chars_format::scientific, 14).ptr;
  std::from_chars(text, end, value);
  return value;
}

double Nearest(double value, Format::ROUND_TYPE type) {
  const double below = std::floor(value);
  const double part = value - below;
  if (part != 0.5) return part < 0.5 ? below : below + 1;
  switch (type) {
    case Format::RT_HALF_AWAY:
      return value < 0 ? below : below + 1;
    case Format::RT_HALF_UP:
      return below + 1;
    default:
      return std::fmod(below, 2) == 0 ? below : below + 1;
  }
}

}  // namespace

double RoundVal(double value, Format::ROUND_PREC precision, Format::ROUND_TYPE type) noexcept {
  const auto number = static_cast<std::size_t>(precision);  // a negative one becomes too large
  if (number == 0 || number >= std::size(kSteps)) return 0.0;
  const Step step = kSteps[number];
  const double steps = value * step.denominator / step.numerator;
  if (!(std::fabs(steps) < kNoFraction)) return value;  // NaN too
  const double counted = std::fabs(steps) < kMostSnapped ? SnapTo15Digits(steps) : steps;
  return Nearest(counted, type) * step.numerator / step.denominator;
}

double RoundVal(double value, Format::ROUND_PREC precision) noexcept {
  return RoundVal(value, precision, SysFormat.RoundType);
}

double RoundVal(double value) noexcept {
  return RoundVal(value, SysFormat.RoundPrec);
}

}  // namespace Qel::Sys::Math::Round
