// A metrics folder of a test's own, and fixed answers about the program.
#ifndef QEL_TESTS_METRICS_FOLDER_H
#define QEL_TESTS_METRICS_FOLDER_H

#include <fstream>
#include <iterator>
#include <string>

#include "bugtrap.h"
#include "support/documents.h"

class MetricsFolder {
 public:
  MetricsFolder() : m_Before(SetBugTrapHooks(Hooks())) { s_Path = m_Folder.Path().wstring(); }
  ~MetricsFolder() { SetBugTrapHooks(m_Before); }
  MetricsFolder(const MetricsFolder&) = delete;
  MetricsFolder& operator=(const MetricsFolder&) = delete;

  const std::filesystem::path& Path() const { return m_Folder.Path(); }
  // Of a log in it, by the path that the log has.
  std::string Content(const std::wstring& log) const {
    std::ifstream file(Path() / log.substr(log.find_last_of(L"\\/") + 1), std::ios::binary);
    return {std::istreambuf_iterator(file), {}};
  }

 private:
  static TBugTrapHooks Hooks() {
    TBugTrapHooks hooks;
    hooks.GetMetricsFilePath = [] { return s_Path; };
    hooks.GetAppName = [] { return std::wstring(L"A & B"); };
    hooks.GetAppId = [] { return std::wstring(L"test"); };
    hooks.GetAppSession = [] { return std::wstring(L"S-1"); };
    return hooks;
  }

  inline static std::wstring s_Path;
  const TempFolder m_Folder;
  const TBugTrapHooks m_Before;
};

#endif  // QEL_TESTS_METRICS_FOLDER_H
