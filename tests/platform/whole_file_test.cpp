#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <string>

#include "platform/platform.h"
#include "support/documents.h"
#include "support/golden.h"
#include "utf8.h"

namespace {

namespace fs = std::filesystem;

class WholeFileTest : public testing::Test {
 protected:
  CString Path(const char* name) const { return Qel::FromUtf8((m_Folder.Path() / name).string()); }
  LONG Write(const char* name, const std::string& text) const {
    return WriteWholeFile(Path(name), reinterpret_cast<const BYTE*>(text.data()), text.size());
  }
  // The content, or the status.
  std::string Read(const char* name, std::size_t most = 1000000) const {
    std::vector<BYTE> content;
    const LONG status = ReadWholeFile(Path(name), content, most);
    return status ? std::to_string(status) : std::string(content.begin(), content.end());
  }

  const TempFolder m_Folder;
};

}  // namespace

TEST_F(WholeFileTest, WhatIsWrittenReplacesAllThatWasThere) {
  for (const std::string& text : {std::string("first"), std::string(200000, 'x'), std::string()}) {
    EXPECT_EQ(Write("file", text), 0);
    EXPECT_EQ(Read("file"), text);
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(m_Folder.Path()), {}), 1);
}

TEST_F(WholeFileTest, FailuresHaveTheCodesOfWindows) {
  EXPECT_EQ(Read("none"), "2");
  EXPECT_EQ(Read("none/file"), "3");
  EXPECT_EQ(Write("none/file", "x"), 3);
  Write("file", "12345");
  EXPECT_EQ(Read("file", 4), "223");
  EXPECT_EQ(Read("file", 5), "12345");
  fs::create_directory(m_Folder.Path() / "folder");
  EXPECT_EQ(Read("folder"), "5");
  EXPECT_EQ(Write("folder", "x"), 5);
  std::vector<BYTE> content;
  EXPECT_EQ(ReadWholeFile(nullptr, content), 3);
  EXPECT_EQ(WriteWholeFile(nullptr, nullptr, 0), 3);
}

TEST_F(WholeFileTest, ALinkStaysAndItsFileKeepsItsRights) {
  if (RunsOnWindows()) GTEST_SKIP() << "rights and links of Linux";
  const fs::path file = m_Folder.Path() / "file", link = m_Folder.Path() / "link";
  Write("file", "old");
  fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink("file", link);
  EXPECT_EQ(Write("link", "new"), 0);
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(Read("file"), "new");
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  const auto leftOver = (m_Folder.Path() / "file.new-").string() + std::to_string(getpid()) + "-";
  for (int i = 1; i < 300; ++i) std::ofstream(leftOver + std::to_string(i)) << "left by a killed process";
  EXPECT_EQ(Write("file", "newer"), 0);
  EXPECT_EQ(WriteWholeFile(L"\\dev\\null", nullptr, 0), 0);
  EXPECT_FALSE(fs::is_regular_file("/dev/null"));
}
