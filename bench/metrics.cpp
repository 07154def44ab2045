#include <filesystem>
#include <memory>
#include <random>
#include <string>

#ifdef QEL_BENCH_SPDLOG
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>
#endif

#include "bugtrap.h"
#include "compare.h"
#include "metrics_log.h"

namespace {

// Gone with the program.
const std::filesystem::path& Folder() {
  struct Place {
    Place() { std::filesystem::create_directory(path); }
    ~Place() { std::filesystem::remove_all(path); }
    const std::filesystem::path path = std::filesystem::temp_directory_path() /
                                       ("qel-bench-metrics-" + std::to_string(std::random_device()()));
  };
  static const Place s_Place;
  return s_Place.path;
}

// A whole event: built, three properties, saved.
void SaveEvents(benchmark::State& state, ABT_LOGLEVEL level) {
  TBugTrapHooks hooks;
  hooks.GetMetricsFilePath = [] { return Folder().wstring(); };
  SetBugTrapHooks(hooks);
  TBTLogFile log(L"");
  int rows = 0;
  for (auto _ : state) {
    TBTEvent event(level, L"InvoiceSaved");
    event[L"Rows"] = ++rows;
    event[L"Customer"] = L"Qelmar Trading";
    event[L"Total"] = 1234.5;
    benchmark::DoNotOptimize(log.AddEvent(event));
  }
  log.Close();
  std::filesystem::remove(log.GetFilePath());
}
void AtOnce(benchmark::State& state) {
  SaveEvents(state, ABT_INFO);
}
void Buffered(benchmark::State& state) {
  SaveEvents(state, ABT_ERROR);
}

#ifdef QEL_BENCH_SPDLOG
void LogLines(benchmark::State& state, spdlog::level::level_enum flushed) {
  const std::string file = Folder() / "spdlog.txt";
  {
    const auto log = std::make_shared<spdlog::logger>(
        "bench", std::make_shared<spdlog::sinks::basic_file_sink_st>(file, true));
    log->flush_on(flushed);
    int rows = 0;
    for (auto _ : state)
      log->info("InvoiceSaved Rows={} Customer={} Total={}", ++rows, "Qelmar Trading", 1234.5);
  }
  std::filesystem::remove(file);
}
void SpdlogAtOnce(benchmark::State& state) {
  LogLines(state, spdlog::level::info);
}
void SpdlogBuffered(benchmark::State& state) {
  LogLines(state, spdlog::level::off);
}
#else
constexpr Body SpdlogAtOnce = nullptr, SpdlogBuffered = nullptr;
#endif

const bool kAdded =
    Compare("Metrics event, written at once", AtOnce,
            {{"spdlog, flushing each line", AtMost(1.6), SpdlogAtOnce}}) &&
    Compare("Metrics event, buffered", Buffered, {{"spdlog, buffered", AtMost(2), SpdlogBuffered}});

}  // namespace
