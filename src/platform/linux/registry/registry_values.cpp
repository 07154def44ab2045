// The functions of the registry that deal with values.
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <string>

#include "open_keys.h"

namespace {

constexpr DWORD kUnit = 2;  // bytes of a unit at rest
constexpr std::uintptr_t kSmallestPage = 4096;
constexpr std::string_view kEmptyText("\0", kUnit);

bool IsText(DWORD type) {
  return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

bool EndsWithNul(std::string_view text) {
  const std::size_t whole = text.size() / kUnit * kUnit;
  return whole != 0 && text[whole - 2] == 0 && text[whole - 1] == 0;
}

// Two bytes that may lie outside of what the caller owns. The page of the byte before them is there; where they are in
// the next, the system is asked, which fails where there is none.
__attribute__((no_sanitize("address", "thread"))) bool IsNulAt(const BYTE* at) {
  const auto address = reinterpret_cast<std::uintptr_t>(at);
  if ((address - 1) / kSmallestPage == (address + 1) / kSmallestPage) {
    const volatile BYTE* const here = at;
    return here[0] == 0 && here[1] == 0;
  }
  BYTE bytes[kUnit];
  const iovec local{bytes, kUnit};
  const iovec remote{const_cast<BYTE*>(at), kUnit};
  return process_vm_readv(getpid(), &local, 1, &remote, 1, 0) == ssize_t{kUnit} && bytes[0] == 0 &&
         bytes[1] == 0;
}

// The size to store: text whose terminator follows was counted without it.
DWORD SizeWithTerminator(DWORD type, const BYTE* data, DWORD size) {
  const bool follows = IsText(type) && size >= kUnit && size % kUnit == 0 &&
                       !EndsWithNul({reinterpret_cast<const char*>(data), size}) && IsNulAt(data + size);
  return follows ? size + kUnit : size;
}

// Whether the data, of `need` bytes, is given a terminator in `room`.
bool GetsTerminator(const ValueView& value, std::size_t room) {
  const std::size_t need = value.data.size();
  return IsText(value.type) && need != 0 && room - need >= kUnit && !EndsWithNul(value.data);
}

// *size is the room; becomes the need.
LONG CopyData(const ValueView& value, BYTE* data, DWORD* size) {
  const std::size_t need = value.data.size();
  const std::size_t room = size ? *size : 0;
  if (size) *size = static_cast<DWORD>(need);
  if (!data) return 0;
  if (need > room) return kMoreData;
  std::copy(value.data.begin(), value.data.end(), data);
  if (GetsTerminator(value, room)) data[need] = data[need + 1] = 0;
  return 0;
}

LONG ReadValue(const OpenKey& key, const wchar_t* name, ValueView& value) {
  const std::wstring_view text = TextOf(name);
  if (!key.hive || text.size() > kLongestValueName) return kNotFound;
  return key.hive->ReadValue(key.row, FoldedName(text), value);
}

LONG WriteValue(const OpenKey& key, const wchar_t* name, DWORD type, std::string_view data) {
  const std::wstring_view text = TextOf(name);
  if (!key.hive) return kAccessDenied;
  if (text.size() > kLongestValueName) return kInvalidParameter;
  return key.hive->WriteValue(key.row, text, type, data);
}

}  // namespace

LONG RegQueryValueExW(HKEY key, const wchar_t* name, DWORD*, DWORD* type, BYTE* data, DWORD* size) {
  if (data && !size) return kInvalidParameter;
  const UsedKey used(key, KEY_QUERY_VALUE);
  if (const LONG status = used.Status()) return status;
  if (!data && size) *size = 0;
  ValueView value;
  if (const LONG status = ReadValue(*used, name, value)) return status;
  if (type) *type = value.type;
  return CopyData(value, data, size);
}

LONG RegSetValueExW(HKEY key, const wchar_t* name, DWORD, DWORD type, const BYTE* data, DWORD size) {
  if (!data && size != 0) return kNoAccessToMemory;
  const UsedKey used(key, KEY_SET_VALUE);
  if (const LONG status = used.Status()) return status;
  size = SizeWithTerminator(type, data, size);
  return WriteValue(*used, name, type, {reinterpret_cast<const char*>(data), size});
}

LONG RegDeleteValueW(HKEY key, const wchar_t* name) {
  const UsedKey used(key, KEY_SET_VALUE);
  if (const LONG status = used.Status()) return status;
  const std::wstring_view text = TextOf(name);
  if (!used->hive || text.size() > kLongestValueName) return kNotFound;
  return used->hive->DeleteValue(used->row, FoldedName(text));
}

LONG RegEnumValueW(HKEY key, DWORD index, wchar_t* name, DWORD* nameSize, DWORD*, DWORD* type, BYTE* data,
                   DWORD* dataSize) {
  if (!name || !nameSize || (data && !dataSize)) return kInvalidParameter;
  const UsedKey used(key, KEY_QUERY_VALUE);
  if (const LONG status = used.Status()) return status;
  ValueView value;
  if (!used->hive) return kNoMoreItems;
  if (const LONG status = used->hive->ReadValueAt(used->row, index, value)) return status;
  if (type) *type = value.type;
  if (value.name.size() >= *nameSize) return kMoreData;
  *std::copy(value.name.begin(), value.name.end(), name) = L'\0';
  *nameSize = static_cast<DWORD>(value.name.size());
  return CopyData(value, data, dataSize);
}

LONG RegSetValueW(HKEY key, const wchar_t* name, DWORD type, const wchar_t* data, DWORD) {
  if (type != REG_SZ || !data) return kInvalidParameter;
  const UsedKey used(key, 0);
  if (const LONG status = used.Status()) return status;
  OpenKey target = *used;
  bool created = false;
  if (name && *name)
    if (const LONG status = CreateKey(*used, name, target, created)) return status;
  if ((target.access & KEY_SET_VALUE) == 0) return kAccessDenied;
  const std::wstring_view text(data);
  std::string bytes(std::size_t{2} * kUnit * text.size() + kUnit, '\0');
  bytes.resize(kUnit + BytesFromUnits(reinterpret_cast<BYTE*>(bytes.data()),
                                      static_cast<DWORD>(bytes.size() - kUnit), text.data(), text.size()));
  return WriteValue(target, nullptr, REG_SZ, bytes);
}

LONG RegQueryValueW(HKEY key, const wchar_t* name, wchar_t* value, LONG* size) {
  if (value && !size) return kInvalidParameter;
  const UsedKey used(key, 0);
  if (const LONG status = used.Status()) return status;
  OpenKey source = *used;
  if (name && *name)
    if (const LONG status = FindKey(*used, name, source)) return status;
  if ((source.access & KEY_QUERY_VALUE) == 0) return kAccessDenied;
  ValueView found;
  const LONG status = ReadValue(source, nullptr, found);
  if (status == kNotFound)
    found = {{}, REG_SZ, kEmptyText};
  else if (status != 0)
    return status;
  const auto need = static_cast<DWORD>(found.data.size());
  const auto room = static_cast<DWORD>(size ? std::max(*size, LONG{0}) : LONG{0});
  if (size) *size = static_cast<LONG>(need);
  if (!value) return 0;
  if (need > room) return kMoreData;
  const auto* const bytes = reinterpret_cast<const BYTE*>(found.data.data());
  const std::size_t units = UnitsFromBytes(value, need / kUnit, bytes, need);
  if (GetsTerminator(found, room)) value[units] = L'\0';
  return 0;
}
