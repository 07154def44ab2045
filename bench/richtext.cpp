#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

#ifdef QEL_BENCH_QT
#include <QColor>
#include <QGuiApplication>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>
#endif

#include "compare.h"
#include "richtext.h"

namespace {

constexpr std::size_t kRun = 60;  // units of a run, a line end being its last
constexpr unsigned long kColours[] = {0x003399, 0x000000, 0xC00000, 0x000080};

// `size` units in runs, Arabic and English by turns.
std::vector<CString> Runs(std::size_t size) {
  const std::wstring texts[] = {
      L"the balance of the account is 1,250 and is due in March 24\n",
      L"رصيد الحساب حتى اليوم هو ١٬٢٥٠ ليرة ويستحق في شهر آذار ١٤٤\n",
  };
  std::vector<CString> runs;
  for (std::size_t written = 0; written < size; written += kRun)
    runs.emplace_back(texts[runs.size() % 2].c_str());
  return runs;
}

void Write(const std::vector<CString>& runs) {
  TRichText pane;
  for (std::size_t i = 0; i < runs.size(); ++i)
    pane.AddString(runs[i], kColours[i % 4], i % 3 == 0 ? 20 : 16, i % 2 == 0, false);
  benchmark::DoNotOptimize(pane.GetString());
}

template <std::size_t Size>
void Ours(benchmark::State& state) {
  const std::vector<CString> runs = Runs(Size);
  for (auto _ : state) Write(runs);
}

#ifdef QEL_BENCH_QT
// A document needs its fonts, and they an application; none of this is shown.
void NeedApplication() {
  static int s_Count = 1;
  static char s_Name[] = "qel_bench";
  static char* s_Words[] = {s_Name, nullptr};
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static const QGuiApplication s_Application(s_Count, s_Words);
}

// The document alone; what it would take to write it out is left out.
template <std::size_t Size>
void Qt(benchmark::State& state) {
  NeedApplication();
  std::vector<QString> runs;
  for (const CString& run : Runs(Size)) runs.push_back(QString::fromWCharArray(run));
  for (auto _ : state) {
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    QTextCursor cursor(&document);
    for (std::size_t i = 0; i < runs.size(); ++i) {
      QTextCharFormat format;
      format.setForeground(QColor(static_cast<QRgb>(kColours[i % 4])));
      format.setFontPointSize(i % 3 == 0 ? 10 : 8);
      format.setFontWeight(i % 2 == 0 ? QFont::Bold : QFont::Normal);
      cursor.insertText(runs[i], format);
    }
    benchmark::DoNotOptimize(document.characterCount());
  }
}
#else
template <std::size_t Size>
constexpr Body Qt = nullptr;
#endif

double NanosecondsAUnit(std::size_t size) {
  const std::vector<CString> runs = Runs(size);
  const std::size_t times = 20'000'000 / size + 1;
  const std::clock_t start = std::clock();
  for (std::size_t i = 0; i < times; ++i) Write(runs);
  return static_cast<double>(std::clock() - start) * 1e9 / CLOCKS_PER_SEC / static_cast<double>(times * size);
}

std::string Growth() {
  char text[160];
  std::snprintf(text, sizeof text, "%.2f ns a unit of 1 KB, %.2f of 100 KB, %.2f of 10 MB",
                NanosecondsAUnit(1000), NanosecondsAUnit(100'000), NanosecondsAUnit(10'000'000));
  return text;
}

const bool kAdded =
    Compare("rich text 1 KB", Ours<1000>, {{"QTextDocument", AtLeast(2), Qt<1000>}}) &&
    Compare("rich text 1 MB", Ours<1'000'000>, {{"QTextDocument", AtLeast(2), Qt<1'000'000>}}) &&
    Show("rich text by size", Growth);

}  // namespace
