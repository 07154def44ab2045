// A day as `qel` shows it.
#ifndef QEL_CLI_DAY_H
#define QEL_CLI_DAY_H

#include <string>

#include "date.h"
#include "json.h"

namespace Cli {

// YYYY-MM-DD, in ASCII whatever the language.
std::string StoredForm(const Qel::Sys::DateTime::Date& day);

// "7 March 2024" or "26 Shaban 1445", in the user's language and digits. A day without a Hijri date gives the
// reason.
std::string GregorianName(const Qel::Sys::DateTime::Date& day);
std::string HijriName(const Qel::Sys::DateTime::Date& day);

// The stored form, the day of the week, and the names in both calendars.
std::string DayLine(const Qel::Sys::DateTime::Date& day);

// Members "date", "gregorian", "hijri" (null outside the year table, then with "hijri_reason") and "weekday"
// (Saturday 0 to Friday 6).
void AddDay(JsonObject& object, const Qel::Sys::DateTime::Date& day);

}  // namespace Cli

#endif  // QEL_CLI_DAY_H
