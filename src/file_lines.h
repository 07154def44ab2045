// Lines in blocks of UTF-16LE bytes.
#ifndef QEL_FILE_LINES_H
#define QEL_FILE_LINES_H

#include <cstddef>

#include "platform/platform.h"
#include "qel_cstring.h"

// Goes on with `line` through at most `size` bytes, up to the end of a line that is not empty (`ended`). Returns how
// many bytes it took, of an odd size never the last.
std::size_t TakeLine(const BYTE* bytes, std::size_t size, CString& line, bool& ended);

#endif  // QEL_FILE_LINES_H
