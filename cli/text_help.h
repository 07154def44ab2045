// What `qel --help` says: the first texts, in the order of the enumeration.
#ifndef QEL_CLI_TEXT_HELP_H
#define QEL_CLI_TEXT_HELP_H

#include "text_entry.h"

namespace Cli {

constexpr TextEntry kHelpTexts[] = {
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
    {Text::File, "Tell the encoding of text files, show them, and write them in another",
     "معرفة ترميز الملفات النصية وعرضها وكتابتها بترميز آخر"},
    {Text::FileDetect, "Show how files are encoded: by their signature, else as their bytes look",
     "عرض ترميز الملفات: من توقيعها، وإلا فمما تبدو عليه بايتاتها"},
    {Text::FileCat, "Show the text of files", "عرض نص الملفات"},
    {Text::FileConvert,
     "Write the text of files in another encoding; several become one text. UTF-16 gets its signature, UTF-8 "
     "keeps "
     "that of the first file; line ends stay as they are",
     "كتابة نص الملفات بترميز آخر، والملفات المتعددة تصير نصا واحدا. يضاف إلى UTF-16 توقيعه، ويبقى توقيع "
     "الملف "
     "الأول في UTF-8، ونهايات الأسطر كما هي"},
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
    {Text::Http, "Ask web servers", "سؤال مخدمات الوب"},
    {Text::HttpGet, "Get what is at an address", "جلب ما في عنوان"},
    {Text::HttpPost, "Send a body to an address, and show what comes back",
     "إرسال محتوى إلى عنوان وعرض الرد"},
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
    {Text::OptionFrom,
     "How the files are encoded; otherwise the signature tells, and without one it is utf-8 when the bytes "
     "are, else "
     "1256",
     "ترميز الملفات، وإلا فمن التوقيع، ومن دونه utf-8 إن صحت به البايتات وإلا 1256"},
    {Text::OptionTo, "How to encode the text; otherwise utf-8", "الترميز المطلوب، وإلا فهو utf-8"},
    {Text::OptionConverted,
     "The file to write, once all is read; it may be one of those that are read. Nothing is written when a "
     "file "
     "cannot be read, nor over a file that does not decode without loss",
     "الملف المكتوب بعد قراءة الكل، ويجوز أن يكون من الملفات المقروءة. ولا يكتب شيء إن تعذرت قراءة ملف، ولا "
     "فوق "
     "ملف لا يفك ترميزه دون فقد"},
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
    {Text::OptionData, "What to send, as UTF-8, or - to send the input byte by byte",
     "ما يرسل، بترميز UTF-8، أو - لإرسال الدخل كما هو"},
    {Text::OptionHeader, "A line to send with the request, as \"Name: value\"; may be given again",
     "سطر ترويسة يرسل مع الطلب مثل \"Name: value\"، ويجوز تكراره"},
    {Text::OptionUser, "Who asks (Basic authentication)", "صاحب الطلب (استيثاق Basic)"},
    {Text::OptionTimeout, "How long each step may take, in milliseconds; 0 is no limit",
     "مهلة كل خطوة بالميلي ثانية، و0 بلا حد"},
    {Text::OptionAuthority, "The certificates (PEM) to trust, in place of the system's",
     "الشهادات الموثوقة (PEM) بدلا من شهادات النظام"},
    {Text::OptionBody, "The file for the answer, written once all of it is there",
     "ملف الرد، ويكتب عند وصوله كله"},
    {Text::OptionVerbose, "Show what is asked for, and the status and headers of the answer",
     "عرض الطلب وحالة الرد وترويساته"},
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
    {Text::OperandFiles, "Text files", "ملفات نصية"},
    {Text::OperandUrls,
     "Addresses such as https://example.com/path?x=1, or - to read one from each line of the input",
     "عناوين مثل https://example.com/path?x=1، أو - لقراءة عنوان من كل سطر من الدخل"},
    {Text::OperandUrl, "The address, such as https://example.com/path?x=1",
     "العنوان مثل https://example.com/path?x=1"},
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
     "Exit codes: 0 done, 1 not there, or characters or the output were lost, 2 a wrong command line, 3 a "
     "text or "
     "file that could not be read, 4 the network, 5 the settings' store",
     "رموز الخروج: 0 تم، 1 غير موجود أو ضاعت أحرف أو ضاع الناتج، 2 سطر أوامر خاطئ، 3 نص أو ملف لا يقرأ، 4 "
     "الشبكة، 5 مخزن "
     "الإعدادات"},
};

}  // namespace Cli

#endif  // QEL_CLI_TEXT_HELP_H
