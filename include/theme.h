// The colours and the font that panes of formatted text ask the application for.
#ifndef QEL_THEME_H
#define QEL_THEME_H

#include <cstdint>

#include "qel_cstring.h"

namespace Qel::UI {

// Numbers are shared with the modules that store them.
enum COLOR_INDEX : std::int32_t {
  CI_MAIN_HDR = 350,
  CI_SUB_HDR = 351,
  CI_TITLE = 352,
  CI_NORMAL = 353,
  CI_ERROR = 354,
};

// The colour of one index: red in bits 16..23, green in 8..15, blue in 0..7.
struct TColorRec {
  COLOR_INDEX index;
  unsigned long colour;

  friend bool operator==(const TColorRec&, const TColorRec&) = default;
};

class IAppTheme {
 public:
  // Slot order is ABI.
  // The name of the font, as the system knows it.
  virtual CString GetFontName() const = 0;
  // The colour for `index`, as in TColorRec.
  virtual unsigned long GetColor(COLOR_INDEX index) const = 0;
  virtual ~IAppTheme() = default;
};

}  // namespace Qel::UI

#endif  // QEL_THEME_H
