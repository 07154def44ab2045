// A month that the user typed as 2026-11.
#ifndef QEL_CLI_TYPED_MONTH_H
#define QEL_CLI_TYPED_MONTH_H

#include <string>

namespace Cli {

struct TypedMonth {
  int year = 0, month = 0;
  int position = 0;  // of the first character that does not belong, from 1 on; 0 when all do
};

// In any digits. The numbers are taken as they stand.
TypedMonth ReadMonth(const std::string& typed);

}  // namespace Cli

#endif  // QEL_CLI_TYPED_MONTH_H
