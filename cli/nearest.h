// The name that somebody may have meant who typed another.
#ifndef QEL_CLI_NEAREST_H
#define QEL_CLI_NEAREST_H

#include <string>
#include <vector>

namespace Cli {

// Of `names` the one that it takes the fewest slips of the finger to make `typed` of: a letter left out, added,
// replaced, or swapped with its neighbour; case does not count. Empty when that is more
// than one for every three letters: it was hardly meant.
std::string Nearest(const std::string& typed, const std::vector<std::string>& names);

}  // namespace Cli

#endif  // QEL_CLI_NEAREST_H
