#include <cwchar>

#ifdef QEL_BENCH_MUPARSER
#include <muParser.h>
#endif

#include "atof2.h"
#include "compare.h"

namespace {

using Qel::Sys::Text::Conversion::ATOF2;

constexpr wchar_t kExpression[] = L"12*3+4.5/2";
constexpr wchar_t kPlain[] = L"12345.67";

// The steps of number entry written down one by one, without looking for a shorter way.
bool LiteralValue(const wchar_t* text, int length, double& result) {
  double scale = 0.1;
  int at = 0;
  for (; at < length && text[at] != L'.'; ++at) {
    if (text[at] < L'0' || text[at] > L'9') return false;
    scale *= 10.0;
  }
  for (++at; at < length; ++at)
    if (text[at] < L'0' || text[at] > L'9') return false;
  result = 0;
  for (int i = 0; i < length; ++i) {
    if (text[i] == L'.') continue;
    result += (text[i] - L'0') * scale;
    scale *= 0.1;
  }
  return true;
}

bool LiteralTerm(const wchar_t* text, int length, double& result) {
  result = 1.0;
  int end = length - 1;
  double value = 0;
  for (int i = length - 1; i >= 0; --i) {
    if (text[i] != L'*' && text[i] != L'/') continue;
    if (!LiteralValue(text + i + 1, end - i, value)) return false;
    if (text[i] == L'/' && value == 0.0) return false;
    result = text[i] == L'*' ? result * value : result / value;
    end = i - 1;
  }
  if (text[0] == L'*' || text[0] == L'/') return true;
  if (!LiteralValue(text, end + 1, value)) return false;
  result *= value;
  return true;
}

bool LiteralExpression(const wchar_t* text, double& result) {
  for (const wchar_t* at = text; *at; ++at)
    if (!std::wcschr(L"0123456789+-*/.", *at)) return false;
  result = 0;
  const int length = static_cast<int>(std::wcslen(text));
  int end = length - 1;
  double value = 0;
  for (int i = length - 1; i >= 0; --i) {
    if (text[i] != L'+' && text[i] != L'-') continue;
    if (!LiteralTerm(text + i + 1, end - i, value)) return false;
    result = text[i] == L'+' ? result + value : result - value;
    end = i - 1;
  }
  if (text[0] == L'+' || text[0] == L'-') return true;
  if (!LiteralTerm(text, end + 1, value)) return false;
  result += value;
  return true;
}

void LiteralSteps(benchmark::State& state) {
  for (auto _ : state) {
    const wchar_t* text = kExpression;
    benchmark::DoNotOptimize(text);
    wchar_t kept[101];
    int count = 0;
    for (; text[count] && count < 100; ++count) kept[count] = text[count];
    kept[count] = L'\0';
    double value = 0;
    benchmark::DoNotOptimize(LiteralExpression(kept, value));
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
