// For what a process does only once, such as registering its context.
#ifndef QEL_TESTS_FRESH_PROCESS_H
#define QEL_TESTS_FRESH_PROCESS_H

#include <gtest/gtest.h>

#include <cstdlib>

// Runs `body` in a process of its own, whatever ran in this one before, up to and including the destructors
// at its exit. Fails when an expectation in it does, or when it ends in any other way. Its output goes to
// ours.
#define EXPECT_IN_FRESH_PROCESS(...)                      \
  do {                                                    \
    GTEST_FLAG_SET(death_test_style, "threadsafe");       \
    EXPECT_EXIT(                                          \
        {                                                 \
          __VA_ARGS__;                                    \
          std::exit(testing::Test::HasFailure() ? 1 : 0); \
        },                                                \
        testing::ExitedWithCode(0), "");                  \
  } while (false)

#endif  // QEL_TESTS_FRESH_PROCESS_H
