// Where the measured settings are: not those of the person who measures.
#ifndef QEL_BENCH_SETTINGS_FOLDER_H
#define QEL_BENCH_SETTINGS_FOLDER_H

#include <cstdlib>
#include <filesystem>
#include <string>

// A folder that holds our stores from the first call on, and has room for those of the peers; gone with the program.
inline const std::string& SettingsFolder() {
  static const struct TempFolder {
    std::string name = std::filesystem::temp_directory_path() / "qel-bench-XXXXXX";
    TempFolder() { setenv("QEL_REGISTRY_DIR", mkdtemp(name.data()), 1); }
    ~TempFolder() { std::filesystem::remove_all(name); }
  } s_Folder;
  return s_Folder.name;
}

#endif  // QEL_BENCH_SETTINGS_FOLDER_H
