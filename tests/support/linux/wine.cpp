#include "support/golden.h"

bool RunsUnderWine() {
  return false;
}

bool RunsOnWindows() {
  return false;
}
