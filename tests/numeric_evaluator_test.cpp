#include <gtest/gtest.h>

#include <charconv>
#include <string>

#include "format.h"

using Evaluator = Qel::Sys::Settings::Format::NumericEvaluator;
using Refusal = Evaluator::Refusal;

namespace {

double NearestDouble(const std::string& digits) {
  double value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

std::string TwoDecimals(int hundredths) {
  const std::string cents = std::to_string(hundredths % 100);
  return std::to_string(hundredths / 100) + "." + (cents.size() < 2 ? "0" : "") + cents;
}

}  // namespace

TEST(NumericEvaluatorTest, GivesTheValueOfASum) {
  const struct {
    const wchar_t* text;
    double value;
  } rows[] = {
      {L"12*3+4", 40}, {L"1+2-3-4", -4}, {L"8/4/2", 1}, {L"2*3/4", 1.5}, {L"+", 0},
      {L"-", 0},       {L".", 0},        {L"*", 0},     {L"-5", -5},     {L"--5", -5},
      {L"5+", 5},      {L"5*", 0},       {L"*5", 5},    {L"/4", 0.25},   {L"5+*3", 8},
      {L"2*-3", -3},   {L"-2*-3", -3},   {L".5", 0.5},  {L"5.", 5},      {L"5.+.5", 5.5},
  };
  // As doubles come out when factors are worked from the right and digits add one by one.
  const struct {
    const wchar_t* text;
    double value;
  } inexact[] = {
      {L"100/7*7", 100.0 / 7 * 7},     {L"1/3/11", 0.030303030303030304}, {L"12*3+4.5/2", 38.25},
      {L"0.1+0.1+0.7", 0.90},          {L"0.3", 0.30000000000000004},     {L"1.15", 1.1500000000000001},
      {L"0.01", 0.010000000000000002}, {L"999999999999", 999999999999},
  };
  const auto expect = [](const wchar_t* text, double value) {
    long double result = -1;
    EXPECT_TRUE(Evaluator::EvaluateExpression(text, result));
    EXPECT_EQ(result, value) << testing::PrintToString(text);
  };
  for (const auto& row : rows) expect(row.text, row.value);
  for (const auto& row : inexact) expect(row.text, row.value);
  expect(L"123456789012345", 123456789012345);
}

TEST(NumericEvaluatorTest, RefusalsSayWhyAndWhere) {
  const struct {
    const wchar_t* text;
    Refusal refusal;
    int position;
    bool touched;  // whether the result may have changed
  } rows[] = {
      {L"", Refusal::EmptyText, -1, false},           {L"1 + 2", Refusal::ForeignCharacter, 1, false},
      {L"1,5", Refusal::ForeignCharacter, 1, false},  {L"(1)", Refusal::ForeignCharacter, 0, false},
      {L"1:2", Refusal::ForeignCharacter, 1, false},  {L"\u0661", Refusal::ForeignCharacter, 0, false},
      {L"1.2.3", Refusal::SecondPoint, 3, true},      {L"7+..", Refusal::SecondPoint, 3, true},
      {L"5/", Refusal::DivisionByZero, 2, true},      {L"5/0", Refusal::DivisionByZero, 2, true},
      {L"5/0.0+1", Refusal::DivisionByZero, 2, true}, {L"1+5/0*2", Refusal::DivisionByZero, 4, true},
      {L"/0", Refusal::DivisionByZero, 1, true},      {L"0/-1", Refusal::DivisionByZero, 2, true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.text));
    long double result = 77;
    EXPECT_FALSE(Evaluator::EvaluateExpression(row.text, result));
    EXPECT_TRUE(row.touched || result == 77);
    const auto evaluation = Evaluator::Evaluate(row.text);
    EXPECT_EQ(evaluation.refusal, row.refusal);
    EXPECT_EQ(evaluation.position, row.position);
  }
  long double result = 77;
  EXPECT_FALSE(Evaluator::EvaluateExpression(nullptr, result));
  EXPECT_EQ(result, 77);
}

// A nearest-double reading, wider arithmetic or another order of the steps would each show here.
TEST(NumericEvaluatorTest, IntegersAreExactAndAFifthOfTheAmountsIsOneStepOff) {
  for (int i = 0; i < 2'000'000; i += 7) ASSERT_EQ(Evaluator::Evaluate(std::to_wstring(i)).value, i);

  int different = 0;
  for (int i = 0; i < 1'000'000; ++i) {
    const std::string text = TwoDecimals(i);
    different += Evaluator::Evaluate(std::wstring(text.begin(), text.end())).value != NearestDouble(text);
  }
  EXPECT_EQ(different, 210'846);
}
