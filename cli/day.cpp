#include "day.h"

#include "calendar.h"
#include "date_text.h"
#include "hcalendar.h"
#include "text.h"

namespace Cli {

namespace {

using Qel::Sys::DateTime::Date;
using Qel::Sys::DateTime::HDate;
using Qel::Sys::DateTime::TGCalendar;
using Qel::Sys::DateTime::THCalendar;
namespace Conversion = Qel::Sys::Text::Conversion;

constexpr int kDayMonthYear = 1;  // the style of DateToAsc

JsonObject Numbers(const Date& day) {
  return JsonObject().Add("y", day.Year()).Add("m", day.Month()).Add("d", day.Day());
}

std::string NoHijriReason() {
  return Say(Text::NoHijriDay, {GregorianName(THCalendar::FirstDay()), GregorianName(THCalendar::LastDay())});
}

}  // namespace

std::string StoredForm(const Date& day) {
  return Utf8(Conversion::SQLdToStr2(day));
}

std::string GregorianName(const Date& day) {
  return InUserDigits(Utf8(Conversion::DateToAscG(day, kDayMonthYear)));
}

std::string HijriName(const Date& day) {
  if (!THCalendar::HasHijriDate(day)) return NoHijriReason();
  return InUserDigits(Utf8(Conversion::DateToAscH(day, kDayMonthYear)));
}

std::string DayLine(const Date& day) {
  const std::string weekDay = Utf8(TGCalendar().GetDayOfWeekName(day));
  return StoredForm(day) + "  " + weekDay + "  " + GregorianName(day) + "  " + HijriName(day);
}

void AddDay(JsonObject& object, const Date& day) {
  object.Add("date", StoredForm(day)).Add("gregorian", Numbers(day));
  if (THCalendar::HasHijriDate(day))
    object.Add("hijri", Numbers(THCalendar::GtoH(day, nullptr)));
  else
    object.Add("hijri", nullptr).Add("hijri_reason", NoHijriReason());
  object.Add("weekday", TGCalendar().GetDayOfWeek(day));
}

}  // namespace Cli
