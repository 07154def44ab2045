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
    {Text::Url, "Split web addresses, and write text as it stands in them",
     "تقسيم عناوين الوب وكتابة النص كما يرد فيها"},
    {Text::UrlSplit, "Show the parts of addresses", "عرض أجزاء العناوين"},
    {Text::UrlEncode, "Write percent signs for what an address does not take",
     "كتابة علامات النسبة لما لا يقبله العنوان"},
    {Text::UrlDecode, "Show the text of percent signs", "عرض نص علامات النسبة"},
    {Text::Rtf, "Write a pane of formatted text as RTF", "كتابة لوحة نص منسق بصيغة RTF"},
    {Text::Html, "Write a pane of formatted text as HTML", "كتابة لوحة نص منسق بصيغة HTML"},
    {Text::PaneLines,
     "Lines of the text, in UTF-8:\n"
     "  # TEXT       main header\n"
     "  ## TEXT      sub header\n"
     "  ! TEXT       error\n"
     "  NAME: TEXT   a title of at most 30 characters, and its text\n"
     "  >            right to left from here, alone or in front of one of these\n"
     "  <            left to right\n"
     "Within a line **bold** and __underlined__",
     "أسطر النص بترميز UTF-8:\n"
     "  # نص         عنوان رئيسي\n"
     "  ## نص        عنوان فرعي\n"
     "  ! نص         خطأ\n"
     "  اسم: نص      عنوان لا يزيد على 30 محرفا، ونصه\n"
     "  >            من اليمين إلى اليسار من هنا، وحده أو قبل واحد مما سبق\n"
     "  <            من اليسار إلى اليمين\n"
     "وفي السطر **غليظ** و__مسطر__"},
    {Text::Settings, "Show and change settings", "عرض الإعدادات وتغييرها"},
    {Text::SettingsList, "List entries with their types and what they mean", "سرد المداخل وأنواعها ومعانيها"},
    {Text::SettingsGet, "Show one entry", "عرض مدخل واحد"},
    {Text::SettingsSet, "Store an entry: a plain integer of 32 bits as REG_DWORD, all else as REG_SZ",
     "تخزين مدخل: العدد الصحيح المجرد من 32 بتا نوعه REG_DWORD، وغيره REG_SZ"},
    {Text::SettingsUnset, "Remove an entry, or with --all a section", "حذف مدخل، أو قسم كامل بالخيار --all"},
    {Text::SettingsExport, "Write settings to a file, as the registry's own text",
     "كتابة الإعدادات في ملف بصيغة السجل النصية"},
    {Text::SettingsImport, "Do what such a file says, all of it or nothing",
     "تنفيذ ما في ملف كهذا، كله أو لا شيء منه"},
    {Text::SettingsWatch, "Show changes as they happen, whoever makes them",
     "عرض التغييرات حين تقع، أيا كان صاحبها"},
    {Text::SettingsPath, "Show where settings are kept", "عرض موضع حفظ الإعدادات"},
    {Text::Doctor, "Look whether settings, versions and language are in order",
     "فحص الإعدادات والإصدارات واللغة"},
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
    {Text::OptionReserved,
     "Also for what means something in an address, such as & and =", "وكذلك لما له معنى في العنوان مثل & و="},
    {Text::OptionOutput, "Write to this file", "الكتابة في هذا الملف"},
    {Text::OptionFragment, "Only what goes into the body of a page", "ما يوضع في متن الصفحة وحده"},
    {Text::OptionMachine, "Settings of the machine, not of the user", "إعدادات الجهاز لا المستخدم"},
    {Text::OptionType, "The type to store; binary takes pairs of hexadecimal digits",
     "النوع الذي يخزن؛ وbinary يأخذ أزواجا من الأرقام الستة عشرية"},
    {Text::OptionAll, "The whole section with all below it", "القسم كله وما تحته"},
    {Text::OptionOnce, "End after the first change", "الانتهاء بعد أول تغيير"},
    {Text::OptionSeconds, "End after so many seconds", "الانتهاء بعد هذا العدد من الثواني"},
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
    {Text::OperandHijriMonth, "The Hijri year and month, such as 1446-09",
     "السنة والشهر الهجريان مثل 1446-09"},
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
    {Text::OperandUrls,
     "Addresses such as https://example.com/path?x=1, or - to read one from each line of the input",
     "عناوين مثل https://example.com/path?x=1، أو - لقراءة عنوان من كل سطر من الدخل"},
    {Text::OperandTexts, "Texts, or - to read one from each line of the input",
     "نصوص، أو - لقراءة نص من كل سطر من الدخل"},
    {Text::OperandPane, "The file of the text, or - for the input, as when there is none",
     "ملف النص، أو - للدخل وهو المفترض"},
    {Text::OperandSection, "The section, such as Window or Reports\\Sales",
     "القسم مثل Window أو Reports\\Sales"},
    {Text::OperandSections, "The section with all below it; otherwise all settings",
     "القسم وما تحته، وإلا فكل الإعدادات"},
    {Text::OperandEntry, "The entry, such as Width; @ is the one without a name",
     "المدخل مثل Width، و@ هو الذي لا اسم له"},
    {Text::OperandValue, "The value, such as 1024 or X=10,Y=20", "القيمة مثل 1024 أو X=10,Y=20"},
    {Text::OperandFile, "The file, such as settings.reg", "الملف مثل settings.reg"},
    {Text::Usage, "Usage", "الاستعمال"},
    {Text::Option, "OPTION...", "خيارات"},
    {Text::Options, "Options", "الخيارات"},
    {Text::Operands, "Arguments", "المعطيات"},
    {Text::Commands, "Commands", "الأوامر"},
    {Text::Command, "COMMAND", "أمر"},

    {Text::ExitCodes,
     "Exit codes: 0 done, 1 not there or the output was lost, 2 a wrong command line, 3 a text that could "
     "not be read, 5 the settings' store",
     "رموز الخروج: 0 تم، 1 غير موجود أو ضاع الناتج، 2 سطر أوامر خاطئ، 3 نص لا يقرأ، 5 مخزن الإعدادات"},
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
    {Text::StoredMonthName, "the name is no year and month such as 1446-09",
     "الاسم ليس سنة وشهرا مثل 1446-09"},
    {Text::StoredNotInteger, "the value is not stored as an integer", "القيمة ليست مخزنة كعدد صحيح"},
    {Text::ShiftOutside, "a month moves by {0} to {1} days", "لا يتحرك الشهر إلا من {0} إلى {1} من الأيام"},
    {Text::YearsOfTable, "the year is outside {0} to {1}", "السنة خارج المدى من {0} إلى {1}"},
    {Text::LateStartOfYear, "Muharram cannot begin later: the table fixes the start of the year",
     "لا يتأخر أول المحرم: بداية السنة يحددها الجدول"},
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

    {Text::NoUrl,
     "no http or https address; write one such as https://example.com:8443/path?x=1, the port at most 65535",
     "ليس عنوان http أو https؛ اكتب عنوانا مثل https://example.com:8443/path?x=1 ولا يزيد المنفذ على 65535"},
    {Text::UrlScheme, "scheme", "المخطط"},
    {Text::UrlHost, "host", "المضيف"},
    {Text::UrlPort, "port", "المنفذ"},
    {Text::UrlPath, "path", "المسار"},
    {Text::UrlQuery, "query", "الاستعلام"},
    {Text::UrlLost, "\"{0}\" (position {1}) takes more than two bytes and became %00%00",
     "\"{0}\" (الموضع {1}) يأخذ أكثر من بايتين فصار %00%00"},

    {Text::NoSuchEntry, "\"{1}\" is not in section \"{0}\"", "\"{1}\" ليس في القسم \"{0}\""},
    {Text::NoSuchSection, "there is no section \"{0}\"", "لا يوجد قسم \"{0}\""},
    {Text::DidYouMean, "did you mean \"{0}\"?", "هل تقصد \"{0}\"؟"},
    {Text::ThereIs, "there is {0}", "يوجد {0}"},
    {Text::NothingInSection, "the section has no entries", "لا مداخل في القسم"},
    {Text::NothingStored, "no settings are stored", "لا إعدادات مخزنة"},
    {Text::AndMore, "{0} and more", "{0} وغيرها"},
    {Text::UnsetWhich, "ENTRY is missing; to remove a whole section name it and add --all",
     "ENTRY غير مذكور؛ لحذف قسم كامل اذكره وأضف --all"},
    {Text::UnsetBoth, "--all removes the whole section; leave ENTRY or --all out",
     "الخيار --all يحذف القسم كله؛ احذف ENTRY أو --all"},
    {Text::NotADword, "no number of 32 bits; write one such as 1024, -1 or 0x400",
     "ليس عددا من 32 بتا؛ اكتب عددا مثل 1024 أو -1 أو 0x400"},
    {Text::NotAQword, "no number of 64 bits; write one such as 1024, -1 or 0x400",
     "ليس عددا من 64 بتا؛ اكتب عددا مثل 1024 أو -1 أو 0x400"},
    {Text::NotBytes, "no pairs of hexadecimal digits; write bytes such as 01 AB",
     "ليس أزواجا من الأرقام الستة عشرية؛ اكتب بايتات مثل 01 AB"},
    {Text::NotStored, "nothing was changed: {0}", "لم يتغير شيء: {0}"},
    {Text::StatusNoFile, "no such file", "لا يوجد ملف كهذا"},
    {Text::StatusNoFolder, "no such folder", "لا يوجد مجلد كهذا"},
    {Text::StatusNoRight, "no right to it", "لا حق فيه"},
    {Text::StatusNoWriting, "no right to it, or a store of a newer version",
     "لا حق فيه، أو المخزن بإصدار أحدث"},
    {Text::StatusBadName, "a name that no key or entry can have", "اسم لا يصلح لمفتاح أو مدخل"},
    {Text::StatusDiskFull, "the disk is full", "القرص ممتلئ"},
    {Text::StatusLocked, "another program has kept the settings locked for 5 seconds",
     "برنامج آخر يقفل الإعدادات منذ 5 ثوان"},
    {Text::StatusBroken, "the store cannot be read or written; qel doctor tells more",
     "لا يمكن قراءة المخزن أو كتابته؛ للمزيد qel doctor"},
    {Text::StatusOther, "the system answered {0}", "أجاب النظام بالرمز {0}"},

    {Text::Exported, "{0} is in {1}", "{0} في {1}"},
    {Text::Imported, "{0}: {1} keys and {2} entries set, {3} keys and {4} entries removed",
     "{0}: ضبط {1} من المفاتيح و{2} من المداخل، وحذف {3} من المفاتيح و{4} من المداخل"},
    {Text::AtLine, "line {0}, column {1}: ", "السطر {0} والعمود {1}: "},
    {Text::ImportNoText,
     "not the text of a registry; it starts with \"Windows Registry Editor Version 5.00\", in UTF-16LE with "
     "signature",
     "ليس نص سجل؛ يبدأ بـ \"Windows Registry Editor Version 5.00\" بترميز UTF-16LE مع توقيع"},
    {Text::ImportBadKey, "no key; write [HKEY_CURRENT_USER\\Software\\Name], or [-...] to remove one",
     "ليس مفتاحا؛ اكتب [HKEY_CURRENT_USER\\Software\\Name]، أو [-...] للحذف"},
    {Text::ImportNoKey, "an entry that no key stands before", "مدخل لا مفتاح قبله"},
    {Text::ImportBadName, "no name; write \"name\"= or @=", "ليس اسما؛ اكتب \"name\"= أو @="},
    {Text::ImportBadValue, "no value; write \"text\", dword:00000400, hex:01,ab or -",
     "ليس قيمة؛ اكتب \"text\" أو dword:00000400 أو hex:01,ab أو -"},
    {Text::ImportUnclosed, "a quotation mark without its partner", "علامة اقتباس بلا قرينتها"},
    {Text::Watching, "watching; Ctrl+C ends it", "في المراقبة؛ تنتهي بـ Ctrl+C"},

    {Text::Listed, "{0}, {1}", "{0}، {1}"},
    {Text::IsPoint, "point {0}, {1}", "نقطة {0}، {1}"},
    {Text::IsSize, "size {0} by {1}", "مقاس {0} في {1}"},
    {Text::IsRect, "rectangle {0} by {1} at {2}, {3}", "مستطيل {0} في {1} عند {2}، {3}"},
    {Text::IsDay, "day {0}", "يوم {0}"},
    {Text::IsTime, "time of day {0}", "وقت {0}"},
    {Text::IsMoment, "moment {0} {1} and {2} ms", "لحظة {0} {1} و{2} مث"},
    {Text::IsFont, "font {0}, height {1}", "خط {0}، ارتفاع {1}"},
    {Text::Bold, "bold", "عريض"},
    {Text::Italic, "italic", "مائل"},
    {Text::Underlined, "underlined", "مسطر"},
    {Text::StruckOut, "struck out", "مشطوب"},
    {Text::IsColor, "colour #{0}", "لون #{0}"},
    {Text::IsBool, "yes or no: {0}", "نعم أو لا: {0}"},
    {Text::Yes, "yes", "نعم"},
    {Text::No, "no", "لا"},
    {Text::IsRecord, "record of {0} bytes: {1}", "سجل من {0} بايت: {1}"},
    {Text::IsBytes, "{0} bytes", "{0} بايت"},
    {Text::IsNumber, "number {0}", "عدد {0}"},
    {Text::TooLong, "too long: readers of this type take {0} characters",
     "أطول من اللازم: قارئ هذا النوع يأخذ {0} محرفا"},
    {Text::MoreBytes, "{0} ... {1} bytes", "{0} ... {1} بايت"},

    {Text::UserStore, "Settings of the user", "إعدادات المستخدم"},
    {Text::MachineStore, "Settings of the machine", "إعدادات الجهاز"},
    {Text::StorePath, "place", "الموضع"},
    {Text::StoreAccess, "access", "الوصول"},
    {Text::AccessMissing, "nothing stored yet; the first write makes it",
     "لا شيء مخزن بعد؛ ينشأ عند أول كتابة"},
    {Text::AccessShared, "shared with other programs", "مشترك مع برامج أخرى"},
    {Text::AccessCopy, "only a copy can be read", "لا تقرأ إلا نسخة"},
    {Text::AccessUnreadable, "cannot be read", "لا يمكن قراءته"},
    {Text::StoreIntegrity, "integrity", "السلامة"},
    {Text::InOrder, "in order", "سليم"},
    {Text::StoreWriting, "writing", "الكتابة"},
    {Text::WritingPossible, "possible", "ممكنة"},
    {Text::WritingFresh,
     "not as it stands; a damaged store is kept aside at its next use and a fresh one started",
     "غير ممكنة بحاله هذه؛ المخزن التالف ينحى عند استعماله القادم ويبدأ مخزن جديد"},
    {Text::StoreLayout, "layout", "التخطيط"},
    {Text::Program, "Program", "البرنامج"},
    {Text::ProgramVersions, "versions", "الإصدارات"},
    {Text::ProgramCodePage, "code page", "صفحة المحارف"},
    {Text::ProgramLocale, "locale", "الإعداد المحلي"},
    {Text::NotInOrder, "something is not in order", "ثمة ما ليس سليما"},

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
