#include "platform/platform.h"

// A handle that waits for its answer must not be closed: the call ends by its time-out.
void InterruptRequest(void*) {}
