#include "key_snapshot.h"

#include <algorithm>

#include "names.h"

namespace {

constexpr std::size_t kLargestHeld = 16384;
constexpr std::size_t kMostDataHeld = std::size_t{32} << 20;
constexpr std::size_t kOverhead = 200;  // of an entry, its pointers and its place in the index

constexpr auto kByRow = [](const auto& a, const auto& b) { return a->row < b->row; };

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
  m_Sorted = true;
  m_Weight = 0;
}

void KeySnapshot::Add(const ValueRow& row) {
  auto value = std::make_unique<HeldValue>();
  value->row = row.row;
  value->name = NameFromStore(row.name, kLongestValueName);
  value->folded = row.folded;
  value->Set(row.type, row.data);
  if (m_Weight > kMostDataHeld) value->data.clear();
  m_Weight += kOverhead + value->name.size() * 2 + value->folded.size() + value->data.size();
  m_ByName.emplace(value->folded, value.get());
  m_Sorted = m_Sorted && (m_Values.empty() || m_Values.back()->row < value->row);
  m_Values.push_back(std::move(value));
}

void KeySnapshot::SortValues() {
  if (!m_Sorted) std::sort(m_Values.begin(), m_Values.end(), kByRow);
  m_Sorted = true;
}

void KeySnapshot::Remove(std::string_view folded) {
  const auto found = m_ByName.find(folded);
  if (found == m_ByName.end()) return;
  HeldValue* const value = found->second;
  m_ByName.erase(found);
  const auto place = std::lower_bound(m_Values.begin(), m_Values.end(), value->row,
                                      [](const auto& entry, std::int64_t row) { return entry->row < row; });
  if (place != m_Values.end() && place->get() == value) m_Values.erase(place);
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
