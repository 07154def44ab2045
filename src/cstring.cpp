#include "qel_cstring.h"

#include <algorithm>
#include <utility>

#include "code_page.h"
#include "exceptions.h"
#include "string_tools.h"
#include "white_space.h"

#define QEL_SOURCE L"src/cstring"

using Qel::Sys::Text::kWhiteSpace;

namespace {

std::wstring_view OrEmpty(const wchar_t* text) noexcept {
  return text ? std::wstring_view(text) : std::wstring_view();
}

int Position(std::size_t found) noexcept {
  return found == std::wstring::npos ? -1 : static_cast<int>(found);
}

}  // namespace

CString::CString(const wchar_t* text) : m_Text(OrEmpty(text)) {}

CString::CString(const char* narrow) : m_Text(narrow ? Decode(CP_THREAD_ACP, narrow) : std::wstring()) {}

CString::CString(const wchar_t* text, int length) {
  if (text && length > 0) m_Text.assign(text, static_cast<std::size_t>(length));
}

CString::CString(wchar_t ch, int repeat) : m_Text(static_cast<std::size_t>(std::max(repeat, 0)), ch) {}

CString::CString(std::wstring text) noexcept : m_Text(std::move(text)) {}

CString::CString(std::wstring_view text) : m_Text(text) {}

wchar_t CString::GetAt(int index) const {
  QEL_REQUIRE(index >= 0 && index <= GetLength(), L"index >= 0 && index <= GetLength()");
  return m_Text.c_str()[index];
}

void CString::SetAt(int index, wchar_t ch) {
  QEL_REQUIRE(index >= 0 && index < GetLength(), L"index >= 0 && index < GetLength()");
  m_Text[static_cast<std::size_t>(index)] = ch;
}

CString& CString::operator+=(const CString& text) {
  m_Text += text.m_Text;
  return *this;
}

CString& CString::operator+=(const wchar_t* text) {
  m_Text += OrEmpty(text);
  return *this;
}

CString& CString::operator+=(wchar_t ch) {
  m_Text += ch;
  return *this;
}

wchar_t* CString::Extend(int count) {
  const std::size_t length = m_Text.size();
  m_Text.resize(length + static_cast<std::size_t>(std::max(count, 0)));
  return m_Text.data() + length;
}

int CString::Compare(const wchar_t* other) const noexcept {
  const int order = m_Text.compare(OrEmpty(other));
  return (order > 0) - (order < 0);
}

int CString::CompareNoCase(const wchar_t* other) const {
  return Qel::Sys::Text::pxCompStrI(GetString(), other ? other : L"");
}

CString& CString::Trim() {
  return TrimRight().TrimLeft();
}
CString& CString::TrimLeft() {
  return TrimLeft(kWhiteSpace);
}
CString& CString::TrimRight() {
  return TrimRight(kWhiteSpace);
}

CString& CString::TrimLeft(const wchar_t* set) {
  m_Text.erase(0, std::min(m_Text.find_first_not_of(OrEmpty(set)), m_Text.size()));
  return *this;
}

CString& CString::TrimRight(const wchar_t* set) {
  m_Text.erase(m_Text.find_last_not_of(OrEmpty(set)) + 1);  // npos + 1 is 0
  return *this;
}

int CString::Replace(const wchar_t* from, const wchar_t* to) {
  const std::wstring_view old = OrEmpty(from);
  if (old.empty()) return 0;
  std::wstring result;
  int count = 0;
  std::size_t done = 0;
  for (std::size_t at = m_Text.find(old); at != std::wstring::npos; at = m_Text.find(old, done), ++count) {
    result.append(m_Text, done, at - done).append(OrEmpty(to));
    done = at + old.size();
  }
  if (count == 0) return 0;
  result.append(m_Text, done);
  m_Text = std::move(result);
  return count;
}

int CString::Replace(wchar_t from, wchar_t to) {
  const auto count = std::count(m_Text.begin(), m_Text.end(), from);
  std::replace(m_Text.begin(), m_Text.end(), from, to);
  return static_cast<int>(count);
}

int CString::Find(const wchar_t* text, int start) const noexcept {
  return Position(m_Text.find(OrEmpty(text), static_cast<std::size_t>(std::max(start, 0))));
}

int CString::Find(wchar_t ch, int start) const noexcept {
  return Position(m_Text.find(ch, static_cast<std::size_t>(std::max(start, 0))));
}

CString CString::Left(int count) const {
  return Mid(0, count);
}

CString CString::Right(int count) const {
  return Mid(GetLength() - std::clamp(count, 0, GetLength()));
}

CString CString::Mid(int first) const {
  return Mid(first, GetLength());
}

CString CString::Mid(int first, int count) const {
  const int from = std::clamp(first, 0, GetLength());
  return CString(m_Text.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(std::max(count, 0))));
}

CString CString::Tokenize(const wchar_t* separators, int& start) const {
  const std::wstring_view set = OrEmpty(separators), text = m_Text;
  // The set is short: to look through it here is faster than a search in the library for every unit.
  const auto separates = [set](wchar_t ch) {
    for (const wchar_t each : set)
      if (each == ch) return true;
    return false;
  };
  const std::size_t from = start < 0 ? text.size() : std::min(static_cast<std::size_t>(start), text.size());
  const auto* const first = std::find_if_not(text.data() + from, text.data() + text.size(), separates);
  const auto* const last = std::find_if(first, text.data() + text.size(), separates);
  start = first == last ? -1 : static_cast<int>(last - text.data()) + 1;
  return CString(std::wstring_view(first, static_cast<std::size_t>(last - first)));
}
