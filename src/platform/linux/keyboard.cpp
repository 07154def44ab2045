#include "platform/platform.h"

short GetAsyncKeyState(int) {
  return 0;
}
