#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "calendar.h"
#include "commands.h"
#include "day.h"
#include "format.h"
#include "hcalendar.h"
#include "output.h"
#include "text.h"
#include "typed_month.h"

namespace Cli {

namespace {

using namespace Qel::Sys::DateTime;
using Qel::Sys::Settings::SysFormat;

constexpr int kDaysInWeek = 7;
constexpr int kMonthAndYear = 3;                     // the style of DateToAsc
constexpr int kLastYear = 9999;                      // of the system's dates
constexpr std::string_view kRightToLeft = "\u200F";  // tells a terminal which way a line without letters runs

int FirstYear(bool hijri) {
  return hijri ? THCalendar::GtoH(THCalendar::FirstDay()).Year() : BASEDATE;
}
int LastYear(bool hijri) {
  return hijri ? THCalendar::GtoH(THCalendar::LastDay()).Year() : kLastYear;
}
bool HasYear(bool hijri, int year) {
  return year >= FirstYear(hijri) && year <= LastYear(hijri);
}

std::string YearOutside(bool hijri, int year) {
  const std::string shown = InUserDigits(year);
  std::string reason =
      Say(Text::YearOutside, {shown, "", InUserDigits(FirstYear(hijri)), InUserDigits(LastYear(hijri))});
  if (!HasYear(!hijri, year)) return reason;
  return reason + Say(hijri ? Text::LeaveHijriOut : Text::AddHijri);
}

// The first day of the month asked for, or nothing after having said why.
std::optional<Date> FirstDay(const TCalendar& calendar, const std::string& typed) {
  const TypedMonth month = ReadMonth(typed);
  const bool hijri = UseHijriDate();
  std::string reason;
  if (month.position > 0)
    reason = Say(Text::NotAMonth, {InUserDigits(month.position), InUserDigits(hijri ? "1448-6" : "2026-11")});
  else if (month.month < 1 || month.month > 12)
    reason = Say(Text::NoSuchMonth, {InUserDigits(month.month), "", InUserDigits(1), InUserDigits(12)});
  else if (!HasYear(hijri, month.year))
    reason = YearOutside(hijri, month.year);
  else
    return calendar.SetDate(1, month.month, month.year);
  Complain(Joined({"\"", typed, "\": ", reason}));
  return std::nullopt;
}

// The first day of the month that today lies in; today may have no Hijri date.
std::optional<Date> FirstDayOfThisMonth(const TCalendar& calendar) {
  const Date today;
  if (!UseHijriDate() || THCalendar::HasHijriDate(today)) return calendar.StartOfMonth(today);
  Complain(HijriName(today));
  return std::nullopt;
}

int WeekStart(const Options& options) {
  const std::string start = !options.weekStart.empty() ? options.weekStart : SpeaksArabic() ? "sat" : "sun";
  return start == "sat" ? 0 : start == "sun" ? 1 : 2;
}

// By their numbers in the system's count, which reaches further back than the calendars'.
std::vector<Date> DaysOfMonth(const TCalendar& calendar, const Date& first) {
  std::vector<Date> days;
  const double start = first;
  const int count = static_cast<int>(calendar.EndOfMonth(first) - start) + 1;
  days.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) days.emplace_back(start + i);
  return days;
}

std::string OtherNumber(const Date& day) {
  if (UseHijriDate()) return InUserDigits(day.Day());
  return THCalendar::HasHijriDate(day) ? InUserDigits(THCalendar::GtoH(day).Day()) : "-";
}

// The name in the other calendar of the time from one day to another.
std::string OtherRange(const Date& first, const Date& last) {
  if (UseHijriDate()) return GregorianName(first) + " - " + GregorianName(last);
  for (const Date& day : {first, last})
    if (!THCalendar::HasHijriDate(day)) return HijriName(day);
  return HijriName(first) + " - " + HijriName(last);
}

// Without the blanks behind it. Arabic lines say that they are read from right to left.
std::string AsLine(std::string text) {
  text.resize(text.find_last_not_of(' ') + 1);
  return (SpeaksArabic() ? std::string(kRightToLeft) : std::string()) + text + "\n";
}

void PrintDays(const std::vector<Date>& days) {
  for (const Date& day : days) {
    JsonObject object;
    AddDay(object, day);
    Print(object.Line());
  }
}

// A month laid out in weeks.
class Grid {
 public:
  Grid(const TCalendar& calendar, const Date& first, const Options& options);
  std::string Text() const;

