// A colour in one word: plain red, green and blue, one of the system's own colours by number, or a marker.
//
//   TColor(230, 10, 0).Lighten(40)             gives (255, 50, 40)
//   TColor::Sys3dFace.Darken(20).GetValue()    is 20 below what the user's system paints buttons with
//
// Stored word: red in bits 0-7, green in 8-15, blue in 16-23, flags in 24-31. The highest four bits tell the
// kind: 0x8 a system colour, its index in the low 16 bits; 0xF a marker; else plain. Everything that reads
// channels resolves a system colour first, so it follows the user's theme. What is computed is plain, its
// flags 0. Wherever a raw value is taken, its low 32 bits count.
#ifndef QEL_COLOR_H
#define QEL_COLOR_H

#include <concepts>
#include <cstdint>

#include "platform_types.h"
#include "qel_export.h"

class TColor {
 public:
  constexpr TColor() noexcept = default;  // black
  // The stored word. Four of them, since each kind of number converts to the others equally well.
  constexpr TColor(int value) noexcept : m_Value(static_cast<std::uint32_t>(value)) {}
  constexpr TColor(unsigned int value) noexcept : m_Value(value) {}
  constexpr TColor(long value) noexcept : m_Value(static_cast<std::uint32_t>(value)) {}
  constexpr TColor(unsigned long value) noexcept : m_Value(static_cast<std::uint32_t>(value)) {}
  // The low byte of each.
  constexpr TColor(int red, int green, int blue, int flags = 0) noexcept
      : m_Value(Byte(red) | Byte(green) << 8 | Byte(blue) << 16 | Byte(flags) << 24) {}
  constexpr TColor(const PALETTEENTRY& entry) noexcept  // with its flags
      : TColor(entry.peRed, entry.peGreen, entry.peBlue, entry.peFlags) {}
  constexpr TColor(const RGBQUAD& quad) noexcept : TColor(quad.rgbRed, quad.rgbGreen, quad.rgbBlue) {}
  constexpr TColor(const RGBTRIPLE& triple) noexcept
      : TColor(triple.rgbtRed, triple.rgbtGreen, triple.rgbtBlue) {}

  // Stored words are compared: a system colour differs from the plain one that it looks like.
  constexpr bool operator==(const TColor& other) const noexcept = default;
  template <std::integral Integer>
  constexpr bool operator==(Integer value) const noexcept {
    return m_Value == static_cast<std::uint32_t>(value);
  }

  // The word with a system colour resolved; one of an unknown index is black. Markers stay as they are.
  constexpr unsigned long GetValue() const { return IsSysColor() ? SystemValue() : m_Value; }
  constexpr operator unsigned long() const { return GetValue(); }
  constexpr TColor Rgb() const { return GetValue(); }
  constexpr unsigned char Red() const { return Channel(GetValue()); }
  constexpr unsigned char Green() const { return Channel(GetValue() >> 8); }
  constexpr unsigned char Blue() const { return Channel(GetValue() >> 16); }
  // Takes a stored word.
  constexpr void SetValue(const unsigned long& value) noexcept { *this = TColor(value); }

  // Of the stored word, nothing resolved.
  constexpr bool IsSysColor() const noexcept { return m_Value >> 28 == 0x8; }
  constexpr bool IsSpecialColor() const noexcept { return m_Value >> 28 == 0xF; }
  constexpr unsigned char Flags() const noexcept { return Channel(m_Value >> 24); }
  constexpr int Index() const noexcept { return static_cast<int>(m_Value & 0xFFFF); }
  // The forms that drawing functions take: an entry of the palette, and the palette's nearest to a colour.
  constexpr unsigned long PalIndex() const noexcept { return 0x01000000 | (m_Value & 0xFFFF); }
  constexpr unsigned long PalRelative() const noexcept { return 0x02000000 | (m_Value & 0xFFFFFF); }

  // Each channel `by` lower, not below 0; or higher, not above 255.
  QEL_API TColor Darken(unsigned char by) const;
  QEL_API TColor Lighten(unsigned char by) const;
  // The mean of each channel, truncated.
  QEL_API TColor Merge(const TColor& other) const;

  // Hue in bits 0-7, lightness in 8-15, saturation in 16-23, each 0-255; 255 of hue is the whole circle, so
  // red is 0. Greys have hue and saturation 0. 1530 full hues share 256 values: there and back, greys return
  // exactly and a channel of other colours within 4 (within 1 for 85 of 100 colours).
  QEL_API unsigned long Rgb2Hls() const;
  // Sets this colour, and returns it.
  QEL_API TColor& Hls2Rgb(unsigned long hls);
  // Lightness and saturation moved by percentages of the room there is: 100 all the way up, -100 to 0, 0
  // leaves them (there and back through Rgb2Hls).
  // Kept: each result is cut to its low byte, so more than 100 wraps, because themes hold such numbers.
  QEL_API TColor HlsTransform(int lightness, int saturation) const;

