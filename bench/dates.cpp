#include <unicode/udat.h>

#include <array>
#include <cwchar>
#include <iomanip>
#include <memory>
#include <sstream>
#include <string>

#include "calendar.h"
#include "compare.h"
#include "date_text.h"
#include "samples.h"

namespace {

using namespace Qel::Sys::DateTime;
using namespace Qel::Sys::Text;
namespace chrono = std::chrono;

// Hidden from the optimiser, so that the calls stay the virtual ones that a host makes.
const TCalendar* Gregorian() {
  static const TGCalendar s_Calendar;
  const TCalendar* calendar = &s_Calendar;
  benchmark::DoNotOptimize(calendar);
  return calendar;
}

chrono::year_month_day Chrono(const Date& d) {
  return chrono::year(d.Year()) / d.Month() / d.Day();
}

void OursDayNumber(benchmark::State& state) {
  const TCalendar* calendar = Gregorian();
  Cycle(state, [&](unsigned i) {
    int number = calendar->DaysFromDate(SampleDays()[i]);
    benchmark::DoNotOptimize(number);
    benchmark::DoNotOptimize(calendar->DaysToDate(number));
  });
}

void ChronoDayNumber(benchmark::State& state) {
  Cycle(state, [](unsigned i) {
    chrono::sys_days number{Chrono(SampleDays()[i])};
    benchmark::DoNotOptimize(number);
    benchmark::DoNotOptimize(chrono::year_month_day(number));
  });
}

void IcuDayNumber(benchmark::State& state) {
  static UCalendar* const s_Calendar = OpenIcu("en");
  Cycle(state, [](unsigned i) {
    const Date& d = SampleDays()[i];
    UErrorCode status = U_ZERO_ERROR;
    SetIcu(s_Calendar, d.Day(), d.Month(), d.Year());
    const UDate number = ucal_getMillis(s_Calendar, &status);
    ucal_setMillis(s_Calendar, number, &status);
    benchmark::DoNotOptimize(ReadIcu(s_Calendar));
  });
}

void OursAddMonths(benchmark::State& state) {
  const TCalendar* calendar = Gregorian();
  Cycle(state,
        [&](unsigned i) { benchmark::DoNotOptimize(calendar->AddMonths(SampleDays()[i], SampleMonths(i))); });
}

void ChronoAddMonths(benchmark::State& state) {
  Cycle(state, [](unsigned i) {
    chrono::year_month_day d = Chrono(SampleDays()[i]) + chrono::months(SampleMonths(i));
    if (!d.ok()) d = d.year() / d.month() / chrono::last;
    benchmark::DoNotOptimize(d);
  });
}

void IcuAddMonths(benchmark::State& state) {
  static UCalendar* const s_Calendar = OpenIcu("en");
  Cycle(state, [](unsigned i) {
    const Date& d = SampleDays()[i];
    UErrorCode status = U_ZERO_ERROR;
    SetIcu(s_Calendar, d.Day(), d.Month(), d.Year());
    ucal_add(s_Calendar, UCAL_MONTH, SampleMonths(i), &status);
    benchmark::DoNotOptimize(ReadIcu(s_Calendar));
  });
}

std::wstring Typed(const Date& d) {
  return std::to_wstring(d.Day()) + L"-" + std::to_wstring(d.Month()) + L"-" + std::to_wstring(d.Year());
}

const std::array<std::wstring, 1024>& TypedDays() {
  static const auto s_Texts = [] {
    std::array<std::wstring, 1024> texts;
    for (unsigned i = 0; i < texts.size(); ++i) texts[i] = Typed(SampleDays()[i]);
    return texts;
  }();
  return s_Texts;
}

void OursRead(benchmark::State& state) {
  Date day(1, 1, 2000);
  Cycle(state, [&](unsigned i) {
    benchmark::DoNotOptimize(Conversion::StrToDate(TypedDays()[i].c_str(), day));
    benchmark::DoNotOptimize(day);
  });
}

void SwscanfRead(benchmark::State& state) {
  Cycle(state, [](unsigned i) {
    unsigned short day = 0, month = 0, year = 0;
    benchmark::DoNotOptimize(std::swscanf(TypedDays()[i].c_str(), L"%hu-%hu-%hu", &day, &month, &year));
    benchmark::DoNotOptimize(day + month + year);
  });
}

void IcuRead(benchmark::State& state) {
  UErrorCode status = U_ZERO_ERROR;
  static UDateFormat* const s_Format =
      udat_open(UDAT_PATTERN, UDAT_PATTERN, "en", u"UTC", 3, u"d-M-yyyy", -1, &status);
  static UCalendar* const s_Calendar = OpenIcu("en");
  std::array<std::u16string, 1024> texts;
  for (unsigned i = 0; i < texts.size(); ++i) texts[i].assign(TypedDays()[i].begin(), TypedDays()[i].end());
  Cycle(state, [&](unsigned i) {
    UErrorCode result = U_ZERO_ERROR;
    udat_parseCalendar(s_Format, s_Calendar, texts[i].data(), static_cast<int32_t>(texts[i].size()), nullptr,
                       &result);
    benchmark::DoNotOptimize(ReadIcu(s_Calendar));
  });
}

void OursWrite(benchmark::State& state) {
  Cycle(state, [](unsigned i) { benchmark::DoNotOptimize(Conversion::ToString(SampleDays()[i])); });
}

void SwprintfWrite(benchmark::State& state) {
  Cycle(state, [](unsigned i) {
    const Date& d = SampleDays()[i];
    wchar_t text[32];
    std::swprintf(text, 32, L"%u-%u-%u", d.Day(), d.Month(), d.Year());
    benchmark::DoNotOptimize(std::wstring(text));
  });
}

void StreamWrite(benchmark::State& state) {
  Cycle(state, [](unsigned i) {
    const Date& d = SampleDays()[i];
    std::wostringstream text;
    text << d.Day() << L'-' << d.Month() << L'-' << d.Year();
    benchmark::DoNotOptimize(text.str());
  });
}

const bool kAdded =
    Compare("day number and back", OursDayNumber,
            {{"std::chrono", AtMost(2.5), ChronoDayNumber}, {"ICU Gregorian", AtLeast(20), IcuDayNumber}}) &&
    Compare("AddMonths, Gregorian", OursAddMonths,
            {{"std::chrono", AtMost(2), ChronoAddMonths}, {"ICU Gregorian", AtLeast(100), IcuAddMonths}}) &&
    Compare("StrToDate", OursRead,
            {{"swscanf", AtLeast(5), SwscanfRead}, {"ICU date format", AtLeast(80), IcuRead}}) &&
    Compare("ToString of a date", OursWrite,
            {{"swprintf", AtLeast(4), SwprintfWrite}, {"std::wostringstream", AtLeast(10), StreamWrite}});

}  // namespace
