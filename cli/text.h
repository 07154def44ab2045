// Every text that `qel` says, in its two languages, and how it writes to people in them.
#ifndef QEL_CLI_TEXT_H
#define QEL_CLI_TEXT_H

#include <initializer_list>
#include <string>
#include <string_view>

#include "qel_cstring.h"

namespace Cli {

enum class Text {
  // Help
  About,
  Date,
  DateAdd,
  DateDiff,
  Calendar,
  Calc,
  Hijri,
  HijriList,
  HijriShift,
  HijriVerify,
  Color,
  ColorLighten,
  ColorDarken,
  ColorMerge,
  ColorHls,
  Struct,
  StructEncode,
  StructDecode,
  Settings,
  SettingsList,
  SettingsGet,
  SettingsSet,
  SettingsUnset,
  SettingsExport,
  SettingsImport,
  SettingsWatch,
  SettingsPath,
  Doctor,
  Error,
  Version,
  OptionHelp,
  OptionLanguage,
  OptionJson,
  OptionToday,
  OptionOrder,
  OptionHijri,
  OptionExplain,
  OptionBoth,
  OptionHijriMonth,
  OptionWeekStart,
  OptionSwatch,
  OptionSize,
  OptionMachine,
  OptionType,
  OptionAll,
  OptionOnce,
  OptionSeconds,
  OperandDates,
  OperandDate,
  OperandCount,
  OperandUnit,
  OperandFirst,
  OperandSecond,
  OperandMonth,
  OperandExpressions,
  OperandHijriMonth,
  OperandShift,
  OperandColors,
  OperandColor,
  OperandChannels,
  OperandLightness,
  OperandSaturation,
  OperandBytes,
  OperandRecord,
  OperandSection,
  OperandSections,
  OperandEntry,
  OperandValue,
  OperandFile,
  Usage,
  Option,
  Options,
  Operands,
  Commands,
  Command,
  ExitCodes,
  // Wrong command lines: {0} is what was typed
  NotExpected,
  NoCommand,
  OperandMissing,
  ValueMissing,
  NotOneOf,
  NotToday,
  MoreAbout,
  // Dates
  TwoClauses,
  NoNumber,
  StoppedAt,
  WriteInstead,
  WriteDate,
  NoSuchMonth,
  NoSuchDay,
  YearOutside,
  NoSuchHijriDay,
  AtPosition,
  OfToday,
  OfFirstOrder,
  AddHijri,
  LeaveHijriOut,
  TodayHasNone,
  NoHijriDay,
  OutsideTable,
  OutsideCalendar,
  NotACount,
  CountTooLarge,
  NotAMonth,
  InLine,
  // The record of a reading
  ReadAs,
  DayFirst,
  YearFirst,
  AsGregorian,
  AsHijri,
  FromToday,
  YearCompleted,
  Rejected,
  // Numbers
  NumberEmpty,
  NumberStopped,
  DivisionByZero,
  SecondPoint,
  OutsideRange,
  // Hijri corrections
  NoCorrections,
  MonthBegins,
  MonthBefore,
  StoredMonthName,
  StoredNotInteger,
  ShiftOutside,
  YearsOfTable,
  LateStartOfYear,
  SkippedEntry,
  OddLength,
  ReadBackOtherwise,
  DayRaises,
  AllComesBack,
  // Colours
  WriteColor,
  ColorEmpty,
  ColorUnknown,
  ColorDidYouMean,
  ColorDigits,
  ColorWordDigits,
  ColorParts,
  ColorStopped,
  // Records
  NotHex,
  HalfByte,
  RecordTooLarge,
  RecordCutOff,
  RecordLonger,
  RecordSize,
  // Settings that are missing or wrong
  NoSuchEntry,
  NoSuchSection,
  DidYouMean,
  ThereIs,
  NothingInSection,
  NothingStored,
  AndMore,
  UnsetWhich,
  UnsetBoth,
  NotADword,
  NotAQword,
  NotBytes,
  NotStored,
  StatusNoFile,
  StatusNoFolder,
  StatusNoRight,
  StatusBadName,
  StatusDiskFull,
  StatusLocked,
  StatusBroken,
  StatusOther,
  // Files of settings
  Exported,
  Imported,
  AtLine,
  ImportNoText,
  ImportBadKey,
  ImportNoKey,
  ImportBadName,
  ImportBadValue,
  ImportUnclosed,
  Watching,
  // What settings mean
  Listed,
  IsPoint,
  IsSize,
  IsRect,
  IsDay,
  IsTime,
  IsMoment,
  IsFont,
  Bold,
  Italic,
  Underlined,
  StruckOut,
  IsColor,
  IsBool,
  Yes,
  No,
  IsRecord,
  IsBytes,
  IsNumber,
  TooLong,
  MoreBytes,
  // The doctor's report
  UserStore,
  MachineStore,
  StorePath,
  StoreAccess,
  AccessMissing,
  AccessShared,
  AccessCopy,
  AccessUnreadable,
  StoreIntegrity,
  InOrder,
  StoreWriting,
  WritingPossible,
  WritingFresh,
  StoreLayout,
  Program,
  ProgramVersions,
  ProgramCodePage,
  ProgramLocale,
  NotInOrder,
  // The rest
  Versions,
  PlainReport,
  HtmlReport,
  OutputLost,
  Count
};

// Chosen once, before anything is said.
void SpeakArabic(bool arabic);
bool SpeaksArabic();

// The text in the user's language, each "{n}" replaced by the n-th value.
std::string Say(Text text, std::initializer_list<std::string_view> values = {});

std::string Joined(std::initializer_list<std::string_view> parts);

// Digits as the user reads them: Arabic-Indic ones in Arabic.
std::string InUserDigits(std::string text);
std::string InUserDigits(int number);

// Between the library's text and ours.
std::string Utf8(const CString& text);
CString Wide(std::string_view text);

// How many columns a terminal gives the text: combining marks and direction marks take none.
int Columns(std::string_view text);
// Blanks that fill `text` up to `columns`.
std::string Padding(std::string_view text, int columns);

}  // namespace Cli

#endif  // QEL_CLI_TEXT_H
