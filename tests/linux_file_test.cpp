#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <thread>

#include "pxfile.h"
#include "support/documents.h"
#include "utf8.h"

TEST(LinuxFileTest, LinesOfAPipeTakeNoMoreThanTheirBytes) {
  const TempFolder folder;
  const std::string path = folder.Path() / "pipe";
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  std::thread writer([&] { std::ofstream(path) << std::string("a\0\n\0b\0c\0\n\0x", 11); });
  TPXFile file(Qel::FromUtf8(path), FA_READ);
  CString line;
  char next = 0;
  EXPECT_EQ(file.ReadLine(line), 1);
  EXPECT_EQ(file.Read(&next, 1), 1);
  EXPECT_EQ(next, 'b');
  EXPECT_EQ(file.Read(&next, 1), 1);
  EXPECT_EQ(TPXFile(file).ReadLine(line), 1);
  EXPECT_STREQ(line, L"c");
  EXPECT_EQ(file.Read(&next, 1), 1);
  EXPECT_EQ(next, 'x');
  writer.join();
}

TEST(LinuxFileTest, ProgramsStartedMeanwhileDoNotHoldTheFile) {
  const TempFolder folder;
  const CString path = Qel::FromUtf8((folder.Path() / "file").string());
  TPXFile file(path, FA_CREATE);
  std::FILE* const program = popen("cat", "w");  // until pclose
  file.Close();
  EXPECT_TRUE(file.Open(path, FA_CREATE));
  pclose(program);
}
