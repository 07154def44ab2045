#include "string_resources.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "exceptions.h"
#include "format.h"
#include "platform/platform.h"

#undef LoadString  // the system's macro

#define QEL_SOURCE L"src/string_tools"

namespace Qel::Sys::Text {

namespace {

constexpr int kCurrentLanguage = -1;
constexpr unsigned kLargestId = 0xFFFF;
constexpr LANGID kEnglish = 1033;
constexpr LANGID kAnyLanguage = 0;

// By language index; hosts store the indices.
constexpr LANGID kLanguages[] = {kEnglish, 0x2801, 1036, 1049, 1050, 1055, 1046, 2052};

constinit HINSTANCE s_DefaultModule = nullptr;
constinit int s_InterfaceLanguage = kCurrentLanguage;

LANGID LanguageOf(int index) {
  if (index == kCurrentLanguage) index = s_InterfaceLanguage;
  if (index == kCurrentLanguage) return Settings::SysFormat.ResLangId;
  const bool known = index >= 0 && index < static_cast<int>(std::size(kLanguages));
  return known ? kLanguages[index] : kEnglish;
}

// A resource's type or name that is a number.
const wchar_t* Number(std::uintptr_t number) {
  return std::bit_cast<const wchar_t*>(number);
}

HRSRC FindBlock(HINSTANCE module, unsigned int id, LANGID language) {
  const auto* const stringTable = Number(6);
  for (const LANGID asked : {language, kEnglish, kAnyLanguage})
    if (const HRSRC found = FindResourceExW(module, stringTable, Number(id / 16 + 1), asked)) return found;
  return nullptr;
}

// The entry at `index` of a block, where each is a length and so many units. Never reads behind the block.
std::wstring_view Entry(std::wstring_view block, unsigned int index) {
  for (; !block.empty(); --index) {
    const std::size_t length = std::min<std::size_t>(static_cast<std::size_t>(block[0]), block.size() - 1);
    if (index == 0) return block.substr(1, length);
    block.remove_prefix(1 + length);
  }
  return {};
}

CString FindText(HINSTANCE module, unsigned int id, LANGID language) {
  if (id > kLargestId) return {};  // its block would have no number
  const HRSRC found = FindBlock(module, id, language);
  const void* const block = LockResource(LoadResource(module, found));
  if (!block) return {};
  const std::size_t units = SizeofResource(module, found) / 2;
  return CString(Entry({static_cast<const wchar_t*>(block), units}, id % 16));
}

}  // namespace

constinit Qel::List<TTerm> TTermsList;

CString LoadString(unsigned int id, HINSTANCE module, int lang) {
  if (!module) module = s_DefaultModule;
  if (!module) QEL_RAISE(res_exception, L"Resource library not loaded in 'LoadString'");
  CString text = FindText(module, id, LanguageOf(lang));
  return ReplaceTerms(text);
}

CString ResStr(unsigned int id, int lang) {
  return LoadString(id, nullptr, lang);
}

CString LibResStr(unsigned int id, HINSTANCE module, int lang) {
  return LoadString(id, module, lang);
}

void SetDefaultResourceInstance(HINSTANCE module) noexcept {
  s_DefaultModule = module;
}

HINSTANCE GetDefaultResourceInstance() noexcept {
  return s_DefaultModule;
}

HINSTANCE GetLibraryResourceInstance() noexcept {
  return LibraryModule();
}

void SetInterfaceLanguage(int index) noexcept {
  s_InterfaceLanguage = index;
}

bool AddStringTable(HINSTANCE module, unsigned short langId, const StringEntry* entries, std::size_t count) {
  if (!module || !entries) return false;
  return std::all_of(entries, entries + count, [&](const StringEntry& entry) {
    return RegisterString(module, langId, entry.id, entry.text);
  });
}

CString& ReplaceTerms(CString& text) {
  for (int i = 0; i < TTermsList.GetCount(); ++i) text.Replace(TTermsList[i].term, TTermsList[i].replacement);
  return text;
}

}  // namespace Qel::Sys::Text
