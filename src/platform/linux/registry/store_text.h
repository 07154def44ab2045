// Text of the store for people.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_STORE_TEXT_H
#define QEL_PLATFORM_LINUX_REGISTRY_STORE_TEXT_H

#include <string>
#include <string_view>

#include "platform/platform.h"

inline std::wstring WideFromUtf8(std::string_view bytes) {
  std::wstring text(bytes.size(), L'\0');
  const auto size = static_cast<int>(bytes.size());
  text.resize(
      static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, bytes.data(), size, text.data(), size)));
  return text;
}

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STORE_TEXT_H
