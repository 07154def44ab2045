#include "hijri_correction.h"

#include <cstdio>

#include "text.h"

namespace Cli {

using Fault = Qel::Sys::DateTime::THijriShiftFault;

std::string EntryName(int year, int month) {
  char name[32];
  std::snprintf(name, sizeof name, "%04d-%02d", year, month);
  return name;
}

const char* RuleOf(Fault fault) {
  switch (fault) {
    case Fault::NotAMonth:
      return "month";
    case Fault::YearOutside:
      return "year";
    case Fault::NotAnInteger:
      return "integer";
    case Fault::ShiftOutside:
      return "shift";
    case Fault::LateStartOfYear:
      return "start_of_year";
    case Fault::None:
      break;
  }
  return "";
}

std::string ReasonOf(Fault fault) {
  const auto digits = [](int number) { return InUserDigits(number); };
  switch (fault) {
    case Fault::NotAMonth:
      return Say(Text::StoredMonthName);
    case Fault::YearOutside:
      return Say(Text::YearsOfTable, {digits(kFirstHijriYear), digits(kLastHijriYear)});
    case Fault::NotAnInteger:
      return Say(Text::StoredNotInteger);
    case Fault::ShiftOutside:
      return Say(Text::ShiftOutside, {digits(-kMostShift), digits(kMostShift)});
    case Fault::LateStartOfYear:
      return Say(Text::LateStartOfYear);
    case Fault::None:
      break;
  }
  return {};
}

}  // namespace Cli
