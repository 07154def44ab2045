#include "text.h"

#include <cstddef>
#include <iterator>

#include "text_help.h"
#include "text_messages.h"
#include "utf8.h"

namespace Cli {

namespace {

constexpr std::size_t kHelpCount = std::size(kHelpTexts);

constexpr const TextEntry& EntryAt(std::size_t i) {
  return i < kHelpCount ? kHelpTexts[i] : kMessageTexts[i - kHelpCount];
}

constexpr bool InOrder() {
  constexpr std::size_t kCount = kHelpCount + std::size(kMessageTexts);
  for (std::size_t i = 0; i < kCount; ++i)
    if (EntryAt(i).id != static_cast<Text>(i)) return false;
  return kCount == static_cast<std::size_t>(Text::Count);
}
static_assert(InOrder(), "one entry a text, in the order of the enumeration");

bool s_Arabic = false;

// The code point that starts at `at`, which moves behind it. The text is well-formed UTF-8.
char32_t NextCodePoint(std::string_view text, std::size_t& at) {
  const unsigned lead = static_cast<unsigned char>(text[at++]);
  if (lead < 0x80) return lead;
  const unsigned following = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
  char32_t code = lead & (0x3Fu >> following);
  for (unsigned i = 0; i < following && at < text.size(); ++i)
    code = code << 6 | (static_cast<unsigned char>(text[at++]) & 0x3Fu);
  return code;
}

// Arabic vowel signs, and the marks that steer direction.
bool TakesNoColumn(char32_t code) {
  return (code >= 0x064B && code <= 0x065F) || code == 0x0670 || (code >= 0x200B && code <= 0x200F);
}

}  // namespace

void SpeakArabic(bool arabic) {
  s_Arabic = arabic;
}
bool SpeaksArabic() {
  return s_Arabic;
}

std::string Say(Text text, std::initializer_list<std::string_view> values) {
  const TextEntry& entry = EntryAt(static_cast<std::size_t>(text));
  std::string said;
  for (const char* at = s_Arabic ? entry.arabic : entry.english; *at; ++at) {
    if (*at != '{') {
      said += *at;
      continue;
    }
    said += std::data(values)[at[1] - '0'];
    at += 2;
  }
  return said;
}

std::string Joined(std::initializer_list<std::string_view> parts) {
  std::string whole;
  for (const std::string_view part : parts) whole += part;
  return whole;
}

std::string InUserDigits(std::string text) {
  if (!s_Arabic) return text;
  std::string shown;
  for (const char c : text) {
    if (c >= '0' && c <= '9')
      (shown += '\xD9') += static_cast<char>('\xA0' + (c - '0'));  // U+0660 to U+0669
    else
      shown += c;
  }
  return shown;
}

std::string InUserDigits(int number) {
  return InUserDigits(std::to_string(number));
}

std::string Utf8(const CString& text) {
  return Qel::ToUtf8(text);
}
CString Wide(std::string_view text) {
  return Qel::FromUtf8(text);
}

int Columns(std::string_view text) {
  int columns = 0;
  for (std::size_t at = 0; at < text.size();)
    if (!TakesNoColumn(NextCodePoint(text, at))) ++columns;
  return columns;
}

std::string Padding(std::string_view text, int columns) {
  const int missing = columns - Columns(text);
  return missing > 0 ? std::string(static_cast<std::size_t>(missing), ' ') : std::string();
}

}  // namespace Cli
