// A correction of a Hijri month as `qel` shows it.
#ifndef QEL_CLI_HIJRI_CORRECTION_H
#define QEL_CLI_HIJRI_CORRECTION_H

#include <string>

#include "hcalendar.h"

namespace Cli {

// The calendar with the steps that tell of corrections.
class CorrectedCalendar : public Qel::Sys::DateTime::THCalendar {
 public:
  // NOLINTNEXTLINE(bugprone-reserved-identifier): the library's name
  static int DaysOfMonth(int year, int month) { return _GetDaysOfMonth(year, month); }
};

inline constexpr int kFirstHijriYear = 1306, kLastHijriYear = 1499;  // of the table
inline constexpr int kMostShift = 2;                                 // days, either way

// The name under which a correction is stored: 1446-09.
std::string EntryName(int year, int month);

// Why a correction is skipped or refused: a word for programs, and the sentence.
const char* RuleOf(Qel::Sys::DateTime::THijriShiftFault fault);
std::string ReasonOf(Qel::Sys::DateTime::THijriShiftFault fault);

}  // namespace Cli

#endif  // QEL_CLI_HIJRI_CORRECTION_H
