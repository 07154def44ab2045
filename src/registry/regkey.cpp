#include "regkey.h"

#include <vector>

#include "platform/platform.h"
#include "registry/name_limits.h"
#include "strnewdup.h"

namespace {

constexpr long kInsufficientBuffer = 122;
constexpr long kInvalidParameter = 87;

// An `unsigned int` of the caller where the platform wants its own type, which need not be the same.
class InOut {
 public:
  explicit InOut(unsigned int* target) : m_Target(target), m_Value(target ? *target : 0) {}
  InOut(const InOut&) = delete;
  InOut& operator=(const InOut&) = delete;
  ~InOut() {
    if (m_Target) *m_Target = m_Value;
  }

  DWORD* OrNull() { return m_Target ? &m_Value : nullptr; }
  DWORD* Always() { return &m_Value; }

 private:
  unsigned int* m_Target;
  DWORD m_Value;
};

// A key without a name, as an alias often is, needs no memory for it.
wchar_t* CopyOf(const wchar_t* name) {
  return name && *name ? strnewdup(name, 0) : nullptr;
}

}  // namespace

TRegKey::TRegKey(HKEY baseKey, const wchar_t* keyName, unsigned long access, TCreateOK createOK)
    : m_Name(CopyOf(keyName)), m_ShouldClose(true) {
  Open(baseKey, access, createOK == CreateOK);
}

TRegKey::TRegKey(HKEY aliasKey, bool shouldClose, const wchar_t* keyName)
    : m_Key(aliasKey), m_Name(CopyOf(keyName)), m_ShouldClose(shouldClose) {
  // No more is asked for than the counts: the longest names would have to be looked for.
  DWORD subKeys = 0, values = 0;
  const long status = RegQueryInfoKeyW(m_Key, nullptr, nullptr, nullptr, &subKeys, nullptr, nullptr, &values,
                                       nullptr, nullptr, nullptr, nullptr);
  if (status != 0 && status != kInsufficientBuffer) m_Key = nullptr;
  m_SubkeyCount = m_Key ? subKeys : 0;
  m_ValueCount = m_Key ? values : 0;
}

TRegKey::TRegKey(const TRegKeyIterator& iter, unsigned long access) : m_Name(nullptr), m_ShouldClose(true) {
  wchar_t name[kKeyNameRoom] = {};
  const bool found = iter.GetKey().EnumKey(iter.GetIndex(), name, kKeyNameRoom) == 0 && *name;
  m_Name = found ? CopyOf(name) : nullptr;
  if (found) Open(iter.GetKey(), access, false);  // without a name it would be the iterator's key itself
}

void TRegKey::Open(HKEY baseKey, unsigned long access, bool create) {
  DWORD subKeys = 0, values = 0;
  OpenKeyAndCount(baseKey, GetName(), static_cast<REGSAM>(access), create, &m_Key, &subKeys, &values);
  m_SubkeyCount = subKeys;
  m_ValueCount = values;
}

TRegKey::~TRegKey() {
  Close();
  ::operator delete(m_Name);
}

void TRegKey::Close() noexcept {
  if (m_Key && m_ShouldClose) RegCloseKey(m_Key);
  m_Key = nullptr;
}

long TRegKey::DeleteKey(const wchar_t* subKeyName) {
  return RegDeleteKeyW(m_Key, subKeyName);
}

// The first of what is there now, whatever the count at the opening.
bool TRegKey::DescendToFirst(std::unique_ptr<TRegKey>& child) const {
  child = std::make_unique<TRegKey>(TRegKeyIterator(*this), KEY_ALL_ACCESS);
  return child->m_Key != nullptr;
}

long TRegKey::NukeKey(const wchar_t* subKeyName) {
  if (!subKeyName || !*subKeyName) return kInvalidParameter;
  // From the key itself down to the one that is emptied now. Not recursive: a tree may be deeper than the stack.
  std::vector<std::unique_ptr<TRegKey>> path;
  path.push_back(std::make_unique<TRegKey>(m_Key, subKeyName, KEY_ALL_ACCESS, OpenOnly));
  while (!path.empty()) {
    std::unique_ptr<TRegKey> child;
    if (path.back()->DescendToFirst(child)) {
      path.push_back(std::move(child));
      continue;
    }
    const std::unique_ptr<TRegKey> emptied = std::move(path.back());
    path.pop_back();
    emptied->Close();
    TRegKey& parent = path.empty() ? *this : *path.back();
    if (const long status = parent.DeleteKey(emptied->GetName())) return status;
  }
  return 0;
}

