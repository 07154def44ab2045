#include "support/test_strings.h"

HINSTANCE TestStrings() {
  return LoadLibraryW(L"qel_test_strings.dll");
}
