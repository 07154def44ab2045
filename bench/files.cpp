#include <fcntl.h>
#include <unicode/ustdio.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#ifdef QEL_BENCH_QT
#include <QFile>
#include <QTextStream>
#endif

#include "compare.h"
#include "pxfile.h"
#include "pxfile2.h"
#include "utf8.h"

namespace {

constexpr int kMega = 1 << 20;

// A file of UTF-16LE lines as an export has them, about 45 units each; gone when the program ends.
class ExportFile {
 public:
  explicit ExportFile(int bytes) {
    close(mkstemp(m_Name));
    TPXFile file(Path(), FA_CREATE);
    file.Write(L"\uFEFF");
    for (int number = 1; file.GetFileSize() < bytes; ++number) {
      std::wstring lines;
      for (int i = 0; i < 1000; ++i)
        lines += L"1446/08/26\t\u0641\u0627\u062A\u0648\u0631\u0629 \u0645\u0628\u064A\u0639\u0627\u062A\t" +
                 std::to_wstring(number * 1000 + i) + L"\t1,250.00\r\n";
      file.Write(CString(lines));
    }
  }
  ~ExportFile() { unlink(m_Name); }
  const char* Name() const { return m_Name; }
  CString Path() const { return Qel::FromUtf8(m_Name); }

 private:
  char m_Name[32] = "/tmp/qel-bench-XXXXXX";
};

template <int Mega>
const ExportFile& Export() {
  static const ExportFile s_File(Mega * kMega);
  return s_File;
}

template <int Mega>
void Lines(benchmark::State& state) {
  const CString path = Export<Mega>().Path();
  for (auto _ : state) {
    TPXFile file(path, FA_READ);
    CString line;
    while (file.ReadLine(line) > 0) benchmark::DoNotOptimize(line.GetString());
  }
}

void WholeFile(benchmark::State& state) {
  const CString path = Export<50>().Path();
  for (auto _ : state) {
    TPXFile2 file(path);
    CString line;
    while (file.ReadLine(line) > 0) benchmark::DoNotOptimize(line.GetString());
  }
}

void IcuLines(benchmark::State& state) {
  for (auto _ : state) {
    UFILE* const file = u_fopen(Export<50>().Name(), "r", nullptr, "UTF-16LE");
    char16_t line[1024];
    while (u_fgets(line, 1024, file)) benchmark::DoNotOptimize(line);
    u_fclose(file);
  }
}

void TwoByteReads(benchmark::State& state) {
  for (auto _ : state) {
    const int file = open(Export<2>().Name(), O_RDONLY);
    std::wstring line;
    for (unsigned char unit[2]; read(file, unit, 2) == 2;) {
      const auto ch = static_cast<wchar_t>(unit[0] | unit[1] << 8);
      if (ch != L'\r' && ch != L'\n') {
        line += ch;
      } else {
        benchmark::DoNotOptimize(line.c_str());
        line.clear();
      }
    }
    close(file);
  }
}

#ifdef QEL_BENCH_QT
void QtLines(benchmark::State& state) {
  for (auto _ : state) {
    QFile file(QString::fromUtf8(Export<50>().Name()));
    file.open(QIODevice::ReadOnly);
    QTextStream stream(&file);
    stream.setCodec("UTF-16LE");
    for (QString line; stream.readLineInto(&line);) benchmark::DoNotOptimize(line.data());
  }
}
#else
constexpr Body QtLines = nullptr;
#endif

const bool kAdded =
    Compare("file, 50 MB of UTF-16 by lines", Lines<50>,
            {{"ICU u_fgets", AtLeast(2), IcuLines}, {"QTextStream", AtLeast(3), QtLines}}) &&
    Compare("file, 2 MB of UTF-16 by lines", Lines<2>, {{"two-byte reads", AtLeast(250), TwoByteReads}}) &&
    // All of it is in memory at once, which is what one pays for the choice of encodings.
    Compare("file, 50 MB read as a whole, by lines", WholeFile, {{"by lines", AtMost(12), Lines<50>}});

// What the process holds at most while it reads a file of 200 MB by lines, above what it held before.
std::string MemoryOfLines() {
  const auto most = [] {
    long kilobytes = 0;
    std::FILE* const status = std::fopen("/proc/self/status", "r");
    for (char line[256]; status && std::fgets(line, sizeof line, status);)
      if (std::sscanf(line, "VmHWM: %ld", &kilobytes) == 1) break;
    if (status) std::fclose(status);
    return kilobytes;
  };
  const CString path = Export<200>().Path();
  if (std::FILE* const reset = std::fopen("/proc/self/clear_refs", "w")) {
    std::fputs("5", reset);  // the mark starts again at what is held now
    std::fclose(reset);
  }
  const long before = most();
  TPXFile file(path, FA_READ);
  CString line;
  while (file.ReadLine(line) > 0) benchmark::DoNotOptimize(line.GetString());
  return std::to_string(most() - before) + " KB";
}

const bool kShown = Show("file, memory for 200 MB by lines", MemoryOfLines);

}  // namespace
