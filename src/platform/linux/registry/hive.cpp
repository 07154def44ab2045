#include "hive.h"

#include <algorithm>

#include "status.h"

namespace {

// More than this and everything in memory is dropped before the next key is read in.
constexpr std::size_t kMostHeld = std::size_t{64} << 20;

bool FitsKey(std::wstring_view part, const FoldedName& folded, unsigned depth) {
  return part.size() <= kLongestKeyName && folded.Units() <= kLongestKeyName && depth <= kDeepestKey;
}

}  // namespace

Hive& Hive::Of(StorePlace place) {
  // Never destroyed: a host may still save its settings while the process ends.
  static auto* const s_User = new Hive(StorePlace::User);
  static auto* const s_Machine = new Hive(StorePlace::Machine);
  return place == StorePlace::User ? *s_User : *s_Machine;
}

// Makes the store readable and finds out whether what is in memory still holds.
LONG Hive::Prepare() {
  if (m_Nested != 0) return m_Rows.StillOpen() ? 0 : kStoreFailed;
  if (const LONG status = m_Rows.Open()) return status;
  ForgetAll();
  return 0;
}

void Hive::ForgetAll() {
  ++m_Seen;
}

LONG Hive::CheckKey(std::int64_t key) {
  KeyCounts ignored;
  return Count(key, ignored);
}

LONG Hive::FindKey(const KeyPlace& base, std::wstring_view path, KeyPlace& found) {
  if (const LONG status = Prepare()) return status;
  found = base;
  PathParts parts(path);
  for (std::wstring_view part; parts.Next(part);) {
    const FoldedName folded(part.substr(0, kLongestKeyName));
    if (!FitsKey(part, folded, ++found.depth)) return kInvalidParameter;
    const LONG status = m_Rows.FindKey(found.row, folded.Bytes(), found.row);
    if (status == kNotFound)
      if (const LONG deleted = CheckKey(base.row)) return deleted;
    if (status != 0) return status;
  }
  return found.depth == base.depth ? CheckKey(base.row) : 0;
}

LONG Hive::Count(std::int64_t key, KeyCounts& counts) {
  if (const LONG status = Prepare()) return status;
  return m_Rows.Count(key, counts);
}

LONG Hive::Load(std::int64_t key, KeySnapshot*& snapshot) {
  if (const LONG status = Prepare()) return status;
  snapshot = &m_Keys[key];
  return 0;
}

LONG Hive::LoadValues(std::int64_t key, KeySnapshot*& snapshot) {
  if (const LONG status = Load(key, snapshot)) return status;
  if (snapshot->valuesSeen == m_Seen) return 0;
  snapshot->ClearValues();
  snapshot->valuesSeen = 0;
  const LONG status = m_Rows.EachValue(key, [&](const ValueRow& row) { snapshot->Add(row); });
  if (status != 0) return status;
  snapshot->SortValues();
  snapshot->valuesSeen = m_Seen;
  return snapshot->Values() == 0 ? CheckKey(key) : 0;
}

LONG Hive::LoadSubKeys(std::int64_t key, KeySnapshot*& snapshot) {
  if (const LONG status = Load(key, snapshot)) return status;
  if (snapshot->subKeysSeen == m_Seen) return 0;
  snapshot->ClearSubKeys();
  snapshot->subKeysSeen = 0;
  const LONG status = m_Rows.EachKey(key, [&](const KeyRow& row) { snapshot->Add(row); });
  if (status != 0) return status;
  snapshot->subKeysSeen = m_Seen;
  return snapshot->SubKeys() == 0 ? CheckKey(key) : 0;
}

LONG Hive::View(const HeldValue& value, ValueView& view) {
  view = {value.name, value.type, value.data};
  if (value.HoldsData()) return 0;
  const LONG status = m_Rows.ReadData(value.row, [&](std::string_view data) { m_Data = data; });
  view.data = m_Data;
  return status;
}

LONG Hive::Measure(std::int64_t key, KeyExtents& extents) {
  KeySnapshot* snapshot = nullptr;
  if (const LONG status = LoadValues(key, snapshot)) return status;
  if (const LONG status = LoadSubKeys(key, snapshot)) return status;
  extents = {{static_cast<DWORD>(snapshot->SubKeys()), static_cast<DWORD>(snapshot->Values())}, 0, 0, 0};
  const auto raise = [](DWORD& longest, std::size_t length) {
    longest = std::max(longest, static_cast<DWORD>(length));
  };
  for (std::size_t i = 0; i < snapshot->SubKeys(); ++i)
    raise(extents.longestSubKey, snapshot->SubKeyAt(i)->name.size());
  for (std::size_t i = 0; i < snapshot->Values(); ++i) {
    raise(extents.longestValueName, snapshot->ValueAt(i)->name.size());
    raise(extents.largestData, snapshot->ValueAt(i)->size);
  }
  return 0;
}

