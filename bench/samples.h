// Days to measure with, spread over the table of Hijri years, and the ICU calendars that are measured beside
// ours.
#ifndef QEL_BENCH_SAMPLES_H
#define QEL_BENCH_SAMPLES_H

#include <unicode/ucal.h>

#include <chrono>
#include <vector>

#include "date.h"

// 1,024 days of 1901 .. 2075, in no order that a branch predictor could learn.
inline const std::vector<Qel::Sys::DateTime::Date>& SampleDays() {
  static const auto s_Days = [] {
    std::vector<Qel::Sys::DateTime::Date> days;
    unsigned random = 12345;
    for (int i = 0; i < 1024; ++i) {
      random = random * 1103515245U + 12345U;
      const std::chrono::sys_days at{std::chrono::days(static_cast<int>((random >> 8) % 63900U) - 25202)};
      const std::chrono::year_month_day ymd{at};
      days.emplace_back(static_cast<unsigned short>(unsigned(ymd.day())),
                        static_cast<unsigned short>(unsigned(ymd.month())),
                        static_cast<unsigned short>(int(ymd.year())));
    }
    return days;
  }();
  return s_Days;
}

// Whether number `i` of the samples adds or takes months, and how many: -24 .. 24.
inline int SampleMonths(unsigned i) {
  return static_cast<int>(i * 7U % 49U) - 24;
}

inline UCalendar* OpenIcu(const char* locale) {
  UErrorCode status = U_ZERO_ERROR;
  UCalendar* calendar = ucal_open(u"UTC", 3, locale, UCAL_DEFAULT, &status);
  ucal_clear(calendar);
  return calendar;
}

inline void SetIcu(UCalendar* calendar, int day, int month, int year) {
  UErrorCode status = U_ZERO_ERROR;
  ucal_clear(calendar);
  ucal_setDate(calendar, year, month - 1, day, &status);
}

// The three numbers folded into one, so that all of them are computed.
inline int ReadIcu(UCalendar* calendar) {
  UErrorCode status = U_ZERO_ERROR;
  return ucal_get(calendar, UCAL_DATE, &status) + ucal_get(calendar, UCAL_MONTH, &status) +
         ucal_get(calendar, UCAL_YEAR, &status);
}

#endif  // QEL_BENCH_SAMPLES_H
