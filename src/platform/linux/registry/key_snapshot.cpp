#include "key_snapshot.h"

#include <algorithm>
#include <bit>

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

// Where the value is, or where it would go.
std::size_t KeySnapshot::PlaceFor(std::uint64_t hash, std::string_view folded) const {
  const std::size_t mask = m_ByName.size() - 1;
  std::size_t place = hash & mask;
  while (m_ByName[place] && (m_ByName[place]->hash != hash || m_ByName[place]->folded != folded))
    place = (place + 1) & mask;
  return place;
}

HeldValue* KeySnapshot::Find(std::uint64_t hash, std::string_view folded) const {
  return m_ByName.empty() ? nullptr : m_ByName[PlaceFor(hash, folded)];
}

void KeySnapshot::Index(std::size_t places) {
  m_ByName.assign(places, nullptr);
  for (const auto& value : m_Values) m_ByName[PlaceFor(value->hash, value->folded)] = value.get();
}

// Those behind it move up, so that no search ends early.
void KeySnapshot::Unindex(std::size_t place) {
  const std::size_t mask = m_ByName.size() - 1;
  for (std::size_t next = (place + 1) & mask; m_ByName[next]; next = (next + 1) & mask) {
    const std::size_t home = m_ByName[next]->hash & mask;
    if (((next - home) & mask) < ((next - place) & mask)) continue;
    m_ByName[place] = m_ByName[next];
    place = next;
  }
  m_ByName[place] = nullptr;
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
  value->hash = HashOfFolded(row.folded);
  value->Set(row.type, row.data);
  if (m_Weight > kMostDataHeld) value->data.clear();
  m_Weight += kOverhead + value->name.size() * 2 + value->folded.size() + value->data.size();
  m_Sorted = m_Sorted && (m_Values.empty() || m_Values.back()->row < value->row);
  m_Values.push_back(std::move(value));
  if (2 * m_Values.size() > m_ByName.size())
    Index(std::bit_ceil(std::max<std::size_t>(16, 4 * m_Values.size())));
  else
    m_ByName[PlaceFor(m_Values.back()->hash, m_Values.back()->folded)] = m_Values.back().get();
}

void KeySnapshot::SortValues() {
  if (!m_Sorted) std::sort(m_Values.begin(), m_Values.end(), kByRow);
  m_Sorted = true;
}

void KeySnapshot::Remove(const FoldedName& name) {
  HeldValue* const value = Find(name);
  if (!value) return;
  Unindex(PlaceFor(name.Hash(), name.Bytes()));
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
