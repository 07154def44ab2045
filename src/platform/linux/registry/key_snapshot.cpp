#include "key_snapshot.h"

#include <algorithm>

#include "names.h"

namespace {

constexpr std::size_t kLargestHeld = 16384;
constexpr std::size_t kOverhead = 200;  // of an entry, its pointers and its place in the index

template <class Entries>
auto PlaceOfRow(Entries& entries, std::int64_t row) {
  return std::lower_bound(entries.begin(), entries.end(), row,
                          [](const auto& entry, std::int64_t wanted) { return entry->row < wanted; });
}

}  // namespace

void HeldValue::Set(DWORD newType, std::string_view newData) {
  type = newType;
  size = newData.size();
  data = size <= kLargestHeld ? newData : std::string_view();
}

HeldValue* KeySnapshot::Find(std::string_view folded) {
  const auto found = m_ByName.find(folded);
  return found == m_ByName.end() ? nullptr : found->second;
}

void KeySnapshot::ClearValues() {
  m_ByName.clear();
  m_Values.clear();
  m_Weight = 0;
}

void KeySnapshot::Add(const ValueRow& row) {
  auto value = std::make_unique<HeldValue>();
  value->row = row.row;
  value->name = NameFromStore(row.name, kLongestValueName);
  value->folded = row.folded;
  value->Set(row.type, row.data);
  m_Weight += kOverhead + value->name.size() * 2 + value->folded.size() + value->data.size();
  m_ByName.emplace(value->folded, value.get());
  m_Values.push_back(std::move(value));
}

void KeySnapshot::SortValues() {
  const auto before = [](const auto& a, const auto& b) { return a->row < b->row; };
  if (!std::is_sorted(m_Values.begin(), m_Values.end(), before))
    std::sort(m_Values.begin(), m_Values.end(), before);
}

void KeySnapshot::Remove(HeldValue& value) {
  m_ByName.erase(value.folded);
  m_Values.erase(PlaceOfRow(m_Values, value.row));
}

void KeySnapshot::ClearSubKeys() {
  m_SubKeys.clear();
}

void KeySnapshot::Add(const KeyRow& row) {
  auto subKey = std::make_unique<HeldSubKey>(
      HeldSubKey{row.row, NameFromStore(row.name, kLongestKeyName), std::string(row.folded)});
  const auto place = std::upper_bound(m_SubKeys.begin(), m_SubKeys.end(), subKey,
                                      [](const auto& a, const auto& b) { return a->folded < b->folded; });
  m_SubKeys.insert(place, std::move(subKey));
}

void KeySnapshot::RemoveSubKey(std::string_view folded) {
  const auto place =
      std::lower_bound(m_SubKeys.begin(), m_SubKeys.end(), folded,
                       [](const auto& subKey, std::string_view wanted) { return subKey->folded < wanted; });
  if (place != m_SubKeys.end() && (*place)->folded == folded) m_SubKeys.erase(place);
}