long TRegKey::EnumKey(int index, wchar_t* name, int nameSize) const {
  return RegEnumKeyW(m_Key, static_cast<DWORD>(index), name, static_cast<DWORD>(nameSize));
}

long TRegKey::EnumValue(int index, wchar_t* name, unsigned int& nameSize, unsigned int* type,
                        unsigned char* data, unsigned int* dataSize) const {
  InOut nameUnits(&nameSize), kind(type), bytes(dataSize);
  return RegEnumValueW(m_Key, static_cast<DWORD>(index), name, nameUnits.Always(), nullptr, kind.OrNull(),
                       data, bytes.OrNull());
}

long TRegKey::QueryValue(const wchar_t* name, unsigned int* type, unsigned char* data,
                         unsigned int* dataSize) const {
  InOut kind(type), bytes(dataSize);
  return RegQueryValueExW(m_Key, name, nullptr, kind.OrNull(), data, bytes.OrNull());
}

long TRegKey::SetValue(const wchar_t* name, unsigned int value) const {
  return SetValue(name, REG_DWORD, reinterpret_cast<const unsigned char*>(&value), sizeof(value));
}

long TRegKey::SetValue(const wchar_t* name, unsigned int type, const unsigned char* data,
                       unsigned int dataSize) const {
  return RegSetValueExW(m_Key, name, 0, type, data, dataSize);
}

long TRegKey::DeleteValue(const wchar_t* valueName) const {
  return RegDeleteValueW(m_Key, valueName);
}

long TRegKey::QueryDefValue(const wchar_t* subKey, wchar_t* value, unsigned int* size) const {
  LONG bytes = size ? static_cast<LONG>(*size) : 0;
  const long status = RegQueryValueW(m_Key, subKey, value, size ? &bytes : nullptr);
  if (size) *size = static_cast<unsigned int>(bytes);
  return status;
}

long TRegKey::SetDefValue(const wchar_t* subKey, unsigned int type, const wchar_t* data,
                          unsigned int dataSize) {
  return RegSetValueW(m_Key, subKey, type, data, dataSize);
}

long TRegKey::QueryInfo(wchar_t* className, unsigned int* classNameSize, unsigned int* subkeyCount,
                        unsigned int* maxSubkeySize, unsigned int* maxClassSize, unsigned int* valueCount,
                        unsigned int* maxValueNameSize, unsigned int* maxValueDataSize,
                        unsigned int* securityDescriptorSize) const {
  InOut classSize(classNameSize), subkeys(subkeyCount), maxSubkey(maxSubkeySize), maxClass(maxClassSize),
      values(valueCount), maxName(maxValueNameSize), maxData(maxValueDataSize),
      security(securityDescriptorSize);
  return RegQueryInfoKeyW(m_Key, className, classSize.Always(), nullptr, subkeys.Always(), maxSubkey.Always(),
                          maxClass.Always(), values.Always(), maxName.Always(), maxData.Always(),
                          security.Always(), nullptr);
}

long TRegKey::Flush() const {
  return RegFlushKey(m_Key);
}

long TRegKey::GetSecurity(unsigned long info, void* descriptor, unsigned long* size) const {
  DWORD bytes = size ? static_cast<DWORD>(*size) : 0;
  const long status = RegGetKeySecurity(m_Key, static_cast<DWORD>(info), descriptor, size ? &bytes : nullptr);
  if (size) *size = bytes;
  return status;
}

long TRegKey::SetSecurity(unsigned long info, void* descriptor) {
  return RegSetKeySecurity(m_Key, static_cast<DWORD>(info), descriptor);
}

long TRegKey::LoadKey(const wchar_t* subKeyName, const wchar_t* fileName) {
  return RegLoadKeyW(m_Key, subKeyName, fileName);
}

long TRegKey::UnLoadKey(const wchar_t* subKeyName) {
  return RegUnLoadKeyW(m_Key, subKeyName);
}

long TRegKey::ReplaceKey(const wchar_t* subKeyName, const wchar_t* newFileName, const wchar_t* oldFileName) {
  return RegReplaceKeyW(m_Key, subKeyName, newFileName, oldFileName);
}

long TRegKey::Restore(const wchar_t* fileName, unsigned long options) {
  return RegRestoreKeyW(m_Key, fileName, static_cast<DWORD>(options));
}

long TRegKey::Save(const wchar_t* fileName) {
  return RegSaveKeyW(m_Key, fileName, nullptr);
}
