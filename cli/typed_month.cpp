#include "typed_month.h"

#include <algorithm>
#include <charconv>

#include "digits.h"
#include "text.h"

namespace Cli {

TypedMonth ReadMonth(const std::string& typed) {
  const std::string text = Utf8(Qel::Sys::Text::FoldDigits(Wide(typed)));
  const char *const begin = text.c_str(), *const end = begin + text.size();
  TypedMonth month;
  const char* stop = std::from_chars(begin, end, month.year).ptr;
  const bool hyphen = stop > begin && *stop == '-';
  const char* const monthBegin = hyphen ? stop + 1 : stop;
  if (hyphen) stop = std::from_chars(monthBegin, end, month.month).ptr;
  if (!hyphen || stop == monthBegin || stop != end)
    month.position = static_cast<int>(std::max(stop, monthBegin) - begin) + 1;
  return month;
}

}  // namespace Cli
