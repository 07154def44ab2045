// Settings in the registry: sections are keys below Software\<name>, entries are their values.
//
//   TQelReg settings;                                          // of the current user; TQelReg(true): of the machine
//   settings.WriteRect(L"Window", L"Pos", {10, 20, 40, 60});   // a text, as TConfigFile writes it
//   int width = settings.ReadInteger(L"Window", L"Width", 800);
//
// Texts are stored as REG_SZ, integers as REG_DWORD, data as REG_BINARY. Nothing raises but the constructor; without
// the right to change the section's key, readers give defaults and writers false.
// Kept: reading an entry makes its section, because installations find theirs by it; SectionExists makes nothing.
// Kept: a buffer of n characters takes n bytes, half as many characters as it has, because stored entries have been
// bounded so. Of the typed readers, a point, size, colour or rectangle of more than 19 characters, a number, date or
// time of more than 39 and a font of more than 129 (each less a terminator) is therefore as good as missing.
#ifndef QEL_REGCONFIG_H
#define QEL_REGCONFIG_H

#include "configfile.h"
#include "platform_types.h"
#include "qel_export.h"

class QEL_API TRegConfigFile : public TConfigFile {
 public:
  // Below `root`, which is not owned. Throws the wide text pointer "Resource Exception" when it is no open key.
  TRegConfigFile(const wchar_t* name, HKEY root);

  // Lists hold the names that fit whole, each with its terminator, and end with an empty name.
  // Kept: a name of n characters takes only n - 1 of the room that later ones are measured by, and the result counts
  // all names that pass so, because callers ask by it for more room; it may be above `size`.
  // Kept: the default value has an empty name, at which readers stop, because stores have been listed so.
  using TConfigFile::ReadSection;
  using TConfigFile::ReadSections;
  bool SectionExists(const wchar_t* section) const override;
  int ReadSection(const wchar_t* section, wchar_t* buffer, unsigned int size) const override;
  int ReadSections(wchar_t* buffer, unsigned int size) const override;
  // With all keys below it.
  bool EraseSection(const wchar_t* section) override;
  bool EraseEntry(const wchar_t* section, const wchar_t* entry) override;
  void UpdateFile() override {}

  // Whatever the entry's type, its bytes as text; `buffer` is terminated unless `size` is 0. A null default is empty.
  // Kept: the result is the stored size in BYTES, or the length of the default in characters, because callers only
  // ask whether it is 0.
  using TConfigFile::ReadString;
  using TConfigFile::WriteString;
  int ReadString(const wchar_t* section, const wchar_t* entry, wchar_t* buffer, unsigned int size,
                 const wchar_t* defaultValue) const override;
  bool WriteString(const wchar_t* section, const wchar_t* entry, const wchar_t* value) override;
  // Whatever its type, an entry of at most `size` bytes; of a longer one `data` holds nothing to rely on.
  bool ReadData(const wchar_t* section, const wchar_t* entry, void* data, unsigned int size) const override;
  bool WriteData(const wchar_t* section, const wchar_t* entry, void* data, unsigned int size) override;
  // Whatever its type, an entry of at most four bytes.
  int ReadInteger(const wchar_t* section, const wchar_t* entry, int defaultValue) const override;
  bool WriteInteger(const wchar_t* section, const wchar_t* entry, int value) override;

  HKEY GetHKey() const noexcept { return m_Root; }

 protected:
  // By the whole path below a predefined key. Throws nothing: one whose store cannot be read gives defaults.
  TRegConfigFile(HKEY predefined, const wchar_t* path);

 private:
  HKEY m_Root;
};

// The suite's own settings.
class QEL_API TQelReg : public TRegConfigFile {
 public:
  // Of the machine, or of the current user.
  explicit TQelReg(bool machine = false);

  // As ReadData, but gives the entry's size in bytes; 0xFFFFFFFF when it cannot be read.
  unsigned int ReadData2(const wchar_t* section, const wchar_t* entry, void* data, unsigned int size) const;
};

#endif  // QEL_REGCONFIG_H
