// A colour that the user typed: 230,10,0 or #E60A00 with red first, a constant's name, or 0x00000AE6 as stored.
#ifndef QEL_CLI_TYPED_COLOR_H
#define QEL_CLI_TYPED_COLOR_H

#include <optional>
#include <span>
#include <string>

#include "color.h"
#include "refusal.h"

namespace Cli {

struct NamedColor {
  const char* name;
  TColor color;
};

// The constants, in the order of their documentation.
std::span<const NamedColor> NamedColors();

// Sets `color`, unless the text is refused.
std::optional<Refusal> ReadTypedColor(const std::string& typed, TColor& color);

}  // namespace Cli

#endif  // QEL_CLI_TYPED_COLOR_H
