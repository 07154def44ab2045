// Plain text as RTF has it, for whoever writes documents. RTF is ASCII, and so kept in bytes, a fourth of what it would
// take otherwise.
#ifndef QEL_RTF_TEXT_H
#define QEL_RTF_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>

#include "qel_cstring.h"

namespace Qel::Rtf {

// No line is broken.
constexpr std::size_t kAnyWidth = static_cast<std::size_t>(-1);

// The text with one unit an element: a literal can bring an element above U+FFFF, which is a pair of units. It is the
// text itself, or lies in `store`.
std::wstring_view InUnits(const wchar_t* text, std::wstring& store);

// Takes the first line off `rest`. False when it was the last.
bool TakeLine(std::wstring_view& rest, std::size_t width, std::wstring_view& line);

// Appends a text without line ends, escaped.
void AppendLine(std::string& rtf, std::wstring_view line);

// Appends the lines of a text, with a paragraph's end between them.
void AppendText(std::string& rtf, const wchar_t* text);

CString Wide(const std::string& ascii);

}  // namespace Qel::Rtf

#endif  // QEL_RTF_TEXT_H
