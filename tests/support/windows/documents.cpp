#include "support/documents.h"

#include <string>

#include "platform/platform.h"
#include "support/temp_registry.h"

// The system looks for the folder below the user's root, which this process then has for itself alone.
void MoveDocuments(const std::filesystem::path& folder) {
  static TempRegistry s_Registry;
  // What kinds of folders there are stands below these.
  for (const HKEY root : {HKEY_CLASSES_ROOT, HKEY_LOCAL_MACHINE}) RegOverridePredefKey(root, nullptr);
  const std::wstring path = folder.wstring();
  for (const wchar_t* kind : {L"Shell Folders", L"User Shell Folders"}) {
    const std::wstring key = std::wstring(L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\") + kind;
    HKEY folders = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, key.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &folders,
                    nullptr);
    RegSetValueExW(folders, L"Personal", 0, REG_SZ, reinterpret_cast<const BYTE*>(path.c_str()),
                   static_cast<DWORD>(2 * (path.size() + 1)));
    RegCloseKey(folders);
  }
}
