#include <forward_list>

#include "compare.h"
#include "list.h"

namespace {

constexpr int kLength = 1000;

void OursAppend(benchmark::State& state) {
  for (auto _ : state) {
    Qel::List<int> list;
    for (int i = 0; i < kLength; ++i) list.append(i);
    benchmark::DoNotOptimize(list);
  }
}

void ForwardListAppend(benchmark::State& state) {
  for (auto _ : state) {
    std::forward_list<int> list;
    auto last = list.before_begin();
    for (int i = 0; i < kLength; ++i) last = list.insert_after(last, i);
    benchmark::DoNotOptimize(list);
  }
}

void OursScan(benchmark::State& state) {
  Qel::List<int> list;
  for (int i = 0; i < kLength; ++i) list.append(i);
  for (auto _ : state) {
    int sum = 0;
    for (int i = 0; i < kLength; ++i) sum += list[i];
    benchmark::DoNotOptimize(sum);
  }
}

void CursorScan(benchmark::State& state) {
  std::forward_list<int> list(kLength, 1);
  for (auto _ : state) {
    int sum = 0;
    for (const int value : list) sum += value;
    benchmark::DoNotOptimize(sum);
  }
}

const bool kAdded =
    Compare("list append x1000", OursAppend, {{"std::forward_list", AtMost(1.3), ForwardListAppend}}) &&
    Compare("list scan by index x1000", OursScan, {{"bare cursor", AtMost(1.5), CursorScan}});

}  // namespace
