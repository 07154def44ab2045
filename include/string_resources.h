// Texts by number, in the user's language: the library's own (day and month names) and a host's.
//
//   SetDefaultResourceInstance(module);                          // once, at start-up
//   CString title = ResStr(1200);                                // in the current language
//   CString day = LibResStr(155, GetLibraryResourceInstance());  // one of the library's own
//
// The library's texts are the days 155-161 (Sunday first), the Gregorian months 195-206 with their second set
// 230-241, and the Hijri months 207-218; resources/ has them in every language of the table below.
//
// A language index stands for a language identifier: 0 English 1033, 1 Arabic 0x2801, 2 French 1036,
// 3 Russian 1049, 4 Croatian 1050, 5 Turkish 1055, 6 Portuguese 1046, 7 Chinese 2052. Any other index is
// English, but for -1: the current language, which is SysFormat.ResLangId unless SetInterfaceLanguage has
// chosen one.
//
// Nothing here has a lock. Set module, language, terms and tables while the host starts; afterwards texts may
// be loaded from several threads as long as TTermsList is empty.
#ifndef QEL_STRING_RESOURCES_H
#define QEL_STRING_RESOURCES_H

#include <cstddef>

#include "list.h"
#include "platform_types.h"
#include "qel_cstring.h"
#include "qel_export.h"
#include "tstring.h"

// The system has a macro of this name, which would rename the function in programs that include windows.h.
#pragma push_macro("LoadString")
#undef LoadString

namespace Qel::Sys::Text {

// The text `id` of `module`, null being the default module, in the language with index `lang`, with the terms
// replaced. A language that lacks the block of sixteen ids around `id` gives way to 1033, and that to any.
// Empty when there is no such text. Raises res_exception when both modules are null.
// Kept: a block that is there with an empty entry gives the empty text, not the English one, because
// translators blank a text so.
QEL_API CString LoadString(unsigned int id, HINSTANCE module = nullptr, int lang = -1);

// What calls to LoadString turn into where that macro is in force.
inline CString LoadStringW(unsigned int id, HINSTANCE module = nullptr, int lang = -1) {
  return LoadString(id, module, lang);
}
inline CString LoadStringA(unsigned int id, HINSTANCE module = nullptr, int lang = -1) {
  return LoadString(id, module, lang);
}

// LoadString from the default module, and from `module`.
QEL_API CString ResStr(unsigned int id, int lang = -1);
QEL_API CString LibResStr(unsigned int id, HINSTANCE module, int lang = -1);

// The module that holds the host's texts; null until set. It is not owned.
QEL_API void SetDefaultResourceInstance(HINSTANCE module) noexcept;
QEL_API HINSTANCE GetDefaultResourceInstance() noexcept;

// The module that holds the library's own texts; never null.
QEL_API HINSTANCE GetLibraryResourceInstance() noexcept;

// Makes the language with this index the current one; -1 leaves it to SysFormat.ResLangId again.
QEL_API void SetInterfaceLanguage(int index) noexcept;

struct StringEntry {
  unsigned short id;
  const wchar_t* text;  // null counts as empty
};

// Gives a module of the host its texts in one language, copied; texts of earlier calls stay unless their id
// comes again. `module` is any address of the host's own, cast. Returns whether the texts are in use: false
// when `module` or `entries` is null, and always on Windows, where a module carries its texts as resources.
QEL_API bool AddStringTable(HINSTANCE module, unsigned short langId, const StringEntry* entries,
                            std::size_t count);

// A word of the texts and what the product calls it.
struct TTerm {
  TString term, replacement;
  friend bool operator==(const TTerm& a, const TTerm& b) noexcept {
    return a.term == b.term && a.replacement == b.replacement;
  }
};

// The terms that are replaced in every loaded text. The host's to fill; empty by default.
extern QEL_API Qel::List<TTerm> TTermsList;

// Replaces every occurrence of each term in `text`, in the order of the list, without looking at replaced
// text again for the same term. An empty term replaces nothing. Returns `text`.
QEL_API CString& ReplaceTerms(CString& text);

}  // namespace Qel::Sys::Text

#pragma pop_macro("LoadString")

#endif  // QEL_STRING_RESOURCES_H
