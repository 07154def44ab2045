#include <algorithm>

#include "registry/name_limits.h"
#include "registry/reg_text.h"
#include "registry/text_scan.h"

namespace {

using Problem = TRegImportProblem;
using Kind = RegChange::Kind;

const RegRoot kRoots[] = {
    {HKEY_CLASSES_ROOT, L"HKEY_CLASSES_ROOT", L"HKCR"},
    {HKEY_CURRENT_USER, L"HKEY_CURRENT_USER", L"HKCU"},
    {HKEY_LOCAL_MACHINE, L"HKEY_LOCAL_MACHINE", L"HKLM"},
    {HKEY_USERS, L"HKEY_USERS", L"HKU"},
    {HKEY_CURRENT_CONFIG, L"HKEY_CURRENT_CONFIG", L"HKCC"},
};

constexpr bool IsLineEnd(wchar_t ch) {
  return ch == L'\r' || ch == L'\n';
}

bool IsKeyPath(std::wstring_view path) {
  if (path.find(L'\0') != path.npos) return false;
  for (std::size_t end = 0; end != path.npos;) {
    end = path.find(L'\\');
    const std::size_t length = std::min(end, path.size());
    if (length == 0 || length > kLongestKeyName) return false;
    if (end != path.npos) path.remove_prefix(end + 1);
  }
  return true;
}

class Parser {
 public:
  Parser(std::wstring_view text, std::vector<RegChange>& changes, TRegImportReport& report)
      : m_Text(text), m_Changes(changes), m_Report(report) {}

  bool Parse() {
    if (!Skip(kRegTextSignature) || !FinishLine(Problem::NotRegistryText))
      return Fail(0, Problem::NotRegistryText);
    while (SkipToContent())
      if (!(Peek() == L'[' ? ParseKey() : ParseValue())) return false;
    return true;
  }

 private:
  // The end of the text ends its last line too.
  wchar_t Peek() const { return m_At < m_Text.size() ? m_Text[m_At] : L'\n'; }
  bool AtLineEnd() const { return IsLineEnd(Peek()); }
  void SkipBlanks() {
    while (Peek() == L' ' || Peek() == L'\t') ++m_At;
  }
  void SkipToLineEnd() {
    while (!AtLineEnd()) ++m_At;
  }
  bool Skip(std::wstring_view word) {
    if (!IsSameWord(m_Text.substr(m_At, word.size()), word)) return false;
    m_At += word.size();
    return true;
  }
  // Whether anything but blanks, comments and line ends is left.
  bool SkipToContent() {
    for (; m_At < m_Text.size(); ++m_At) {
      SkipBlanks();
      if (Peek() == L';') SkipToLineEnd();
      if (!AtLineEnd()) return true;
    }
    return false;
  }

  bool Fail(std::size_t at, Problem problem) {
    m_Report.problem = problem;
    SetPlace(m_Report, m_Text, at);
    return false;
  }
  bool FinishLine(Problem problem) {
    SkipBlanks();
    return AtLineEnd() || Peek() == L';' ? (SkipToLineEnd(), true) : Fail(m_At, problem);
  }

  // The last bracket of the line is the one that closes, since names may contain it.
  bool ParseKey() {
    const std::size_t start = m_At;
    SkipToLineEnd();
    std::wstring_view path = m_Text.substr(start + 1, m_At - start - 1);
    const std::size_t close = path.rfind(L']');
    if (close == path.npos) return Fail(start, Problem::BadKey);
    m_At = start + 1 + close + 1;
    path = path.substr(0, close);
    const bool deleted = path.starts_with(L'-');
    if (deleted) path.remove_prefix(1);
    std::wstring_view below;
    const RegRoot* const root = FindRegRoot(path, below);
    // A root stays, and stands without a "\".
    const bool whole = root && below.empty() && !path.ends_with(L'\\') && !deleted;
    if (!root || !(whole || IsKeyPath(below))) return Fail(start + 1 + deleted, Problem::BadKey);
    m_HasKey = !deleted;
    m_Changes.push_back({deleted ? Kind::DeleteKey : Kind::MakeKey, start, root, std::wstring(below), 0, {}});
    return FinishLine(Problem::BadKey);
  }

  bool ParseValue() {
    const std::size_t start = m_At;
    RegChange change{Kind::SetValue, start, nullptr, {}, 0, {}};
    if (Peek() == L'"') {
      if (!ParseQuoted(change.name, Problem::BadName)) return false;
    } else if (!Skip(L"@")) {
      return Fail(start, Problem::BadName);
    }
    SkipBlanks();
    if (!Skip(L"=")) return Fail(m_At, Problem::BadName);
    if (change.name.size() > kLongestValueName) return Fail(start, Problem::BadName);
    if (!m_HasKey) return Fail(start, Problem::ValueWithoutKey);
    SkipBlanks();
    if (!ParseData(change)) return false;
    m_Changes.push_back(std::move(change));
    return true;
  }

