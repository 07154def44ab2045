#include <string>

#ifdef QEL_BENCH_QT
#include <QBuffer>
#endif

#include "blob.h"
#include "compare.h"

namespace {

constexpr char kPage[4096] = "";

// Appends pieces of `Piece` bytes to what is empty until it holds `Total`.
template <class Stream, int Piece, int Total>
void Fill(benchmark::State& state) {
  for (auto _ : state) {
    Stream stream;
    for (int filled = 0; filled < Total; filled += Piece) stream.Append(kPage, Piece);
    benchmark::DoNotOptimize(stream);
  }
}

struct Text {
  void Append(const char* bytes, int count) { text.append(bytes, static_cast<std::size_t>(count)); }
  std::string text;
};

#ifdef QEL_BENCH_QT
struct Qt {
  Qt() { buffer.open(QIODevice::WriteOnly); }
  void Append(const char* bytes, int count) { buffer.write(bytes, count); }
  QBuffer buffer;
};
template <int Piece, int Total>
constexpr Body kQt = Fill<Qt, Piece, Total>;
#else
template <int Piece, int Total>
constexpr Body kQt = nullptr;
#endif

constexpr int kMega = 1 << 20;

const bool kAdded = Compare("stream, 16-byte appends to 1 MB", Fill<TBlob, 16, kMega>,
                            {{"std::string", AtLeast(1.7), Fill<Text, 16, kMega>},
                             {"QBuffer", AtLeast(2), kQt<16, kMega>}}) &&
                    // Growth is linear: twice the bytes take about twice as long.
                    Compare("stream, 4 KB appends to 64 MB", Fill<TBlob, 4096, 64 * kMega>,
                            {{"half of it, to 32 MB", AtMost(2.5), Fill<TBlob, 4096, 32 * kMega>},
                             {"std::string", AtMost(1), Fill<Text, 4096, 64 * kMega>}});

}  // namespace
