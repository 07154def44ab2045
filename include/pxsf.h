// Binary records as text: four hexadecimal digits of length, then two for each byte.
//
//   StructToString("\x01\xAB", 2)                        gives "000201AB"
//   StringToStruct(&header, sizeof header, text)         is false for the text of a record of another size
//
// This text is stored by users: the layout is fixed.
//
// Single settings of the current user, each read or written by one call (TQelReg of regconfig.h, made anew each
// time; nothing is kept between calls, and any thread may call):
//
//   pxWriteProfileInt(L"Window", L"Width", 1024);
//   pxReadProfileStruct(L"Printer", L"Margins", &margins, sizeof margins);
#ifndef QEL_PXSF_H
#define QEL_PXSF_H

#include "qel_cstring.h"
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

// The entry, or the default (null is an empty text) where there is none or it is too long: an integer of at most
// four bytes, a text of at most 3,999 characters. Whatever type is stored is taken as it is.
// Kept: asking makes the section, and the result of pxGetProfileString is the stored size in bytes with terminator,
// or the default's length, because callers only ask whether it is 0.
QEL_API unsigned int pxGetProfileInt(const wchar_t* section, const wchar_t* entry, int defaultValue);
QEL_API int pxGetProfileString(const wchar_t* section, const wchar_t* entry, const wchar_t* defaultValue,
                               CString& value);
QEL_API Qel::Sys::TString GetString(const wchar_t* section, const wchar_t* entry,
                                    const wchar_t* defaultValue);

// 1, or 0 when it cannot be written. A null text erases: the entry, or without an entry the whole section.
QEL_API int pxWriteProfileInt(const wchar_t* section, const wchar_t* entry, int value);
QEL_API int pxWriteProfileString(const wchar_t* section, const wchar_t* entry, const wchar_t* value);

// Records by StructToString and StringToStruct, and like them in what they raise. Reading is 0, with `data`
// untouched, when there is none of this size.
// Kept: records of 1,998 to 3,997 bytes are written and not read, since their text is longer than a text that is
// read, because installations have bounded theirs by it.
QEL_API int pxWriteProfileStruct(const wchar_t* section, const wchar_t* entry, const void* data, int size);
QEL_API int pxReadProfileStruct(const wchar_t* section, const wchar_t* entry, void* data, int size);
QEL_API int ReadStruct(const wchar_t* section, const wchar_t* entry, void* data, int size);

#endif  // QEL_PXSF_H
