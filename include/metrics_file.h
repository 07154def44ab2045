// Metrics files read back, and those closed whose program ended without doing it. They have one element a line, and are
// read as that.
//
//   TMetricsFile file;
//   if (ReadMetricsFile(path, file) == 0 && file.problem == TMetricsProblem::None) Show(file.events);
//
// Texts are UTF-8. Values; one may be used from one thread at a time.
#ifndef QEL_METRICS_FILE_H
#define QEL_METRICS_FILE_H

#include <string>
#include <string_view>
#include <vector>

#include "qel_export.h"

struct TMetricsEntry {
  std::string name, value;
};

struct TMetricsEvent {
  std::string name, timestamp, level,
      duration;  // as they stand in the file, "200427-1343480500", "4:Info", "12"
  std::vector<TMetricsEntry> properties;
};

// The first thing wrong with a file.
enum class TMetricsProblem {
  None,
  NotMetrics,  // no head of a metrics file: nothing can be read
  HeadCutOff,  // it ends within its head: nothing can be read
  Unclosed,    // it ends behind a whole event: its program runs, or ended without closing it
  CutOff,      // it ends within an event, which is dropped
  Damaged,     // an event that no log writes, which is dropped; those behind it are read
  LeftOver     // something follows its end
};

struct TMetricsFile {
  std::vector<TMetricsEntry> info;    // of the program and its session
  std::vector<TMetricsEvent> events;  // the whole ones
  TMetricsProblem problem = TMetricsProblem::None;
  int line = 0, column = 0;  // where it is, from 1, columns in characters; 0 without one
  int dropped = 0;           // how many pieces of the file are no whole event
};

// Reads the bytes of a file.
QEL_API TMetricsFile ParseMetrics(std::string_view content);
// The same bytes with the closing lines and without what is dropped: always well-formed. Empty for NotMetrics and
// HeadCutOff.
QEL_API std::string RepairMetrics(std::string_view content);

// From and to files. 0, else the code of Windows for what stood in the way: 2 or 3 no such file or folder, 5 no right,
// 112 disk full, 223 more than 256 MB.
QEL_API long ReadMetricsFile(const wchar_t* path, TMetricsFile& file);
// Tells in `file` what was wrong with the file at `from`. The file at `to`, which may be the same, is replaced as a
// whole or not at all; not for NotMetrics and HeadCutOff, which give 13.
QEL_API long RepairMetricsFile(const wchar_t* from, const wchar_t* to, TMetricsFile& file);

#endif  // QEL_METRICS_FILE_H
