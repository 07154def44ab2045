#include <algorithm>
#include <cstdlib>
#include <cwchar>
#include <fstream>
#include <string>
#include <string_view>

#include "code_page.h"
#include "platform/linux/user_folders.h"
#include "platform/platform.h"

namespace {

constexpr std::size_t kPathRoom = 260;  // units, terminator included
constexpr HRESULT kInvalidArgument = static_cast<HRESULT>(0x80070057);
constexpr HRESULT kNoSuchFolder = static_cast<HRESULT>(0x80070003);

// The text between the quotes at the start of `quoted`, where "\" stands before a character taken as it is.
std::string Unquoted(std::string_view quoted) {
  std::string text;
  for (std::size_t i = 1; i < quoted.size() && quoted[i] != '"'; ++i) {
    if (quoted[i] == '\\' && i + 1 < quoted.size()) ++i;
    text += quoted[i];
  }
  return text;
}

// The desktop's file has lines such as XDG_DOCUMENTS_DIR="$HOME/Documents" or ="/srv/documents"; the last one
// counts. Empty when it names no folder.
std::string DocumentsOfDesktop(const std::string& home) {
  constexpr std::string_view kName = "XDG_DOCUMENTS_DIR=", kHome = "\"$HOME/";
  std::ifstream file(ConfigFolder() + "/user-dirs.dirs");
  std::string folder;
  for (std::string line; std::getline(file, line);) {
    std::string_view value(line);
    value.remove_prefix(std::min(value.find_first_not_of(" \t"), value.size()));
    if (!value.starts_with(kName)) continue;
    value.remove_prefix(kName.size());
    if (value.starts_with(kHome))
      folder = home + Unquoted(value.substr(kHome.size() - 2));
    else if (value.starts_with("\"/"))
      folder = Unquoted(value);
  }
  while (folder.size() > 1 && folder.ends_with('/')) folder.pop_back();
  return folder;
}

// Empty without a home.
std::string Documents() {
  const std::string home = HomeFolder();
  std::string folder = home.empty() ? "" : DocumentsOfDesktop(home);
  if (folder.empty() && !home.empty()) folder = home + "/Documents";
  return folder;
}

// Paths taken apart and put together again, name by name.
class Canonical {
 public:
  explicit Canonical(std::wstring_view path) {
    const std::size_t root = RootLength(path);
    m_Path = path.substr(0, root);
    m_Root = m_Path.size();
    for (std::size_t at = root; at <= path.size();) {
      const std::size_t end = std::min(path.find(L'\\', at), path.size());
      Add(path.substr(at, end - at), end == path.size());
      at = end + 1;
    }
    const bool drive = m_Path.size() == 2 && m_Path[1] == L':';
    if (m_Path.empty() || drive) m_Path += L'\\';
  }

  const std::wstring& Path() const { return m_Path; }

  // What ".." never takes away: "C:\", "\\server", "\\?\C:\" or "\" in front.
  static std::size_t RootLength(std::wstring_view path) {
    const std::size_t prefix = path.starts_with(L"\\\\?\\") ? 4 : 0;
    if (path.size() >= prefix + 2 && path[prefix + 1] == L':') {
      const bool separated = path.size() > prefix + 2 && path[prefix + 2] == L'\\';
      return prefix + (separated ? 3 : 2);
    }
    if (path.starts_with(L"\\\\")) return std::min(path.find(L'\\', 2), path.size());
    return path.starts_with(L'\\') ? 1 : 0;
  }

 private:
  void Add(std::wstring_view name, bool last) {
    if (name == L"..") {
      GoUp();
    } else if (name != L"." || last) {
      if (m_Separate) m_Path += L'\\';
      m_Path += name;
      m_Separate = true;
    }
  }

  void GoUp() {
    const std::size_t name = m_Path.rfind(L'\\');
    const std::size_t kept = name == m_Path.npos ? 0 : name;
    m_Path.resize(std::max(kept, m_Root));
    m_Separate = !m_Path.ends_with(L'\\');
  }

  std::wstring m_Path;
  std::size_t m_Root = 0;
  bool m_Separate = false;  // before the next name
};

// Whether the path stands for itself, whatever it is appended to.
bool IsWhole(std::wstring_view path) {
  return path.starts_with(L"\\\\") || (path.size() > 1 && path[1] == L':');
}

std::wstring Joined(std::wstring path, std::wstring_view more) {
  if (!IsWhole(more)) more.remove_prefix(std::min(more.find_first_not_of(L'\\'), more.size()));
  if (more.empty()) return path;
  if (path.empty() || IsWhole(more)) return std::wstring(more);
  if (!path.ends_with(L'\\')) path += L'\\';
  return path.append(more);
}

// What a path with one "\" in front starts from: the drive or the share that `folder` is of.
std::wstring_view VolumeOf(std::wstring_view folder) {
  const bool share = folder.starts_with(L"\\\\") && !folder.starts_with(L"\\\\?\\");
  if (!share) return folder.substr(0, Canonical::RootLength(folder));
  const std::size_t server = std::min(folder.find(L'\\', 2), folder.size());
  return folder.substr(0, folder.find(L'\\', server + 1));
}

// Into room for 260 units. False, with an empty path, when it does not fit.
bool PutCanonical(wchar_t* out, const std::wstring& path) {
  const std::wstring canonical = Canonical(path).Path();
  const bool fits = canonical.size() < kPathRoom;
  *std::copy_n(canonical.begin(), fits ? canonical.size() : 0, out) = L'\0';
  return fits;
}

}  // namespace

HRESULT SHGetSpecialFolderLocation(void*, int folder, LPITEMIDLIST* list) {
  *list = nullptr;
  if (folder != CSIDL_PERSONAL && folder != CSIDL_LOCAL_APPDATA) return kInvalidArgument;
  const std::wstring path = Decode(CP_UTF8, folder == CSIDL_PERSONAL ? Documents() : StateFolder());
  if (path.empty()) return kNoSuchFolder;
  void* const memory = std::malloc((path.size() + 1) * sizeof(wchar_t));
  if (!memory) return kNoSuchFolder;
  std::wmemcpy(static_cast<wchar_t*>(memory), path.c_str(), path.size() + 1);
  *list = static_cast<LPITEMIDLIST>(memory);
  return 0;
}

BOOL SHGetPathFromIDListW(const ITEMIDLIST* list, wchar_t* path) {
  *path = L'\0';
  if (!list) return 0;
  const std::wstring_view whole(reinterpret_cast<const wchar_t*>(list));
  if (whole.size() >= kPathRoom) return 0;
  *std::copy(whole.begin(), whole.end(), path) = L'\0';
  return 1;
}

void CoTaskMemFree(void* memory) {
  std::free(memory);
}

BOOL PathAppendW(wchar_t* path, const wchar_t* more) {
  return path && more && PutCanonical(path, Joined(path, more));
}

wchar_t* PathCombineW(wchar_t* path, const wchar_t* folder, const wchar_t* more) {
  std::wstring_view base(folder ? folder : L"");
  const std::wstring_view added(more ? more : L"");
  if (added.starts_with(L'\\') && !IsWhole(added)) base = VolumeOf(base);
  return PutCanonical(path, Joined(std::wstring(base), added)) ? path : nullptr;
}
