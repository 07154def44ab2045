// A host in fifteen lines: it reads a Hijri date that a user typed, moves it on by a month, and shows it.
#include <qelcoretypes.h>

#include <iostream>
#include <memory>

using namespace Qel::Sys;

int main() {
  Settings::SysFormat.UseHijri = true;   // users type and see Hijri dates; what is stored is Gregorian
  Settings::SysFormat.ResLangId = 1033;  // names in English
  const auto showDue = [] {
    DateTime::Date due;
    if (!Text::Conversion::StrToDate(L"٧-٩-١٤٤٥", due)) return;
    const std::unique_ptr<DateTime::TCalendar> calendar(DateTime::CreateCalendar());
    due = calendar->AddMonths(due, 1);
    std::cout << Qel::ToUtf8(due.ToString() + L"  " + calendar->ToAsc(due, 2)) << '\n';
  };
  Qel::Report(showDue, [](const CString& report) { std::cerr << Qel::ToUtf8(report); });
}
