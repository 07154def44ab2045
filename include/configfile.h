// Typed settings over any store of sections with named entries, in the manner of an initialisation file: an entry
// holds a text, and each type has a fixed form of text that users and older programs know (docs/formats.md).
//
//   settings.WriteRect(L"Window", L"Pos", {10, 20, 40, 60});    // stores "L=10,T=20,W=30,H=40"
//   TRect place{0, 0, 800, 600};
//   settings.ReadRect(L"Window", L"Pos", place);                // true; false leaves `place` as it was
//
// Readers raise nothing for what is missing or malformed. Section and entry are terminated texts, never null. The
// forms are ASCII, whatever locale is set. A store is used by one thread at a time.
#ifndef QEL_CONFIGFILE_H
#define QEL_CONFIGFILE_H

#include "color.h"
#include "config_types.h"
#include "legacydate.h"
#include "platform_types.h"
#include "qel_cstring.h"
#include "qel_export.h"

// A class derived from this one that declares ReadString, WriteString, ReadSection or ReadSections hides the forms
// with CString; `using TConfigFile::ReadString;` brings them back.
class QEL_API TConfigFile {
 public:
  // A null name is an empty one.
  explicit TConfigFile(const wchar_t* fileName) : m_FileName(fileName) {}
  TConfigFile(const TConfigFile&) = default;
  TConfigFile& operator=(const TConfigFile&) = default;

  // What a store implements. Slot order is ABI.
  virtual ~TConfigFile();

  // Copies all values of `source` into this store; what it does not hold stays. Blanks and tabs around a text go,
  // and 259 characters of it count. A text of decimal digits and letters A to F alone (up to a line feed, if there
  // is one) is written as an integer, by ReadInteger of the source; one of 2147483647 or more is not copied.
  // Kept: so "ABC" becomes 0 and "0042" 42, because stores of numbers have been merged by it.
  // For sources that hold text. Kept: of a registry's texts only those that fit into 4 bytes are such integers, read
  // as their bytes ("7" becomes 55, "123" is left out), and a number 7 becomes the text U+0007, whose bytes read as
  // 7 again; because a registry's ReadInteger takes any four bytes.
  virtual void LoadValues(const TConfigFile& source);
  // Whether the section holds anything.
  virtual bool SectionExists(const wchar_t* section) const;
  // The names of a section's entries, and of all sections: each with its terminator, an empty one at the end.
  // `size` is the buffer's room in units; names that do not fit are left out. Result: the length written, which
  // a store that counts what did not fit may put above `size`.
  virtual int ReadSection(const wchar_t* section, wchar_t* buffer, unsigned int size) const = 0;
  virtual int ReadSections(wchar_t* buffer, unsigned int size) const = 0;
  // True when it was there and is gone.
  virtual bool EraseSection(const wchar_t* section) = 0;
  virtual bool EraseEntry(const wchar_t* section, const wchar_t* entry) = 0;
  // Brings pending changes to where they are kept.
  virtual void UpdateFile() = 0;
  // The entry's text, or the default (null is empty) where there is none, cut to `size` units with its terminator.
  // Result: the number of characters copied.
  virtual int ReadString(const wchar_t* section, const wchar_t* entry, wchar_t* buffer, unsigned int size,
                         const wchar_t* defaultValue) const = 0;
  virtual bool WriteString(const wchar_t* section, const wchar_t* entry, const wchar_t* value) = 0;
  // Bytes as pairs of hexadecimal digits, "01 AB ". Reading stops at the first place, three characters a byte, where
  // no digit is; bytes from there on stay as they were. False for an empty text alone.
  virtual bool ReadData(const wchar_t* section, const wchar_t* entry, void* data, unsigned int size) const;
  virtual bool WriteData(const wchar_t* section, const wchar_t* entry, void* data, unsigned int size);
  // The number at the text's start, clamped to 32 bits, 0 when there is none; the default for an empty text. Raises
  // TXAssertion "entry != nullptr", at a fixed line, since crash reports are grouped by it.
  virtual int ReadInteger(const wchar_t* section, const wchar_t* entry, int defaultValue) const;
  virtual bool WriteInteger(const wchar_t* section, const wchar_t* entry, int value);

  const CString& GetFileName() const noexcept { return m_FileName; }

