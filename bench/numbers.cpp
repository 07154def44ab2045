#include <cwchar>

#ifdef QEL_BENCH_MUPARSER
#include <muParser.h>
#endif

#include "atof2.h"
#include "compare.h"
#include "support/literal_atof2.h"

namespace {

using Qel::Sys::Text::Conversion::ATOF2;

constexpr wchar_t kExpression[] = L"12*3+4.5/2";
constexpr wchar_t kPlain[] = L"12345.67";

void LiteralSteps(benchmark::State& state) {
  for (auto _ : state) {
    const wchar_t* text = kExpression;
    benchmark::DoNotOptimize(text);
    wchar_t kept[101];
    int count = 0;
    for (; text[count] && count < 100; ++count) kept[count] = text[count];
    kept[count] = L'\0';
    double value = 0;
    benchmark::DoNotOptimize(literal::EvaluateExpression(kept, value));
    benchmark::DoNotOptimize(value);
  }
}

template <const wchar_t* Text>
void Ours(benchmark::State& state) {
  for (auto _ : state) {
    const wchar_t* text = Text;
    benchmark::DoNotOptimize(text);
    benchmark::DoNotOptimize(ATOF2(text));
  }
}

void Wcstod(benchmark::State& state) {
  for (auto _ : state) {
    const wchar_t* text = kPlain;
    benchmark::DoNotOptimize(text);
    benchmark::DoNotOptimize(std::wcstod(text, nullptr));
  }
}

#ifdef QEL_BENCH_MUPARSER
void MuParser(benchmark::State& state) {
  for (auto _ : state) {
    mu::Parser parser;
    parser.SetExpr("12*3+4.5/2");
    benchmark::DoNotOptimize(parser.Eval());
  }
}
#else
constexpr Body MuParser = nullptr;
#endif

const bool kAdded = Compare("number entry 12*3+4.5/2", Ours<kExpression>,
                            {{"steps coded literally", AtMost(1.5), LiteralSteps},
                             {"muParser, parse and evaluate", AtLeast(100), MuParser}}) &&
                    Compare("number entry 12345.67", Ours<kPlain>, {{"wcstod", AtMost(1.2), Wcstod}});

}  // namespace
