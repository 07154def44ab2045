#include "hive.h"

#include <algorithm>

#include "status.h"

namespace {

// More than this and everything in memory is dropped before the next key is read in.
constexpr std::size_t kMostHeld = std::size_t{64} << 20;
constexpr std::size_t kMostKeys = 100'000;

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

LONG Hive::Refresh() {
  if (m_Nested != 0) return m_Rows.StillWriting() ? 0 : kStoreFailed;
  if (m_Rows.File().StillReads(m_Generation, m_State) && !HoldsTooMuch()) return 0;
  if (const LONG status = m_Rows.Open()) return status;
  const StoreState state = m_Rows.File().State();
  TakeState(state, state == m_State);
  return 0;
}

void Hive::TakeState(const StoreState& state, bool same) {
  const std::uint64_t generation = m_Rows.File().Generation();
  if (generation != m_Generation || HoldsTooMuch()) {
    // Another connection may be one to another file, where a path leads elsewhere.
    ForgetKeys();
    m_Paths.Clear();
    // And its states tell nothing about those of the last.
    same = same && generation == m_Generation;
    m_Generation = generation;
  }
  if (same) return;
  m_State = state;
  ++m_Seen;
  ++m_PathsSeen;
  ++m_Changes;
}

bool Hive::HoldsTooMuch() const noexcept {
  return m_Held > kMostHeld || m_Keys.size() > kMostKeys;
}

void Hive::ForgetKeys() {
  m_Keys.clear();
  m_Recent = {};
  m_Held = 0;
}

KeySnapshot& Hive::Held(std::int64_t key) {
  Recent& recent = m_Recent[static_cast<std::uint64_t>(key) % m_Recent.size()];
  if (recent.snapshot && recent.key == key) return *recent.snapshot;
  KeySnapshot& snapshot = m_Keys[key];
  recent = {key, &snapshot};
  return snapshot;
}

LONG Hive::CountOf(std::int64_t key, KeySnapshot& snapshot) {
  if (snapshot.countsSeen == m_Seen) return 0;
  const LONG status = m_Rows.Count(key, snapshot.counts);
  if (status == 0) snapshot.countsSeen = m_Seen;
  return status;
}

LONG Hive::FindKey(const KeyPlace& base, std::wstring_view path, KeyPlace& found, KeyCounts* counts) {
  if (const LONG status = Refresh()) return status;
  if (const LONG status = Follow(base, path, found)) return status;
  if (!counts) return 0;
  KeySnapshot& snapshot = Held(found.row);
  const LONG status = CountOf(found.row, snapshot);
  *counts = snapshot.counts;
  return status;
}

LONG Hive::Follow(const KeyPlace& base, std::wstring_view path, KeyPlace& found) {
  std::uint64_t hash = 0;
  PathCache::Entry& kept = m_Paths.At(base.row, path, hash);
  if (PathCache::Holds(kept, hash, base.row, path)) {
    found = kept.place;
    if (kept.seen == m_PathsSeen) return 0;
    if (CountOf(found.row, Held(found.row)) == 0) {
      kept.seen = m_PathsSeen;
      return 0;
    }
  }
  const LONG status = Walk(base, path, found);
  if (status == 0) kept = {hash, base.row, std::wstring(path), found, m_PathsSeen};
  return status;
}

LONG Hive::Walk(const KeyPlace& base, std::wstring_view path, KeyPlace& found) {
  found = base;
  PathParts parts(path);
  for (std::wstring_view part; parts.Next(part);) {
    const FoldedName folded(part.substr(0, kLongestKeyName));
    if (!FitsKey(part, folded, ++found.depth)) return kInvalidParameter;
    const LONG status = m_Rows.FindKey(found.row, folded.Bytes(), found.row);
    if (status == kNotFound)
      if (const LONG deleted = CountOf(base.row, Held(base.row))) return deleted;
    if (status != 0) return status;
  }
  return found.depth == base.depth ? CountOf(base.row, Held(base.row)) : 0;
}

LONG Hive::Count(std::int64_t key, KeyCounts& counts) {
  if (const LONG status = Refresh()) return status;
  KeySnapshot& snapshot = Held(key);
  if (const LONG status = CountOf(key, snapshot)) return status;
  counts = snapshot.counts;
  return 0;
}

// The first read of a key after somebody else's change asks the store. To read the key in pays only when it is read
// again before the next change, and for a large one, when it is read often: beside a process that keeps writing, reads
// then cost no more than twice what the store takes.
LONG Hive::IsWorthLoading(std::int64_t key, KeySnapshot& snapshot, bool& worth) {
  constexpr std::size_t kValuesPerRead = 4;  // that can be read in in the time of one read from the store
  if (snapshot.readsSeen != m_Seen) {
    snapshot.readsSeen = m_Seen;
    snapshot.reads = 0;
  }
  worth = false;
  if (++snapshot.reads == 1) return 0;
  // An old count will do.
  const LONG status = snapshot.countsSeen == 0 ? CountOf(key, snapshot) : 0;
  worth = snapshot.reads > 1 + snapshot.counts.values / kValuesPerRead;
  return status;
}

LONG Hive::LoadValues(std::int64_t key, KeySnapshot& snapshot) {
  if (snapshot.valuesSeen == m_Seen) return 0;
  if (const LONG status = CountOf(key, snapshot)) return status;
  m_Held -= snapshot.Weight();
  snapshot.ClearValues();
  snapshot.valuesSeen = 0;
  const LONG status = m_Rows.EachValue(key, [&](const ValueRow& row) { snapshot.Add(row); });
  snapshot.SortValues();
  m_Held += snapshot.Weight();
  if (status == 0) snapshot.valuesSeen = m_Seen;
  return status;
}

LONG Hive::LoadSubKeys(std::int64_t key, KeySnapshot& snapshot) {
  if (snapshot.subKeysSeen == m_Seen) return 0;
  if (const LONG status = CountOf(key, snapshot)) return status;
  snapshot.ClearSubKeys();
  snapshot.subKeysSeen = 0;
  const LONG status = m_Rows.EachKey(key, [&](const KeyRow& row) { snapshot.Add(row); });
  if (status == 0) snapshot.subKeysSeen = m_Seen;
  return status;
}

LONG Hive::View(std::int64_t key, const HeldValue& value, ValueView& view) {
  view = {value.name, value.type, value.data};
  if (value.HoldsData()) return 0;
  // By its name, and with its type: somebody may have changed it since it was found to hold.
  return m_Rows.ReadValue(key, value.folded, [&](DWORD type, std::string_view data) {
    m_Data = data;
    view.type = type;
    view.data = m_Data;
  });
}

LONG Hive::Measure(std::int64_t key, KeyExtents& extents) {
  if (const LONG status = Refresh()) return status;
  KeySnapshot& snapshot = Held(key);
  if (const LONG status = LoadValues(key, snapshot)) return status;
  if (const LONG status = LoadSubKeys(key, snapshot)) return status;
  extents = {{static_cast<DWORD>(snapshot.SubKeys()), static_cast<DWORD>(snapshot.Values())}, 0, 0, 0};
  const auto raise = [](DWORD& longest, std::size_t length) {
    longest = std::max(longest, static_cast<DWORD>(length));
  };
  for (std::size_t i = 0; i < snapshot.SubKeys(); ++i)
    raise(extents.longestSubKey, snapshot.SubKeyAt(i)->name.size());
  for (std::size_t i = 0; i < snapshot.Values(); ++i) {
    raise(extents.longestValueName, snapshot.ValueAt(i)->name.size());
    raise(extents.largestData, snapshot.ValueAt(i)->size);
  }
  return 0;
}

LONG Hive::ReadValue(std::int64_t key, const FoldedName& name, ValueView& value) {
  if (const LONG status = Refresh()) return status;
  KeySnapshot& snapshot = Held(key);
  if (snapshot.valuesSeen != m_Seen) {
    bool worth = false;
    if (const LONG status = IsWorthLoading(key, snapshot, worth)) return status;
    if (!worth) return ReadFromStore(key, name, value);
    if (const LONG status = LoadValues(key, snapshot)) return status;
  }
  const HeldValue* const held = snapshot.Find(name);
  if (!held) return kNotFound;
  return View(key, *held, value);
}

LONG Hive::ReadFromStore(std::int64_t key, const FoldedName& name, ValueView& value) {
  const LONG status = m_Rows.ReadValue(key, name.Bytes(), [&](DWORD type, std::string_view data) {
    m_Data = data;
    value = {{}, type, m_Data};
  });
  if (status != kNotFound) return status;
  const LONG deleted = CountOf(key, Held(key));
  return deleted ? deleted : kNotFound;
}

LONG Hive::ReadValueAt(std::int64_t key, DWORD index, ValueView& value) {
  if (const LONG status = Refresh()) return status;
  KeySnapshot& snapshot = Held(key);
  if (const LONG status = LoadValues(key, snapshot)) return status;
  const HeldValue* const held = snapshot.ValueAt(index);
  return held ? View(key, *held, value) : kNoMoreItems;
}

LONG Hive::ReadSubKeyAt(std::int64_t key, DWORD index, std::u16string_view& name) {
  if (const LONG status = Refresh()) return status;
  KeySnapshot& snapshot = Held(key);
  if (const LONG status = LoadSubKeys(key, snapshot)) return status;
  const HeldSubKey* const held = snapshot.SubKeyAt(index);
  if (!held) return kNoMoreItems;
  name = held->name;
  return 0;
}

LONG Hive::CreateKey(const KeyPlace& base, std::wstring_view path, KeyPlace& found, bool& created,
                     KeyCounts* counts) {
  created = false;
  if (const LONG status = FindKey(base, path, found, counts); status != kNotFound) return status;
  if (counts) *counts = {};
  return Change([&] {
    if (const LONG status = CountOf(base.row, Held(base.row))) return status;
    found = base;
    PathParts parts(path);
    for (std::wstring_view part; parts.Next(part);) {
      const FoldedName folded(part.substr(0, kLongestKeyName));
      if (!FitsKey(part, folded, ++found.depth)) return kInvalidParameter;
      const std::int64_t parent = found.row;
      LONG status = m_Rows.FindKey(parent, folded.Bytes(), found.row);
      created = status == kNotFound;
      if (created) status = AddKey(parent, part, folded.Bytes(), found.row);
      if (status != 0) return status;
    }
    return LONG{0};
  });
}

LONG Hive::AddKey(std::int64_t parent, std::wstring_view name, std::string_view folded, std::int64_t& row) {
  const std::string stored = StoredName(name);
  if (const LONG status = m_Rows.InsertKey(parent, stored, folded, row)) return status;
  KeySnapshot& above = Held(parent);
  if (above.countsSeen == m_Seen) ++above.counts.subKeys;
  if (above.subKeysSeen == m_Seen) above.Add(KeyRow{row, stored, folded});
  return 0;
}

LONG Hive::DeleteKey(const KeyPlace& base, std::wstring_view path) {
  KeyPlace found;
  if (const LONG status = FindKey(base, path, found, nullptr)) return status;
  if (found.depth == 0) return kAccessDenied;
  KeyCounts counts;
  if (const LONG status = Count(found.row, counts)) return status;
  if (counts.subKeys != 0) return kAccessDenied;
  return Change([&] { return RemoveKey(found.row); });
}

LONG Hive::RemoveKey(std::int64_t key) {
  KeySnapshot& snapshot = Held(key);
  if (const LONG status = CountOf(key, snapshot)) return status;
  if (snapshot.counts.subKeys != 0) return kAccessDenied;
  std::int64_t parent = 0;
  std::string folded;
  if (const LONG status = m_Rows.FindParent(key, parent, folded)) return status;
  if (const LONG status = m_Rows.DeleteKey(key)) return status;
  m_Held -= snapshot.Weight();
  m_Keys.erase(key);
  m_Recent = {};
  ++m_PathsSeen;
  KeySnapshot& above = Held(parent);
  if (above.countsSeen == m_Seen) --above.counts.subKeys;
  if (above.subKeysSeen == m_Seen) above.RemoveSubKey(folded);
  return 0;
}

LONG Hive::WriteValue(std::int64_t key, std::wstring_view name, DWORD type, std::string_view data) {
  KeyCounts counts;
  if (const LONG status = Count(key, counts)) return status;
  return Change([&] { return PutValue(key, name, type, data); });
}

LONG Hive::PutValue(std::int64_t key, std::wstring_view name, DWORD type, std::string_view data) {
  KeySnapshot& snapshot = Held(key);
  if (const LONG status = CountOf(key, snapshot)) return status;
  const FoldedName folded(name);
  const bool held = snapshot.valuesSeen == m_Seen;
  HeldValue* const value = held ? snapshot.Find(folded) : nullptr;
  std::int64_t row = value ? value->row : 0;
  LONG status = value ? 0 : kNotFound;
  if (!held) status = m_Rows.FindValue(key, folded.Bytes(), row);
  if (status == 0) {
    status = m_Rows.UpdateValue(row, type, data);
    if (value) value->Set(type, data);
    return status;
  }
  if (status != kNotFound) return status;
  const std::string stored = StoredName(name);
  ValueRow added{0, stored, folded.Bytes(), type, data};
  if (const LONG failed = m_Rows.InsertValue(key, added, added.row)) return failed;
  ++snapshot.counts.values;
  if (!held) return 0;
  m_Held -= snapshot.Weight();
  snapshot.Add(added);
  snapshot.SortValues();
  m_Held += snapshot.Weight();
  return 0;
}

LONG Hive::DeleteValue(std::int64_t key, const FoldedName& name) {
  ValueView ignored;
  if (const LONG status = ReadValue(key, name, ignored)) return status;
  return Change([&] {
    std::int64_t row = 0;
    if (const LONG status = m_Rows.FindValue(key, name.Bytes(), row)) return status;
    if (const LONG status = m_Rows.DeleteValue(row)) return status;
    KeySnapshot& snapshot = Held(key);
    if (snapshot.countsSeen == m_Seen) --snapshot.counts.values;
    if (snapshot.valuesSeen == m_Seen) snapshot.Remove(name);
    return LONG{0};
  });
}

template <class Body>
LONG Hive::Change(Body body) {
  if (m_Nested != 0) {
    if (const LONG status = Refresh()) return status;
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
    // Nobody else can change anything from here on: what is in memory holds, or begins anew.
    TakeState(m_State, m_Rows.File().StillAt(m_State));
    m_Dropped = false;
  }
  ++m_Nested;
  return 0;
}

LONG Hive::EndChanges(bool keep) {
  m_Dropped = m_Dropped || !keep;
  if (--m_Nested != 0) return 0;
  LONG status = m_Rows.StillWriting() ? m_Rows.WriteFailure() : kStoreFailed;
  if (!m_Dropped && status == 0) {
    status = m_Rows.File().Commit();
    // Where somebody else came right behind, this is no state that the store is in, and the next read finds out.
    if (status == 0) m_State = m_Rows.File().OwnState();
    ++m_Changes;
  } else {
    m_Rows.File().Rollback();
  }
  // What is in memory holds the changes that were not kept.
  if (m_Dropped || status != 0) {
    m_Rows.PassOverIds();
    TakeState({}, false);
  }
  return keep ? status : 0;
}

LONG Hive::CountChanges(std::uint64_t& changes) {
  const LONG status = Refresh();
  changes = m_Changes;
  return status;
}

LONG Hive::Digest(std::int64_t key, std::uint64_t& digest) {
  if (const LONG status = Refresh()) return status;
  if (const LONG status = CountOf(key, Held(key))) return status;
  digest = 0;
  const auto mix = [&](std::uint64_t word) {
    digest = (digest ^ word) * 0x9E3779B97F4A7C15;
    digest ^= digest >> 29;
  };
  // Names never change: a key or a value with another one has another row. In a store that somebody has tampered with,
  // a key may lie below itself: no path leads deeper than the limit.
  for (std::vector<KeyPlace> left{{key, 0}}; !left.empty();) {
    const KeyPlace next = left.back();
    left.pop_back();
    mix(static_cast<std::uint64_t>(next.row));
    LONG status = 0;
    if (next.depth < kDeepestKey)
      status = m_Rows.EachKey(next.row, [&](const KeyRow& row) {
        left.push_back({row.row, next.depth + 1});
      });
    if (status == 0)
      status = m_Rows.EachValue(next.row, [&](const ValueRow& row) {
        mix(static_cast<std::uint64_t>(row.row));
        mix(row.type);
        mix(std::hash<std::string_view>()(row.data));
      });
    if (status != 0) return status;
  }
  return 0;
}

LONG Hive::Flush() {
  if (const LONG status = Refresh()) return status;
  return m_Rows.File().Flush();
}
