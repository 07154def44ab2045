#include "file_lines.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace {

constexpr char16_t kCarriageReturn = u'\r', kLineFeed = u'\n', kByteOrderMark = 0xFEFF;

constexpr bool IsPlain(char16_t unit) {
  return unit != kCarriageReturn && unit != kLineFeed && unit != kByteOrderMark;
}

char16_t UnitAt(const BYTE* bytes) {
  return static_cast<char16_t>(bytes[0] | bytes[1] << 8);
}

// Eight units, which the processor compares at once.
using Eight = std::uint16_t __attribute__((vector_size(16)));
constexpr std::size_t kEight = 8;
static_assert(std::endian::native == std::endian::little, "units are read as they lie in the file");

constexpr Eight AllAre(std::uint16_t unit) {
  return Eight{unit, unit, unit, unit, unit, unit, unit, unit};
}

// Sixteen bits of ones for each of the eight that is not plain.
Eight Special(const BYTE* bytes) {
  Eight units;
  std::memcpy(&units, bytes, sizeof units);
  return static_cast<Eight>((units == AllAre(kCarriageReturn)) | (units == AllAre(kLineFeed)) |
                            (units == AllAre(kByteOrderMark)));
}

// The first of the eight that is marked; 8 for none.
std::size_t FirstMarked(Eight marks) {
  std::uint64_t halves[2];
  std::memcpy(halves, &marks, sizeof halves);
  const std::size_t first = static_cast<std::size_t>(std::countr_zero(halves[0])) / 16;
  return first < 4 ? first : 4 + static_cast<std::size_t>(std::countr_zero(halves[1])) / 16;
}

// How many units from the start on belong to a line.
std::size_t PlainUnits(const BYTE* bytes, std::size_t units) {
  std::size_t plain = 0;
  for (; plain + kEight <= units; plain += kEight) {
    const std::size_t found = FirstMarked(Special(bytes + 2 * plain));
    if (found < kEight) return plain + found;
  }
  while (plain < units && IsPlain(UnitAt(bytes + 2 * plain))) ++plain;
  return plain;
}

}  // namespace

std::size_t TakeLine(const BYTE* bytes, std::size_t size, CString& line, bool& ended) {
  const std::size_t units = size / 2;
  for (std::size_t at = 0; at < units;) {
    const std::size_t plain = PlainUnits(bytes + 2 * at, units - at);
    if (plain > 0)
      UnitsFromBytes(line.Extend(static_cast<int>(plain)), plain, bytes + 2 * at,
                     static_cast<DWORD>(2 * plain));
    at += plain;
    if (at == units) break;
    const char16_t unit = UnitAt(bytes + 2 * at++);
    ended = unit != kByteOrderMark && !line.IsEmpty();
    if (ended) return 2 * at;
    line.Empty();  // it is empty, or a mark discards it
  }
  return 2 * units;
}
