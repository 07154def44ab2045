#include "color.h"

#include "compare.h"
#ifdef QEL_BENCH_QT
#include <QColor>
#endif

namespace {

// Spread over all colours.
constexpr unsigned Word(unsigned i) {
  return i * 0x9E3779B1U >> 8;
}

void OursThereAndBack(benchmark::State& state) {
  Cycle(state, [](unsigned i) {
    TColor colour(Word(i));
    benchmark::DoNotOptimize(colour.Hls2Rgb(colour.Rgb2Hls()));
  });
}

#ifdef QEL_BENCH_QT
void QtThereAndBack(benchmark::State& state) {
  Cycle(state, [](unsigned i) {
    int hue = 0, saturation = 0, lightness = 0;
    QColor::fromRgb(Word(i)).getHsl(&hue, &saturation, &lightness);
    benchmark::DoNotOptimize(QColor::fromHsl(hue, saturation, lightness).rgb());
  });
}
#else
constexpr Body QtThereAndBack = nullptr;
#endif

const bool kAdded =
    Compare("colour to HLS and back", OursThereAndBack, {{"QColor", AtLeast(3), QtThereAndBack}});

}  // namespace
