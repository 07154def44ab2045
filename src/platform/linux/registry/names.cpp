#include "names.h"

#include <unicode/uchar.h>

#include <algorithm>

#include "platform/linux/utf16.h"

namespace {

constexpr char16_t kReplacement = 0xFFFD;

constexpr std::uint64_t Mixed(std::uint64_t hash, std::uint64_t unit) {
  hash = (hash + unit) * 0x9E3779B97F4A7C15;
  return hash ^ hash >> 32;
}

constexpr bool IsLowerAscii(char16_t unit) {
  return unit >= u'a' && unit <= u'z';
}

void AppendUtf8(std::string& out, char32_t ch) {
  const auto byte = [&](char32_t value) { out += static_cast<char>(value); };
  if (ch < 0x80) return byte(ch);
  if (ch < 0x800) {
    byte(0xC0 | ch >> 6);
  } else {
    if (ch < 0x10000) {
      byte(0xE0 | ch >> 12);
    } else {
      byte(0xF0 | (ch >> 18 & 7));
      byte(0x80 | (ch >> 12 & 0x3F));
    }
    byte(0x80 | (ch >> 6 & 0x3F));
  }
  byte(0x80 | (ch & 0x3F));
}

// The character at `at`, which moves behind it; lone surrogates are characters here.
char32_t NextStored(std::string_view text, std::size_t& at) {
  const auto lead = static_cast<unsigned char>(text[at++]);
  if (lead < 0x80) return lead;
  const std::size_t more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
  if (lead < 0xC2 || lead > 0xF4 || text.size() - at < more) return kReplacement;
  char32_t ch = lead & (0x3FU >> more);
  for (std::size_t i = 0; i < more; ++i) {
    const auto byte = static_cast<unsigned char>(text[at + i]);
    if ((byte & 0xC0) != 0x80) return kReplacement;
    ch = ch << 6 | (byte & 0x3FU);
  }
  constexpr char32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
  if (ch < kSmallest[more] || ch > 0x10FFFF) return kReplacement;
  at += more;
  return ch;
}

}  // namespace

char16_t UpperCase(char16_t unit) {
  if (unit < 0x80) return IsLowerAscii(unit) ? static_cast<char16_t>(unit - 0x20) : unit;
  const UChar32 upper = u_toupper(unit);
  return upper <= 0xFFFF && u_tolower(upper) == unit ? static_cast<char16_t>(upper) : unit;
}

FoldedName::FoldedName(std::wstring_view name) {
  // Twice: an element above U+FFFF is two units.
  if (4 * name.size() > m_Short.size()) m_Long.resize(4 * name.size());
  char* const out = m_Long.empty() ? m_Short.data() : m_Long.data();
  const auto append = [&](char16_t unit) {
    const char16_t upper = UpperCase(unit);
    m_Hash = Mixed(m_Hash, upper);
    out[m_Size++] = static_cast<char>(upper >> 8);
    out[m_Size++] = static_cast<char>(upper & 0xFF);
  };
  for (const wchar_t element : name) PutUnitsOf(static_cast<char32_t>(element), append);
}

std::uint64_t HashOfFolded(std::string_view bytes) {
  std::uint64_t hash = 0;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
    hash = Mixed(hash, static_cast<unsigned>(static_cast<unsigned char>(bytes[i]) << 8 |
                                             static_cast<unsigned char>(bytes[i + 1])));
  return hash;
}

bool PathParts::Next(std::wstring_view& part) {
  const std::size_t from = m_Rest.find_first_not_of(L'\\');
  if (from == std::wstring_view::npos) return false;
  m_Rest.remove_prefix(from);
  part = m_Rest.substr(0, m_Rest.find(L'\\'));
  m_Rest.remove_prefix(part.size());
  return true;
}

std::string StoredName(std::wstring_view name) {
  std::string stored;
  for (std::size_t at = 0; at < name.size();) AppendUtf8(stored, NextCharacter(name, at));
  return stored;
}

std::u16string NameFromStore(std::string_view stored, std::size_t limit) {
  std::u16string name;
  for (std::size_t at = 0; at < stored.size() && name.size() < limit;) {
    const char32_t ch = NextStored(stored, at);
    if (ch == 0) break;
    PutUnitsOf(ch, [&name](char16_t unit) { name += unit; });
  }
  name.resize(std::min(name.size(), limit));
  return name;
}