  static const TColor Black, LtGray, Gray, LtRed, LtGreen, LtYellow, LtBlue, LtMagenta, LtCyan, White;
  // Markers: no colour, and what lies behind.
  static const TColor None, Transparent;
  static const TColor SysScrollbar, SysDesktop, SysActiveCaption, SysInactiveCaption, SysMenu, SysWindow,
      SysWindowFrame, SysMenuText, SysWindowText, SysCaptionText, SysActiveBorder, SysInactiveBorder,
      SysAppWorkspace, SysHighlight, SysHighlightText, Sys3dFace, Sys3dShadow, SysGrayText, SysBtnText,
      SysInactiveCaptionText, Sys3dHilight, Sys3dDkShadow, Sys3dLight, SysInfoText, SysInfoBk;

 private:
  static constexpr std::uint32_t Byte(int value) noexcept { return static_cast<std::uint32_t>(value) & 0xFF; }
  static constexpr unsigned char Channel(unsigned long value) noexcept {
    return static_cast<unsigned char>(value & 0xFF);
  }
  QEL_API unsigned long SystemValue() const;

  std::uint32_t m_Value = 0;
};

inline constexpr TColor TColor::Black = 0x00000000;
inline constexpr TColor TColor::LtGray = 0x00C0C0C0;
inline constexpr TColor TColor::Gray = 0x00808080;
inline constexpr TColor TColor::LtRed = 0x000000FF;
inline constexpr TColor TColor::LtGreen = 0x0000FF00;
inline constexpr TColor TColor::LtYellow = 0x0000FFFF;
inline constexpr TColor TColor::LtBlue = 0x00FF0000;
inline constexpr TColor TColor::LtMagenta = 0x00FF00FF;
inline constexpr TColor TColor::LtCyan = 0x00FFFF00;
inline constexpr TColor TColor::White = 0x00FFFFFF;
inline constexpr TColor TColor::None = 0xFF000000;
inline constexpr TColor TColor::Transparent = 0xFE000000;
inline constexpr TColor TColor::SysScrollbar = 0x80000000;
inline constexpr TColor TColor::SysDesktop = 0x80000001;
inline constexpr TColor TColor::SysActiveCaption = 0x80000002;
inline constexpr TColor TColor::SysInactiveCaption = 0x80000003;
inline constexpr TColor TColor::SysMenu = 0x80000004;
inline constexpr TColor TColor::SysWindow = 0x80000005;
inline constexpr TColor TColor::SysWindowFrame = 0x80000006;
inline constexpr TColor TColor::SysMenuText = 0x80000007;
inline constexpr TColor TColor::SysWindowText = 0x80000008;
inline constexpr TColor TColor::SysCaptionText = 0x80000009;
inline constexpr TColor TColor::SysActiveBorder = 0x8000000A;
inline constexpr TColor TColor::SysInactiveBorder = 0x8000000B;
inline constexpr TColor TColor::SysAppWorkspace = 0x8000000C;
inline constexpr TColor TColor::SysHighlight = 0x8000000D;
inline constexpr TColor TColor::SysHighlightText = 0x8000000E;
inline constexpr TColor TColor::Sys3dFace = 0x8000000F;
inline constexpr TColor TColor::Sys3dShadow = 0x80000010;
inline constexpr TColor TColor::SysGrayText = 0x80000011;
inline constexpr TColor TColor::SysBtnText = 0x80000012;
inline constexpr TColor TColor::SysInactiveCaptionText = 0x80000013;
inline constexpr TColor TColor::Sys3dHilight = 0x80000014;
inline constexpr TColor TColor::Sys3dDkShadow = 0x80000015;
inline constexpr TColor TColor::Sys3dLight = 0x80000016;
inline constexpr TColor TColor::SysInfoText = 0x80000017;
inline constexpr TColor TColor::SysInfoBk = 0x80000018;

// A colour as bitmaps hold it: blue, green, red and a reserved byte, which is 0 unless it was copied.
class TRgbQuad : public RGBQUAD {
 public:
  constexpr TRgbQuad(const TColor& colour) : TRgbQuad(colour.Red(), colour.Green(), colour.Blue()) {}
  // The low byte of each.
  constexpr TRgbQuad(int red, int green, int blue) noexcept
      : RGBQUAD{static_cast<BYTE>(blue), static_cast<BYTE>(green), static_cast<BYTE>(red), 0} {}
  constexpr TRgbQuad(const RGBQUAD& quad) noexcept : RGBQUAD(quad) {}

  // Whether it is the plain colour of this value, red in bits 0-7 as in TColor; the reserved byte does not
  // count.
  constexpr bool operator==(unsigned long value) const noexcept {
    return TColor(static_cast<const RGBQUAD&>(*this)) == value;
  }
  constexpr bool operator==(const TColor& colour) const { return *this == colour.GetValue(); }
};

#endif  // QEL_COLOR_H
