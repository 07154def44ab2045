// What a stored value is to those who read it with its type.
#ifndef QEL_CLI_MEANING_H
#define QEL_CLI_MEANING_H

#include <cstddef>
#include <string>

namespace Cli {

struct Setting;

// "point 10, 20" and so on, in the user's language, for a text of one of the fixed forms (docs/formats.md); empty for
// all else. Says also when the text is too long for the settings' own readers.
std::string MeaningOf(const Setting& setting);

// "01 AB"; of more than 64 bytes the first 64 and how many there are.
std::string PairsOf(const unsigned char* bytes, std::size_t count);
std::string AllPairsOf(const unsigned char* bytes, std::size_t count);

}  // namespace Cli

#endif  // QEL_CLI_MEANING_H
