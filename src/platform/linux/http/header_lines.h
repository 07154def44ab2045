// Lines of a head: "Name: value".
#ifndef QEL_PLATFORM_LINUX_HTTP_HEADER_LINES_H
#define QEL_PLATFORM_LINUX_HTTP_HEADER_LINES_H

#include <string_view>

// Takes the first line, without its end, off `rest`. A lone CR or LF ends a line too.
std::string_view TakeLine(std::string_view& rest);
// The line's name, or an empty text when it has none.
std::string_view HeaderName(std::string_view line);
// Without blanks around it.
std::string_view HeaderValue(std::string_view line);
// In any case.
bool IsHeader(std::string_view line, std::string_view name);

#endif  // QEL_PLATFORM_LINUX_HTTP_HEADER_LINES_H
