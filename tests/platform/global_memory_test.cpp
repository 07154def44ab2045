#include <gtest/gtest.h>

#include <algorithm>

#include "platform/platform.h"

// One block from its first lock to its end, with what the real system answers.
TEST(GlobalMemoryTest, ABlockLivesAsOnWindows) {
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 8192);
  auto* memory = static_cast<char*>(GlobalLock(block));
  EXPECT_EQ(std::count(memory, memory + GlobalSize(block), '\0'), 8192);
  memory[8191] = 'x';
  SetLastError(0xDEAD);
  for (const DWORD code : {0u, 158u}) {
    EXPECT_EQ(GlobalUnlock(block), 0);
    EXPECT_EQ(GetLastError(), code);
  }
  EXPECT_EQ(GlobalReAlloc(block, 1 << 20, GMEM_MOVEABLE), block);
  EXPECT_EQ(static_cast<char*>(GlobalLock(block))[8191], 'x');
  GlobalUnlock(block);
  EXPECT_EQ(GlobalReAlloc(block, 0, GMEM_MOVEABLE), block);
  EXPECT_EQ(GlobalLock(block), nullptr);
  EXPECT_EQ(GetLastError(), 157u);
  EXPECT_EQ(GlobalReAlloc(block, 100, GMEM_MOVEABLE), block);
  EXPECT_EQ(GlobalFree(block), nullptr);
  EXPECT_EQ(GlobalAlloc(GMEM_MOVEABLE, static_cast<std::size_t>(-1)), nullptr);
  EXPECT_EQ(GetLastError(), 8u);
}
