// A documents folder of a test's own, in place of that of the person who runs the tests.
#ifndef QEL_TESTS_DOCUMENTS_H
#define QEL_TESTS_DOCUMENTS_H

#include <filesystem>

// A new folder for temporary files, gone with all that it holds when this ends.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  const std::filesystem::path& Path() const { return m_Path; }

 private:
  std::filesystem::path m_Path;
};

// For the rest of this process (a fresh one: it does not go back) the user's documents are in `folder`.
void MoveDocuments(const std::filesystem::path& folder);

#endif  // QEL_TESTS_DOCUMENTS_H
