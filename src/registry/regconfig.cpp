#include "regconfig.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "exceptions.h"
#include "platform/platform.h"
#include "registry/name_limits.h"
#include "registry/name_list.h"
#include "registry/utf16_text.h"
#include "regkey.h"
#include "settings_store.h"

namespace {

// "file\section". Settings are read one by one in tight loops, so common lengths take no memory of their own.
class SectionPath {
 public:
  SectionPath(const CString& file, const wchar_t* section) {
    const std::wstring_view folder = file.View(), name = section ? section : L"";
    const std::size_t length = folder.size() + 1 + name.size();
    if (length >= std::size(m_Short)) m_Long.resize(length + 1);
    wchar_t* const path = m_Long.empty() ? m_Short : m_Long.data();
    wchar_t* at = std::copy(folder.begin(), folder.end(), path);
    *at++ = L'\\';
    *std::copy(name.begin(), name.end(), at) = L'\0';
    m_Path = path;
  }
  SectionPath(const SectionPath&) = delete;
  SectionPath& operator=(const SectionPath&) = delete;

  operator const wchar_t*() const noexcept { return m_Path; }

 private:
  wchar_t m_Short[160];
  std::wstring m_Long;
  const wchar_t* m_Path;
};

// The section's key for one read or write, made when it is missing. A TRegKey would also copy its name and count.
class SectionKey {
 public:
  SectionKey(const TRegConfigFile& file, const wchar_t* section) {
    const SectionPath path(file.GetFileName(), section);
    RegCreateKeyExW(file.GetHKey(), path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &m_Key, nullptr);
  }
  SectionKey(const SectionKey&) = delete;
  SectionKey& operator=(const SectionKey&) = delete;
  ~SectionKey() {
    if (m_Key) RegCloseKey(m_Key);
  }

  // As the functions of the registry: 0, or 6 too when the key could not be opened.
  LONG Query(const wchar_t* entry, void* data, DWORD& size) const {
    return RegQueryValueExW(m_Key, entry, nullptr, nullptr, static_cast<BYTE*>(data), &size);
  }
  LONG Set(const wchar_t* entry, DWORD type, const void* data, DWORD size) const {
    return RegSetValueExW(m_Key, entry, 0, type, static_cast<const BYTE*>(data), size);
  }
  LONG Delete(const wchar_t* entry) const { return RegDeleteValueW(m_Key, entry); }

 private:
  HKEY m_Key = nullptr;
};

// The key that the sections are below.
class FileKey : public TRegKey {
 public:
  explicit FileKey(const TRegConfigFile& file)
      : TRegKey(file.GetHKey(), file.GetFileName(), KEY_ALL_ACCESS, CreateOK) {}
};

// Copies what fits, with a terminator. Result: its length.
int CopyClipped(const wchar_t* text, wchar_t* buffer, unsigned int size) {
  if (size == 0) return 0;
  const std::wstring_view copied = std::wstring_view(text ? text : L"").substr(0, size - 1);
  *std::copy(copied.begin(), copied.end(), buffer) = L'\0';
  return static_cast<int>(copied.size());
}

}  // namespace

TRegConfigFile::TRegConfigFile(const wchar_t* name, HKEY root)
    : TRegConfigFile(root, CString(L"Software\\") + (name ? name : L"")) {
  if (HKEY(TRegKey(root, false, L""))) return;
  m_Root = nullptr;
  Qel::Sys::Exceptions::ThrowResourceException();
}

TRegConfigFile::TRegConfigFile(HKEY predefined, const wchar_t* path)
    : TConfigFile(path), m_Root(predefined) {}

bool TRegConfigFile::SectionExists(const wchar_t* section) const {
  const TRegKey key(m_Root, SectionPath(GetFileName(), section), KEY_QUERY_VALUE, TRegKey::OpenOnly);
  return HKEY(key) != nullptr;
}

int TRegConfigFile::ReadSection(const wchar_t* section, wchar_t* buffer, unsigned int size) const {
  const TRegKey key(m_Root, SectionPath(GetFileName(), section), KEY_ALL_ACCESS, TRegKey::CreateOK);
  NameList names(buffer, size);
  wchar_t name[kValueNameRoom];
  for (TRegValueIterator it(key); it; ++it) {
    unsigned int length = kValueNameRoom;
    if (key.EnumValue(it.GetIndex(), name, length, nullptr, nullptr, nullptr) != 0) continue;
    names.Add(name, static_cast<int>(length));
  }
  return names.Finish();
}

int TRegConfigFile::ReadSections(wchar_t* buffer, unsigned int size) const {
  const FileKey key(*this);
  NameList names(buffer, size);
  wchar_t name[kKeyNameRoom];
  for (TRegKeyIterator it(key); it; ++it) {
    if (key.EnumKey(it.GetIndex(), name, kKeyNameRoom) != 0) continue;
    names.Add(name, static_cast<int>(std::wcslen(name)));
  }
  return names.Finish();
}

bool TRegConfigFile::EraseSection(const wchar_t* section) {
  return FileKey(*this).NukeKey(section) == 0;
}

bool TRegConfigFile::EraseEntry(const wchar_t* section, const wchar_t* entry) {
  return SectionKey(*this, section).Delete(entry) == 0;
}

int TRegConfigFile::ReadString(const wchar_t* section, const wchar_t* entry, wchar_t* buffer,
                               unsigned int size, const wchar_t* defaultValue) const {
  const SectionKey key(*this, section);
  DWORD bytes = size;
  BYTE nothing = 0;
  BYTE* const data = size ? reinterpret_cast<BYTE*>(buffer) : &nothing;  // null would only ask for the size
  if (key.Query(entry, data, bytes) != 0) return CopyClipped(defaultValue, buffer, size);
  if (size) buffer[UnitsFromBytes(buffer, size - 1, data, bytes)] = L'\0';
  return static_cast<int>(bytes);
}

bool TRegConfigFile::WriteString(const wchar_t* section, const wchar_t* entry, const wchar_t* value) {
  const Utf16Text text(value);
  return SectionKey(*this, section).Set(entry, REG_SZ, text.Data(), text.SizeWithTerminator()) == 0;
}

bool TRegConfigFile::ReadData(const wchar_t* section, const wchar_t* entry, void* data,
                              unsigned int size) const {
  DWORD bytes = size;
  return SectionKey(*this, section).Query(entry, data, bytes) == 0;
}

bool TRegConfigFile::WriteData(const wchar_t* section, const wchar_t* entry, void* data, unsigned int size) {
  return SectionKey(*this, section).Set(entry, REG_BINARY, data, size) == 0;
}

int TRegConfigFile::ReadInteger(const wchar_t* section, const wchar_t* entry, int defaultValue) const {
  int value = 0;
  DWORD size = sizeof(value);
  return SectionKey(*this, section).Query(entry, &value, size) == 0 ? value : defaultValue;
}

bool TRegConfigFile::WriteInteger(const wchar_t* section, const wchar_t* entry, int value) {
  return SectionKey(*this, section).Set(entry, REG_DWORD, &value, sizeof(value)) == 0;
}

TQelReg::TQelReg(bool machine)
    : TRegConfigFile(machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER, kSettingsKey) {}

unsigned int TQelReg::ReadData2(const wchar_t* section, const wchar_t* entry, void* data,
                                unsigned int size) const {
  DWORD bytes = size;
  return SectionKey(*this, section).Query(entry, data, bytes) == 0 ? static_cast<unsigned int>(bytes)
                                                                   : 0xFFFFFFFF;
}
