#include <gtest/gtest.h>

#include <string>

#include "platform/platform.h"

TEST(ProgramTest, ItsFileIsTheRunningOneCutToTheRoom) {
  wchar_t path[260] = L"";
  const DWORD length = GetModuleFileNameW(nullptr, path, 260);
  const std::wstring whole(path);
  EXPECT_EQ(whole.size(), length);
  EXPECT_NE(whole.find(L"qel_tests"), whole.npos);
  EXPECT_EQ(GetModuleFileNameW(nullptr, path, 5), 5u);
  EXPECT_EQ(GetLastError(), 122u);
  EXPECT_EQ(std::wstring(path, 4), whole.substr(0, 4));
  EXPECT_EQ(GetModuleFileNameW(nullptr, path, length + 1), length);
}

TEST(ProgramTest, ItsUserIsNamedWithTheTerminatorCounted) {
  wchar_t name[257] = L"";
  DWORD size = 257;
  ASSERT_TRUE(GetUserNameW(name, &size));
  EXPECT_GT(size, 1u);
  EXPECT_EQ(std::wstring(name).size() + 1, size);
  const DWORD needed = size;
  --size;
  EXPECT_FALSE(GetUserNameW(name, &size));
  EXPECT_EQ(GetLastError(), 122u);
  EXPECT_EQ(size, needed);
}
