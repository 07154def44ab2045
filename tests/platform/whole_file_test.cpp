#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>

#include "platform/platform.h"
#include "support/golden.h"
#include "utf8.h"

namespace fs = std::filesystem;

namespace {

class WholeFileTest : public testing::Test {
 protected:
  WholeFileTest() { fs::create_directory(m_Folder); }
  ~WholeFileTest() override { fs::remove_all(m_Folder); }

  CString Path(const char* name) const { return Qel::FromUtf8((m_Folder / name).string()); }
  LONG Write(const char* name, const std::string& text) const {
    return WriteWholeFile(Path(name), reinterpret_cast<const BYTE*>(text.data()), text.size());
  }
  // The content, or the status.
  std::string Read(const char* name, std::size_t most = 1000000) const {
    std::vector<BYTE> content;
    const LONG status = ReadWholeFile(Path(name), content, most);
    return status ? std::to_string(status) : std::string(content.begin(), content.end());
  }

  const fs::path m_Folder =
      fs::temp_directory_path() / ("qel-file-" + std::to_string(std::random_device()()));
};

}  // namespace

TEST_F(WholeFileTest, WhatIsWrittenReplacesAllThatWasThere) {
  const std::string large(200000, 'x');
  for (const std::string& text : {std::string("first"), large, std::string()}) {
    EXPECT_EQ(Write("file", text), 0);
    EXPECT_EQ(Read("file"), text);
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(m_Folder), {}), 1);
}

TEST_F(WholeFileTest, FailuresHaveTheCodesOfWindows) {
  EXPECT_EQ(Read("none"), "2");
  EXPECT_EQ(Read("none/file"), "3");
  EXPECT_EQ(Write("none/file", "x"), 3);
  EXPECT_EQ(Write("file", "12345"), 0);
  EXPECT_EQ(Read("file", 4), "223");
  EXPECT_EQ(Read("file", 5), "12345");
  fs::create_directory(m_Folder / "folder");
  EXPECT_EQ(Read("folder"), "5");
  EXPECT_EQ(Write("folder", "x"), 5);
}

TEST_F(WholeFileTest, ALinkStaysAndItsFileKeepsItsRights) {
  if (RunsOnWindows()) GTEST_SKIP() << "rights and links of Linux";
  Write("file", "old");
  fs::permissions(m_Folder / "file", fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink("file", m_Folder / "link");
  EXPECT_EQ(Write("link", "new"), 0);
  EXPECT_TRUE(fs::is_symlink(m_Folder / "link"));
  EXPECT_EQ(Read("file"), "new");
  EXPECT_EQ(fs::status(m_Folder / "file").permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(WriteWholeFile(L"\\dev\\null", nullptr, 0), 0);
  EXPECT_FALSE(fs::is_regular_file("/dev/null"));
}