LONG Hive::ReadValue(std::int64_t key, const FoldedName& name, ValueView& value) {
  if (const LONG status = Prepare()) return status;
  const LONG status = m_Rows.ReadValue(key, name.Bytes(), [&](DWORD type, std::string_view data) {
    m_Data = data;
    value = {{}, type, m_Data};
  });
  if (status != kNotFound) return status;
  const LONG deleted = CheckKey(key);
  return deleted ? deleted : kNotFound;
}

LONG Hive::ReadValueAt(std::int64_t key, DWORD index, ValueView& value) {
  KeySnapshot* snapshot = nullptr;
  if (const LONG status = LoadValues(key, snapshot)) return status;
  const HeldValue* const held = snapshot->ValueAt(index);
  return held ? View(*held, value) : kNoMoreItems;
}

LONG Hive::ReadSubKeyAt(std::int64_t key, DWORD index, std::u16string_view& name) {
  KeySnapshot* snapshot = nullptr;
  if (const LONG status = LoadSubKeys(key, snapshot)) return status;
  const HeldSubKey* const held = snapshot->SubKeyAt(index);
  if (!held) return kNoMoreItems;
  name = held->name;
  return 0;
}

LONG Hive::CreateKey(const KeyPlace& base, std::wstring_view path, KeyPlace& found, bool& created) {
  created = false;
  if (const LONG status = FindKey(base, path, found); status != kNotFound) return status;
  return Change([&] {
    if (const LONG status = CheckKey(base.row)) return status;
    found = base;
    PathParts parts(path);
    for (std::wstring_view part; parts.Next(part);) {
      const FoldedName folded(part.substr(0, kLongestKeyName));
      if (!FitsKey(part, folded, ++found.depth)) return kInvalidParameter;
      const std::int64_t parent = found.row;
      LONG status = m_Rows.FindKey(parent, folded.Bytes(), found.row);
      created = status == kNotFound;
      if (created) status = m_Rows.InsertKey(parent, StoredName(part), folded.Bytes(), found.row);
      if (status != 0) return status;
    }
    return LONG{0};
  });
}

LONG Hive::DeleteKey(const KeyPlace& base, std::wstring_view path) {
  KeyPlace found;
  if (const LONG status = FindKey(base, path, found)) return status;
  if (found.depth == 0) return kAccessDenied;
  return Change([&] {
    KeyCounts counts;
    if (const LONG status = m_Rows.Count(found.row, counts)) return status;
    return counts.subKeys != 0 ? kAccessDenied : m_Rows.DeleteKey(found.row);
  });
}

LONG Hive::WriteValue(std::int64_t key, std::wstring_view name, DWORD type, std::string_view data) {
  if (const LONG status = CheckKey(key)) return status;
  return Change([&] {
    KeyCounts counts;
    if (const LONG status = m_Rows.Count(key, counts)) return status;
    const FoldedName folded(name);
    std::int64_t row = 0;
    const LONG status = m_Rows.FindValue(key, folded.Bytes(), row);
    if (status == 0) return m_Rows.UpdateValue(row, type, data);
    if (status != kNotFound) return status;
    return m_Rows.InsertValue(key, {0, StoredName(name), folded.Bytes(), type, data}, row);
  });
}

LONG Hive::DeleteValue(std::int64_t key, const FoldedName& name) {
  ValueView ignored;
  if (const LONG status = ReadValue(key, name, ignored)) return status;
  return Change([&] {
    std::int64_t row = 0;
    const LONG status = m_Rows.FindValue(key, name.Bytes(), row);
    return status ? status : m_Rows.DeleteValue(row);
  });
}

template <class Body>
LONG Hive::Change(Body body) {
  if (m_Nested != 0) {
    if (const LONG status = Prepare()) return status;
    return body();
  }
  if (const LONG status = BeginChanges()) return status;
  const LONG status = body();
  const LONG ended = EndChanges(status == 0);
  return status ? status : ended;
}

LONG Hive::BeginChanges() {
  if (m_Nested == 0) {
    if (const LONG status = m_Rows.BeginWrite()) return status;
    m_Dropped = false;
    ForgetAll();
  }
  ++m_Nested;
  return 0;
}

LONG Hive::EndChanges(bool keep) {
  m_Dropped = m_Dropped || !keep;
  if (--m_Nested != 0) return 0;
  ForgetAll();
  const LONG failure = m_Rows.StillOpen() ? m_Rows.WriteFailure() : kStoreFailed;
  if (keep && !m_Dropped && failure == 0) return m_Rows.File().Commit();
  m_Rows.File().Rollback();
  return keep ? failure : 0;
}

LONG Hive::Flush() {
  if (const LONG status = Prepare()) return status;
  return m_Rows.File().Flush();
}
