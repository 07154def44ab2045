#include <cstdio>

#include "commands.h"
#include "output.h"
#include "platform/platform.h"
#include "text.h"
#include "typed_color.h"

namespace Cli {

namespace {

struct Hls {
  int hue, lightness, saturation;
};

Hls HlsOf(const TColor& color) {
  const unsigned long hls = color.Rgb2Hls();
  const auto byte = [hls](int shift) { return static_cast<int>(hls >> shift & 0xFF); };
  return {byte(0), byte(8), byte(16)};
}

template <class... Values>
std::string Formed(const char* form, Values... values) {
  char text[64];
  std::snprintf(text, sizeof text, form, values...);
  return text;
}

std::string RgbOf(const TColor& color) {
  return Formed("#%02X%02X%02X", color.Red(), color.Green(), color.Blue());
}

std::string StoredOf(const TColor& color) {
  const unsigned flags = color.Flags(), rest = static_cast<unsigned>(color.PalRelative() & 0xFFFFFF);
  return Formed("0x%02X%06X", flags, rest);
}

const char* NameOf(const TColor& color) {
  for (const NamedColor& known : NamedColors())
    if (known.color == color) return known.name;
  return "";
}

// A strip in the colour itself, by the sequences that terminals know.
std::string Swatch(const TColor& color, const Options& options) {
  if (options.swatch == "never" || (options.swatch == "auto" && !OutputPaints())) return {};
  return Formed("\x1B[48;2;%d;%d;%dm      \x1B[0m  ", color.Red(), color.Green(), color.Blue());
}

JsonObject AsJson(const std::string& input, const TColor& color) {
  const Hls hls = HlsOf(color);
  JsonObject object;
  object.Add("input", input).Add("stored", StoredOf(color)).Add("rgb", RgbOf(color));
  object.Add("red", color.Red()).Add("green", color.Green()).Add("blue", color.Blue());
  object.Add("hue", hls.hue).Add("lightness", hls.lightness).Add("saturation", hls.saturation);
  object.Add("kind", color.IsSysColor() ? "system" : color.IsSpecialColor() ? "special" : "plain");
  if (*NameOf(color))
    object.Add("name", NameOf(color));
  else
    object.Add("name", nullptr);
  return object.Add("error", nullptr);
}

int Show(const std::string& input, const TColor& color, const Options& options) {
  if (options.json) {
    Print(AsJson(input, color).Line());
    return kDone;
  }
  const Hls hls = HlsOf(color);
  const std::string rgb = Formed("RGB %d,%d,%d", color.Red(), color.Green(), color.Blue());
  const std::string model = Formed("HLS %d,%d,%d", hls.hue, hls.lightness, hls.saturation);
  std::string line = Swatch(color, options) + RgbOf(color) + "  " + rgb + Padding(rgb, 17) + model +
                     Padding(model, 17) + StoredOf(color);
  if (*NameOf(color)) (line += "  ") += NameOf(color);
  Print(line + "\n");
  return kDone;
}

// The colour of an operand, or nothing after having said why.
std::optional<TColor> ColorOrComplain(const std::string& typed, const Options& options) {
  TColor color;
  const auto refusal = ReadTypedColor(typed, color);
  if (!refusal) return color;
  Refuse(typed, *refusal, options);
  return std::nullopt;
}

std::optional<int> NumberOrComplain(const std::string& typed, const Options& options) {
  int number = 0;
  const auto refusal = ReadCount(typed, number);
  if (!refusal) return number;
  Refuse(typed, *refusal, options);
  return std::nullopt;
}

// What is added to channels or taken from them.
int ShowMoved(const Options& options, TColor (TColor::*move)(unsigned char) const) {
  const std::string &text = options.operands[0], &amount = options.operands[1];
  const auto color = ColorOrComplain(text, options);
  const auto by = NumberOrComplain(amount, options);
  if (!color || !by) return kUnreadable;
  if (*by >= 0 && *by <= 255) return Show(text, ((*color).*move)(static_cast<unsigned char>(*by)), options);
  return Refuse(
      amount, {"range", 1, Say(Text::OutsideRange, {InUserDigits(*by), InUserDigits(0), InUserDigits(255)})},
      options);
}

}  // namespace

int RunColor(const Options& options) {
  if (options.operands.empty())
    for (const NamedColor& known : NamedColors()) Show(known.name, known.color, options);
  int exit = kDone;
  for (const std::string& typed : options.operands) {
    const auto color = ColorOrComplain(typed, options);
    if (color)
      Show(typed, *color, options);
    else
      exit = kUnreadable;
  }
  return exit;
}

int RunColorLighten(const Options& options) {
  return ShowMoved(options, &TColor::Lighten);
}
int RunColorDarken(const Options& options) {
  return ShowMoved(options, &TColor::Darken);
}

int RunColorMerge(const Options& options) {
  const auto a = ColorOrComplain(options.operands[0], options),
             b = ColorOrComplain(options.operands[1], options);
  return a && b ? Show(options.operands[0], a->Merge(*b), options) : kUnreadable;
}

int RunColorHls(const Options& options) {
  const auto color = ColorOrComplain(options.operands[0], options);
  const auto lightness = NumberOrComplain(options.operands[1], options);
  const auto saturation = NumberOrComplain(options.operands[2], options);
  if (!color || !lightness || !saturation) return kUnreadable;
  return Show(options.operands[0], color->HlsTransform(*lightness, *saturation), options);
}

}  // namespace Cli
