#include "exceptions.h"

#include <gtest/gtest.h>

#include "support/raises.h"

#define QEL_SOURCE L"tests/exceptions"

using namespace Qel::Sys::Exceptions;

TEST(ExceptionsTest, EachKindAddsItsTextToTheMessage) {
  const struct {
    const char* name;
    int kind;
    const wchar_t *memory, *parameter;
  } rows[] = {
      {"below the first", 0, L"Memory Exception: ", L"Parameter Exception: "},
      {"1", 1, L"Memory Exception: Out of Memory", L"Parameter Exception: Invalid Parameter"},
      {"2", 2, L"Memory Exception: Can't lock memory", L"Parameter Exception: Missing Parameter"},
      {"3", 3, L"Memory Exception: Can't release memory", L"Parameter Exception: Parameter Out Of Range"},
      {"above the last", 4, L"Memory Exception: ", L"Parameter Exception: "},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(RaisedBy([&] { QEL_RAISE(memory_exception, static_cast<MRX_TYPE>(row.kind)); }), row.memory);
    EXPECT_EQ(RaisedBy([&] { QEL_RAISE(parameter_exception, static_cast<PMX_TYPE>(row.kind)); }), row.parameter);
  }
}
