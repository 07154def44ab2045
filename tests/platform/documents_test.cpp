// Built where the desktop's own file and the user's home say where the documents are.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "appfolders.h"
#include "platform/platform.h"
#include "support/documents.h"
#include "support/fresh_process.h"
#include "support/raises.h"

namespace {

std::wstring Documents() {
  LPITEMIDLIST list = nullptr;
  wchar_t path[260] = L"";
  SHGetSpecialFolderLocation(nullptr, CSIDL_PERSONAL, &list);
  SHGetPathFromIDListW(list, path);
  CoTaskMemFree(list);
  return path;
}

}  // namespace

TEST(DocumentsTest, TheDesktopsFileIsReadAsItsOwnToolsReadIt) {
  const struct {
    const char* name;
    const char* file;
    const wchar_t* folder;
  } rows[] = {
      {"in the home", "# XDG_DOCUMENTS_DIR=\"/x\"\nXDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n", L"/h/Dokumente"},
      {"elsewhere", "XDG_MUSIC_DIR=\"/m\"\n  XDG_DOCUMENTS_DIR=\"/srv/docs/\"", L"/srv/docs"},
      {"the home itself", "XDG_DOCUMENTS_DIR=\"$HOME/\"\n", L"/h"},
      {"quoted signs", "XDG_DOCUMENTS_DIR=\"/a \\\"b\\\" \\$c\"\n", L"/a \"b\" $c"},
      {"Arabic", "XDG_DOCUMENTS_DIR=\"$HOME/\xD9\x85\"\n", L"/h/\x645"},
      {"the last counts", "XDG_DOCUMENTS_DIR=\"/1\"\nXDG_DOCUMENTS_DIR=\"/2\"\n", L"/2"},
      {"neither form", "XDG_DOCUMENTS_DIR=\"docs\"\nXDG_DOCUMENTS_DIR=/docs\n", L"/h/Documents"},
      {"empty", "", L"/h/Documents"},
  };
  for (const auto& row : rows)
    EXPECT_IN_FRESH_PROCESS({
      const TempFolder config;
      setenv("HOME", "/h", 1);
      setenv("XDG_CONFIG_HOME", config.Path().c_str(), 1);
      std::ofstream(config.Path() / "user-dirs.dirs") << row.file;
      EXPECT_EQ(Documents(), row.folder) << row.name;
      setenv("XDG_CONFIG_HOME", "relative", 1);
      EXPECT_EQ(Documents(), L"/h/Documents");
    });
}

TEST(DocumentsTest, WithoutAHomeTheyAreNowhereAndALongPathIsAnError) {
  EXPECT_IN_FRESH_PROCESS({
    unsetenv("XDG_CONFIG_HOME");
    setenv("HOME", ("/" + std::string(250, 'h')).c_str(), 1);
    EXPECT_EQ(RaisedBy([] { GetLogFilePath(); }), L"GetLogFilePath() Failed");
    setenv("HOME", ("/" + std::string(245, 'h')).c_str(), 1);  // too long with "\\Qelmar" alone
    EXPECT_EQ(GetLogFilePath(), L"");
    EXPECT_FALSE(std::ifstream("9.0"));
    const TempFolder home;
    setenv("HOME", home.Path().c_str(), 1);
    EXPECT_EQ(GetLogFilePath(), (home.Path().wstring() + L"/Documents\\Qelmar\\9.0\\Log").c_str());
    unsetenv("HOME");
    constexpr uid_t kNobodysNumber = 54321;
    if (setuid(kNobodysNumber) == 0) {
      EXPECT_EQ(GetPersonalPath(), L"C:\\");
      EXPECT_FALSE(CreateDir(L"C:\\Log"));  // no drives here, and no folder "C:" either
    }
  });
}
