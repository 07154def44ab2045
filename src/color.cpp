#include "color.h"

#include <algorithm>
#include <cmath>

#include "platform/platform.h"

namespace {

constexpr int kSystemColours = 25;

template <class Change>
TColor EachChannel(const TColor& colour, Change change) {
  const TColor plain = colour.Rgb();
  return {change(int{plain.Red()}), change(int{plain.Green()}), change(int{plain.Blue()})};
}

// `part` of `whole` as 0..255, to the nearest.
unsigned long Scaled(int part, int whole) {
  constexpr float kHalf = 0.5F;
  return static_cast<unsigned long>(static_cast<float>(part * 255) / static_cast<float>(whole) + kHalf);
}

// Where the colour stands on the circle of hues, in sixths of it, times `range`: red 0, green 2, blue 4. Without
// jumps, since colours are not foreseen.
int Hue(int red, int green, int blue, int max, int range) {
  const bool isRed = max == red, isGreen = !isRed && max == green;
  const int from = isRed ? (green < blue ? 6 : 0) : isGreen ? 2 : 4;
  const int distance = isRed ? green - blue : isGreen ? blue - red : red - green;
  return from * range + distance;
}

// How much of the range the channel has whose own hue lies `distance` sixths away.
float Share(float distance) {
  return std::max(0.0F, std::min(1.0F, 2.0F - distance));
}

// A byte moved by a percentage of its room.
unsigned long Moved(unsigned long byte, long long percent) {
  const auto value = static_cast<long long>(byte);
  if (percent == 0) return byte;
  const long long moved = percent > 0 ? value + (255 - value) * percent / 100 : (percent + 100) * value / 100;
  return static_cast<unsigned long>(moved) & 0xFF;
}

}  // namespace

unsigned long TColor::SystemValue() const {
  return Index() < kSystemColours ? GetSysColor(Index()) : 0;
}

TColor TColor::Darken(unsigned char by) const {
  return EachChannel(*this, [by](int channel) { return std::max(channel - by, 0); });
}

TColor TColor::Lighten(unsigned char by) const {
  return EachChannel(*this, [by](int channel) { return std::min(channel + by, 255); });
}

TColor TColor::Merge(const TColor& other) const {
  const TColor a = Rgb(), b = other.Rgb();
  return {(a.Red() + b.Red()) / 2, (a.Green() + b.Green()) / 2, (a.Blue() + b.Blue()) / 2};
}

unsigned long TColor::Rgb2Hls() const {
  const TColor plain = Rgb();
  const int red = plain.Red(), green = plain.Green(), blue = plain.Blue();
  const int max = std::max(std::max(red, green), blue), min = std::min(std::min(red, green), blue);
  const int sum = max + min, range = max - min;
  const unsigned long lightness = static_cast<unsigned long>(sum + 1) / 2;
  if (range == 0) return lightness << 8;
  const unsigned long saturation = Scaled(range, sum <= 255 ? sum : 510 - sum);
  return Scaled(Hue(red, green, blue, max, range), 6 * range) | lightness << 8 | saturation << 16;
}

TColor& TColor::Hls2Rgb(unsigned long hls) {
  const auto part = [hls](int shift) { return static_cast<float>(hls >> shift & 0xFF); };
  const float sixths = part(0) * (6.0F / 255.0F), lightness = part(8);
  const float range = (255.0F - std::abs(2.0F * lightness - 255.0F)) * part(16) * (1.0F / 255.0F);
  const float min = lightness - range * 0.5F + 0.5F;
  const auto channel = [=](float share) { return static_cast<int>(min + range * share); };
  // Red lies at both ends of the circle: its share is what the opposite hue leaves.
  return *this = {channel(1.0F - Share(std::abs(sixths - 3.0F))), channel(Share(std::abs(sixths - 2.0F))),
                  channel(Share(std::abs(sixths - 4.0F)))};
}

TColor TColor::HlsTransform(int lightness, int saturation) const {
  const unsigned long hls = Rgb2Hls();
  return TColor().Hls2Rgb((hls & 0xFF) | Moved(hls >> 8 & 0xFF, lightness) << 8 |
                          Moved(hls >> 16 & 0xFF, saturation) << 16);
}
