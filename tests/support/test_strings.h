// The string table that resource tests look things up in: data/resource.rc.
#ifndef QEL_TESTS_TEST_STRINGS_H
#define QEL_TESTS_TEST_STRINGS_H

#include "platform_types.h"

// A module with the texts of data/resource.rc: on Windows one built from it, elsewhere the same texts
// registered.
HINSTANCE TestStrings();

#endif  // QEL_TESTS_TEST_STRINGS_H
