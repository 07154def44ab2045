#include "support/temp_registry.h"

#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <stdexcept>
#include <vector>

#include "platform/linux/registry/store.h"

namespace {

constexpr const char* kFolderVariable = "QEL_REGISTRY_DIR";

// The folders in use, the last one in force. What is left at the exit of a process, as one that ends within a test
// leaves it, is removed then.
struct Folders {
  std::vector<std::string> names;
  std::string before = Surrounding();

  ~Folders() {
    for (const auto& name : names) Remove(name);
  }
  static std::string Surrounding() {
    const char* folder = std::getenv(kFolderVariable);
    return folder ? folder : "";
  }
  static void Remove(const std::string& name) {
    std::error_code ignored;
    std::filesystem::remove_all(name, ignored);
  }
  void Use() const {
    const std::string& folder = names.empty() ? before : names.back();
    if (folder.empty())
      unsetenv(kFolderVariable);
    else
      setenv(kFolderVariable, folder.c_str(), 1);
    const std::lock_guard lock(StoreLock());
    Store::Forget();
  }
};

Folders& InUse() {
  static Folders s_Folders;
  return s_Folders;
}

}  // namespace

TempRegistry::TempRegistry() : m_Place(std::filesystem::temp_directory_path() / "qel-registry-XXXXXX") {
  if (!mkdtemp(m_Place.data())) throw std::runtime_error("no folder for a registry");
  InUse().names.push_back(m_Place);
  InUse().Use();
}

TempRegistry::~TempRegistry() {
  InUse().names.pop_back();
  InUse().Use();
  Folders::Remove(m_Place);
}
