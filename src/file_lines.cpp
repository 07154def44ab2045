#include "file_lines.h"

#include <cstdint>
#include <cstring>

namespace {

constexpr std::uint64_t kOnes = 0x0001000100010001;
constexpr wchar_t kCarriageReturn = L'\r', kLineFeed = L'\n', kByteOrderMark = 0xFEFF;

constexpr bool IsPlain(wchar_t unit) {
  return unit != kCarriageReturn && unit != kLineFeed && unit != kByteOrderMark;
}

// Four units at once: whether one of them is 0.
constexpr bool HasZero(std::uint64_t units) {
  return ((units - kOnes) & ~units & kOnes << 15) != 0;
}

constexpr bool HasUnit(std::uint64_t units, wchar_t unit) {
  return HasZero(units ^ kOnes * static_cast<std::uint64_t>(unit));
}

wchar_t UnitAt(const BYTE* bytes) {
  return static_cast<wchar_t>(bytes[0] | bytes[1] << 8);
}

// How many units from the start on belong to a line.
std::size_t PlainUnits(const BYTE* bytes, std::size_t units) {
  std::size_t plain = 0;
  for (std::uint64_t four; plain + 4 <= units; plain += 4) {
    std::memcpy(&four, bytes + 2 * plain, sizeof four);
    if (HasUnit(four, kCarriageReturn) || HasUnit(four, kLineFeed) || HasUnit(four, kByteOrderMark)) break;
  }
  while (plain < units && IsPlain(UnitAt(bytes + 2 * plain))) ++plain;
  return plain;
}

void AppendUnits(std::wstring& line, const BYTE* bytes, std::size_t units) {
  const std::size_t length = line.size();
  line.resize(length + units);
  UnitsFromBytes(line.data() + length, units, bytes, static_cast<DWORD>(2 * units));
}

}  // namespace

std::size_t TakeLine(const BYTE* bytes, std::size_t size, std::wstring& line, bool& ended) {
  const std::size_t units = size / 2;
  for (std::size_t at = 0; at < units;) {
    const std::size_t plain = PlainUnits(bytes + 2 * at, units - at);
    AppendUnits(line, bytes + 2 * at, plain);
    at += plain;
    if (at == units) break;
    const wchar_t unit = UnitAt(bytes + 2 * at++);
    ended = unit != kByteOrderMark && !line.empty();
    if (ended) return 2 * at;
    line.clear();  // it is empty, or a mark discards it
  }
  return 2 * units;
}
