#include "support/documents.h"

#include <cstdlib>
#include <fstream>

void MoveDocuments(const std::filesystem::path& folder) {
  setenv("XDG_CONFIG_HOME", folder.c_str(), 1);
  std::ofstream(folder / "user-dirs.dirs") << "XDG_DOCUMENTS_DIR=" << folder << "\n";
}
