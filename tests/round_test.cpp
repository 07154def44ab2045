#include "round.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/sys_format_guard.h"

using namespace Qel::Sys::Math::Round;
using Qel::Sys::Settings::Format;
using Qel::Sys::Settings::SysFormat;

namespace {

constexpr Format::ROUND_TYPE kOtherType = static_cast<Format::ROUND_TYPE>(7);

}  // namespace

// By hand: a value below a half, and a half above an even and above an odd multiple, for every step.
TEST(RoundTest, EveryPrecisionRoundsToItsStep) {
  const struct {
    int precision;
    double below, belowRounded, evenHalf, even, evenNext, oddHalf, odd, oddNext;
  } rows[] = {
      {1, 0.144, 0.14, 0.125, 0.12, 0.13, 0.135, 0.13, 0.14},
      {2, 0.17, 0.15, 0.125, 0.10, 0.15, 0.175, 0.15, 0.20},
      {3, 1.13, 1.1, 0.25, 0.2, 0.3, 0.35, 0.3, 0.4},
      {4, 1.7, 1.5, 1.25, 1, 1.5, 1.75, 1.5, 2},
      {5, 1.4, 1, 2.5, 2, 3, 3.5, 3, 4},
      {6, 7.4, 5, 12.5, 10, 15, 7.5, 5, 10},
      {7, 14, 10, 25, 20, 30, 15, 10, 20},
      {8, 74, 50, 125, 100, 150, 75, 50, 100},
      {9, 149, 100, 250, 200, 300, 150, 100, 200},
      {10, 0.37, 0.25, 0.625, 0.5, 0.75, 0.375, 0.25, 0.5},
      {11, 3.7, 2.5, 6.25, 5, 7.5, 3.75, 2.5, 5},
      {12, 37, 25, 62.5, 50, 75, 37.5, 25, 50},
      {13, 370, 250, 625, 500, 750, 375, 250, 500},
      {14, 749, 500, 1250, 1000, 1500, 750, 500, 1000},
      {15, 1.0014, 1.001, 0.0125, 0.012, 0.013, 0.0135, 0.013, 0.014},
      {16, 0.017, 0.015, 0.0125, 0.01, 0.015, 0.0175, 0.015, 0.02},
      {17, 0.03, 0.025, 0.0625, 0.05, 0.075, 0.0375, 0.025, 0.05},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.precision);
    const auto round = [&](double value, Format::ROUND_TYPE type) {
      return RoundVal(value, static_cast<Format::ROUND_PREC>(row.precision), type);
    };
    for (const auto type : {Format::RT_HALF_AWAY, Format::RT_HALF_UP, Format::RT_HALF_EVEN, kOtherType}) {
      EXPECT_EQ(round(row.below, type), row.belowRounded);
      EXPECT_EQ(round(-row.below, type), -row.belowRounded);
      EXPECT_EQ(round(row.oddNext, type), row.oddNext);
    }
    EXPECT_EQ(round(row.evenHalf, Format::RT_HALF_AWAY), row.evenNext);
    EXPECT_EQ(round(-row.evenHalf, Format::RT_HALF_AWAY), -row.evenNext);
    EXPECT_EQ(round(row.evenHalf, Format::RT_HALF_UP), row.evenNext);
    EXPECT_EQ(round(-row.evenHalf, Format::RT_HALF_UP), -row.even);
    for (const auto type : {Format::RT_HALF_EVEN, kOtherType}) {
      EXPECT_EQ(round(row.evenHalf, type), row.even);
      EXPECT_EQ(round(-row.evenHalf, type), -row.even);
      EXPECT_EQ(round(row.oddHalf, type), row.oddNext);
      EXPECT_EQ(round(-row.oddHalf, type), -row.oddNext);
    }
  }
}

TEST(RoundTest, DecimalHalvesThatNoDoubleHoldsAreStillHalves) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity(),
                   kMax = std::numeric_limits<double>::max();
  constexpr auto kCent = Format::RP_0_01, kTenth = Format::RP_0_1, kOne = Format::RP_1;
  const struct {
    double value;
    Format::ROUND_PREC precision;
    double rounded;
  } rows[] = {
      {1.005, kCent, 1.01},         {1.115, kCent, 1.12},           {2.675, kCent, 2.68},
      {-1.005, kCent, -1.01},       {1.00499999999, kCent, 1.0},    {0.145, kCent, 0.15},
      {9999999.995, kCent, 1e7},    {0.1 + 0.2, kTenth, 0.3},       {1e9 + .125, kCent, 1e9 + .13},
      {1e14 + 0.5, kOne, 1e14 + 1}, {0x1p52 + 1, kOne, 0x1p52 + 1}, {1e15 + 1, kOne, 1e15 + 1},
      {1e300, kCent, 1e300},        {kInfinity, kOne, kInfinity},   {5e-324, kCent, 0.0},
  };
  EXPECT_EQ(RoundVal(1.0005, Format::RP_0_001, Format::RT_HALF_AWAY), 1.001);
  EXPECT_EQ(RoundVal(-kMax, Format::RP_500, Format::RT_HALF_AWAY), -kMax);
  for (const auto& row : rows)
    EXPECT_EQ(RoundVal(row.value, row.precision, Format::RT_HALF_AWAY), row.rounded) << row.value;
  EXPECT_TRUE(std::isnan(RoundVal(std::nan(""), Format::RP_1, Format::RT_HALF_AWAY)));
}

TEST(RoundTest, PrecisionAndTypeComeFromTheSettingsWhenNotGiven) {
  const SysFormatGuard guard;
  EXPECT_EQ(RoundVal(2.5), 0.0);
  for (const int unknown : {-1, 0, 18, 1000})
    EXPECT_EQ(RoundVal(2.5, static_cast<Format::ROUND_PREC>(unknown)), 0.0);
  EXPECT_EQ(RoundVal(2.5, Format::RP_1), 3);
  SysFormat.RoundType = Format::RT_HALF_EVEN;
  EXPECT_EQ(RoundVal(2.5, Format::RP_1), 2);
  SysFormat.RoundPrec = Format::RP_0_1;
  EXPECT_EQ(RoundVal(0.25), 0.2);
}