  // Lists and texts as CString.
  // Kept: `names` is the first name alone and the result the length of all, because callers ask it whether there
  // is any; the form with a buffer lists them.
  int ReadSection(const CString& section, CString& names) const;
  int ReadSections(CString& names) const;
  // At most 259 characters; the default, unless null, for an empty text. Returns the length of `value`.
  int ReadString(const CString& section, const CString& entry, CString& value,
                 const wchar_t* defaultValue) const;
  bool WriteString(const CString& section, const CString& entry, const CString& value);

  // Typed entries. Readers that return a value return the default for an empty or missing text; the others return
  // false, the output untouched, for a text that is empty or not of the form. Writers return what WriteString does.

  // "yes" or "no"; reads what StringToBool knows, the default for any other word.
  bool ReadBool(const wchar_t* section, const wchar_t* entry, bool defaultValue) const;
  bool WriteBool(const wchar_t* section, const wchar_t* entry, bool value);

  // With as many significant digits as the precision says. Reads the number at the text's start as the C runtime's
  // wcstod does ("inf", "nan" and hexadecimal forms too); 0 when there is none.
  double ReadDouble(const wchar_t* section, const wchar_t* entry, double defaultValue) const;
  bool WriteDouble(const wchar_t* section, const wchar_t* entry, double value);
  // Significant digits of WriteDouble, for the whole process, without a lock: below 0 twenty (more than any double
  // needs to come back the same; what a process starts with), 0 for six. Beyond about 60 the text outgrows what
  // ReadDouble takes of it, 79 characters.
  static int GetPrecision() noexcept;
  static void SetPrecision(int digits) noexcept;

  // Eight numbers: "2024,3,4,7,23,59,58,997".
  // Kept: true for any text, what cannot be read being 0, because the applications test for an empty date themselves.
  bool ReadSystemTime(const wchar_t* section, const wchar_t* entry, TSystemTime& value) const;
  bool WriteSystemTime(const wchar_t* section, const wchar_t* entry, const TSystemTime& value);
  // "h=23 m=59 s=58". Any text reads as with ReadSystemTime.
  bool ReadTime(const wchar_t* section, const wchar_t* entry, TTime& value) const;
  bool WriteTime(const wchar_t* section, const wchar_t* entry, TTime& value);
  // "03/07/2024", as TDate prints with option 2.
  bool ReadDate(const wchar_t* section, const wchar_t* entry, TDate& value) const;
  bool WriteDate(const wchar_t* section, const wchar_t* entry, const TDate& value);

  // Reads "R=255,G=0,B=128" in either case, with blanks and tabs, also without the letters; each 0 to 255.
  // Kept: writes each channel as the character of that code, followed by "u", 0 ending the text, which reads back
  // as another colour, because the applications compare stored entries with what this writes.
  bool ReadColor(const wchar_t* section, const wchar_t* entry, TColor& value) const;
  bool WriteColor(const wchar_t* section, const wchar_t* entry, const TColor& value);

  // "X=10,Y=20", "W=30,H=40", "L=10,T=20,W=30,H=40": a digit behind each "=", the names themselves do not count.
  // Kept: negative numbers are written and not read, because windows must not come back outside of the screen.
  bool ReadPoint(const wchar_t* section, const wchar_t* entry, TPoint& value) const;
  bool WritePoint(const wchar_t* section, const wchar_t* entry, const TPoint& value);
  bool ReadSize(const wchar_t* section, const wchar_t* entry, TSize& value) const;
  bool WriteSize(const wchar_t* section, const wchar_t* entry, const TSize& value);
  bool WriteSize(const CString& section, const CString& entry, const TSize& value);
  bool ReadRect(const wchar_t* section, const wchar_t* entry, TRect& value) const;
  bool WriteRect(const wchar_t* section, const wchar_t* entry, const TRect& value);

  // "-13,0,BI,0,0,178,0,0,0,34,Arial": height, width, style, escapement, orientation, character set, output
  // precision, clip precision, quality, pitch and family, face. Style: B bold or N, then I italic, U underlined,
  // S struck out; weights become 700 or 400. Read in any order, without blanks around the fields; bytes are clamped,
  // a face is cut to 31 characters and may contain commas.
  bool ReadFont(const wchar_t* section, const wchar_t* entry, LOGFONTW& value) const;
  bool WriteFont(const wchar_t* section, const wchar_t* entry, const LOGFONTW& value);

  // "yes", "on", "1", "true" and "no", "off", "0", "false" in any case of ASCII. False, nothing stored, for all else.
  static bool StringToBool(const wchar_t* text, bool* value) noexcept;
  static CString BoolToString(bool value);

 private:
  static int DefaultPrecision;

  CString m_FileName;
};

#endif  // QEL_CONFIGFILE_H
