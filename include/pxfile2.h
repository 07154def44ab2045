// The lines of a text file whose first bytes say how it is encoded.
//
//   TPXFile2 file(L"orders.txt");
//   CString line;
//   while (file.ReadLine(line)) Import(line);
//
// The whole file is read when the object is made, so that nobody waits for it; a file that cannot be read has no lines.
// UTF-8 (EF BB BF) and UTF-16 of either order (FF FE, FE FF) are decoded, without these bytes. The bytes of every other
// file, with or without a signature, are taken as UTF-16LE from the first on: text in code page 1256 is what
// ConvertA2W is for. An object may be used from one thread at a time; copies read on for themselves.
#ifndef QEL_PXFILE2_H
#define QEL_PXFILE2_H

#include <cstddef>

#include "platform_types.h"
#include "qel_cstring.h"
#include "qel_export.h"

// What a file may begin with.
struct TEncodingSignature {
  unsigned char bytes[4];
  unsigned int length;  // 2, 3 or 4 of them
  const wchar_t* name;  // "UTF-8", "UTF-16", "UTF-32", "SCSU", "UTF-7", "UTF-EBCDIC", "BOCU-1"
  int id;               // 1, 2, 3 ... in this order; UTF-16 of either order is 2
};

class TPXFile2 {
 public:
  QEL_API explicit TPXFile2(const wchar_t* fileName);

  // As repaired, at most 259 units.
  const wchar_t* GetFileName() const noexcept { return m_FileName.GetString(); }
  // Why the file could not be read: the system's code, 223 for 1 GB and more, 0 when it was.
  DWORD GetErrorCode() const noexcept { return m_ErrorCode; }
  // Null when the file has none.
  const TEncodingSignature* GetSignature() const noexcept { return m_Signature; }

  // Whether a ReadLine has found no more lines.
  bool Eof() const noexcept { return m_Position == -1; }
  // The next line that is not empty, without its end (CR, LF). Returns its length; 0, `line` empty, when there is none.
  QEL_API int ReadLine(CString& line);

  // The signature at the start of `size` bytes, the first in a fixed order that fits; null for none.
  // Kept: FF FE 00 00 is UTF-16, and UTF-32 is 00 00 FE FF or 00 00 FF FE, because stored files were told apart so.
  QEL_API static const TEncodingSignature* FindSignature(const void* data, std::size_t size) noexcept;

 private:
  CString m_FileName;
  DWORD m_ErrorCode = 0;
  const TEncodingSignature* m_Signature = nullptr;
  CString m_Text;
  int m_Position = 0;  // -1: the end has been passed
};

#endif  // QEL_PXFILE2_H
