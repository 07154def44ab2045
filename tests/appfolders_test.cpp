#include "appfolders.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "support/documents.h"
#include "support/fresh_process.h"
#include "support/raises.h"
#include "utf8.h"

namespace fs = std::filesystem;

namespace {

class Folders : public IAppFolders {
 public:
  void InitFolders() override {
    m_AppPath = L"app";
    m_TemplatesPath = L"templates";
    m_SQLPath = L"sql";
    m_HTMLPath = L"html";
    m_bInit = true;
  }
};

bool IsThere(const std::wstring& path) {
  const std::string native = Qel::ToUtf8(Qel::ToNativePath(path.c_str()));
  std::error_code ignored;
  return fs::is_directory(std::u8string(native.begin(), native.end()), ignored);
}

}  // namespace

TEST(AppFoldersTest, PathsAreRefusedUntilTheyAreFilled) {
  Folders folders;
  EXPECT_EQ(RaisedBy([&] { folders.GetAppPath(); }), L"m_bInit != false");
  EXPECT_EQ(RaisedBy([&] { folders.GetHTMLPath(); }), L"m_bInit != false");
  folders.InitFolders();
  const Folders copy = folders;
  EXPECT_TRUE(copy.GetAppPath() == L"app" && copy.GetTemplatesPath() == L"templates");
  EXPECT_TRUE(copy.GetSQLPath() == L"sql" && copy.GetHTMLPath() == L"html");
}

TEST(CreateDirTest, FoldersAreThereAfterwardsOrItSaysNo) {
  const TempFolder temp;
  std::ofstream(temp.Path() / "file") << "text";
  const std::wstring base = temp.Path().wstring();
  const struct {
    const char* name;
    std::wstring path;
    bool made;
  } rows[] = {
      {"three levels", base + L"\\a\\b\\c", true},
      {"there already", base + L"\\a", true},
      {"both separators, doubled and at the end", base + L"/\\a//d\\/", true},
      {"over itself", base + L"\\e\\..\\f", true},
      {"Arabic", base + L"\\\x645\x644\x641", true},
      {"a file", base + L"\\file", false},
      {"below a file", base + L"\\file\\x", false},
      {"a name of 300", base + L"\\" + std::wstring(300, L'n'), false},
      {"nothing", L"", false},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(CreateDir(row.path.c_str()), row.made) << row.name;
    EXPECT_EQ(IsThere(row.path), row.made) << row.name;
  }
  EXPECT_FALSE(CreateDir(nullptr));
}

TEST(CreateDirTest, ThreadsThatMakeTheSameFoldersAllSucceed) {
  const TempFolder temp;
  const std::wstring path = temp.Path().wstring() + L"\\1\\2\\3\\4\\5\\6\\7\\8";
  bool made[8] = {};
  {
    std::vector<std::jthread> threads;
    for (bool& done : made) threads.emplace_back([&] { done = CreateDir(path.c_str()); });
  }
  for (const bool done : made) EXPECT_TRUE(done);
}

TEST(LogFilePathTest, TheFolderIsMadeOnceAndItsPathKept) {
  EXPECT_IN_FRESH_PROCESS({
    const TempFolder temp;
    MoveDocuments(temp.Path());
    const std::wstring expected = temp.Path().wstring() + L"\\Qelmar\\9.0\\Log";
    EXPECT_EQ(GetLogFilePath(), expected.c_str());
    const fs::path folder = temp.Path() / "Qelmar" / "9.0" / "Log";
    EXPECT_TRUE(fs::is_directory(folder));
    fs::remove(folder);
    wchar_t buffer[260] = L"";
    EXPECT_TRUE(GetLogFilePath(buffer));
    EXPECT_EQ(buffer, expected);
    EXPECT_FALSE(fs::exists(folder));
    EXPECT_FALSE(GetLogFilePath(nullptr));
    EXPECT_EQ(GetPersonalPath(), (temp.Path().wstring() + L"\\Qelmar\\9.0").c_str());
  });
}
