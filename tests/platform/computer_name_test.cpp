#include <gtest/gtest.h>

#include <string>

#include "platform/platform.h"

TEST(ComputerNameTest, NameNeedsRoomForItsTerminatorAndSizeLeavesItOut) {
  wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = L"";
  DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
  ASSERT_TRUE(GetComputerNameW(name, &size));
  EXPECT_GT(size, 0u);
  EXPECT_EQ(std::wstring(name).size(), size);
  EXPECT_EQ(std::wstring(name).find_first_of(L".abcdefghijklmnopqrstuvwxyz"), std::wstring::npos);

  const DWORD length = size;
  EXPECT_FALSE(GetComputerNameW(name, &size));  // room without the terminator
  EXPECT_EQ(GetLastError(), 111u);
  EXPECT_EQ(size, length + 1);
}
