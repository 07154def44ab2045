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

class WideOutput {
 public:
  void Put(std::wstring_view text) { m_Text += text; }
  const std::wstring& Text() const { return m_Text; }

 private:
  std::wstring m_Text;
};

// Appends to `bytes`.
class FileOutput {
 public:
  explicit FileOutput(std::string& bytes) : m_Bytes(bytes) {}

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

  template <class Output>
  static void PutLine(Output& out, int level, std::wstring_view text) {
    PutSpaces(out, level);
    out.Put(text);
    out.Put(L"\n");
  }

  // "<name>", what `put` writes, "</name>".
  template <class Output, class PutContent>
  static void PutElement(Output& out, int level, std::wstring_view name, PutContent put) {
    PutSpaces(out, level);
    out.Put(L"<");
    out.Put(name);
    out.Put(L">");
    put();
    out.Put(L"</");
    out.Put(name);
    out.Put(L">\n");
  }

  template <class Output>
  static void PutEvent(Output& out, int level, const TBTEvent& event) {
    const auto element = [&](int depth, std::wstring_view name, auto put) {
      PutElement(out, level + depth, name, put);
    };
    PutLine(out, level, L"<event>");
    element(1, L"name", [&] { PutEscaped(out, event.m_Name); });
    element(1, L"timestamp", [&] { out.Put(TBTLogBase::GetTimeStamp(&event.m_StartTime)); });
    element(1, L"loglevel", [&] { out.Put(TBTLogBase::GetLevelName(event.m_Level)); });
    element(1, L"duration", [&] { PutNumber(out, event.m_Duration); });
    PutLine(out, level + 1, L"<Properties>");
    for (const auto& [key, value] : event.m_Properties)
      element(2, key, [&, held = &value] { PutValue(out, *held); });
    PutLine(out, level + 1, L"</Properties>");
    PutLine(out, level, L"</event>");
  }

 private:
  template <class Output>
  static void PutSpaces(Output& out, int level) {
    for (; level > 0; --level) out.Put(L"  ");
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
    wchar_t wide[sizeof digits];
    out.Put({wide, static_cast<std::size_t>(std::copy(digits, end, wide) - wide)});
  }
};

#endif  // QEL_METRICS_TEXT_H
