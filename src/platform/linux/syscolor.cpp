#include <iterator>

#include "platform/platform.h"

namespace {

// By index; blue, green, red, as in every colour value.
constexpr DWORD kColours[] = {
    0xC8C8C8, 0x000000, 0xD1B499, 0xDBCDBF, 0xF0F0F0, 0xFFFFFF, 0x646464, 0x000000, 0x000000,
    0x000000, 0xB4B4B4, 0xFCF7F4, 0xABABAB, 0xD77800, 0xFFFFFF, 0xF0F0F0, 0xA0A0A0, 0x6D6D6D,
    0x000000, 0x000000, 0xFFFFFF, 0x696969, 0xE3E3E3, 0x000000, 0xE1FFFF,
};

}  // namespace

DWORD GetSysColor(int index) {
  return index >= 0 && index < static_cast<int>(std::size(kColours)) ? kColours[index] : 0;
}
