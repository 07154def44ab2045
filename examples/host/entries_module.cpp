// The module of the entries. It reaches the user through whatever the application has put into its context.
#include "host_modules.h"

// What its errors name as their source.
#define QEL_SOURCE L"host/entries"

using namespace Qel::Sys;
using Text::pxFormat;

namespace {

class TEntries : public IEntryServices {
 public:
  void OpenEntry(int number) override {
    TBTEvent opened(ABT_INFO, L"EntryOpened");
    QEL_REQUIRE(number > 0, L"number > 0");
    // The user typed it, so it is kept as text: in the order and the calendar that this user types dates in.
    const CString typed = GetAppReg()->ReadText(L"Entries", pxFormat(L"Due%d", number), L"٧-٩-١٤٤٥");
    const DateTime::Date due = Text::Conversion::StrToDate(typed);
    const std::unique_ptr<DateTime::TCalendar> calendar(DateTime::CreateCalendar());
    GetAppUX()->Notify(pxFormat(L"Entry %d\nTyped: ", number) + typed + L"\nDue: " + due.ToString() + L", " +
                       calendar->ToAsc(due, 2));
    opened[L"Entry"] = number;
    opened.Save();
  }

 private:
  static std::shared_ptr<IAppReg> GetAppReg() {
    return IAppContext::GetAppContext()->GetAppSettings()->GetAppReg();
  }
};

}  // namespace

std::shared_ptr<IEntryServices> MakeEntries() {
  return std::make_shared<TEntries>();
}
