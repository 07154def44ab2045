// Text written to a file piece by piece, as logs are.
//
//   TPXFileStream log(L"C:\\data\\import.txt", FSM_APPEND);
//   log << L"orders: " << 12 << L"\r\n";
//
// The text is UTF-16LE, a new file beginning with FF FE, so that TPXFile and TPXFile2 read it back. It is gathered in
// 8 KB and written when these are full and by flush(), close() and the destructor. Nobody else has the file open
// meanwhile. Nothing raises: good() says whether all went well. An object may be used from one thread at a time.
#ifndef QEL_PXFILESTREAM_H
#define QEL_PXFILESTREAM_H

#include <cstddef>
#include <memory>
#include <string_view>

#include "platform_types.h"
#include "qel_cstring.h"
#include "qel_export.h"

enum FileStreamMode {
  FSM_APPEND = 0,  // made when missing, else written on at the end
  FSM_CREATE = 1,  // made when missing, else emptied
};

class QEL_API TPXFileStream {
 public:
  TPXFileStream() noexcept;
  TPXFileStream(const wchar_t* fileName, FileStreamMode mode);
  ~TPXFileStream();
  TPXFileStream(const TPXFileStream&) = delete;
  TPXFileStream& operator=(const TPXFileStream&) = delete;

  // Closes what is open and opens `fileName`, of which quotes and blanks around it do not count. The state is good
  // again when that works; whether all of the text before went to its own file only a close() of one's own tells.
  bool open(const wchar_t* fileName, FileStreamMode mode);
  // Writes what is gathered; false when that fails, which loses it, or nothing was open.
  bool close();
  bool flush();
  // Whether a file is open and nothing has failed since open() or clear().
  bool good() const noexcept;
  // Forgets a failure. Returns good().
  bool clear() noexcept;
  // Bytes as they are.
  bool write(const void* data, unsigned int size);

  TPXFileStream& operator<<(const CString& text);
  TPXFileStream& operator<<(const wchar_t* text);
  TPXFileStream& operator<<(const char* text);  // code page 1256
  TPXFileStream& operator<<(wchar_t unit);
  // In decimal; a double in the fewest digits that read back as the same, with a point whatever the locale.
  TPXFileStream& operator<<(int number);
  TPXFileStream& operator<<(unsigned int number);
  TPXFileStream& operator<<(long number);
  TPXFileStream& operator<<(unsigned long number);
  TPXFileStream& operator<<(long long number);
  TPXFileStream& operator<<(unsigned long long number);
  TPXFileStream& operator<<(double number);

 private:
  bool Noted(bool success) noexcept;
  bool Send(const void* data, std::size_t size);
  void Text(std::wstring_view text);
  template <class Number>
  TPXFileStream& Decimal(Number number);

  HANDLE m_Handle;
  bool m_Failed = false;
  std::size_t m_Used = 0;
  std::unique_ptr<BYTE[]> m_Gathered;
};

#endif  // QEL_PXFILESTREAM_H
