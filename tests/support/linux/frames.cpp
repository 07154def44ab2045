#include "support/frames.h"

bool FrameIsIn(const std::string& frame, const char* name, void (*)(int)) {
  return frame.find(name) != std::string::npos;
}
