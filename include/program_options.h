// The optional features of the program that are switched on, as a set of numbers known to the modules.
#ifndef QEL_PROGRAM_OPTIONS_H
#define QEL_PROGRAM_OPTIONS_H

#include "qel_export.h"
#include "xlist.h"

// Copied, never moved from: both have the set then. No lock, not even for readers.
class QEL_API TProgramOptions {
 public:
  TProgramOptions() = default;
  TProgramOptions(const TProgramOptions&) = default;
  TProgramOptions& operator=(const TProgramOptions&) = default;
  ~TProgramOptions() = default;

  // 1 when `option` is on, else 0.
  int CheckOption(int option) const;

  // Switches `option` on (`enable` not 0) or off, and returns 1 when it was on before, else 0.
  int SetOption(int option, int enable);

  // Leaves exactly the fifteen standard options on, and sets SysFormat.Option7 to 6.
  void init();

 private:
  Qel::XList<int> m_Options;  // each number at most once
};

// The process's options, none on at first.
QEL_API TProgramOptions& GetProgramOptions();

#endif  // QEL_PROGRAM_OPTIONS_H
