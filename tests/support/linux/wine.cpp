#include "support/golden.h"

bool RunsUnderWine() { return false; }
