// Plain text as RTF has it, for whoever writes documents.
#ifndef QEL_RTF_TEXT_H
#define QEL_RTF_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>

namespace Qel::Rtf {

// No line is broken.
constexpr std::size_t kAnyWidth = static_cast<std::size_t>(-1);

// The text with one unit an element: a literal can bring an element above U+FFFF, which is a pair of units.
std::wstring InUnits(const wchar_t* text);

// Takes the first line off `rest`. False when it was the last.
bool TakeLine(std::wstring_view& rest, std::size_t width, std::wstring_view& line);

// Appends a text without line ends, escaped.
void AppendLine(std::wstring& rtf, std::wstring_view line);

// Appends the lines of a text, with a paragraph's end between them.
void AppendText(std::wstring& rtf, const wchar_t* text);

}  // namespace Qel::Rtf

#endif  // QEL_RTF_TEXT_H
