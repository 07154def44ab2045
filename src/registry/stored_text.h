// An entry's text in a buffer of the size that its type's reader has always had, which bounds what can be read.
#ifndef QEL_REGISTRY_STORED_TEXT_H
#define QEL_REGISTRY_STORED_TEXT_H

#include <string_view>

#include "configfile.h"

template <unsigned int kSize>
class StoredText {
 public:
  StoredText(const TConfigFile& file, const wchar_t* section, const wchar_t* entry) {
    file.ReadString(section, entry, m_Units, kSize, L"");
    m_Units[kSize - 1] = L'\0';  // whatever the store left there
  }

  bool IsEmpty() const noexcept { return m_Units[0] == L'\0'; }
  const wchar_t* GetString() const noexcept { return m_Units; }
  std::wstring_view View() const noexcept { return m_Units; }

 private:
  wchar_t m_Units[kSize] = {};
};

constexpr unsigned int kTextRoom = 260;

#endif  // QEL_REGISTRY_STORED_TEXT_H
