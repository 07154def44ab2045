// Our operations beside those a user would pick instead, timed in one run.
//
//   const bool kAdded = Compare("list append", OursAppend, {{"std::forward_list", AtMost(1.3), PeerAppend}});
//
// The repetitions of both sides are interleaved. A ratio is ours to the peer's in time for AtMost, and the
// peer's to ours (how many times faster we are) for AtLeast.
#ifndef QEL_BENCH_COMPARE_H
#define QEL_BENCH_COMPARE_H

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

struct Goal {
  bool atLeast;  // times faster than the peer; otherwise at most so many times its time
  double ratio;
};
constexpr Goal AtLeast(double ratio) {
  return {true, ratio};
}
constexpr Goal AtMost(double ratio) {
  return {false, ratio};
}

using Body = void (*)(benchmark::State&);

struct Peer {
  const char* name;
  Goal goal;
  Body run;  // null: the peer's package was not there when this was built; the row says so
};

// What counts: the time of the calling thread alone, or also that in which it waits for others.
enum class Clocked { Processor, Elapsed };

// Registers one subject. Returns true, so that it can initialise a constant.
bool Compare(const char* subject, Body ours, const std::vector<Peer>& peers,
             Clocked clocked = Clocked::Processor);

// Registers a figure that is no ratio, measured and printed after the others. Left out when the caller asks for some
// of the subjects alone.
bool Show(const char* subject, std::string (*measure)());

// Runs `step(i)` over the indices 0 .. 1023 in turn.
template <class Step>
void Cycle(benchmark::State& state, Step step) {
  unsigned i = 0;
  for (auto _ : state) step(i++ & 1023U);
}

#endif  // QEL_BENCH_COMPARE_H
