#include <algorithm>
#include <array>
#include <iterator>

#include "data/name_characters.h"
#include "metrics_text.h"
#include "platform/platform.h"

namespace {

constexpr auto IsBefore = [](const name_characters::Range& range, wchar_t ch) { return range.last < ch; };

bool IsNameCharacter(wchar_t ch) {
  if (ch < 0x80)
    return (ch >= L'a' && ch <= L'z') || (ch >= L'A' && ch <= L'Z') || (ch >= L'0' && ch <= L'9');
  const auto* const range = std::lower_bound(std::begin(name_characters::kRanges),
                                             std::end(name_characters::kRanges), ch, IsBefore);
  return range != std::end(name_characters::kRanges) && range->first <= ch;
}

template <class PutContent>
std::wstring ElementOf(const wchar_t* name, PutContent put) {
  WideOutput out;
  TMetricsText::PutElement(out, TBTLogBase::m_TagLevel, std::wstring_view(name ? name : L""),
                           [&] { put(out); });
  return out.Text();
}

}  // namespace

std::int32_t TBTLogBase::m_TagLevel = 0;

std::wstring_view TMetricsText::LevelName(ABT_LOGLEVEL level) {
  constexpr std::array<std::wstring_view, 6> kNames = {L"0:None",      L"1:Error", L"2:Warning",
                                                       L"3:Important", L"4:Info",  L"5:Verbose"};
  const auto index = static_cast<std::size_t>(level);
  if (index >= kNames.size()) return L"9:Unknown";
  return kNames[index];
}

const wchar_t* TBTLogBase::GetLevelName(ABT_LOGLEVEL level) {
  return TMetricsText::LevelName(level).data();  // terminated literals
}

std::wstring TBTLogBase::GetTimeStamp(const SYSTEMTIME* time) {
  SYSTEMTIME now;
  if (!time) GetSystemTime(&now);
  WideOutput text;
  TMetricsText::PutTime(text, time ? *time : now);
  return text.Text();
}

void TBTLogBase::WriteEscaped(std::wostream& out, const std::wstring& text) {
  WideOutput escaped;
  TMetricsText::PutEscaped(escaped, text);
  out.write(escaped.Text().data(), static_cast<std::streamsize>(escaped.Text().size()));
}

std::wstring TBTLogBase::FixTagName(const wchar_t* text) {
  std::wstring name;
  for (; text && *text; ++text) {
    const char32_t ch = static_cast<char32_t>(*text);  // a literal can bring one that stands for two units
    if (IsNameCharacter(*text))
      name += *text;
    else
      name.append(ch > 0xFFFF ? 2 : 1, L'_');
  }
  return name;
}

std::wstring TBTLogBase::spaces() {
  return std::wstring(m_TagLevel > 0 ? 2 * static_cast<std::size_t>(m_TagLevel) : 0, L' ');
}

std::wstring TBTLogBase::Tag(const std::wstring& text) {
  return spaces() + text + L"\n";
}

std::wstring TBTLogBase::Tag(const wchar_t* name, const wchar_t* value) {
  return ElementOf(name, [value](WideOutput& out) { TMetricsText::PutEscaped(out, value ? value : L""); });
}

std::wstring TBTLogBase::Tag(const wchar_t* name, const TBTEventValue& value) {
  return ElementOf(name, [&value](WideOutput& out) { TMetricsText::PutValue(out, value); });
}
