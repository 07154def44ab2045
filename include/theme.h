// The colours and the font that panes of formatted text ask the application for.
//
//   HTMLColor(L"Total", Qel::UI::GetColor(Qel::UI::CI_TITLE))   in the application's colour of titles
#ifndef QEL_THEME_H
#define QEL_THEME_H

#include <cstdint>
#include <memory>

#include "qel_cstring.h"
#include "qel_export.h"

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

// The theme of the application's context; never empty. Without a context, and for one whose getter raises because it
// has no theme, a fixed one stands in, that all share: font Tahoma, headers 003399 and 0055AA, titles 000080, errors
// C00000, all else black. So text can be formatted before the application has started, and in programs without any.
QEL_API std::shared_ptr<IAppTheme> GetAppTheme();
// A colour of that theme, red first (0xRRGGBB). To a TColor, which has red in its lowest bits, it is another one.
QEL_API unsigned long GetColor(COLOR_INDEX index);

}  // namespace Qel::UI

#endif  // QEL_THEME_H