  bool ParseData(RegChange& change) {
    const std::size_t start = m_At;
    if (Peek() == L'"') return ParseText(change);
    if (Skip(L"-")) {
      change.kind = Kind::DeleteValue;
      return FinishLine(Problem::BadValue);
    }
    if (Skip(L"dword:")) return ParseNumber(change);
    if (!Skip(L"hex")) return Fail(start, Problem::BadValue);
    change.type = REG_BINARY;
    if (Skip(L"(") && !(ParseHex(change.type, 8) && Skip(L")"))) return Fail(m_At, Problem::BadValue);
    if (!Skip(L":")) return Fail(m_At, Problem::BadValue);
    return ParseBytes(change.data) && FinishLine(Problem::BadValue);
  }

  // A text may go over line ends, as the system's editor writes one that contains them.
  bool ParseText(RegChange& change) {
    const std::size_t start = m_At;
    std::wstring text;
    if (!ParseQuoted(text, Problem::BadValue)) return false;
    change.type = REG_SZ;
    for (const wchar_t unit : text + L'\0') {
      change.data.push_back(static_cast<BYTE>(unit & 0xFF));
      change.data.push_back(static_cast<BYTE>(unit >> 8 & 0xFF));
    }
    if (FinishLine(Problem::BadValue)) return true;
    // More likely than a value over several lines is one whose closing mark was forgotten.
    return std::any_of(text.begin(), text.end(), IsLineEnd) ? Fail(start, Problem::UnclosedText) : false;
  }

  bool ParseQuoted(std::wstring& text, Problem problem) {
    const std::size_t start = m_At++;
    for (; m_At < m_Text.size() && m_Text[m_At] != L'"'; ++m_At) {
      const std::size_t at = m_At;
      if (problem == Problem::BadName && AtLineEnd()) break;
      if (m_Text[m_At] == L'\0' || (m_Text[m_At] == L'\\' && !IsEscape(++m_At))) return Fail(at, problem);
      text += at == m_At ? m_Text[at] : Unescaped(m_Text[m_At]);
    }
    return Skip(L"\"") || Fail(start, Problem::UnclosedText);
  }
  bool IsEscape(std::size_t at) const {
    return at < m_Text.size() && std::wstring_view(L"\\\"nr").find(m_Text[at]) != std::wstring_view::npos;
  }
  static wchar_t Unescaped(wchar_t ch) { return ch == L'n' ? L'\n' : ch == L'r' ? L'\r' : ch; }

  bool ParseNumber(RegChange& change) {
    DWORD value = 0;
    SkipBlanks();
    if (!ParseHex(value, 8)) return Fail(m_At, Problem::BadValue);
    change.type = REG_DWORD;
    for (int shift = 0; shift < 32; shift += 8)
      change.data.push_back(static_cast<BYTE>(value >> shift & 0xFF));
    return FinishLine(Problem::BadValue);
  }

  // One to `most` digits.
  bool ParseHex(DWORD& value, int most) {
    const std::size_t start = m_At;
    for (value = 0; most > 0 && HexDigitValue(Peek()) >= 0; --most, ++m_At)
      value = value << 4 | static_cast<DWORD>(HexDigitValue(Peek()));
    return m_At > start;
  }

  // Bytes stand between commas; a "\" behind one of them goes on in the next line that is not empty or a comment.
  bool ParseBytes(std::vector<BYTE>& data) {
    SkipContinuations();
    if (AtLineEnd() || Peek() == L';') return true;
    for (;;) {
      DWORD byte = 0;
      if (!ParseHex(byte, 2)) return Fail(m_At, Problem::BadValue);
      data.push_back(static_cast<BYTE>(byte));
      SkipContinuations();
      if (!Skip(L",")) return true;
      SkipContinuations();
    }
  }
  void SkipContinuations() {
    for (SkipBlanks(); Peek() == L'\\'; SkipBlanks()) {
      const std::size_t start = m_At++;
      SkipBlanks();
      if (Peek() == L';') SkipToLineEnd();
      if (!AtLineEnd() || m_At == m_Text.size()) {
        m_At = start;
        return;
      }
      SkipToContent();
    }
  }

  std::wstring_view m_Text;
  std::vector<RegChange>& m_Changes;
  TRegImportReport& m_Report;
  std::size_t m_At = 0;
  bool m_HasKey = false;
};

}  // namespace

const RegRoot* FindRegRoot(std::wstring_view path, std::wstring_view& below) {
  const std::size_t end = std::min(path.find(L'\\'), path.size());
  const std::wstring_view name = path.substr(0, end);
  below = path.substr(std::min(end + 1, path.size()));
  for (const RegRoot& root : kRoots)
    if (IsSameWord(name, root.name) || IsSameWord(name, root.shortName)) return &root;
  return nullptr;
}

bool ParseRegText(std::wstring_view text, std::vector<RegChange>& changes, TRegImportReport& report) {
  return Parser(text, changes, report).Parse();
}

void SetPlace(TRegImportReport& report, std::wstring_view text, std::size_t at) {
  report.line = 1;
  std::size_t lineStart = 0;
  for (std::size_t i = 0; i < at; ++i) {
    const bool half = text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n';
    if (!IsLineEnd(text[i]) || half) continue;
    ++report.line;
    lineStart = i + 1;
  }
  report.column = static_cast<int>(at - lineStart) + 1;
}
