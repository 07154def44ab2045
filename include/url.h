// The parts of a web address, and text in percent signs as it stands in one.
//
//   const UrlComponents url(L"https://example.com/orders?from=7");
//   url.Host()                            // "example.com"
//   url.FullPath()                        // "/orders?from=7", what is asked of the host
//   CURLEncode::Encode(L"a b&c", 1)       // "a%20b%26c"
//
// Values; one may be used from one thread at a time. Nothing raises.
#ifndef QEL_URL_H
#define QEL_URL_H

#include "qel_cstring.h"
#include "qel_export.h"

class UrlComponents {
 public:
  // Splits an absolute http or https address. Names and passwords in front of the host are left out. Null is no
  // address.
  QEL_API explicit UrlComponents(const wchar_t* url);

  // Whether it is one: a known scheme in any case, "//", a host, and nothing but a port up to 65535 behind it. All
  // texts are empty, and scheme and port 0, when not.
  bool Valid() const noexcept { return m_Valid == 1; }
  // As they stand in the address, nothing decoded. An address in brackets keeps them.
  const CString& Host() const noexcept { return m_Host; }
  const CString& Path() const noexcept { return m_Path; }          // empty, or from the first "/" on
  const CString& Query() const noexcept { return m_Query; }        // from the first "?" or "#" on
  const CString& FullPath() const noexcept { return m_FullPath; }  // both
  // 1 for http, 2 for https.
  int Scheme() const noexcept { return m_Scheme; }
  bool Secure() const noexcept { return m_Scheme == 2; }
  // That of the scheme, 80 or 443, when the address names none.
  unsigned short Port() const noexcept { return m_Port; }

 private:
  int m_Valid = 0;
  CString m_Host;
  CString m_Path;
  CString m_Query;
  CString m_FullPath;
  int m_Scheme = 0;
  unsigned short m_Port = 0;
};

// "%" and two upper-case hexadecimal digits for what an address does not take as it is. Three kinds of characters:
// reserved ones, which mean something there: $&+,./:;=?@-_!*()'
// unsafe ones, never as they are: blank and "<>#{}|\^~[]`
// and the per cent sign.
class CURLEncode {
 public:
  // Writes the per cent sign, unsafe and control characters so, reserved ones when `encodeReserved` is not 0, and
  // characters from U+0080 to U+07FF as the two bytes of UTF-8.
  // Kept: characters from U+0800 on, and NUL, become "%00%00", because the servers of the applications store texts
  // under such names.
  QEL_API static CString Encode(CString text, int encodeReserved);

  // Undoes it for unsafe, reserved and control characters and for pairs of bytes; what is none of these stays.
  // Kept: the per cent sign and U+001F come back as they are ("%25"), and two neighbours that are no pair of UTF-8
  // become one NUL ("%41%42"), because stored texts were read so.
  QEL_API static CString Decode(CString text);
};

#endif  // QEL_URL_H
