#include "support/documents.h"

#include <random>

TempFolder::TempFolder()
    : m_Path(std::filesystem::temp_directory_path() /
             ("qel-test-" + std::to_string(std::random_device()()))) {
  std::filesystem::create_directory(m_Path);
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(m_Path, ignored);
}
