// How every metrics file begins.
#ifndef QEL_FUZZ_METRICS_HEAD_H
#define QEL_FUZZ_METRICS_HEAD_H

#include "metrics_file.h"

constexpr char kMetricsHead[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!--\n This report was automatically generated\n by QelBugTrap for Win32-x86 on 200427-1343480500\n "
    "-->\n\n"
    "<metrics version=\"1.6\">\n  <info>\n";

#endif  // QEL_FUZZ_METRICS_HEAD_H
