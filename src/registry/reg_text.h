// What the text form of the registry says, as a list of changes.
#ifndef QEL_REGISTRY_REG_TEXT_H
#define QEL_REGISTRY_REG_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"
#include "regtools.h"

constexpr std::wstring_view kRegTextSignature = L"Windows Registry Editor Version 5.00";
constexpr long kInvalidData = 13;

struct RegRoot {
  HKEY key;
  std::wstring_view name, shortName;
};
// The root at the start of `path`, or null; `below` becomes what follows its "\".
const RegRoot* FindRegRoot(std::wstring_view path, std::wstring_view& below);

// Values belong to the last key that was made.
struct RegChange {
  enum class Kind { MakeKey, DeleteKey, SetValue, DeleteValue };

  Kind kind;
  std::size_t at;       // where it stands in the text
  const RegRoot* root;  // of keys
  std::wstring name;    // of a key below the root, which may be empty; or of a value
  DWORD type;           // of a value
  std::vector<BYTE> data;

  bool IsOfKey() const { return kind == Kind::MakeKey || kind == Kind::DeleteKey; }
};

// False, told in `report`, at the first line that is bad.
bool ParseRegText(std::wstring_view text, std::vector<RegChange>& changes, TRegImportReport& report);

// Line and column, from 1, of a place in the text.
void SetPlace(TRegImportReport& report, std::wstring_view text, std::size_t at);

#endif  // QEL_REGISTRY_REG_TEXT_H
