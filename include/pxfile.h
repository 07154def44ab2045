// Files by handle: bytes as they are, and the lines of UTF-16 text. pxfile2.h reads the lines of text in other
// encodings, pxfilestream.h writes text.
//
//   TPXFile file(L"C:\\data\\orders.txt", FA_READ);
//   CString line;
//   while (file.ReadLine(line)) Import(line);      // from where the position is
//
// Names: quotes and blanks around one do not count (FixFileName). On Linux "\" and "/" both stand between names, and
// one that is not there as written stands for the only one that differs by case, or by blanks and dots at its end.
//
// Who has a file open shares it with nobody, except that readers (FA_READ) share it among themselves: the others' Open
// fails with 32. On Linux this holds between users of the library; other programs do not ask.
//
// A member that needs an open file raises TXAssertion "hFile != INVALID_HANDLE_VALUE" when it is closed. What the
// system refuses is never raised: the result says so, and GetErrorCode() has the system's code, 0 after a success.
// Counts are bytes. An object may be used from one thread at a time.
#ifndef QEL_PXFILE_H
#define QEL_PXFILE_H

#include <cstdint>
#include <memory>

#include "platform_types.h"
#include "qel_cstring.h"
#include "qel_export.h"

enum TFileAccessMode {
  FA_NONE = 0,       // cannot be opened (87)
  FA_READ = 1,       // what is there, beside other readers
  FA_WRITE = 2,      // what is there, alone
  FA_READWRITE = 3,  // what is there, alone
  FA_CREATE = 4,     // for writing, alone; made when missing, emptied when there
};

class QEL_API TPXFile {
 public:
  // A size of text: all of it.
  static constexpr unsigned int NPOS = 0xFFFFFFFF;

  // Slot order is ABI.
  virtual ~TPXFile();
  // The name last opened, or tried, as repaired; empty before. At most 259 units of it.
  virtual const wchar_t* GetFileName() const;
  // The next line of UTF-16LE text that is not empty, without its end. Returns its length; 0, `line` empty, at the end
  // of the file, which sets Eof(), and when it cannot be read (error code). A line without an end is one too; a single
  // byte at the end of the file is not. Surrogates stay two units.
  // Kept: a byte order mark (U+FEFF) anywhere in a line discards the line up to it, because files that were appended
  // to one another have it there.
  virtual int ReadLine(CString& line);

  TPXFile() noexcept;
  // Opens at once; GetFileHandle() or GetErrorCode() tells whether that worked.
  TPXFile(const wchar_t* fileName, TFileAccessMode mode);
  // A second handle on the same open file: both objects share its position, and it stays open until both are closed.
  TPXFile(const TPXFile& other);
  TPXFile& operator=(const TPXFile& other);

  // Closes what is open and opens `fileName`. Returns not 0 on success. A file that is refused is left as it is.
  // Kept: only FA_READ resets Eof(), because the importers' loops were written for that.
  int Open(const wchar_t* fileName, TFileAccessMode mode);
  void Close();
  // The system's handle, INVALID_HANDLE_VALUE (-1) or null when closed. It stays ours. Its position is where this object
  // is; lines are read in smaller pieces from then on, so that this stays so.
  HANDLE GetFileHandle() const;
  // The code of the last operation that failed; 0 after a success.
  DWORD GetErrorCode() const noexcept { return m_ErrorCode; }
  // Whether a read has met the end since the file was opened for reading. Moving away does not reset it.
  bool Eof() const noexcept { return m_Eof; }

  // From the position on, which moves behind it. Return how many bytes, 0 on failure; of more than 2 GB the lower
  // 32 bits. A Read at the end returns 0 and sets Eof().
  int Read(void* buffer, unsigned int size);
  int Write(const void* data, unsigned int size);
  // Text as UTF-16LE: `size` units of it, of a CString at most its length. Null writes nothing.
  int Write(const wchar_t* text, unsigned int size = NPOS);
  int Write(const CString& text, unsigned int size = NPOS);
  // Bytes as they are. Null writes nothing.
  int Write(const char* text, unsigned int size = NPOS);
  // Writes at the end of the file, wherever the position is.
  int Append(const void* data, unsigned int size);
  // Moves the position: `offset` from the start (`origin` 0), from the position (1) or from the end (2). Returns the
  // new position, or -1 on failure: 131 before the start, 87 another origin. Beyond 2 GB the lower 32 bits.
  int Seek(long offset, int origin);
  int GetPos();
  // 0 when closed. Raises qel_exception "Unable to read file info" when the system does not tell.
  std::int64_t GetFileSize() const;
  // The system's attribute bits of the file with this name, open or not; 0xFFFFFFFF when there is none. Raises
  // TXAssertion "*FileName != NULL" before the first Open.
  DWORD GetAttributes() const;

 private:
  static constexpr std::size_t kNameRoom = 260;  // units, terminator included
  struct Ahead;

  bool IsOpen() const noexcept;
  bool Done(bool success);
  void DuplicateFrom(const TPXFile& other);
  bool Move(std::int64_t offset, int origin, std::int64_t& position);
  int WriteText(const wchar_t* text, std::size_t units);
  DWORD RoomAhead(std::size_t left) const;
  bool FillAhead();
  void GiveBackAhead() const;

  HANDLE m_Handle;
  wchar_t m_FileName[kNameRoom] = L"";
  TFileAccessMode m_Mode = FA_NONE;
  DWORD m_ErrorCode = 0;
  bool m_Eof = false;
  // Lines are read in blocks: the handle's position may be ahead of ours by what is left of one, unless somebody else
  // sees the handle.
  mutable bool m_IsSeen = false;
  mutable std::unique_ptr<Ahead> m_Ahead;
};

#endif  // QEL_PXFILE_H
