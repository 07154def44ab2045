#include "user_folders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <vector>

std::string FolderFrom(const char* variable) {
  const char* const folder = secure_getenv(variable);
  return folder && *folder == '/' ? folder : "";
}

std::string HomeFolder() {
  if (std::string home = FolderFrom("HOME"); !home.empty()) return home;
  std::vector<char> texts(16384);
  passwd entry{};
  passwd* found = nullptr;
  getpwuid_r(geteuid(), &entry, texts.data(), texts.size(), &found);
  return found && found->pw_dir && *found->pw_dir == '/' ? found->pw_dir : "";
}

namespace {

// The folder that the variable names, else `name` in the home; empty without either.
std::string FolderOr(const char* variable, const char* name) {
  if (std::string folder = FolderFrom(variable); !folder.empty()) return folder;
  const std::string home = HomeFolder();
  return home.empty() ? "" : home + name;
}

}  // namespace

std::string ConfigFolder() {
  return FolderOr("XDG_CONFIG_HOME", "/.config");
}

std::string StateFolder() {
  return FolderOr("XDG_STATE_HOME", "/.local/state");
}
