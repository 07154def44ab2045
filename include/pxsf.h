// Binary records as text: four hexadecimal digits of length, then two for each byte.
//
//   StructToString("\x01\xAB", 2)                        gives "000201AB"
//   StringToStruct(&header, sizeof header, text)         is false for the text of a record of another size
//
// This text is stored by users: the layout is fixed.
#ifndef QEL_PXSF_H
#define QEL_PXSF_H

#include "qel_export.h"
#include "tstring.h"

// The text of `size` bytes, digits in upper case. A size of 0 or less gives its low 16 bits and no bytes. More
// than 3,997 bytes end the process: records of such a size are a mistake that no store may keep half of.
QEL_API Qel::Sys::TString StructToString(const void* data, int size);

// Reads `text` back into the `size` bytes at `data`, digits in either case and in every shape that code page
// 1256 maps to ASCII. False, with `data` untouched, when the text's length is not `size`; null counts as empty.
// Raises TXAssertion "!c" at a character that is no digit, `data` untouched. What follows the bytes is not
// looked at.
// Kept: digits that are missing at the end are 0, because stored texts were cut off by readers with small
// buffers.
QEL_API bool StringToStruct(void* data, int size, const wchar_t* text);

#endif  // QEL_PXSF_H
