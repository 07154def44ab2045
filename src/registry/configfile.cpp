#include "configfile.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <span>
#include <string>
#include <string_view>

#include "exceptions.h"
#include "px_format.h"
#include "registry/stored_text.h"
#include "registry/text_scan.h"

#define QEL_SOURCE L"src/registry/configfile"

using Qel::Sys::Text::pxFormat;

namespace {

constexpr int kNullEntryLine = 218;
constexpr unsigned int kMostDataSize = (0x7FFFFFFF - 1) / 3;  // more cannot be asked for as text

bool IsOneOf(std::wstring_view text, std::initializer_list<std::wstring_view> words) noexcept {
  return std::any_of(words.begin(), words.end(),
                     [text](std::wstring_view word) { return IsSameWord(text, word); });
}

constexpr unsigned int kFirstRoom = 4096;
constexpr unsigned int kMoreRoom = 1024;
constexpr unsigned int kMostRoom =
    1U << 20;  // against stores that always tell of more: each pass reads all anew

// Reads the names by `read(buffer, size)`; again with more room as long as the length that comes back says so. The
// room grows before it is held against the length, so a list that is a little longer than the buffer stays cut; of
// the text it is the first name that counts.
template <class Read>
int FirstName(CString& names, Read&& read) {
  for (unsigned int size = kFirstRoom;; size += kMoreRoom) {
    std::wstring buffer(size + 1, L'\0');  // one more, whatever the store leaves at the end
    const int length = read(buffer.data(), size);
    const int room = static_cast<int>(size + kMoreRoom);
    if (length >= room - 2 && size < kMostRoom) continue;
    names = buffer.c_str();
    return length;
  }
}

}  // namespace

int TConfigFile::DefaultPrecision = -1;

TConfigFile::~TConfigFile() = default;

int TConfigFile::GetPrecision() noexcept {
  return DefaultPrecision;
}

void TConfigFile::SetPrecision(int digits) noexcept {
  DefaultPrecision = digits;
}

bool TConfigFile::SectionExists(const wchar_t* section) const {
  wchar_t buffer[3] = {};
  return ReadSection(section, buffer, static_cast<unsigned int>(std::size(buffer))) != 0;
}

int TConfigFile::ReadSection(const CString& section, CString& names) const {
  return FirstName(names,
                   [&](wchar_t* buffer, unsigned int size) { return ReadSection(section, buffer, size); });
}

int TConfigFile::ReadSections(CString& names) const {
  return FirstName(names, [&](wchar_t* buffer, unsigned int size) { return ReadSections(buffer, size); });
}

int TConfigFile::ReadString(const CString& section, const CString& entry, CString& value,
                            const wchar_t* defaultValue) const {
  const StoredText<kTextRoom> text(*this, section, entry);
  value = text.IsEmpty() && defaultValue ? defaultValue : text.GetString();
  return value.GetLength();
}

bool TConfigFile::WriteString(const CString& section, const CString& entry, const CString& value) {
  return WriteString(section.GetString(), entry.GetString(), value.GetString());
}

bool TConfigFile::ReadData(const wchar_t* section, const wchar_t* entry, void* data,
                           unsigned int size) const {
  if (size > kMostDataSize) return false;
  const std::size_t length = std::size_t{3} * size;
  std::wstring text(length + 1, L'\0');
  ReadString(section, entry, text.data(), static_cast<unsigned int>(length + 1), L"");
  text.resize(std::min(text.find(L'\0'), length));
  if (text.empty()) return false;
  auto* out = static_cast<BYTE*>(data);
  for (std::size_t place = 0; place < text.size(); place += 3) {
    if (!TextScan(std::wstring_view(text).substr(place)).ReadHexByte(*out++)) break;
  }
  return true;
}

bool TConfigFile::WriteData(const wchar_t* section, const wchar_t* entry, void* data, unsigned int size) {
  constexpr std::wstring_view kDigits = L"0123456789ABCDEF";
  std::wstring text;
  text.reserve(std::size_t{3} * size);
  for (const BYTE value : std::span(static_cast<const BYTE*>(data), size)) {
    text += {kDigits[value >> 4], kDigits[value & 0xF], L' '};
  }
  return WriteString(section, entry, text.c_str());
}

int TConfigFile::ReadInteger(const wchar_t* section, const wchar_t* entry, int defaultValue) const {
  QEL_REQUIRE_AT(entry != nullptr, L"entry != nullptr", QEL_SOURCE, kNullEntryLine);
  const StoredText<kTextRoom> text(*this, section, entry);
  return text.IsEmpty() ? defaultValue : IntAtStart(text.View());
}

bool TConfigFile::WriteInteger(const wchar_t* section, const wchar_t* entry, int value) {
  return WriteString(section, entry, pxFormat(L"%d", value).GetString());
}

bool TConfigFile::StringToBool(const wchar_t* text, bool* value) noexcept {
  if (!text) return false;
  const bool no = IsOneOf(text, {L"no", L"off", L"0", L"false"});
  if (!no && !IsOneOf(text, {L"yes", L"on", L"1", L"true"})) return false;
  *value = !no;
  return true;
}

CString TConfigFile::BoolToString(bool value) {
  return value ? L"yes" : L"no";
}
