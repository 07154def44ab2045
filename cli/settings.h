// What the commands of `qel settings` share: how they say that something is missing or went wrong.
#ifndef QEL_CLI_SETTINGS_H
#define QEL_CLI_SETTINGS_H

#include <string>

#include "options.h"
#include "setting.h"

namespace Cli {

// Each says what is wrong and returns the exit code for it.
int NoSuchEntry(const Section& section, const std::string& entry, const Options& options);
int NoSuchSection(const std::string& section, const Options& options);
// What the registry answered to the reading of a section: 2 is NoSuchSection.
int NotRead(long status, const std::string& section, const Options& options);
// What stopped a writing; status 0 asks the store itself why.
int NotStored(long status, const Options& options);

// The status of the registry or of a file in the user's language, and that of a store that is not written.
std::string StatusText(long status);
std::string StoreStatusText(long status);

// The value that was typed, as it will be stored; `type` is that of --type, empty for what the value suggests.
// An exit code, with the reason said, for one that is none of the type.
int ReadTypedValue(const std::string& typed, const Options& options, Setting& setting);

}  // namespace Cli

#endif  // QEL_CLI_SETTINGS_H
