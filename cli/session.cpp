#include "session.h"

#include <memory>

#include "date_text.h"
#include "format.h"
#include "iappcontext.h"
#include "output.h"
#include "text.h"

namespace Cli {

namespace {

using Qel::Sys::DateTime::Date;
using Qel::Sys::Settings::Format;
using Qel::Sys::Settings::SysFormat;
namespace Conversion = Qel::Sys::Text::Conversion;

constexpr LANGID kEnglish = 1033;
constexpr LANGID kArabic = 0x2801;

class TQelContext : public IAppContext {
 public:
  void InitContext() override {}
};

// Noon of one day, for ever.
class FixedClock : public ISysTimeProvider {
 public:
  explicit FixedClock(const Date& day) : m_Now{day.Year(), day.Month(), 0, day.Day(), 12, 0, 0, 0} {}
  SYSTEMTIME GetTickCount() override { return m_Now; }

 private:
  SYSTEMTIME m_Now;
};

bool PretendToday(const std::string& text) {
  SysFormat.DateFmt = Format::DF_YYYYMMDD;
  const Conversion::DateReading reading = Conversion::ReadDateText(Wide(text));
  if (!reading.valid || reading.fields < 3 || reading.stopped >= 0) return false;
  IAppContext::GetAppContext()->SetTimeProvider(std::make_shared<FixedClock>(reading.date));
  return true;
}

}  // namespace

bool StartSession(const Options& options) {
  CreateAppContext<TQelContext>();
  if (!options.today.empty() && !PretendToday(options.today)) {
    Complain(Say(Text::NotToday, {options.today}));
    return false;
  }
  SysFormat.DateFmt = options.order == "ymd" ? Format::DF_YYYYMMDD : Format::DF_DDMMYYYY;
  SysFormat.UseHijri = options.hijri;
  SysFormat.ResLangId = options.language == "ar" ? kArabic : kEnglish;
  return true;
}

}  // namespace Cli
