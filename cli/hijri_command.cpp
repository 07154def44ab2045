#include "calendar.h"
#include "commands.h"
#include "day.h"
#include "hijri_correction.h"
#include "output.h"
#include "pxsf.h"
#include "refusal.h"
#include "regconfig.h"
#include "settings.h"
#include "text.h"
#include "typed_month.h"

namespace Cli {

namespace {

using namespace Qel::Sys::DateTime;

// "+1", "-1", "0": as typed again, so in ASCII.
std::string Signed(int shift) {
  return Joined({shift > 0 ? "+" : "", std::to_string(shift)});
}

void ShowCorrection(int year, int month, const Options& options) {
  const int shift = THCalendar::GetHijriDateShift(month, year);
  const int days = CorrectedCalendar::DaysOfMonth(year, month);
  const Date first =
      THCalendar::HtoG(HDate(1, static_cast<unsigned short>(month), static_cast<unsigned short>(year)));
  if (options.json) {
    Print(JsonObject()
              .Add("month", EntryName(year, month))
              .Add("shift", shift)
              .Add("begins", StoredForm(first))
              .Add("days", days)
              .Line());
    return;
  }
  const std::string name = Utf8(THCalendar().GetMonthName(month));
  std::string line =
      EntryName(year, month) + "  " + Signed(shift) + "  " +
      Say(Text::MonthBegins, {name, InUserDigits(year), GregorianName(first), InUserDigits(days)});
  if (month > 1)
    line += Say(Text::MonthBefore, {InUserDigits(CorrectedCalendar::DaysOfMonth(year, month - 1))});
  Print(line + "\n");
}

// Why the correction cannot be stored.
std::optional<Refusal> WhyRefused(const TypedMonth& typed, int shift) {
  if (typed.position > 0)
    return Refusal{"month", typed.position,
                   Say(Text::NotAMonth, {InUserDigits(typed.position), InUserDigits("1446-09")})};
  const THijriShiftFault fault = CheckHijriDateShift(typed.month, typed.year, shift);
  if (fault == THijriShiftFault::None) return std::nullopt;
  if (fault == THijriShiftFault::NotAMonth)
    return Refusal{
        "month", 1,
        Say(Text::NoSuchMonth, {InUserDigits(typed.month), "", InUserDigits(1), InUserDigits(12)})};
  return Refusal{RuleOf(fault), 1, ReasonOf(fault)};
}

// 0 takes the entry away, and it is no fault when there is none.
bool Store(int year, int month, int shift) {
  const CString entry = Wide(EntryName(year, month));
  if (shift != 0) return TQelReg().WriteInteger(kHijriShiftSection, entry, shift);
  const int absent = kMostShift + 1;
  TQelReg settings;
  if (!settings.SectionExists(kHijriShiftSection)) return true;
  return settings.EraseEntry(kHijriShiftSection, entry) ||
         settings.ReadInteger(kHijriShiftSection, entry, absent) == absent;
}

}  // namespace

int RunHijriList(const Options& options) {
  LoadHijriDateShifts();
  bool any = false;
  for (int year = kFirstHijriYear; year <= kLastHijriYear; ++year)
    for (int month = 1; month <= 12; ++month) {
      if (THCalendar::GetHijriDateShift(month, year) == 0) continue;
      ShowCorrection(year, month, options);
      any = true;
    }
  if (!any) Complain(Say(Text::NoCorrections));
  return kDone;
}

int RunHijriShift(const Options& options) {
  const std::string &text = options.operands[0], &number = options.operands[1];
  const TypedMonth month = ReadMonth(text);
  int shift = 0;
  if (const auto refusal = ReadCount(number, shift)) return Refuse(number, *refusal, options);
  if (const auto refusal = WhyRefused(month, shift)) return Refuse(text + " " + number, *refusal, options);
  if (!Store(month.year, month.month, shift)) return NotStored(0, options);
  LoadHijriDateShifts();
  ShowCorrection(month.year, month.month, options);
  return kDone;
}

}  // namespace Cli
