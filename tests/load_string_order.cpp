// Compiled once for each place where a host may include windows.h, with UNICODE and without: its macro must
// not lead a call of LoadString astray.
#ifdef QEL_WINDOWS_BEFORE
#include <windows.h>
#endif

#include "string_resources.h"

#ifdef QEL_WINDOWS_AFTER
#include <windows.h>
#endif

CString QEL_CASE();

CString QEL_CASE() {
  using namespace Qel::Sys::Text;
  return LoadString(156, GetLibraryResourceInstance(), 0) +
         Qel::Sys::Text::LoadString(157, GetLibraryResourceInstance(), 0);
}
