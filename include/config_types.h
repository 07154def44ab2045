// What typed settings are made of (configfile.h): points, sizes, rectangles and moments as plain values.
//
//   TRect window{10, 20, 40, 60};
//   window.Width()                    // 30
#ifndef QEL_CONFIG_TYPES_H
#define QEL_CONFIG_TYPES_H

#include "platform_types.h"

struct TPoint {
  int x = 0, y = 0;
  bool operator==(const TPoint&) const = default;
};

struct TSize {
  int cx = 0, cy = 0;
  bool operator==(const TSize&) const = default;
};

// Right and bottom lie behind the rectangle. Width and height wrap around where they leave the range of int.
struct TRect {
  int left = 0, top = 0, right = 0, bottom = 0;
  constexpr int Width() const noexcept { return Distance(left, right); }
  constexpr int Height() const noexcept { return Distance(top, bottom); }
  bool operator==(const TRect&) const = default;

 private:
  static constexpr int Distance(int from, int to) noexcept {
    return static_cast<int>(static_cast<unsigned>(to) - static_cast<unsigned>(from));
  }
};

// A moment as the system spells it. Nothing is checked; day of week: Sunday is 0.
class TSystemTime {
 public:
  constexpr TSystemTime() noexcept = default;
  constexpr TSystemTime(const SYSTEMTIME& record) noexcept : m_Record(record) {}

  constexpr WORD Year() const noexcept { return m_Record.wYear; }
  constexpr WORD Month() const noexcept { return m_Record.wMonth; }
  constexpr WORD DayOfWeek() const noexcept { return m_Record.wDayOfWeek; }
  constexpr WORD Day() const noexcept { return m_Record.wDay; }
  constexpr WORD Hour() const noexcept { return m_Record.wHour; }
  constexpr WORD Minute() const noexcept { return m_Record.wMinute; }
  constexpr WORD Second() const noexcept { return m_Record.wSecond; }
  constexpr WORD Milliseconds() const noexcept { return m_Record.wMilliseconds; }
  constexpr operator const SYSTEMTIME&() const noexcept { return m_Record; }

 private:
  SYSTEMTIME m_Record{};
};

#endif  // QEL_CONFIG_TYPES_H
