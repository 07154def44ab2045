#include <chrono>
#include <ctime>

#include "platform/platform.h"

void GetLocalTime(SYSTEMTIME* time) {
  using namespace std::chrono;
  const auto now = system_clock::now().time_since_epoch();
  const std::time_t seconds = floor<std::chrono::seconds>(now).count();
  std::tm local{};
  localtime_r(&seconds, &local);
  const auto word = [](auto value) { return static_cast<WORD>(value); };
  *time = {word(local.tm_year + 1900), word(local.tm_mon + 1),
           word(local.tm_wday),        word(local.tm_mday),
           word(local.tm_hour),        word(local.tm_min),
           word(local.tm_sec),         word(duration_cast<milliseconds>(now).count() % 1000)};
}

void GetSystemTime(SYSTEMTIME* time) {
  using namespace std::chrono;
  const auto now = floor<milliseconds>(system_clock::now());
  const auto day = floor<days>(now);
  const year_month_day date(day);
  const hh_mm_ss clock(now - day);
  const auto word = [](auto value) { return static_cast<WORD>(value); };
  *time = {word(static_cast<int>(date.year())), word(static_cast<unsigned>(date.month())),
           word(weekday(day).c_encoding()),     word(static_cast<unsigned>(date.day())),
           word(clock.hours().count()),         word(clock.minutes().count()),
           word(clock.seconds().count()),       word(clock.subseconds().count())};
}
