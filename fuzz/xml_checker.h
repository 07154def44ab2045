// A small strict judge of XML, for the forms that the library writes: a declaration, comments, and elements of text. It
// accepts nothing that is not well-formed.
#ifndef QEL_FUZZ_XML_CHECKER_H
#define QEL_FUZZ_XML_CHECKER_H

#include <unicode/ustring.h>

#include <string>
#include <string_view>
#include <vector>

class XmlChecker {
 public:
  static bool Accepts(std::string_view bytes) {
    XmlChecker checker;
    return checker.Decode(bytes) && checker.Document();
  }

 private:
  // To characters, each one that XML has.
  bool Decode(std::string_view bytes) {
    for (std::int32_t at = 0, size = static_cast<std::int32_t>(bytes.size()); at < size;) {
      UChar32 ch = 0;
      U8_NEXT(bytes.data(), at, size, ch);
      if (ch < 0 || (ch < 0x20 && ch != 9 && ch != 10 && ch != 13) || ch == 0xFFFE || ch == 0xFFFF)
        return false;
      m_Text += static_cast<char32_t>(ch);
    }
    return Take(U"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
  }

  bool Document() {
    std::vector<std::u32string> open;
    bool root = false;
    while (m_At < m_Text.size()) {
      if (Take(U"<!--")) {
        m_At = m_Text.find(U"--", m_At);
        if (!Take(U"-->")) return false;
      } else if (Take(U"</")) {
        if (open.empty() || Name() != open.back() || !Take(U">")) return false;
        open.pop_back();
      } else if (Take(U"<")) {
        if (open.empty() && root) return false;
        root = true;
        open.push_back(Name());
        if (open.back().empty() || (Take(U" version=\"1.6\"") && open.size() > 1) || !Take(U">"))
          return false;
      } else if (open.empty() ? !Take(U"\n") : !Content()) {
        return false;
      }
    }
    return root && open.empty();
  }

  bool Content() {
    for (const char32_t* entity : {U"&quot;", U"&amp;", U"&apos;", U"&lt;", U"&gt;"})
      if (Take(entity)) return true;
    if (m_Text[m_At] == U'&' || m_Text.compare(m_At, 3, U"]]>") == 0) return false;
    ++m_At;
    return true;
  }

  static bool StartsName(char32_t c) {
    constexpr char32_t kRanges[][2] = {
        {'A', 'Z'},       {'_', '_'},       {'a', 'z'},       {0xC0, 0xD6},     {0xD8, 0xF6},
        {0xF8, 0x2FF},    {0x370, 0x37D},   {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F},
        {0x2C00, 0x2FEF}, {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF}};
    for (const auto& range : kRanges)
      if (c >= range[0] && c <= range[1]) return true;
    return false;
  }

  std::u32string Name() {
    const std::size_t start = m_At;
    const auto goesOn = [&](char32_t c) { return StartsName(c) || (m_At > start && c >= '0' && c <= '9'); };
    while (m_At < m_Text.size() && goesOn(m_Text[m_At])) ++m_At;
    return m_Text.substr(start, m_At - start);
  }

  bool Take(std::u32string_view expected) {
    if (m_At > m_Text.size() || m_Text.compare(m_At, expected.size(), expected) != 0) return false;
    m_At += expected.size();
    return true;
  }

  std::u32string m_Text;
  std::size_t m_At = 0;
};

#endif  // QEL_FUZZ_XML_CHECKER_H
