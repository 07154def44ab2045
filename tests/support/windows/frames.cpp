#include "support/frames.h"

#include <cstdint>

bool FrameIsIn(const std::string& frame, const char*, void (*function)(int)) {
  constexpr std::uintptr_t kLongestFunction = 1024;  // of those that tests raise in
  const auto start = reinterpret_cast<std::uintptr_t>(function);
  const auto address = static_cast<std::uintptr_t>(std::stoull(frame.substr(frame.find("0x")), nullptr, 16));
  return address > start && address < start + kLongestFunction;
}
