// Entries as they stand in the registry, read without the right to change anything: looking makes nothing.
#ifndef QEL_CLI_SETTING_H
#define QEL_CLI_SETTING_H

#include <string>
#include <string_view>
#include <vector>

#include "options.h"
#include "platform_types.h"
#include "qel_cstring.h"

namespace Cli {

struct Setting {
  std::string name;  // empty: the section's nameless entry
  unsigned int type = 0;
  std::vector<unsigned char> data;

  bool operator==(const Setting&) const = default;
};

struct Section {
  std::string name;  // below the suite's settings, parts separated by "\"; empty for these themselves
  std::vector<Setting> entries;     // by name
  std::vector<std::string> nested;  // names of the sections directly in it, without its own

  bool operator==(const Section&) const = default;
};

// The root that the options ask for, and the section's key below it.
HKEY RootOf(const Options& options);
CString KeyOf(const std::string& section);

// One section. 0, or the registry's status: 2 when there is none of this name.
long ReadSection(HKEY root, const std::string& name, Section& section);
// The section and all below it, those without entries too, in the order of their names.
long ReadSections(HKEY root, const std::string& name, std::vector<Section>& sections);

// The section's name without "\" in front, behind or doubled, which the registry would not count.
std::string SectionTyped(const std::string& typed);
// "@" stands for the nameless entry wherever a name is typed or shown.
std::string EntryTyped(const std::string& typed);
std::string EntryShown(const std::string& name);

// "REG_SZ" and so on; the number in hexadecimal digits for a type without a name.
std::string TypeShown(unsigned int type);
// The value on one line: texts with what would disturb a terminal escaped, numbers in decimal, bytes in pairs.
std::string ValueShown(const Setting& setting);
// Escapes the same in any text.
std::string Plain(std::string_view text);
// "Width  REG_DWORD  1024", and in brackets what the value means to typed readers. The first two are filled with
// blanks up to these widths.
std::string Row(const Setting& setting, int nameWidth = 0, int typeWidth = 0);
// The same for a program, on a line.
std::string JsonRow(const std::string& section, const Setting& setting);

// Text as it is stored, with its terminator, and back without it.
std::vector<unsigned char> BytesOf(const std::string& text);
CString TextOf(const Setting& setting);
bool IsText(unsigned int type);
// The first four bytes as a number, as readers of integers take them.
unsigned int NumberOf(const Setting& setting);

}  // namespace Cli

#endif  // QEL_CLI_SETTING_H
