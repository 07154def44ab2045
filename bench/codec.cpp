#include <boost/algorithm/hex.hpp>

#include <iterator>
#include <string>

#include "compare.h"
#include "pxsf.h"
#ifdef QEL_BENCH_QT
#include <QByteArray>
#endif

namespace {

constexpr int kSize = 3997;  // the largest record

std::string Record() {
  std::string record(kSize, '\0');
  for (std::size_t i = 0; i < record.size(); ++i) record[i] = static_cast<char>(i * 7);
  return record;
}

void OursEncode(benchmark::State& state) {
  const std::string record = Record();
  for (auto _ : state) benchmark::DoNotOptimize(StructToString(record.data(), kSize));
}

void BoostEncode(benchmark::State& state) {
  const std::string record = Record();
  for (auto _ : state) {
    std::wstring text;
    boost::algorithm::hex(record, std::back_inserter(text));
    benchmark::DoNotOptimize(text);
  }
}

void OursDecode(benchmark::State& state) {
  std::string record = Record();
  const Qel::Sys::TString text = StructToString(record.data(), kSize);
  for (auto _ : state) benchmark::DoNotOptimize(StringToStruct(record.data(), kSize, text));
}

#ifdef QEL_BENCH_QT
void QtEncode(benchmark::State& state) {
  const QByteArray record = QByteArray::fromStdString(Record());
  for (auto _ : state) benchmark::DoNotOptimize(record.toHex());
}

void QtDecode(benchmark::State& state) {
  const QByteArray text = QByteArray::fromStdString(Record()).toHex();
  for (auto _ : state) benchmark::DoNotOptimize(QByteArray::fromHex(text));
}
#else
constexpr Body QtEncode = nullptr;
constexpr Body QtDecode = nullptr;
#endif

const bool kAdded =
    Compare(
        "record of 3,997 bytes to text", OursEncode,
        {{"QByteArray::toHex", AtLeast(4), QtEncode}, {"boost::algorithm::hex", AtLeast(15), BoostEncode}}) &&
    Compare("record of 3,997 bytes from text", OursDecode, {{"QByteArray::fromHex", AtLeast(2), QtDecode}});

}  // namespace
