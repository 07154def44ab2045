// Where the user of this process keeps things, as the desktop's tools find it.
#ifndef QEL_PLATFORM_LINUX_USER_FOLDERS_H
#define QEL_PLATFORM_LINUX_USER_FOLDERS_H

#include <string>

// The variable where it is an absolute path, else nothing: others do not count for the desktop either. Nothing too
// when the program has rights that its caller has not, who could lead it anywhere.
std::string FolderFrom(const char* variable);

// $HOME, else what the account says; empty when neither names a folder.
std::string HomeFolder();

// $XDG_CONFIG_HOME, else .config in the home; empty without either.
std::string ConfigFolder();

// The same for $XDG_STATE_HOME and .local/state.
std::string StateFolder();

#endif  // QEL_PLATFORM_LINUX_USER_FOLDERS_H
