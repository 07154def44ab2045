#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

#include "configfile.h"
#include "registry/stored_text.h"
#include "registry/text_scan.h"

namespace {

constexpr std::size_t kFirstRoom = 4096;
// A store leaves a name out that finds too little room, and then reports a length below that of the buffer. With as
// much room left as no name is long, nothing was left out.
constexpr std::size_t kLongestName = 1024;
constexpr std::size_t kMostRoom = std::size_t{1} << 26;  // against stores that always tell of more

// All names of a list, each with its terminator, by `read(buffer, size)`.
template <class Read>
std::wstring AllNames(Read&& read) {
  std::wstring names;
  for (std::size_t room = kFirstRoom;;) {
    names.assign(room, L'\0');
    const auto length =
        static_cast<std::size_t>(std::max(read(names.data(), static_cast<unsigned int>(room)), 0));
    if (length + kLongestName <= room || room >= kMostRoom) {
      names.resize(std::min(length, room));
      return names;
    }
    room = std::min(std::max(2 * room, length + 2 * kLongestName), kMostRoom);
  }
}

// Calls `take` with each name. The length and not an empty name ends the list, since a registry's default value has
// an empty name; the one at the very end is the list's own.
template <class Take>
void ForEachName(const std::wstring& names, Take&& take) {
  for (std::size_t place = 0; place < names.size();) {
    const std::size_t end = std::min(names.find(L'\0', place), names.size());
    if (end == place && end + 1 == names.size()) return;
    take(names.substr(place, end - place).c_str());
    place = end + 1;
  }
}

bool IsTakenForInteger(std::wstring_view text) noexcept {
  text = text.substr(0, text.find(L'\n'));
  return std::all_of(text.begin(), text.end(), [](wchar_t ch) { return HexDigitValue(ch) >= 0; });
}

void CopyEntry(const TConfigFile& source, TConfigFile& target, const wchar_t* section, const wchar_t* entry) {
  const StoredText<kTextRoom> text(source, section, entry);
  const std::wstring_view trimmed = WithoutBlanks(text.View());
  if (!IsTakenForInteger(trimmed)) {
    target.WriteString(section, entry, std::wstring(trimmed).c_str());
    return;
  }
  constexpr int kMissing = std::numeric_limits<int>::max();
  const int value = source.ReadInteger(section, entry, kMissing);
  if (value < kMissing) target.WriteInteger(section, entry, value);
}

}  // namespace

void TConfigFile::LoadValues(const TConfigFile& source) {
  const auto sections =
      AllNames([&](wchar_t* buffer, unsigned int size) { return source.ReadSections(buffer, size); });
  ForEachName(sections, [&](const wchar_t* section) {
    const auto entries = AllNames(
        [&](wchar_t* buffer, unsigned int size) { return source.ReadSection(section, buffer, size); });
    ForEachName(entries, [&](const wchar_t* entry) { CopyEntry(source, *this, section, entry); });
  });
}
