#include <gtest/gtest.h>

#include <string>

#include "platform/platform.h"
#include "support/temp_registry.h"

TEST(StoreReportTest, APlaceForSettingsIsFoundWholeAndIsTheSameAfterAChange) {
  const TempRegistry registry;
  const StoreReport before = ReportOnStore(false);
  EXPECT_FALSE(before.path.empty());
  EXPECT_NE(before.path, ReportOnStore(true).path);
  EXPECT_EQ(before.whyNotWritten, 0);
  HKEY key = nullptr;
  ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, L"k", 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr), 0);
  RegCloseKey(key);
  const StoreReport after = ReportOnStore(false);
  EXPECT_EQ(after.access, StoreReport::Access::Shared);
  EXPECT_EQ(after.path, before.path);
  EXPECT_EQ(after.whyNotWritten, 0);
  EXPECT_EQ(after.integrity, L"ok");
  EXPECT_TRUE(after.events.empty());
}
