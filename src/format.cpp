#include "format.h"

#include <utility>

namespace Qel::Sys::Settings {

Format SysFormat;  // constant-initialised: the constructor is constexpr

void Format::Init() {
  Format defaults;
  defaults.DateFmt = DateFmt;
  defaults.RoundType = RoundType;
  defaults.Option7 = Option7;
  *this = std::move(defaults);
}

}  // namespace Qel::Sys::Settings
