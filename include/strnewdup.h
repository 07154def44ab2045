// Copies of text that the caller frees with `operator delete`, for records that own plain pointers.
#ifndef QEL_STRNEWDUP_H
#define QEL_STRNEWDUP_H

#include "qel_export.h"

// A new buffer of `size` elements, or as many as `text` and its terminator need when that is more, holding a
// copy of `text` and zeros behind it. Null counts as empty. Narrow text has one byte a character. Throws
// std::bad_alloc.
QEL_API char* strnewdup(const char* text, unsigned int size);
QEL_API wchar_t* strnewdup(const wchar_t* text, unsigned int size);

#endif  // QEL_STRNEWDUP_H
