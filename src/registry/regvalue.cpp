#include <algorithm>
#include <cstdint>
#include <cstring>

#include "platform/platform.h"
#include "registry/utf16_text.h"
#include "regkey.h"

namespace {

constexpr unsigned int kNameRoom = 260;
constexpr long kMoreData = 234;

// Room for `size` bytes with zeros behind: a terminator, and the other half of a last unit.
std::unique_ptr<unsigned char[]> Padded(unsigned int size) {
  return std::make_unique<unsigned char[]>(std::size_t{size} + 3);
}

// What is stored may be longer than `room` by now: then as much of it as there is room for.
long QueryClipped(const TRegKey& key, const wchar_t* name, unsigned char* data, unsigned int room) {
  unsigned int size = room;
  const long status = key.QueryValue(name, nullptr, data, &size);
  if (status != kMoreData) return status;
  const auto whole = Padded(size);
  const long second = key.QueryValue(name, nullptr, whole.get(), &size);
  if (second == 0) std::memcpy(data, whole.get(), std::min(room, size));
  return second;
}

}  // namespace

TRegValue::TRegValue(const TRegKey& key, const wchar_t* name) : m_Key(key), m_Name(name) {
  if (m_Key.QueryValue(name, &m_DataType, nullptr, &m_DataSize) != 0) m_DataType = m_DataSize = 0;
}

TRegValue::TRegValue(const TRegValueIterator& iter)
    : m_Key(iter.GetKey()),
      m_Name(nullptr),
      m_OwnedName(std::make_unique_for_overwrite<wchar_t[]>(kNameRoom)) {
  m_Name = m_OwnedName.get();
  unsigned int length = kNameRoom;
  if (m_Key.EnumValue(iter.GetIndex(), m_OwnedName.get(), length, &m_DataType, nullptr, &m_DataSize) == 0)
    return;
  m_OwnedName[0] = L'\0';
  m_DataType = m_DataSize = 0;
}

long TRegValue::RetrieveOnDemand() const {
  if (m_Data) return 0;
  m_Data = Padded(m_DataSize);
  const long status = QueryClipped(m_Key, m_Name, m_Data.get(), m_DataSize);
  if (status != 0) std::memset(m_Data.get(), 0, m_DataSize);
  return status;
}

const unsigned char* TRegValue::GetData() const {
  RetrieveOnDemand();
  return m_Data.get();
}

TRegValue::operator const wchar_t*() const {
  RetrieveOnDemand();
  if (m_Text) return m_Text.get();
  const unsigned int units = m_DataSize / 2 + m_DataSize % 2;
  m_Text = std::make_unique<wchar_t[]>(std::size_t{units} + 1);
  UnitsFromBytes(m_Text.get(), units, m_Data.get(), units * 2);
  return m_Text.get();
}

TRegValue::operator unsigned int() const {
  RetrieveOnDemand();
  std::uint32_t value = 0;
  std::memcpy(&value, m_Data.get(), std::min<std::size_t>(m_DataSize, sizeof(value)));
  return value;
}

long TRegValue::Set(unsigned int value) {
  return Set(REG_DWORD, reinterpret_cast<const unsigned char*>(&value), sizeof(value));
}

long TRegValue::Set(unsigned int type, const unsigned char* data, unsigned int size) {
  const long status = m_Key.SetValue(m_Name, type, data, size);
  if (status != 0) return status;
  m_DataType = type;
  m_Text.reset();
  if (m_Data && size == m_DataSize) {
    if (size > 0) std::memmove(m_Data.get(), data, size);  // `data` may come from here
  } else {
    m_DataSize = size;
    m_Data.reset();
  }
  return 0;
}

long TRegValue::Set(const wchar_t* text) {
  return SetText(REG_SZ, text, 0);
}

long TRegValue::operator=(unsigned int value) {
  const auto data = Padded(std::max<unsigned int>(m_DataSize, sizeof(value)));
  std::memcpy(data.get(), &value, sizeof(value));
  return Set(m_DataType, data.get(), m_DataSize);
}

long TRegValue::operator=(const wchar_t* text) {
  return SetText(m_DataType, text, 1);
}

long TRegValue::SetText(unsigned int type, const wchar_t* text, unsigned int bytesBeyondCount) {
  const Utf16Text stored(text);
  return Set(type, stored.Data(), stored.Units() + bytesBeyondCount);
}

long TRegValue::Delete() {
  return m_Key.DeleteValue(m_Name);
}
