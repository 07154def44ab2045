#include "platform/platform.h"

void InterruptRequest(void* request) {
  WinHttpCloseHandle(request);
}
