#include "metrics_file.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "bugtrap.h"
#include "markup_entity.h"
#include "metrics_log.h"
#include "platform/platform.h"
#include "utf8.h"

namespace {

constexpr std::string_view kStart =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!--\n This report was automatically generated\n by QelBugTrap for Win32-x86 on ";
constexpr std::string_view kInfo = " -->\n\n<metrics version=\"1.6\">\n  <info>\n";
constexpr std::string_view kEvents = "  </info>\n  <events>\n";
constexpr std::string_view kEvent = "    <event>\n";
constexpr std::string_view kEventsEnd = "  </events>\n";
constexpr std::string_view kEnd = "  </events>\n</metrics>\n";

// Whether the log itself could have written these bytes.
bool IsCleanText(std::string_view text) {
  return utf16_to_utf8(Qel::FromUtf8(text).View()) == text;
}

bool IsPropertyName(std::string_view name) {
  const CString wide = Qel::FromUtf8(name);
  const bool startsRight = !name.empty() && !(name[0] >= '0' && name[0] <= '9');
  return startsRight && TBTLogBase::FixTagName(wide) == wide.View();
}

// The text behind the five entities; nothing when another "&", or one of the characters themselves, stands there.
std::optional<std::string> Unescaped(std::string_view text) {
  std::string plain;
  for (;;) {
    const std::size_t at = std::min(text.find_first_of("\"&'<>"), text.size());
    plain += text.substr(0, at);
    text.remove_prefix(at);
    if (text.empty()) return plain;
    const auto isEntity = [&](char ch) {
      const std::wstring_view entity = Qel::Sys::Text::MarkupEntity(static_cast<wchar_t>(ch));
      return text.starts_with(std::string(entity.begin(), entity.end()));
    };
    constexpr std::string_view kMarkup = "\"&'<>";
    const auto* const found = std::find_if(kMarkup.begin(), kMarkup.end(), isEntity);
    if (found == kMarkup.end()) return std::nullopt;
    plain += *found;
    text.remove_prefix(text.find(';') + 1);
  }
}

// Reads forward. What does not match leaves the position where it is.
class Reader {
 public:
  explicit Reader(std::string_view text) : m_Text(text) {}

  std::size_t At() const { return m_At; }
  bool AtEnd() const { return m_At == m_Text.size(); }
  std::string_view Rest() const { return m_Text.substr(m_At); }

  // How far anything that was tried since Begin() has matched; the end of the text when more of it was needed.
  std::size_t Failed() const { return m_Failed; }
  bool NeededMore() const { return m_Failed == m_Text.size(); }
  void Begin() { m_Failed = m_At; }
  bool Fail(std::size_t at) {
    m_Failed = std::max(m_Failed, at);
    return false;
  }

  bool Take(std::string_view expected) {
    const std::string_view rest = Rest().substr(0, expected.size());
    const auto [stop, wanted] = std::mismatch(rest.begin(), rest.end(), expected.begin());
    if (wanted != expected.end()) return Fail(m_At + static_cast<std::size_t>(stop - rest.begin()));
    m_At += expected.size();
    return true;
  }

  // What stands before `end`, which is taken too.
  bool TakeUpTo(char end, std::string_view& text) {
    const std::size_t found = m_Text.find(end, m_At);
    if (found == m_Text.npos) return Fail(m_Text.size());
    text = m_Text.substr(m_At, found - m_At);
    if (!IsCleanText(text)) return Fail(m_At);
    m_At = found + 1;
    return true;
  }

  // A line "<name>value</name>" with so many blanks in front. Any name will do when `name` is empty.
  bool TakeElement(std::size_t blanks, std::string_view name, TMetricsEntry& entry) {
    const std::size_t start = m_At;
    const bool taken = Take(std::string(blanks, ' ')) && TakeElement(name, entry);
    if (!taken) m_At = start;
    return taken;
  }

  // From the piece at `start`, which failed, to the next line that begins an event or ends them all, else to the end.
  void SkipDamage(std::size_t start) {
    const std::size_t line = m_Text.rfind('\n', m_Failed - 1) + 1;  // it may itself be such a line
    m_At = line > start ? line : m_Failed;
    while (!AtEnd()) {
      const bool lineStarts = m_At > 0 && m_Text[m_At - 1] == '\n';
      if (lineStarts && (Rest().starts_with(kEvent) || Rest().starts_with(kEventsEnd))) return;
      m_At = std::min(m_Text.find('\n', m_At), m_Text.size() - 1) + 1;
    }
  }

 private:
  bool TakeElement(std::string_view name, TMetricsEntry& entry) {
    std::string_view found, value;
    if (!Take("<")) return false;
    const std::size_t nameAt = m_At;
    if (!TakeUpTo('>', found)) return false;
    if (name.empty() ? !IsPropertyName(found) : found != name) return Fail(nameAt);
    const std::size_t valueAt = m_At;
    if (!TakeUpTo('<', value)) return false;
    std::optional<std::string> plain = Unescaped(value);
    if (!plain) return Fail(valueAt);
    entry = {std::string(found), std::move(*plain)};
    return Take("/" + entry.name + ">\n");
  }

