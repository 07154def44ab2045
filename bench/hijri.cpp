#ifdef QEL_BENCH_QT
#include <QtCore/QCalendar>
#include <QtCore/QDate>
#endif

#include <vector>

#include "compare.h"
#include "hcalendar.h"
#include "samples.h"

namespace {

using namespace Qel::Sys::DateTime;

const std::vector<HDate>& HijriSamples() {
  static const auto s_Days = [] {
    std::vector<HDate> days;
    for (const Date& day : SampleDays()) days.push_back(THCalendar::GtoH(day, nullptr));
    return days;
  }();
  return s_Days;
}

void OursToHijri(benchmark::State& state) {
  Cycle(state, [](unsigned i) { benchmark::DoNotOptimize(THCalendar::GtoH(SampleDays()[i], nullptr)); });
}

void OursToGregorian(benchmark::State& state) {
  Cycle(state, [](unsigned i) { benchmark::DoNotOptimize(THCalendar::HtoG(HijriSamples()[i])); });
}

void OursAddMonths(benchmark::State& state) {
  static const THCalendar s_Calendar;
  const TCalendar* calendar = &s_Calendar;
  benchmark::DoNotOptimize(calendar);
  Cycle(state,
        [&](unsigned i) { benchmark::DoNotOptimize(calendar->AddMonths(SampleDays()[i], SampleMonths(i))); });
}

// Runs `body` while 100 months of 1440 .. 1449 start a day early.
template <Body Run>
void Corrected(benchmark::State& state) {
  HijriSamples();
  const auto setAll = [](int shift) {
    for (int i = 0; i < 100; ++i) THCalendar::SetHijriDateShift(i % 12 + 1, 1440 + i / 12, shift);
  };
  setAll(-1);
  Run(state);
  setAll(0);
}

// The same work on a civil Hijri calendar of ICU.
UCalendar* IcuHijri() {
  static UCalendar* const s_Calendar = OpenIcu("en@calendar=islamic-civil");
  return s_Calendar;
}

UCalendar* IcuGregorian() {
  static UCalendar* const s_Calendar = OpenIcu("en");
  return s_Calendar;
}

int IcuConvert(UCalendar* from, UCalendar* to, const Date& d) {
  UErrorCode status = U_ZERO_ERROR;
  SetIcu(from, d.Day(), d.Month(), d.Year());
  ucal_setMillis(to, ucal_getMillis(from, &status), &status);
  return ReadIcu(to);
}

void IcuToHijri(benchmark::State& state) {
  Cycle(state, [](unsigned i) {
    benchmark::DoNotOptimize(IcuConvert(IcuGregorian(), IcuHijri(), SampleDays()[i]));
  });
}

void IcuToGregorian(benchmark::State& state) {
  Cycle(state, [](unsigned i) {
    benchmark::DoNotOptimize(IcuConvert(IcuHijri(), IcuGregorian(), HijriSamples()[i]));
  });
}

void IcuAddMonths(benchmark::State& state) {
  Cycle(state, [](unsigned i) {
    const Date& d = SampleDays()[i];
    UErrorCode status = U_ZERO_ERROR;
    SetIcu(IcuGregorian(), d.Day(), d.Month(), d.Year());
    ucal_setMillis(IcuHijri(), ucal_getMillis(IcuGregorian(), &status), &status);
    ucal_add(IcuHijri(), UCAL_MONTH, SampleMonths(i), &status);
    ucal_setMillis(IcuGregorian(), ucal_getMillis(IcuHijri(), &status), &status);
    benchmark::DoNotOptimize(ReadIcu(IcuGregorian()));
  });
}

#ifdef QEL_BENCH_QT
void QtToHijri(benchmark::State& state) {
  const QCalendar calendar(QCalendar::System::IslamicCivil);
  Cycle(state, [&](unsigned i) {
    const Date& d = SampleDays()[i];
    benchmark::DoNotOptimize(calendar.partsFromDate(QDate(d.Year(), d.Month(), d.Day())));
  });
}

void QtToGregorian(benchmark::State& state) {
  const QCalendar calendar(QCalendar::System::IslamicCivil);
  Cycle(state, [&](unsigned i) {
    const HDate& d = HijriSamples()[i];
    int year = 0, month = 0, day = 0;
    calendar.dateFromParts(d.Year(), d.Month(), d.Day()).getDate(&year, &month, &day);
    benchmark::DoNotOptimize(year + month + day);
  });
}
#else
constexpr Body QtToHijri = nullptr, QtToGregorian = nullptr;
#endif

const bool kAdded =
    Compare("Gregorian to Hijri", OursToHijri,
            {{"QCalendar", AtLeast(1), QtToHijri}, {"ICU civil", AtLeast(20), IcuToHijri}}) &&
    Compare("Hijri to Gregorian", OursToGregorian,
            {{"QCalendar", AtLeast(1.3), QtToGregorian}, {"ICU civil", AtLeast(8), IcuToGregorian}}) &&
    Compare("AddMonths, Hijri", OursAddMonths, {{"ICU civil", AtLeast(40), IcuAddMonths}}) &&
    Compare("Gregorian to Hijri, 100 corrections", Corrected<OursToHijri>,
            {{"without corrections", AtMost(1.5), OursToHijri}}) &&
    Compare("Hijri to Gregorian, 100 corrections", Corrected<OursToGregorian>,
            {{"without corrections", AtMost(1.5), OursToGregorian}});

}  // namespace
