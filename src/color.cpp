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

// 0..1 to 0..255, to the nearest.
unsigned long Scaled(float part) {
  return static_cast<unsigned long>(part * 255.0F + 0.5F);
}

// Where the colour stands on the circle of hues, in sixths of it: red 0, green 2, blue 4.
float Hue(int red, int green, int blue, int max, float range) {
  if (max == red) {
    const float sixths = static_cast<float>(green - blue) / range;
    return sixths < 0 ? sixths + 6.0F : sixths;
  }
  return max == green ? 2.0F + static_cast<float>(blue - red) / range
                      : 4.0F + static_cast<float>(red - green) / range;
}

// How much of the range the channel has whose own hue lies `distance` sixths away.
float Share(float distance) {
  return std::clamp(2.0F - distance, 0.0F, 1.0F);
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
  const int max = std::max({red, green, blue}), min = std::min({red, green, blue});
  const int sum = max + min;
  const unsigned long lightness = Scaled(static_cast<float>(sum) / 510.0F) << 8;
  if (max == min) return lightness;
  const auto range = static_cast<float>(max - min);
  const unsigned long saturation = Scaled(range / static_cast<float>(sum <= 255 ? sum : 510 - sum)) << 16;
  return Scaled(Hue(red, green, blue, max, range) / 6.0F) | lightness | saturation;
}

TColor& TColor::Hls2Rgb(unsigned long hls) {
  const auto part = [hls](int shift) { return static_cast<float>(hls >> shift & 0xFF) / 255.0F; };
  const float sixths = part(0) * 6.0F, lightness = part(8);
  const float range = (1.0F - std::abs(2.0F * lightness - 1.0F)) * part(16);
  const float min = lightness - range / 2.0F;
  const auto channel = [=](float share) { return static_cast<int>(Scaled(min + range * share)); };
  // Red lies at both ends of the circle: its share is what the opposite hue leaves.
  return *this = {channel(1.0F - Share(std::abs(sixths - 3.0F))), channel(Share(std::abs(sixths - 2.0F))),
                  channel(Share(std::abs(sixths - 4.0F)))};
}

TColor TColor::HlsTransform(int lightness, int saturation) const {
  const unsigned long hls = Rgb2Hls();
  return TColor().Hls2Rgb((hls & 0xFF) | Moved(hls >> 8 & 0xFF, lightness) << 8 |
                          Moved(hls >> 16 & 0xFF, saturation) << 16);
}
