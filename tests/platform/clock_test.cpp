#include <gtest/gtest.h>

#include <chrono>
#include <ctime>

#include "platform/platform.h"

TEST(ClockTest, TheLocalTimeIsThatOfTheCRuntime) {
  const std::time_t before = std::time(nullptr);
  SYSTEMTIME now;
  GetLocalTime(&now);
  const std::time_t after = std::time(nullptr);

  std::tm fields{};
  fields.tm_year = now.wYear - 1900;
  fields.tm_mon = now.wMonth - 1;
  fields.tm_mday = now.wDay;
  fields.tm_hour = now.wHour;
  fields.tm_min = now.wMinute;
  fields.tm_sec = now.wSecond;
  fields.tm_isdst = -1;
  const std::time_t seconds = std::mktime(&fields);
  EXPECT_GE(seconds, before - 1);  // the clocks tick apart
  EXPECT_LE(seconds, after + 1);
  EXPECT_EQ(now.wDayOfWeek, fields.tm_wday);
  EXPECT_LT(now.wMilliseconds, 1000);
}

TEST(ClockTest, TheSystemTimeIsThatOfTheWorld) {
  const std::time_t before = std::time(nullptr);
  SYSTEMTIME now;
  GetSystemTime(&now);
  const std::time_t after = std::time(nullptr);
  const auto seconds =
      std::chrono::sys_days(std::chrono::year(now.wYear) / now.wMonth / now.wDay).time_since_epoch() /
          std::chrono::seconds(1) +
      now.wHour * 3600 + now.wMinute * 60 + now.wSecond;
  EXPECT_GE(seconds, before - 1);  // the clocks tick apart
  EXPECT_LE(seconds, after + 1);
  EXPECT_LT(now.wMilliseconds, 1000);
}
