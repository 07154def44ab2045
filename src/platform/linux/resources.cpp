#include <cstdint>
#include <list>
#include <string>

#include "platform/linux/string_blocks.h"
#include "platform/linux/utf16.h"

namespace {

constexpr std::uintptr_t kStringType = 6;
constexpr LANGID kMainLanguage = 0x3FF;
constexpr DWORD kTypeNotFound = 1813;
constexpr DWORD kNameNotFound = 1814;
constexpr DWORD kLanguageNotFound = 1815;
constexpr unsigned kNoAnswer = ~0U;

// A block that a host registered. Its address is the resource handle, so it never moves.
struct HostBlock {
  HINSTANCE module;
  StringBlock block;
  std::array<std::wstring, 16> texts;
  std::wstring image;
};

std::list<HostBlock>& HostBlocks() {
  static std::list<HostBlock> s_Blocks;
  return s_Blocks;
}

template <class Visitor>
void ForEachBlock(HINSTANCE module, Visitor visit) {
  if (module == LibraryModule())
    for (const auto& block : LibraryStringBlocks()) visit(block);
  for (const auto& host : HostBlocks())
    if (host.module == module) visit(host.block);
}

// How far a block in language `have` is from what was asked for; the nearest answers.
unsigned Distance(LANGID have, LANGID asked) {
  if (have == asked) return 0;
  if (have == (asked & kMainLanguage)) return 1;
  if (have == 0) return 2;
  return (asked & kMainLanguage) == 0 ? 3U + have : kNoAnswer;
}

// UTF-16: a literal may hold an element above U+FFFF, which is two units.
std::wstring Units(const wchar_t* text) {
  std::wstring units;
  const auto append = [&units](char16_t unit) { units += static_cast<wchar_t>(unit); };
  for (; text && *text; ++text) PutUnitsOf(static_cast<char32_t>(*text), append);
  return units;
}

HostBlock& BlockFor(HINSTANCE module, WORD number, LANGID language) {
  auto& blocks = HostBlocks();
  for (auto& host : blocks)
    if (host.module == module && host.block.number == number && host.block.language == language) return host;
  return blocks.emplace_back(HostBlock{module, {number, language, {}}, {}, {}});
}

}  // namespace

HINSTANCE LibraryModule() {
  static constexpr char kToken = 0;
  return reinterpret_cast<HINSTANCE>(const_cast<char*>(&kToken));
}

bool RegisterString(HINSTANCE module, LANGID language, WORD id, const wchar_t* text) {
  HostBlock& host = BlockFor(module, static_cast<WORD>(id / 16 + 1), language);
  host.texts[id % 16] = Units(text);
  host.image.clear();
  for (const auto& entry : host.texts) host.image += static_cast<wchar_t>(entry.size()) + entry;
  host.block.image = host.image;
  return true;
}

HRSRC FindResourceExW(HINSTANCE module, const wchar_t* type, const wchar_t* name, WORD language) {
  HRSRC nearest = nullptr;
  unsigned distance = kNoAnswer;
  DWORD error = kTypeNotFound;
  if (reinterpret_cast<std::uintptr_t>(type) == kStringType)
    ForEachBlock(module, [&](const StringBlock& block) {
      if (error == kTypeNotFound) error = kNameNotFound;
      if (block.number != reinterpret_cast<std::uintptr_t>(name)) return;
      error = kLanguageNotFound;
      const unsigned here = Distance(block.language, language);
      if (here < distance) distance = here, nearest = &block;
    });
  if (!nearest) SetLastError(error);
  return nearest;
}

DWORD SizeofResource(HINSTANCE, HRSRC resource) {
  return resource ? static_cast<DWORD>(2 * resource->image.size()) : 0;
}

HGLOBAL LoadResource(HINSTANCE, HRSRC resource) {
  return resource ? const_cast<wchar_t*>(resource->image.data()) : nullptr;
}

void* LockResource(HGLOBAL data) {
  return data;
}
