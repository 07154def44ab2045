#include "platform/platform.h"

void InterruptRequest(void*) {}

// The system knows its own authorities alone: a further one goes into the user's certificate store.
DWORD TrustAuthorities(void*, const wchar_t* path) {
  if (!path || !*path) return 0;
  return GetFileAttributesW(path) == INVALID_FILE_ATTRIBUTES ? GetLastError() : ERROR_CALL_NOT_IMPLEMENTED;
}
