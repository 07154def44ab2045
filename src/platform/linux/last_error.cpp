#include "platform/platform.h"

namespace {

thread_local DWORD t_LastError = 0;

}  // namespace

DWORD GetLastError() {
  return t_LastError;
}

void SetLastError(DWORD code) {
  t_LastError = code;
}
