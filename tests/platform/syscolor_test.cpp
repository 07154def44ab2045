#include <gtest/gtest.h>

#include "platform/platform.h"
#include "support/golden.h"

// The default theme. A user's own theme on Windows would answer otherwise; test machines have none.
TEST(SysColorTest, EveryIndexHasTheColourOfTheDefaultTheme) {
  for (const auto& row : GoldenTable("syscolor.tsv")) {
    char value[9];
    std::snprintf(value, sizeof value, "%08X", static_cast<unsigned>(GetSysColor(row.Int("index"))));
    ExpectAnswer(row, value);
  }
}
