// The few things `qel` needs of the system: its arguments, its three streams and the user's language. All
// text is UTF-8 whatever the system keeps.
#ifndef QEL_CLI_PLATFORM_H
#define QEL_CLI_PLATFORM_H

#include <string>
#include <string_view>
#include <vector>

namespace Cli {

// What the user typed after the program's name. Called once, before anything is read or written.
std::vector<std::string> Arguments(int argc, char** argv);

// "ar" when the user's system speaks Arabic, else "en".
std::string UserLanguage();

// How the user's system is set up: its locale, and the code page that narrow texts are taken for.
std::string LocaleName();
unsigned NarrowCodePage();

// Writes as it stands, without changing line ends; a console gets its own encoding. False when it did not
// arrive.
bool WriteOutput(std::string_view text);
bool WriteMessage(std::string_view text);

// Whether the output is a terminal that paints what it is told to.
bool OutputPaints();

// Whether messages go to a terminal.
bool MessagesAreSeen();

// The next line of the input without its end ("\n" or "\r\n"); false when there is none.
bool ReadInputLine(std::string& line);

}  // namespace Cli

#endif  // QEL_CLI_PLATFORM_H
