// Rich text: whatever is added, the document is balanced RTF in ASCII, and a small reader of it finds the text again,
// in lines that end where the text does, at a blank or at their width.
#include <cwchar>
#include <string>
#include <string_view>
#include <vector>

#include "encoding.h"
#include "fuzz.h"
#include "richtext.h"

namespace {

constexpr std::size_t kWidth = 71;

bool IsDropped(wchar_t unit) {
  return (unit < L' ' && unit != L'\t' && unit != L'\n' && unit != L'\r') || (unit >= 0x7F && unit <= 0x9F);
}

// Reads a document to its lines; tables of fonts and colours have no text.
class Reader {
 public:
  explicit Reader(std::wstring_view rtf) : m_Rest(rtf) {
    while (!m_Rest.empty()) ReadOne();
    FUZZ_ASSERT(m_Depth == 0);
  }

  std::vector<std::wstring> lines{1};

 private:
  wchar_t Take() {
    FUZZ_ASSERT(!m_Rest.empty());
    const wchar_t unit = m_Rest.front();
    FUZZ_ASSERT(unit == L'\n' || (unit >= L' ' && unit < 0x7F));
    m_Rest.remove_prefix(1);
    return unit;
  }

  void ReadOne() {
    const wchar_t unit = Take();
    if (unit == L'\\') return ReadEscape();
    if (unit == L'{' || unit == L'}') {
      m_Depth += unit == L'{' ? 1 : -1;
      FUZZ_ASSERT(m_Depth > 0 || (m_Depth == 0 && m_Rest.empty()));
    } else if (unit != L'\n' && m_Depth == 1) {
      lines.back() += unit;
    }
  }

  void ReadEscape() {
    const wchar_t first = Take();
    if (first == L'\'') {
      const char digits[] = {static_cast<char>(Take()), static_cast<char>(Take()), 0};
      const char byte[] = {static_cast<char>(std::stoi(digits, nullptr, 16)), 0};
      lines.back() += Qel::Sys::Text::Encoding::ConvertA2W(byte);
    } else if (first < L'a' || first > L'z') {
      FUZZ_ASSERT(first == L'\\' || first == L'{' || first == L'}');
      lines.back() += first;
    } else {
      ReadWord(first);
    }
  }

  void ReadWord(wchar_t first) {
    std::wstring word(1, first), number;
    while (!m_Rest.empty() && m_Rest[0] >= L'a' && m_Rest[0] <= L'z') word += Take();
    while (!m_Rest.empty() && (m_Rest[0] == L'-' || (m_Rest[0] >= L'0' && m_Rest[0] <= L'9')))
      number += Take();
    if (!m_Rest.empty() && m_Rest[0] == L' ') Take();
    if (word == L"par") lines.emplace_back();
    if (word == L"tab") lines.back() += L'\t';
    if (word != L"u") return;
    FUZZ_ASSERT(Take() == L'?');
    lines.back() += static_cast<wchar_t>(static_cast<char16_t>(std::stoi(number)));
  }

  std::wstring_view m_Rest;
  int m_Depth = 0;
};

// Goes through a text by the lines read from it. Controls that were dropped count for the width of a line.
void ExpectLinesOf(std::wstring_view text, const std::vector<std::wstring>& lines) {
  std::size_t at = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::size_t start = at;
    const auto drop = [&] {
      while (at < text.size() && IsDropped(text[at]) && at - start < kWidth) ++at;
    };
    drop();
    for (const wchar_t unit : lines[i]) {
      FUZZ_ASSERT(at < text.size() && text[at] == unit);
      ++at;
      drop();
    }
    FUZZ_ASSERT(at - start <= kWidth);
    if (i + 1 == lines.size()) break;
    FUZZ_ASSERT(at < text.size());
    const bool pair = text[at] == L'\r' && at + 1 < text.size() && text[at + 1] == L'\n';
    const bool consumed = text[at] == L'\n' || text[at] == L'\r' || text[at] == L' ';
    FUZZ_ASSERT(consumed || at - start >= kWidth - 1);
    at += pair ? 2u : consumed ? 1u : 0u;
  }
  FUZZ_ASSERT(at == text.size());
}

// Runs with every setting, as the first bytes say.
void CheckDocument(const std::uint8_t* data, std::size_t size) {
  TRichText pane;
  std::wstring whole;
  while (size > 8) {
    const std::uint8_t what = data[0];
    const std::size_t length = std::min<std::size_t>(size - 2, data[1]);
    const std::wstring text(Units(data + 2, length).c_str());
    if (what & 1) pane.SetBold(what & 2);
    if (what & 4) pane.SetUnderLine(what & 8);
    if (what & 16) pane.SetParaRTL(what & 32);
    pane.AddString(text.c_str(), what % 5 * 0x10001u - 1, what % 3 * 8, what & 64, what & 128);
    const Reader run(L"{" + std::wstring(TRichText::ParseRichText(text.c_str()).View()) + L"}");
    for (const std::wstring& line : run.lines) (whole += &line == run.lines.data() ? L"" : L"\n") += line;
    data += 2 + length;
    size -= 2 + length;
  }
  std::wstring read;
  for (const std::wstring& line : Reader(pane.GetString().View()).lines) (read += line) += L'\n';
  FUZZ_ASSERT(read == whole + L'\n');
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::wstring text = Units(data, size).c_str();
  ExpectLinesOf(text,
                Reader(L"{" + std::wstring(TRichText::ParseRichText(text.c_str()).View()) + L"}").lines);
  for (const long width : {0L, 1L, 5L})
    for (const CString& line : TRichText::SplitLines(text.c_str(), width))
      FUZZ_ASSERT(width == 0 || line.GetLength() <= std::max(width, 2L));
  CheckDocument(data, size);
  return 0;
}
