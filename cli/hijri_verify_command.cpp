#include <optional>

#include "commands.h"
#include "day.h"
#include "exceptions.h"
#include "hijri_correction.h"
#include "output.h"
#include "text.h"

namespace Cli {

namespace {

using namespace Qel::Sys::DateTime;

// Prints findings in the form asked for.
class Findings {
 public:
  explicit Findings(bool json) : m_Json(json) {}
  bool Any() const { return m_Any; }
  void Add(JsonObject members, const std::string& text) {
    m_Any = true;
    Print(m_Json ? members.Add("text", text).Line() : text + "\n");
  }

 private:
  bool m_Json;
  bool m_Any = false;
};

void FindSkipped(Findings& findings) {
  for (const THijriShiftSkipped& skipped : LoadHijriDateShifts()) {
    const std::string entry = Utf8(skipped.entry);
    JsonObject members;
    members.Add("finding", "skipped").Add("entry", entry).Add("rule", RuleOf(skipped.fault));
    findings.Add(members, Say(Text::SkippedEntry, {entry, ReasonOf(skipped.fault)}));
  }
}

void FindOddLengths(Findings& findings) {
  for (int year = kFirstHijriYear; year <= kLastHijriYear; ++year)
    for (int month = 1; month <= 12; ++month) {
      const int days = CorrectedCalendar::DaysOfMonth(year, month);
      if (days == 29 || days == 30) continue;
      const std::string entry = EntryName(year, month), name = Utf8(THCalendar().GetMonthName(month));
      JsonObject members;
      members.Add("finding", "length").Add("month", entry).Add("days", days);
      findings.Add(members, Say(Text::OddLength, {entry, name, InUserDigits(year), InUserDigits(days)}));
    }
}

// What becomes of a stored day that is shown as a Hijri date and typed again.
struct WayBack {
  Date day, readAs;
  std::string shown;
  std::string raised;  // in place of a date
  int Distance() const { return TGCalendar().DateDifference(readAs, day); }
};

WayBack GoThereAndBack(const Date& day) {
  try {
    const HDate shown = THCalendar::GtoH(day);
    return {day, THCalendar::HtoG(shown), HijriName(day), {}};
  } catch (Qel::Sys::Exceptions::qel_exception* e) {
    const std::string raised = Utf8(e->GetError());
    e->Delete();
    return {day, day, {}, raised};
  }
}

void Report(Findings& findings, const WayBack& first, const WayBack& last) {
  const bool raises = !first.raised.empty();
  const std::string from = StoredForm(first.day), to = StoredForm(last.day);
  JsonObject members;
  members.Add("finding", raises ? "raises" : "read_back").Add("from", from).Add("to", to);
  if (raises) {
    findings.Add(members, Say(Text::DayRaises, {from, to, first.raised}));
    return;
  }
  const std::string readFrom = StoredForm(first.readAs), readTo = StoredForm(last.readAs);
  members.Add("read_from", readFrom).Add("read_to", readTo);
  findings.Add(members, Say(Text::ReadBackOtherwise, {from, to, first.shown, last.shown, readFrom, readTo}));
}

// Days in a row that are off by the same number of days make one finding.
void FindDaysThatDoNotComeBack(Findings& findings) {
  std::optional<WayBack> first, last;
  const double begin = THCalendar::FirstDay();
  const int days = static_cast<int>(THCalendar::LastDay() - begin) + 1;
  for (int i = 0; i < days; ++i) {
    const WayBack way = GoThereAndBack(Date(begin + i));
    const bool same = last && way.raised == last->raised && way.Distance() == last->Distance();
    if (first && !same) {
      Report(findings, *first, *last);
      first.reset();
    }
    last.reset();
    if (way.raised.empty() && way.readAs == way.day) continue;
    if (!first) first = way;
    last = way;
  }
  if (first) Report(findings, *first, *last);
}

}  // namespace

int RunHijriVerify(const Options& options) {
  Findings findings(options.json);
  FindSkipped(findings);
  FindOddLengths(findings);
  FindDaysThatDoNotComeBack(findings);
  if (findings.Any()) return kNo;
  if (!options.json)
    Print(Say(Text::AllComesBack,
              {GregorianName(THCalendar::FirstDay()), GregorianName(THCalendar::LastDay())}) +
          "\n");
  return kDone;
}

}  // namespace Cli
