// Small HTML fragments around text. Texts are taken as they are, markup included, so that fragments go into
// fragments; null counts as empty. What comes from outside goes through HTMLEscape first, once.
//
//   HTMLColor(HTMLBold(L"Total"), 0xC00000)   gives <font color="#C00000"><b>Total</b></font>
//   HTMLBold(HTMLEscape(L"R&D"))              gives <b>R&amp;D</b>
//
// A colour is the low 24 bits, red first (0xRRGGBB, as of Qel::UI::GetColor). A TColor has blue there:
// TColor::LtRed gives blue. Where all low 32 bits are ones it means "no colour".
#ifndef QEL_HTML_H
#define QEL_HTML_H

#include "qel_cstring.h"
#include "qel_export.h"

// "<b>", text, "</b>".
QEL_API CString HTMLBold(const wchar_t* text);
// A font element of that colour.
QEL_API CString HTMLColor(const wchar_t* text, unsigned long colour);
// Every line feed becomes "<BR>" and a line feed; a carriage return stays.
QEL_API CString HTMLFixBr(const wchar_t* text);
// A paragraph that runs left to right, or right to left.
QEL_API CString HTMLLTRPara(const wchar_t* text);
QEL_API CString HTMLRTLPara(const wchar_t* text);
// The caption and ": ", then the value in bold; each in its colour, unless that is "no colour".
// Kept: a caption that ends in a line feed is cut behind its last ":", without one before that line feed, and has
// nothing added, because titles of panes are passed so.
QEL_API CString HTMLCapVal(const wchar_t* caption, const wchar_t* value,
                           unsigned long captionColour = static_cast<unsigned long>(-1),
                           unsigned long valueColour = static_cast<unsigned long>(-1));

// Plain text as what HTML shows as that text, in elements and in quoted values: "&", "<", ">" and both quotes become
// entities; control characters, which HTML has no place for, are left out, but for tabs and line ends.
QEL_API CString HTMLEscape(const wchar_t* text);

// The colour as six upper-case hexadecimal digits.
QEL_API CString ColorToHex(unsigned long colour);

#endif  // QEL_HTML_H
