// Lets streams write numbers with the thousands separator of SysFormat:
//
//   stream.imbue(std::locale(std::locale::classic(), new TNumPunct));
//
// Optional: the library's own texts never go through a locale. A locale may keep what it read at its first
// number, so make a new one after changing SysFormat.
#ifndef QEL_NUM_PUNCT_H
#define QEL_NUM_PUNCT_H

#include <locale>
#include <string>

#include "format.h"

namespace Qel::Sys::Settings {

// Groups of three when SysFormat.GroupDigits is set and ThousandSep is not empty; the point stays ".".
class TNumPunct : public std::numpunct<wchar_t> {
 public:
  using std::numpunct<wchar_t>::numpunct;

 protected:
  wchar_t do_thousands_sep() const override { return SysFormat.ThousandSep[0]; }
  std::string do_grouping() const override {
    return SysFormat.GroupDigits && SysFormat.ThousandSep[0] ? "\3" : "";
  }
};

}  // namespace Qel::Sys::Settings

#endif  // QEL_NUM_PUNCT_H
