#include "format.h"

// SysFormat is a constant of the file, with nothing to do at load time. Without the word GCC would still build it
// then; clang 14 cannot make a constant of the standard library's empty string.
#if defined(__clang__) && __clang_major__ < 15
#define QEL_CONSTINIT
#else
#define QEL_CONSTINIT constinit
#endif

namespace Qel::Sys::Settings {

QEL_CONSTINIT Format SysFormat;

void Format::Init() {
  Format defaults;
  defaults.DateFmt = DateFmt;
  defaults.RoundType = RoundType;
  defaults.Option7 = Option7;
  *this = defaults;
}

}  // namespace Qel::Sys::Settings
