// The lines of the metrics log, rendered once for two readers: hosts get wide text exactly as it is, the file gets
// UTF-8 that XML can hold.
#ifndef QEL_METRICS_TEXT_H
#define QEL_METRICS_TEXT_H

#include <algorithm>
#include <charconv>
#include <iterator>
#include <string>
#include <string_view>
#include <type_traits>

#include "bugtrap.h"
#include "markup_entity.h"
#include "metrics_log.h"
#include "padded_number.h"

class WideOutput {
 public:
  void Put(std::wstring_view text) { m_Text += text; }
  // Plain ASCII.
  void Put(std::string_view text) { m_Text.append(text.begin(), text.end()); }
  void PutBlanks(std::size_t count) { m_Text.append(count, L' '); }
  const std::wstring& Text() const { return m_Text; }

 private:
  std::wstring m_Text;
};

// Appends to `bytes`.
class FileOutput {
 public:
  explicit FileOutput(std::string& bytes) : m_Bytes(bytes) {}

  void Put(std::string_view text) { m_Bytes += text; }
  void PutBlanks(std::size_t count) { m_Bytes.append(count, ' '); }
  // Hardly any text is not plain ASCII, which is narrowed in one pass.
  void Put(std::wstring_view text) {
    const std::size_t end = m_Bytes.size();
    m_Bytes.resize(end + text.size());
    bool plain = true;
    for (std::size_t i = 0; i < text.size(); ++i) {
      plain &= text[i] >= L' ' && text[i] < 0x7F;
      m_Bytes[end + i] = static_cast<char>(text[i]);
    }
    if (plain) return;
    m_Bytes.resize(end);
    m_Bytes += utf16_to_utf8(text);
  }

 private:
  std::string& m_Bytes;
};

class TMetricsText {
 public:
  template <class Output>
  static void PutEscaped(Output& out, std::wstring_view text) {
    const auto isMarkup = [](wchar_t ch) { return ch <= L'>' && !Qel::Sys::Text::MarkupEntity(ch).empty(); };
    for (;;) {
      const auto markup = std::find_if(text.begin(), text.end(), isMarkup);
      const auto plain = static_cast<std::size_t>(markup - text.begin());
      out.Put(text.substr(0, plain));
      if (markup == text.end()) return;
      out.Put(Qel::Sys::Text::MarkupEntity(*markup));
      text.remove_prefix(plain + 1);
    }
  }

  template <class Output>
  static void PutValue(Output& out, const TBTEventValue& value) {
    const auto put = [&out](const auto& held) {
      if constexpr (std::is_same_v<std::decay_t<decltype(held)>, std::wstring>)
        PutEscaped(out, held);
      else
        PutNumber(out, held);
    };
    std::visit(put, value.m_Value);
  }

  // "<name>", what `put` writes, "</name>" as a line.
  template <class Output, class Char, class PutContent>
  static void PutElement(Output& out, int level, std::basic_string_view<Char> name, PutContent put) {
    PutSpaces(out, level);
    out.Put(std::string_view("<"));
    out.Put(name);
    out.Put(std::string_view(">"));
    put();
    out.Put(std::string_view("</"));
    out.Put(name);
    out.Put(std::string_view(">\n"));
  }

  template <class Output>
  static void PutEvent(Output& out, int level, const TBTEvent& event) {
    const auto line = [&](int depth, std::string_view text) {
      PutSpaces(out, level + depth);
      out.Put(text);
    };
    line(0, "<event>\n");
    PutElement(out, level + 1, std::string_view("name"), [&] { PutEscaped(out, event.m_Name); });
    PutElement(out, level + 1, std::string_view("timestamp"), [&] { PutTime(out, event.m_StartTime); });
    PutElement(out, level + 1, std::string_view("loglevel"), [&] { out.Put(LevelName(event.m_Level)); });
    PutElement(out, level + 1, std::string_view("duration"), [&] { PutNumber(out, event.m_Duration); });
    line(1, "<Properties>\n");
    for (const auto& [key, value] : event.m_Properties)
      PutElement(out, level + 2, std::wstring_view(key), [&, held = &value] { PutValue(out, *held); });
    line(1, "</Properties>\n");
    line(0, "</event>\n");
  }

  // What GetTimeStamp and GetLevelName give.
  template <class Output>
  static void PutTime(Output& out, const SYSTEMTIME& time) {
    char text[48];
    char* end = text;
    for (const unsigned number : {time.wYear % 100U, unsigned{time.wMonth}, unsigned{time.wDay}})
      end = Qel::Sys::Text::WritePadded(end, number, 2);
    *end++ = '-';
    for (const unsigned number : {time.wHour, time.wMinute, time.wSecond})
      end = Qel::Sys::Text::WritePadded(end, number, 2);
    end = Qel::Sys::Text::WritePadded(end, time.wMilliseconds, 4);
    out.Put(std::string_view(text, static_cast<std::size_t>(end - text)));
  }
  static std::wstring_view LevelName(ABT_LOGLEVEL level);

 private:
  template <class Output>
  static void PutSpaces(Output& out, int level) {
    if (level > 0) out.PutBlanks(2 * static_cast<std::size_t>(level));
  }

  // As a stream of the classic locale writes it.
  template <class Output, class Number>
  static void PutNumber(Output& out, Number number) {
    char digits[32];
    char* end;
    if constexpr (std::is_floating_point_v<Number>)
      end = std::to_chars(digits, std::end(digits), number, std::chars_format::general, 6).ptr;
    else
      end = std::to_chars(digits, std::end(digits), number).ptr;
    out.Put(std::string_view(digits, static_cast<std::size_t>(end - digits)));
  }
};

#endif  // QEL_METRICS_TEXT_H
