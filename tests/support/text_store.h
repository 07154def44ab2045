// A store of settings in memory: texts as they were written, nothing else.
#ifndef QEL_TESTS_TEXT_STORE_H
#define QEL_TESTS_TEXT_STORE_H

#include <algorithm>
#include <map>
#include <string>

#include "configfile.h"

class TextStore : public TConfigFile {
 public:
  using Section = std::map<std::wstring, std::wstring>;
  using TConfigFile::ReadSection;
  using TConfigFile::ReadSections;
  using TConfigFile::ReadString;
  using TConfigFile::WriteString;

  TextStore() : TConfigFile(L"memory") {}

  std::map<std::wstring, Section> sections;
  // Whether lists report what they need, or no more than the room that they had.
  bool tellsNeed = true;
  mutable int listsRead = 0;

  int ReadSection(const wchar_t* section, wchar_t* buffer, unsigned size) const override {
    const auto found = sections.find(section);
    return List(found == sections.end() ? Section() : found->second, buffer, size);
  }
  int ReadSections(wchar_t* buffer, unsigned size) const override { return List(sections, buffer, size); }
  bool EraseSection(const wchar_t* section) override { return sections.erase(section) != 0; }
  bool EraseEntry(const wchar_t* section, const wchar_t* entry) override {
    return sections[section].erase(entry) != 0;
  }
  void UpdateFile() override {}
  int ReadString(const wchar_t* section, const wchar_t* entry, wchar_t* buffer, unsigned size,
                 const wchar_t* defaultValue) const override {
    std::wstring text = defaultValue;
    if (const auto found = sections.find(section); found != sections.end() && found->second.contains(entry))
      text = found->second.at(entry);
    buffer[text.copy(buffer, size - 1)] = L'\0';
    return static_cast<int>(std::min<std::size_t>(text.size(), size - 1));
  }
  bool WriteString(const wchar_t* section, const wchar_t* entry, const wchar_t* value) override {
    sections[section][entry] = value;
    return true;
  }

 private:
  template <class Names>
  int List(const Names& names, wchar_t* buffer, unsigned size) const {
    ++listsRead;
    std::wstring list;
    for (const auto& [name, content] : names) (list += name) += L'\0';
    if (names.empty()) list += L'\0';
    const auto length = list.copy(buffer, size - 2);
    std::fill(buffer + length, buffer + std::min<std::size_t>(length + 2, size), L'\0');
    if (names.empty()) return 0;
    return static_cast<int>(tellsNeed ? list.size() + 1 : length);
  }
};

#endif  // QEL_TESTS_TEXT_STORE_H
