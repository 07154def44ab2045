#include <utility>

#include "digits.h"
#include "metrics_text.h"
#include "platform/platform.h"

namespace {

using Now = std::chrono::system_clock;

template <class Text>
void WriteTo(std::wostream& out, const Text& text) {
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

// In UTF-8 at most 48,000 bytes: readers of XML take names of 50,000.
constexpr std::size_t kLongestName = 16000;

// Whether FixTagName and what comes after it would leave the key alone, as they do nearly always.
bool IsPlainName(std::wstring_view key) {
  const auto isLetter = [](wchar_t ch) { return (ch >= L'a' && ch <= L'z') || (ch >= L'A' && ch <= L'Z'); };
  const auto isPlain = [&](wchar_t ch) { return isLetter(ch) || (ch >= L'0' && ch <= L'9') || ch == L'_'; };
  return !key.empty() && key.size() <= kLongestName && !(key[0] >= L'0' && key[0] <= L'9') &&
         std::all_of(key.begin(), key.end(), isPlain);
}

// XML has no name that is empty or begins with a digit.
std::wstring PropertyName(const std::wstring& key) {
  std::wstring name = TBTLogBase::FixTagName(key.c_str());
  if (name.empty() || Qel::Sys::Text::DecimalDigitValue(name[0]) >= 0) name.insert(0, 1, L'_');
  if (name.size() > kLongestName) name.resize(kLongestName);
  return name;
}

}  // namespace

TBTEventValue::TBTEventValue() : m_Time(Now::now()) {}

TBTEventValue& TBTEventValue::operator=(const wchar_t* text) {
  return *this = std::wstring(text ? text : L"");
}

TBTEventValue& TBTEventValue::operator=(std::wstring text) {
  m_Value = std::move(text);
  m_Time = Now::now();
  return *this;
}

TBTEventValue& TBTEventValue::operator=(const CString& text) {
  return *this = std::wstring(text.View());
}

TBTEventValue& TBTEventValue::operator=(int number) {
  m_Value = number;
  m_Time = Now::now();
  return *this;
}

TBTEventValue& TBTEventValue::operator=(double number) {
  m_Value = number;
  m_Time = Now::now();
  return *this;
}

TBTEventValue& TBTEventValue::operator=(std::int64_t number) {
  m_Value = number;
  m_Time = Now::now();
  return *this;
}

TBTEventValue& TBTEventValue::operator=(const TDurationCounter& counter) {
  return *this = counter.ElapsedMs();
}

void TBTEventValue::ToStream(std::wostream& out) const {
  WideOutput text;
  TMetricsText::PutValue(text, *this);
  WriteTo(out, text.Text());
}

TBTEvent::TBTEvent(ABT_LOGLEVEL level, const std::wstring& name) : m_Level(level), m_Name(name) {
  StartTimer();
}

TBTEvent::~TBTEvent() = default;

TBTEventValue& TBTEvent::operator[](const std::wstring& key) {
  return IsPlainName(key) ? m_Properties[key] : m_Properties[PropertyName(key)];
}

void TBTEvent::StartTimer() {
  GetSystemTime(&m_StartTime);
  m_Timer.Start();
}

void TBTEvent::BeforeAdd() {
  m_Duration = m_Timer.ElapsedMs();
}

bool TBTEvent::Save() {
  if (m_Saved) return false;
  m_Saved = true;
  const auto log = TBTLogFile::GetLogFile();
  return log && log->AddEvent(*this);
}

void TBTEvent::ToStream(std::wostream& out) const {
  WideOutput text;
  TMetricsText::PutEvent(text, m_TagLevel, *this);
  WriteTo(out, text.Text());
}
