// The only way from the library to the operating system. On Windows these are the system's own functions; elsewhere
// the sources in linux/ answer as Windows does: same status codes, same sizes, same corner cases. A function is
// declared here only when the library calls it; tests/platform holds every one to its contract on both systems.
#ifndef QEL_PLATFORM_PLATFORM_H
#define QEL_PLATFORM_PLATFORM_H

#include "platform_types.h"

#ifdef _WIN32

#include <oleauto.h>

#else

// Clock. Fills the record with the local time of one instant.
void GetLocalTime(SYSTEMTIME* time);

#endif

#endif  // QEL_PLATFORM_PLATFORM_H
