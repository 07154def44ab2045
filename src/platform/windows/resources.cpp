#include "platform/platform.h"

HINSTANCE LibraryModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<const wchar_t*>(&LibraryModule), &module);
  return module;
}

bool RegisterString(HINSTANCE, LANGID, WORD, const wchar_t*) {
  return false;
}
