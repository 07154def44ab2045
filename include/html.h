// Small HTML fragments around text. Texts are taken as they are, markup included; null counts as empty.
//
//   HTMLColor(HTMLBold(L"Total"), 0xC00000)   gives <font color="#C00000"><b>Total</b></font>
//
// A colour is the low 24 bits, red first (0xRRGGBB). Where all low 32 bits are ones it means "no colour".
#ifndef QEL_HTML_H
#define QEL_HTML_H

#include "qel_cstring.h"
#include "qel_export.h"

// "<b>", text, "</b>".
QEL_API CString HTMLBold(const wchar_t* text);
// A font element of that colour.
QEL_API CString HTMLColor(const wchar_t* text, unsigned long colour);
// Every line feed becomes "<BR>" and a line feed.
QEL_API CString HTMLFixBr(const wchar_t* text);
// A paragraph that runs left to right, or right to left.
QEL_API CString HTMLLTRPara(const wchar_t* text);
QEL_API CString HTMLRTLPara(const wchar_t* text);
// The caption and ": ", then the value in bold; each in its colour, unless that is "no colour".
// Kept: a caption that ends in a line feed is cut before its last ":" and has nothing added (without a ":" it
// stays whole), because titles of panes are passed so.
QEL_API CString HTMLCapVal(const wchar_t* caption, const wchar_t* value,
                           unsigned long captionColour = static_cast<unsigned long>(-1),
                           unsigned long valueColour = static_cast<unsigned long>(-1));

// The colour as six upper-case hexadecimal digits.
QEL_API CString ColorToHex(unsigned long colour);

#endif  // QEL_HTML_H
