// Text to and from the bytes of a code page. Hosts see it as encoding.h and utf8.h.
#ifndef QEL_CODE_PAGE_H
#define QEL_CODE_PAGE_H

#include <string>
#include <string_view>

#include "platform/platform.h"

// All of `bytes` or `text`, zeros included. A failure of the platform is thrown as an HRESULT by value:
// 0x80070000 and the last error.
std::wstring Decode(UINT codePage, std::string_view bytes);
std::string Encode(UINT codePage, std::wstring_view text);

#endif  // QEL_CODE_PAGE_H
