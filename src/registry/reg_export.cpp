#include <algorithm>
#include <memory>

#include "registry/name_limits.h"
#include "registry/reg_text.h"

namespace {

constexpr long kNotFound = 2, kBadPath = 161, kMoreData = 234, kNoMoreItems = 259, kKeyDeleted = 1018;
constexpr std::size_t kLineLength = 76;  // then a line of bytes is broken behind its comma

// Whether nothing is left to write, be it that others deleted it meanwhile.
bool IsEnd(long status) {
  return status == kNoMoreItems || status == kNotFound || status == kKeyDeleted;
}

class Exporter {
 public:
  // `path` names the key from its root.
  long Write(const std::wstring& path, HKEY root, const wchar_t* below) {
    m_Text.append(kRegTextSignature).append(L"\r\n");
    if (const long status = Descend(root, below, path)) return status;
    while (!m_Levels.empty()) {
      Level& level = m_Levels.back();
      wchar_t name[kKeyNameRoom];
      long status = level.key->EnumKey(level.next++, name, kKeyNameRoom);
      if (status == 0)
        status = Descend(*level.key, name, level.path + L'\\' + name);
      else
        m_Levels.pop_back();
      if (status != 0 && !IsEnd(status)) return status;
    }
    m_Text += L"\r\n";
    return 0;
  }

  std::vector<BYTE> File() const {
    std::vector<BYTE> file(2 + m_Text.size() * 4);  // a caller's element may stand for two units
    file[0] = 0xFF;
    file[1] = 0xFE;
    const DWORD room = static_cast<DWORD>(file.size() - 2);
    file.resize(2 + BytesFromUnits(file.data() + 2, room, m_Text.data(), m_Text.size()));
    return file;
  }

 private:
  // Keys from the first one to that which is being written. Not recursive: a tree may be deeper than the stack.
  struct Level {
    std::unique_ptr<TRegKey> key;
    std::wstring path;
    int next;  // sub-key
  };

  long Descend(HKEY parent, const wchar_t* name, const std::wstring& path) {
    HKEY key = nullptr;
    if (const long status = RegOpenKeyExW(parent, name, 0, KEY_READ, &key)) return status;
    m_Levels.push_back({std::make_unique<TRegKey>(key, true, L""), path, 0});
    if (path.find_first_of(L"\r\n") != path.npos) return kInvalidData;
    m_Text.append(L"\r\n[").append(path).append(L"]\r\n");
    return WriteValues(key);
  }

  long WriteValues(HKEY key) {
    for (DWORD index = 0;; ++index) {
      DWORD length = kValueNameRoom, type = 0, size = static_cast<DWORD>(m_Data.size());
      const long status =
          RegEnumValueW(key, index, m_Name.data(), &length, nullptr, &type, m_Data.data(), &size);
      if (status == kMoreData) {
        m_Data.resize(std::size_t{size} * 2);
        --index;
        continue;
      }
      if (status != 0) return IsEnd(status) ? 0 : status;
      WriteValue(std::wstring_view(m_Name.data(), length), type, size);
    }
  }

  void WriteValue(std::wstring_view name, DWORD type, DWORD size) {
    const std::size_t lineStart = m_Text.size();
    if (name.empty())
      m_Text += L'@';
    else
      WriteQuoted(name);
    m_Text += L'=';
    std::wstring text;
    if (type == REG_SZ && IsPlainText(size, text))
      WriteQuoted(text);
    else if (type == REG_DWORD && size == 4)
      WriteNumber();
    else
      WriteBytes(type, size, lineStart);
    m_Text += L"\r\n";
  }

  void WriteQuoted(std::wstring_view text) {
    m_Text += L'"';
    for (const wchar_t unit : text) {
      if (unit == L'\\' || unit == L'"' || unit == L'\n' || unit == L'\r') m_Text += L'\\';
      m_Text += unit == L'\n' ? L'n' : unit == L'\r' ? L'r' : unit;
    }
    m_Text += L'"';
  }

  // Terminated once, at its end, and without what would need an escape that not every reader knows.
  bool IsPlainText(DWORD size, std::wstring& text) const {
    if (size < 2 || size % 2 != 0) return false;
    text.resize(size / 2);
    UnitsFromBytes(text.data(), text.size(), m_Data.data(), size);
    if (text.back() != L'\0') return false;
    text.pop_back();
    for (const wchar_t unit : text)
      if (unit < L' ') return false;
    return true;
  }

  void WriteHex(unsigned int value, int digits) {
    for (int shift = (digits - 1) * 4; shift >= 0; shift -= 4)
      m_Text += L"0123456789abcdef"[value >> shift & 0xF];
  }
  void WriteNumber() {
    m_Text += L"dword:";
    for (int i = 3; i >= 0; --i) WriteHex(m_Data[static_cast<std::size_t>(i)], 2);
  }
  void WriteBytes(DWORD type, DWORD size, std::size_t lineStart) {
    m_Text += L"hex";
    if (type != REG_BINARY) {
      m_Text += L'(';
      WriteHex(type, HexDigits(type));
      m_Text += L')';
    }
    m_Text += L':';
    for (DWORD i = 0; i < size; ++i) {
      if (i > 0) m_Text += L',';
      if (i > 0 && m_Text.size() - lineStart > kLineLength) {
        m_Text += L"\\\r\n";
        lineStart = m_Text.size();
        m_Text += L"  ";
      }
      WriteHex(m_Data[i], 2);
    }
  }
  static int HexDigits(DWORD value) {
    int digits = 1;
    while (value >>= 4) ++digits;
    return digits;
  }

  std::wstring m_Text;
  std::vector<Level> m_Levels;
  std::vector<wchar_t> m_Name = std::vector<wchar_t>(kValueNameRoom);
  std::vector<BYTE> m_Data = std::vector<BYTE>(4096);
};

}  // namespace

long ExportRegistry(const wchar_t* key, const wchar_t* path) {
  std::wstring_view below;
  const RegRoot* const root = FindRegRoot(key ? key : L"", below);
  if (!root) return kBadPath;
  std::wstring name(root->name);
  // A "\" at the end and doubled ones do not count when a key is opened, and no line may have them.
  for (std::size_t at = 0; at < below.size();) {
    const std::size_t end = std::min(below.find(L'\\', at), below.size());
    if (end > at) name.append(L"\\").append(below.substr(at, end - at));
    at = end + 1;
  }
  Exporter exporter;
  if (const long status = exporter.Write(name, root->key, std::wstring(below).c_str())) return status;
  const std::vector<BYTE> file = exporter.File();
  return WriteWholeFile(path, file.data(), file.size());
}
