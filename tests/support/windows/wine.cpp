#include <windows.h>

#include "support/golden.h"

bool RunsUnderWine() {
  return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

bool RunsOnWindows() {
  return true;
}
