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

std::string ConfigFolder() {
  if (std::string folder = FolderFrom("XDG_CONFIG_HOME"); !folder.empty()) return folder;
  const std::string home = HomeFolder();
  return home.empty() ? "" : home + "/.config";
}