 private:
  std::string Cell(std::size_t index) const;
  // 0 to 6.
  int Column(const Date& day) const {
    return (m_Calendar.GetDayOfWeek(day) - m_WeekStart + kDaysInWeek) % kDaysInWeek;
  }
  std::string Heading() const;
  std::string Weeks() const;
  std::string Centred(const std::string& text) const;

  const TCalendar& m_Calendar;
  bool m_Both;
  int m_WeekStart;  // Saturday 0
  Date m_Today;
  std::vector<Date> m_Days;
  int m_Width = 0;  // of a column
};

Grid::Grid(const TCalendar& calendar, const Date& first, const Options& options)
    : m_Calendar(calendar),
      m_Both(options.both),
      m_WeekStart(WeekStart(options)),
      m_Days(DaysOfMonth(calendar, first)) {
  for (std::size_t i = 0; i < m_Days.size(); ++i)
    m_Width = std::max({m_Width, Columns(Cell(i)), 1 + Columns(Utf8(calendar.GetDayOfWeekName(m_Days[i])))});
  ++m_Width;
}

// "7", or "7 (26)" with the other calendar; today in brackets. Days are counted, since the calendar tells the days of
// a corrected month as if it had no correction.
std::string Grid::Cell(std::size_t index) const {
  const Date& day = m_Days[index];
  std::string cell = InUserDigits(static_cast<int>(index) + 1);
  if (m_Both) {
    const std::string other = Joined({"(", OtherNumber(day), ")"});
    cell += Joined({" ", Padding(other, 4), other});
  }
  return day == m_Today ? Joined({"[", cell, "]"}) : cell + " ";
}

std::string Grid::Heading() const {
  std::string names[kDaysInWeek];
  for (const Date& day : m_Days) names[Column(day)] = Utf8(m_Calendar.GetDayOfWeekName(day)) + " ";
  std::string row;
  for (const std::string& name : names) row += Padding(name, m_Width) + name;
  return row;
}

std::string Grid::Weeks() const {
  std::string rows, row(static_cast<std::size_t>(Column(m_Days.front()) * m_Width), ' ');
  for (std::size_t i = 0; i < m_Days.size(); ++i) {
    const Date& day = m_Days[i];
    const std::string cell = Cell(i);
    row += Padding(cell, m_Width) + cell;
    if (Column(day) < kDaysInWeek - 1 && day != m_Days.back()) continue;
    rows += AsLine(row);
    row.clear();
  }
  return rows;
}

std::string Grid::Centred(const std::string& text) const {
  const int missing = std::max(0, kDaysInWeek * m_Width - Columns(text));
  return AsLine(std::string(static_cast<std::size_t>(missing / 2), ' ') + text);
}

std::string Grid::Text() const {
  const Date& middle = m_Days[m_Days.size() / 2];  // in this month with any correction
  return Centred(InUserDigits(Utf8(m_Calendar.ToAsc(middle, kMonthAndYear)))) +
         Centred(OtherRange(m_Days.front(), m_Days.back())) + AsLine(Heading()) + Weeks();
}

}  // namespace

int RunCalendar(const Options& options) {
  LoadHijriDateShifts();
  const std::unique_ptr<const TCalendar> calendar(CreateCalendar());
  const auto first = options.operands.empty() ? FirstDayOfThisMonth(*calendar)
                                              : FirstDay(*calendar, options.operands.front());
  if (!first) return kUnreadable;
  if (options.json)
    PrintDays(DaysOfMonth(*calendar, *first));
  else
    Print(Grid(*calendar, *first, options).Text());
  return kDone;
}

}  // namespace Cli