  const std::string_view m_Text;
  std::size_t m_At = 0;
  std::size_t m_Failed = 0;
};

// What is in a file, and which of its bytes are whole lines of the log.
class Parser {
 public:
  explicit Parser(std::string_view content) : m_Content(content), m_Reader(content) {
    if (!ReadHead()) {
      m_File.info.clear();
      Note(m_Reader.NeededMore() ? TMetricsProblem::HeadCutOff : TMetricsProblem::NotMetrics,
           m_Reader.Failed());
      return;
    }
    m_Whole = m_Content.substr(0, m_Reader.At());
    ReadEvents();
  }

  TMetricsFile& File() { return m_File; }
  // Without the closing lines; empty when the head is not whole.
  const std::string& Whole() const { return m_Whole; }

 private:
  bool ReadHead() {
    std::string_view time;
    if (!m_Reader.Take(kStart)) return false;
    const std::size_t at = m_Reader.At();
    if (!m_Reader.TakeUpTo('\n', time)) return false;
    // A comment takes no "--".
    if (time.find_first_not_of("0123456789-") != time.npos || time.find("--") != time.npos)
      return m_Reader.Fail(at);
    if (!m_Reader.Take(kInfo)) return false;
    for (TMetricsEntry entry; !m_Reader.Take(kEvents); m_File.info.push_back(entry))
      if (!m_Reader.TakeElement(4, "", entry)) return false;
    return true;
  }

  void ReadEvents() {
    while (!m_Reader.Take(kEnd)) {
      if (kEnd.starts_with(m_Reader.Rest())) return Note(TMetricsProblem::Unclosed, m_Content.size());
      TMetricsEvent event;
      const std::size_t start = m_Reader.At();
      m_Reader.Begin();
      if (ReadEvent(event)) {
        m_File.events.push_back(std::move(event));
        m_Whole += m_Content.substr(start, m_Reader.At() - start);
        continue;
      }
      Note(m_Reader.NeededMore() ? TMetricsProblem::CutOff : TMetricsProblem::Damaged, m_Reader.Failed());
      ++m_File.dropped;
      m_Reader.SkipDamage(start);
      if (m_Reader.AtEnd()) return;
    }
    if (m_Reader.AtEnd()) return;
    Note(TMetricsProblem::LeftOver, m_Reader.At());
    ++m_File.dropped;
  }

  bool ReadEvent(TMetricsEvent& event) {
    const auto field = [&](std::string_view name, std::string& value) {
      TMetricsEntry entry;
      const bool taken = m_Reader.TakeElement(6, name, entry);
      value = std::move(entry.value);
      return taken;
    };
    if (!m_Reader.Take(kEvent) || !field("name", event.name) || !field("timestamp", event.timestamp) ||
        !field("loglevel", event.level) || !field("duration", event.duration))
      return false;
    if (!m_Reader.Take("      <Properties>\n")) return false;
    for (TMetricsEntry entry; !m_Reader.Take("      </Properties>\n"); event.properties.push_back(entry))
      if (!m_Reader.TakeElement(8, "", entry)) return false;
    return m_Reader.Take("    </event>\n");
  }

  void Note(TMetricsProblem problem, std::size_t at) {
    if (m_File.problem != TMetricsProblem::None) return;
    const std::string_view before = m_Content.substr(0, at);
    const std::string_view line = before.substr(before.rfind('\n') + 1);
    const auto beginsCharacter = [](char byte) { return (byte & 0xC0) != 0x80; };
    m_File.problem = problem;
    m_File.line = static_cast<int>(std::count(before.begin(), before.end(), '\n')) + 1;
    m_File.column = static_cast<int>(std::count_if(line.begin(), line.end(), beginsCharacter)) + 1;
  }

  const std::string_view m_Content;
  Reader m_Reader;
  TMetricsFile m_File;
  std::string m_Whole;
};

long ReadContent(const wchar_t* path, std::vector<BYTE>& bytes, std::string_view& content) {
  const LONG status = ReadWholeFile(path, bytes);
  content = {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
  return status;
}

}  // namespace

TMetricsFile ParseMetrics(std::string_view content) {
  return std::move(Parser(content).File());
}

std::string RepairMetrics(std::string_view content) {
  const std::string whole = Parser(content).Whole();
  return whole.empty() ? whole : whole + std::string(kEnd);
}

long ReadMetricsFile(const wchar_t* path, TMetricsFile& file) {
  std::vector<BYTE> bytes;
  std::string_view content;
  if (const long status = ReadContent(path, bytes, content)) return status;
  file = ParseMetrics(content);
  return 0;
}

long RepairMetricsFile(const wchar_t* from, const wchar_t* to, TMetricsFile& file) {
  constexpr long kInvalidData = 13;
  std::vector<BYTE> bytes;
  std::string_view content;
  if (const long status = ReadContent(from, bytes, content)) return status;
  Parser parser(content);
  file = std::move(parser.File());
  if (parser.Whole().empty()) return kInvalidData;
  const std::string closed = parser.Whole() + std::string(kEnd);
  return WriteWholeFile(to, reinterpret_cast<const BYTE*>(closed.data()), closed.size());
}
