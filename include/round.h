// Rounding to the steps in which prices and amounts are kept.
//
//   RoundVal(1.005, Format::RP_0_01)                        1.01
//   RoundVal(-12.5, Format::RP_1, Format::RT_HALF_EVEN)     -12
//   RoundVal(1.13, Format::RP_0_05)                         1.15
#ifndef QEL_ROUND_H
#define QEL_ROUND_H

#include "format.h"
#include "qel_export.h"

namespace Qel::Sys::Math::Round {

// The multiple of the step `precision` nearest to `value`, as the double that its decimal literal gives.
// Half-way between two, `type` decides: RT_HALF_AWAY and RT_HALF_UP as they say, every other number to the
// even multiple.
//
// What lies half-way is decided on 15 significant digits, the number of steps in `value` cut to these: 1.005
// is no double, its nearest one lies below, and still the user who typed it expects 1.01. Beyond 1e14 steps
// the double itself decides; from 2^53 steps on it is returned as it is.
//
// Kept: 0.0 when `precision` is none of the table's, because hosts take that for "not set up".
// NaN and the infinities are returned as they are.
QEL_API double RoundVal(double value, Settings::Format::ROUND_PREC precision,
                        Settings::Format::ROUND_TYPE type) noexcept;

// The same with SysFormat.RoundType, and with SysFormat.RoundPrec too: 0.0 until the host has set that.
QEL_API double RoundVal(double value, Settings::Format::ROUND_PREC precision) noexcept;
QEL_API double RoundVal(double value) noexcept;

}  // namespace Qel::Sys::Math::Round

#endif  // QEL_ROUND_H
