#include "text.h"

#include <array>
#include <cstddef>

#include "utf8.h"

namespace Cli {

namespace {

struct Entry {
  Text id;
  const char* english;
  const char* arabic;
};

constexpr Entry kEntries[] = {
    {Text::About, "Dates in the Gregorian and the Hijri calendar, and numbers, as QelCoreTypes reads them.",
     "التواريخ الميلادية والهجرية والأعداد كما تقرؤها QelCoreTypes."},
    {Text::Date, "Read dates as they are typed and show the stored day in both calendars",
     "قراءة التواريخ كما تكتب وعرض اليوم المخزن بالتقويمين"},
    {Text::DateAdd, "Add days, months or years to a date", "إضافة أيام أو أشهر أو سنوات إلى تاريخ"},
    {Text::DateDiff, "The days from B to A, below zero when A is earlier",
     "عدد الأيام من B إلى A، وهو سالب إذا كان A أسبق"},
    {Text::Calendar, "Show a month as a grid", "عرض شهر في جدول"},
    {Text::Calc, "Read numbers as a number field does: 12*3, 1,234.5, 2k (thousands), 3d (dozens)",
     "قراءة الأعداد كما تقرؤها خانة رقمية: 12*3 و1,234.5 و2k (آلاف) و3d (دزينات)"},
    {Text::Hijri, "Corrections of Hijri months that began otherwise than the table says",
     "تصحيح الأشهر الهجرية التي بدأت على خلاف الجدول"},
    {Text::HijriList, "Show the corrections that are stored", "عرض التصحيحات المخزنة"},
    {Text::HijriShift, "Store by how many days a month begins later, below zero earlier; 0 takes it back",
     "تخزين عدد الأيام التي يتأخر بها أول الشهر، والسالب للتقدم، و0 للإلغاء"},
    {Text::HijriVerify, "Show corrections that were skipped and what the others lead to",
     "عرض ما أهمل من التصحيحات وما يترتب على غيره"},
    {Text::Color, "Show colours with their parts; without any, all that have a name",
     "عرض الألوان بأجزائها، ومن دون معطيات كل لون له اسم"},
    {Text::ColorLighten, "Add to each channel", "الزيادة على كل قناة"},
    {Text::ColorDarken, "Take from each channel", "الإنقاص من كل قناة"},
    {Text::ColorMerge, "The mean of two colours", "متوسط لونين"},
    {Text::ColorHls, "Move lightness and saturation by percentages of the room there is",
     "تغيير السطوع والإشباع بنسبة مئوية مما بقي لهما"},
    {Text::Struct, "Turn binary records into stored text and back",
     "تحويل السجلات الثنائية إلى نص مخزن وبالعكس"},
    {Text::StructEncode, "Show the text of bytes", "عرض نص البايتات"},
    {Text::StructDecode, "Show the bytes of a text", "عرض بايتات النص"},
    {Text::Error, "Show a sample exception with its plain and its HTML report",
     "عرض استثناء نموذجي بتقريريه النصي وHTML"},
    {Text::Version, "Show the versions", "عرض الإصدار"},
    {Text::OptionHelp, "Show this help", "عرض هذه المساعدة"},
    {Text::OptionLanguage, "Answer in English or in Arabic; otherwise in the language of your system",
     "لغة الجواب، وإلا فلغة النظام"},
    {Text::OptionJson, "Answer with one JSON object a line", "الجواب بكائن JSON في كل سطر"},
    {Text::OptionToday, "Pretend that today is this day", "افتراض أن اليوم هو هذا التاريخ"},
    {Text::OptionOrder, "What comes first in a date: the day (dmy, the default) or the year (ymd)",
     "ما يأتي أولا في التاريخ: اليوم (dmy وهو المفترض) أو السنة (ymd)"},
    {Text::OptionHijri, "Dates are Hijri dates; months and years to add are Hijri ones",
     "التواريخ هجرية، والأشهر والسنوات المضافة هجرية"},
    {Text::OptionExplain, "Tell how each text was read", "بيان كيف قرئ كل نص"},
    {Text::OptionBoth, "Show the day of the other calendar beside each day",
     "عرض اليوم المقابل في التقويم الآخر بجانب كل يوم"},
    {Text::OptionHijriMonth, "The month is a Hijri month", "الشهر هجري"},
    {Text::OptionWeekStart, "The first day of the week (sat in Arabic, sun in English)",
     "أول أيام الأسبوع (sat بالعربية وsun بالإنكليزية)"},
    {Text::OptionSwatch, "Paint each colour: always, never, or only on a terminal (auto, the default)",
     "تلوين خانة لكل لون: دائما always أو أبدا never أو على الشاشة فقط auto وهو المفترض"},
    {Text::OptionSize, "Only texts of records of N bytes", "نصوص السجلات التي طولها N بايت فقط"},
    {Text::OperandDates, "Dates such as 7-3-2024, or - to read one from each line of the input",
     "تواريخ مثل 7-3-2024، أو - لقراءة تاريخ من كل سطر من الدخل"},
    {Text::OperandDate, "A date such as 7-3-2024", "تاريخ مثل 7-3-2024"},
    {Text::OperandCount, "How many to add, below zero to take away", "العدد المضاف، والسالب للطرح"},
    {Text::OperandUnit, "days, months or years", "days (أيام) أو months (أشهر) أو years (سنوات)"},
    {Text::OperandFirst, "The date to count to", "التاريخ الذي ينتهي عنده العد"},
    {Text::OperandSecond, "The date to count from", "التاريخ الذي يبدأ منه العد"},
    {Text::OperandMonth, "YYYY-MM; otherwise this month", "YYYY-MM، وإلا فالشهر الحالي"},
    {Text::OperandExpressions,
     "What to read; everything after the first one is one too, even with a - in front",
     "ما يقرأ، وكل ما بعد الأول مثله ولو بدأ بـ -"},
    {Text::OperandHijriMonth, "The Hijri year and month, such as 1446-09", "السنة والشهر الهجريان مثل 1446-09"},
    {Text::OperandShift, "Days, -2 to 2", "عدد الأيام من -2 إلى 2"},
    {Text::OperandColors,
     "Colours such as 230,10,0 or '#E60A00' (red first), LtBlue, or 0x00000AE6 as stored",
     "ألوان مثل 230,10,0 أو '#E60A00' (الأحمر أولا) أو LtBlue أو 0x00000AE6 كما يخزن"},
    {Text::OperandColor, "A colour such as 230,10,0 or LtBlue", "لون مثل 230,10,0 أو LtBlue"},
    {Text::OperandChannels, "How much, 0 to 255", "المقدار من 0 إلى 255"},
    {Text::OperandLightness, "Lightness: 100 to white, -100 to black, 0 stays",
     "السطوع: 100 أبيض، -100 أسود، 0 كما هو"},
    {Text::OperandSaturation, "Saturation: 100 to full, -100 to grey, 0 stays",
     "الإشباع: 100 كامل، -100 رمادي، 0 كما هو"},
    {Text::OperandBytes,
     "Bytes as pairs of hexadecimal digits, or - to read some from each line of the input",
     "بايتات، كل منها رقمان ستة عشريان، أو - لقراءتها من كل سطر من الدخل"},
    {Text::OperandRecord, "Texts such as 000201AB, or - to read one from each line of the input",
     "نصوص مثل 000201AB، أو - لقراءة نص من كل سطر من الدخل"},
    {Text::Usage, "Usage", "الاستعمال"},
    {Text::Option, "OPTION...", "خيارات"},
    {Text::Options, "Options", "الخيارات"},
    {Text::Operands, "Arguments", "المعطيات"},
    {Text::Commands, "Commands", "الأوامر"},
    {Text::Command, "COMMAND", "أمر"},

    {Text::ExitCodes,
     "Exit codes: 0 done, 1 the output was lost, 2 a wrong command line, 3 a text that could not be read",
     "رموز الخروج: 0 تم، 1 ضاع الناتج، 2 سطر أوامر خاطئ، 3 نص لا يقرأ"},
    {Text::NotExpected, "\"{0}\" is not expected here", "\"{0}\" غير متوقع هنا"},
    {Text::NoCommand, "a command is missing, one of {0}", "لم يذكر أمر من {0}"},
    {Text::OperandMissing, "{0} is missing", "{0} غير مذكور"},
    {Text::ValueMissing, "{0} needs a value behind it", "{0} يحتاج إلى قيمة بعده"},
    {Text::NotOneOf, "\"{0}\" is none of {1}", "\"{0}\" ليس من {1}"},
    {Text::NotToday, "--today: \"{0}\" is no day from 1901 to 2099; write it as 2024-03-07",
     "--today: \"{0}\" ليس يوما بين 1901 و2099؛ اكتبه هكذا 2024-03-07"},
    {Text::MoreAbout, "\"{0} --help\" tells more", "للمزيد: \"{0} --help\""},

    {Text::TwoClauses, "{0}; {1}", "{0}؛ {1}"},
    {Text::NoNumber, "no date found", "لا تاريخ فيه"},
    {Text::StoppedAt, "read {0}, stopped at \"{1}\" (position {2})",
     "قرئ {0} وتوقفت القراءة عند \"{1}\" (الموضع {2})"},
    {Text::WriteInstead, "write {0}", "اكتب {0}"},
    {Text::WriteDate, "write a date such as {0}", "اكتب تاريخا مثل {0}"},
    {Text::NoSuchMonth, "there is no month {0}{1}; months go from {2} to {3}",
     "لا يوجد شهر {0}{1}؛ الأشهر من {2} إلى {3}"},
    {Text::NoSuchDay, "there is no day {0}{1}; {2} {3} has {4} days",
     "لا يوجد يوم {0}{1}؛ آخر أيام {2} {3} هو {4}"},
    {Text::YearOutside, "the year {0}{1} is outside {2} to {3}", "السنة {0}{1} خارج المدى من {2} إلى {3}"},
    {Text::NoSuchHijriDay, "there is no day {0}{1}; a Hijri month has {2} days at most",
     "لا يوجد يوم {0}{1}؛ لا يزيد الشهر الهجري على {2} يوما"},
    {Text::AtPosition, " (position {0})", " (الموضع {0})"},
    {Text::OfToday, " (taken from today)", " (من تاريخ اليوم)"},
    {Text::OfFirstOrder, " (left from the order tried first)", " (بقي من الترتيب الأول)"},
    {Text::AddHijri, "; for a Hijri date add --hijri", "؛ للتاريخ الهجري أضف --hijri"},
    {Text::LeaveHijriOut, "; for a Gregorian date leave --hijri out", "؛ للتاريخ الميلادي احذف --hijri"},
    {Text::TodayHasNone, "a part is missing and today has ", "في التاريخ نقص، وتاريخ اليوم "},
    {Text::NoHijriDay, "no Hijri date: outside {0} to {1}", "لا تاريخ هجري: خارج المدة من {0} إلى {1}"},
    {Text::OutsideTable, "the result has no Hijri date: it is outside {0} to {1}",
     "ليس للنتيجة تاريخ هجري: هي خارج المدة من {0} إلى {1}"},
    {Text::OutsideCalendar, "the result is outside the years {0} to {1}",
     "النتيجة خارج السنوات من {0} إلى {1}"},
    {Text::NotACount, "not a whole number (position {0}); write one such as {1}",
     "ليس عددا صحيحا (الموضع {0})؛ اكتب عددا مثل {1}"},
    {Text::CountTooLarge, "more than can be added; the most is {0}", "أكثر مما يمكن إضافته؛ أكبر عدد هو {0}"},
    {Text::NotAMonth, "no month (position {0}); write the year and the month, such as {1}",
     "ليس شهرا (الموضع {0})؛ اكتب السنة ثم الشهر مثل {1}"},
    {Text::InLine, "line {0}: ", "السطر {0}: "},

    {Text::ReadAs, "read {0} as {1}", "قرئ {0} بترتيب {1}"},
    {Text::DayFirst, "day, month, year", "اليوم ثم الشهر ثم السنة"},
    {Text::YearFirst, "year, month, day", "السنة ثم الشهر ثم اليوم"},
    {Text::AsGregorian, "the calendar is Gregorian", "التقويم ميلادي"},
    {Text::AsHijri, "the calendar is Hijri", "التقويم هجري"},
    {Text::FromToday, "what is missing is taken from today", "ما نقص أخذ من تاريخ اليوم"},
    {Text::YearCompleted, "the year is taken as {0}", "السنة تعني {0}"},
    {Text::Rejected, "not as {0}: {1}", "لا بترتيب {0}: {1}"},

    {Text::NumberEmpty, "no number found; write one such as 1,234.5, 12*3 or 2k",
     "لا عدد فيه؛ اكتب عددا مثل 1,234.5 أو 12*3 أو 2k"},
    {Text::NumberStopped,
     "stopped at \"{0}\" (position {1}); write digits, one point and + - * / without blanks",
     "توقفت القراءة عند \"{0}\" (الموضع {1})؛ اكتب أرقاما وفاصلة واحدة و + - * / بلا فراغات"},
    {Text::DivisionByZero, "division by zero at {0}", "قسمة على صفر عند الموضع {0}"},
    {Text::SecondPoint, "a second decimal point at {0}", "فاصلة عشرية ثانية عند الموضع {0}"},
    {Text::OutsideRange, "{0} is outside {1} to {2}", "{0} خارج المدى من {1} إلى {2}"},

    {Text::NoCorrections, "no corrections are stored", "لا تصحيحات مخزنة"},
    {Text::MonthBegins, "{0} {1} begins on {2} and has {3} days", "{0} {1} يبدأ في {2} وعدد أيامه {3}"},
    {Text::MonthBefore, "; the month before has {0}", "؛ وعدد أيام الشهر السابق {0}"},
    {Text::StoredMonthName, "the name is no year and month such as 1446-09", "الاسم ليس سنة وشهرا مثل 1446-09"},
    {Text::StoredNotInteger, "the value is not stored as an integer", "القيمة ليست مخزنة كعدد صحيح"},
    {Text::ShiftOutside, "a month moves by {0} to {1} days", "لا يتحرك الشهر إلا من {0} إلى {1} من الأيام"},
    {Text::YearsOfTable, "the year is outside {0} to {1}", "السنة خارج المدى من {0} إلى {1}"},
    {Text::LateStartOfYear, "Muharram cannot begin later: the table fixes the start of the year",
     "لا يتأخر أول المحرم: بداية السنة يحددها الجدول"},
    {Text::NotStored, "the settings could not be written", "تعذرت كتابة الإعدادات"},
    {Text::SkippedEntry, "{0}: skipped; {1}", "{0}: أهمل؛ {1}"},
    {Text::OddLength, "{0}: {1} {2} has {3} days", "{0}: {1} {2} عدد أيامه {3}"},
    {Text::ReadBackOtherwise, "{0} to {1}: shown as {2} to {3}, which is read as {4} to {5}",
     "{0} إلى {1}: يعرض {2} إلى {3}، ويقرأ ذلك {4} إلى {5}"},
    {Text::DayRaises, "{0} to {1}: has no Hijri date ({2})", "{0} إلى {1}: لا تاريخ هجريا له ({2})"},
    {Text::AllComesBack, "nothing to report: every day from {0} to {1} is read back as it is shown",
     "لا شيء يذكر: كل يوم من {0} إلى {1} يقرأ كما يعرض"},

    {Text::WriteColor, "write one such as 230,10,0, #E60A00, LtBlue or 0x00000AE6",
     "اكتب لونا مثل 230,10,0 أو #E60A00 أو LtBlue أو 0x00000AE6"},
    {Text::ColorEmpty, "no colour found", "لا لون فيه"},
    {Text::ColorUnknown, "no colour has this name; \"qel color\" lists those there are",
     "لا لون بهذا الاسم؛ الأمر \"qel color\" يعرض الأسماء"},
    {Text::ColorDidYouMean, "no colour has this name; did you mean {0}?", "لا لون بهذا الاسم؛ هل تقصد {0}؟"},
    {Text::ColorDigits, "{0} hexadecimal digits, and a colour has {1} here",
     "عدد الأرقام الستة عشرية {0}، وللون هنا {1}"},
    {Text::ColorWordDigits, "{0} hexadecimal digits, and a stored colour has {1} at most",
     "عدد الأرقام الستة عشرية {0}، ولا تزيد في اللون المخزن على {1}"},
    {Text::ColorParts, "a colour has three parts with a comma between; this one stops at position {0}",
     "للون ثلاثة أجزاء بينها فاصلة؛ وهذا ينقطع عند الموضع {0}"},
    {Text::ColorStopped, "\"{0}\" is not expected here (position {1})", "\"{0}\" غير متوقع هنا (الموضع {1})"},

    {Text::NotHex, "\"{0}\" is no hexadecimal digit (position {1})",
     "\"{0}\" ليس رقما ستة عشريا (الموضع {1})"},
    {Text::HalfByte, "the last byte has one digit (position {0}); a byte has two",
     "للبايت الأخير رقم واحد (الموضع {0})؛ ولكل بايت رقمان"},
    {Text::RecordTooLarge, "{0} bytes; a record has {1} at most", "عدد البايتات {0}، ولا يزيد السجل على {1}"},
    {Text::RecordCutOff, "cut off at position {0}, announced bytes: {1}; missing digits were read as 0",
     "ينقطع عند الموضع {0}، وعدد البايتات المعلن {1}؛ وقرئت الأرقام الناقصة أصفارا"},
    {Text::RecordLonger, "announced bytes: {0}; what follows from position {1} on was not read",
     "عدد البايتات المعلن {0}؛ ولم يقرأ ما بعد ذلك من الموضع {1}"},
    {Text::RecordSize, "announced bytes: {0}, not {1}", "عدد البايتات المعلن {0} لا {1}"},

    {Text::Versions, "qel {0}, library version text {1}", "qel {0}، نص إصدار المكتبة {1}"},
    {Text::PlainReport, "The plain report", "التقرير النصي"},
    {Text::HtmlReport, "The HTML report", "تقرير HTML"},
    {Text::OutputLost, "the output could not be written", "تعذرت كتابة الناتج"},
};

constexpr bool InOrder() {
  for (std::size_t i = 0; i < std::size(kEntries); ++i)
    if (kEntries[i].id != static_cast<Text>(i)) return false;
  return std::size(kEntries) == static_cast<std::size_t>(Text::Count);
}
static_assert(InOrder(), "one entry a text, in the order of the enumeration");

bool s_Arabic = false;

// The code point that starts at `at`, which moves behind it. The text is well-formed UTF-8.
char32_t NextCodePoint(std::string_view text, std::size_t& at) {
  const unsigned lead = static_cast<unsigned char>(text[at++]);
  if (lead < 0x80) return lead;
  const unsigned following = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
  char32_t code = lead & (0x3Fu >> following);
  for (unsigned i = 0; i < following && at < text.size(); ++i)
    code = code << 6 | (static_cast<unsigned char>(text[at++]) & 0x3Fu);
  return code;
}

// Arabic vowel signs, and the marks that steer direction.
bool TakesNoColumn(char32_t code) {
  return (code >= 0x064B && code <= 0x065F) || code == 0x0670 || (code >= 0x200B && code <= 0x200F);
}

}  // namespace

void SpeakArabic(bool arabic) {
  s_Arabic = arabic;
}
bool SpeaksArabic() {
  return s_Arabic;
}

std::string Say(Text text, std::initializer_list<std::string_view> values) {
  const Entry& entry = kEntries[static_cast<std::size_t>(text)];
  std::string said;
  for (const char* at = s_Arabic ? entry.arabic : entry.english; *at; ++at) {
    if (*at != '{') {
      said += *at;
      continue;
    }
    said += std::data(values)[at[1] - '0'];
    at += 2;
  }
  return said;
}

std::string Joined(std::initializer_list<std::string_view> parts) {
  std::string whole;
  for (const std::string_view part : parts) whole += part;
  return whole;
}

std::string InUserDigits(std::string text) {
  if (!s_Arabic) return text;
  std::string shown;
  for (const char c : text) {
    if (c >= '0' && c <= '9')
      (shown += '\xD9') += static_cast<char>('\xA0' + (c - '0'));  // U+0660 to U+0669
    else
      shown += c;
  }
  return shown;
}

std::string InUserDigits(int number) {
  return InUserDigits(std::to_string(number));
}

std::string Utf8(const CString& text) {
  return Qel::ToUtf8(text);
}
CString Wide(std::string_view text) {
  return Qel::FromUtf8(text);
}

int Columns(std::string_view text) {
  int columns = 0;
  for (std::size_t at = 0; at < text.size();)
    if (!TakesNoColumn(NextCodePoint(text, at))) ++columns;
  return columns;
}

std::string Padding(std::string_view text, int columns) {
  const int missing = columns - Columns(text);
  return missing > 0 ? std::string(static_cast<std::size_t>(missing), ' ') : std::string();
}

}  // namespace Cli
