#include "command_line.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstddef>
#include <deque>
#include <iterator>

#include "commands.h"
#include "digits.h"
#include "text.h"
#include "text_file.h"

namespace Cli {

namespace {

using Run = int (*)(const Options&);

struct Command {
  CLI::App* app;
  Run run;  // null when only the commands within it do something
  std::vector<CLI::Option*> operands;
};

// The language must be known before the help texts are chosen, so it is looked up ahead of the real reading.
std::string LanguageAskedFor(const std::vector<std::string>& arguments, const std::string& otherwise) {
  std::string language = otherwise;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i].starts_with("--lang=")) language = arguments[i].substr(7);
    if (arguments[i] == "--lang" && i + 1 < arguments.size()) language = arguments[i + 1];
  }
  return language == "ar" || language == "en" ? language : otherwise;
}

// Put behind "[...]", which the parser would otherwise take apart as a list of its own.
constexpr char kShield = '\x01';

// As the parser has to see an argument: "-٥" is a number as "-5" is, but only the latter is known from an option.
std::string Shielded(const std::string& argument) {
  if (argument.starts_with('[') && argument.ends_with(']')) return argument + kShield;
  const bool foreignDigit = argument.starts_with("-\xD9") || argument.starts_with("-\xDB");
  return foreignDigit ? Utf8(Qel::Sys::Text::FoldDigits(Wide(argument))) : argument;
}

std::string Unshielded(std::string argument) {
  if (argument.ends_with(kShield)) argument.pop_back();
  return argument;
}

// Accepts one of the words.
auto OneOf(const std::vector<std::string>& words) {
  return [words](const std::string& typed) {
    if (std::find(words.begin(), words.end(), typed) != words.end()) return std::string();
    std::string all;
    for (const std::string& word : words) (all += all.empty() ? "" : ", ") += word;
    return Say(Text::NotOneOf, {typed, all});
  };
}

// Everything that can be asked for, and where what is typed goes.
class CommandLine {
 public:
  explicit CommandLine(Options& options);

  void Parse(std::vector<std::string> arguments);
  const CLI::App& App() const { return m_App; }
  std::string Help() const { return m_App.help(); }
  // What nothing took; empty when all was taken.
  std::vector<std::string> LeftOver() const { return m_App.remaining(true); }
  // The command that was given, null when there was none.
  const Command* Given() const;

 private:
  Command& Add(CLI::App& parent, const char* name, Text description, Run run);
  void AddDate();
  void AddCalendar();
  void AddCalc();
  void AddHijri();
  void AddColor();
  void AddStruct();
  void AddFile();
  void AddUrl();
  Command& AddPane(const char* name, Text description, Run run);
  void AddHttp();
  void AddMetrics();
  void AddSettings();
  void AddCommon(CLI::App& app);
  void AddReading(CLI::App& app);
  void AddOperand(Command& command, const char* name, Text description, bool many = false);
  void AddChoice(CLI::App& app, const char* name, std::string& value, const std::vector<std::string>& words,
                 Text description);
  void AddFlag(CLI::App& app, const char* name, bool& value, Text description);
  void AddText(CLI::App& app, const char* name, std::string& value, const char* type, Text description);

  Options& m_Options;
  CLI::App m_App;
  std::deque<Command> m_Commands;  // a command within another stands behind it
};

CommandLine::CommandLine(Options& options) : m_Options(options), m_App(Say(Text::About), "qel") {
  m_App.allow_windows_style_options(false);  // "/4" is an expression on every system
  const auto formatter = m_App.get_formatter();
  formatter->label("Usage", Say(Text::Usage));
  formatter->label("Positionals", Say(Text::Operands));
  formatter->label("SUBCOMMAND", Say(Text::Command));
  formatter->label("OPTIONS", Say(Text::Option));
  formatter->column_width(28);
  m_App.option_defaults()->group(Say(Text::Options));
  m_App.set_help_flag("--help,-h", Say(Text::OptionHelp));
  m_App.footer(Say(Text::ExitCodes));
  AddCommon(m_App);
  m_App.set_version_flag("--version", QEL_VERSION, Say(Text::Version));
  AddDate();
  AddCalendar();
  AddCalc();
  AddHijri();
  AddColor();
  AddStruct();
  AddFile();
  AddUrl();
  AddHttp();
  AddPane("rtf", Text::Rtf, RunRtf);
  AddFlag(*AddPane("html", Text::Html, RunHtml).app, "--fragment", m_Options.fragment, Text::OptionFragment);
  AddMetrics();
  AddSettings();
  Add(m_App, "doctor", Text::Doctor, RunDoctor);
  Add(m_App, "error", Text::Error, RunError);
  Add(m_App, "version", Text::Version, RunVersion);
}

void CommandLine::Parse(std::vector<std::string> arguments) {
  std::transform(arguments.begin(), arguments.end(), arguments.begin(), Shielded);
  std::reverse(arguments.begin(), arguments.end());  // as the parser takes them
  m_App.parse(std::move(arguments));
}

const Command* CommandLine::Given() const {
  const Command* given = nullptr;
  for (const Command& command : m_Commands)
    if (command.app->parsed()) given = &command;
  return given;
}

Command& CommandLine::Add(CLI::App& parent, const char* name, Text description, Run run) {
  CLI::App* app = parent.add_subcommand(name, Say(description));
  app->group(Say(Text::Commands));
  app->get_help_ptr()->group(Say(Text::Options));  // which the parent gives without its defaults
  AddCommon(*app);
  m_Commands.push_back({app, run, {}});
  return m_Commands.back();
}

void CommandLine::AddDate() {
  Command& date = Add(m_App, "date", Text::Date, RunDate);
  AddReading(*date.app);
  AddFlag(*date.app, "--explain", m_Options.explain, Text::OptionExplain);
  AddOperand(date, "TEXT", Text::OperandDates, true);

  Command& add = Add(*date.app, "add", Text::DateAdd, RunDateAdd);
  AddReading(*add.app);
  AddOperand(add, "TEXT", Text::OperandDate);
  AddOperand(add, "N", Text::OperandCount);
  AddOperand(add, "UNIT", Text::OperandUnit);

  Command& diff = Add(*date.app, "diff", Text::DateDiff, RunDateDiff);
  AddReading(*diff.app);
  AddOperand(diff, "A", Text::OperandFirst);
  AddOperand(diff, "B", Text::OperandSecond);
}

void CommandLine::AddCalendar() {
  Command& calendar = Add(m_App, "calendar", Text::Calendar, RunCalendar);
  AddFlag(*calendar.app, "--hijri", m_Options.hijri, Text::OptionHijriMonth);
  AddFlag(*calendar.app, "--both", m_Options.both, Text::OptionBoth);
  AddChoice(*calendar.app, "--week-start", m_Options.weekStart, {"sat", "sun", "mon"}, Text::OptionWeekStart);
  AddOperand(calendar, "YYYY-MM", Text::OperandMonth);
  calendar.operands.clear();  // without one it is this month
}

void CommandLine::AddCalc() {
  Command& calc = Add(m_App, "calc", Text::Calc, RunCalc);
  AddOperand(calc, "EXPR", Text::OperandExpressions, true);
  calc.app->positionals_at_end();  // what follows the first expression is never an option
}

void CommandLine::AddHijri() {
  Command& hijri = Add(m_App, "hijri", Text::Hijri, nullptr);
  Add(*hijri.app, "list", Text::HijriList, RunHijriList);
  Command& shift = Add(*hijri.app, "shift", Text::HijriShift, RunHijriShift);
  AddOperand(shift, "YYYY-MM", Text::OperandHijriMonth);
  AddOperand(shift, "N", Text::OperandShift);
  Add(*hijri.app, "verify", Text::HijriVerify, RunHijriVerify);
}

void CommandLine::AddColor() {
  Command& color = Add(m_App, "color", Text::Color, RunColor);
  AddChoice(*color.app, "--swatch", m_Options.swatch, {"auto", "always", "never"}, Text::OptionSwatch);
  AddOperand(color, "COLOR", Text::OperandColors, true);
  color.operands.clear();  // without one it is all that have a name

  const struct {
    const char* name;
    Text description;
    Run run;
    const char* operands[2];
    Text meanings[2];
  } sums[] = {
      {"lighten", Text::ColorLighten, RunColorLighten, {"N"}, {Text::OperandChannels}},
      {"darken", Text::ColorDarken, RunColorDarken, {"N"}, {Text::OperandChannels}},
      {"merge", Text::ColorMerge, RunColorMerge, {"OTHER"}, {Text::OperandColor}},
      {"hls", Text::ColorHls, RunColorHls, {"L", "S"}, {Text::OperandLightness, Text::OperandSaturation}},
  };
  for (const auto& sum : sums) {
    Command& command = Add(*color.app, sum.name, sum.description, sum.run);
    AddChoice(*command.app, "--swatch", m_Options.swatch, {"auto", "always", "never"}, Text::OptionSwatch);
    AddOperand(command, "COLOR", Text::OperandColor);
    for (std::size_t i = 0; i < 2 && sum.operands[i]; ++i)
      AddOperand(command, sum.operands[i], sum.meanings[i]);
  }
}

void CommandLine::AddStruct() {
  Command& record = Add(m_App, "struct", Text::Struct, nullptr);
  Command& encode = Add(*record.app, "encode", Text::StructEncode, RunStructEncode);
  AddOperand(encode, "BYTES", Text::OperandBytes, true);
  Command& decode = Add(*record.app, "decode", Text::StructDecode, RunStructDecode);
  decode.app->add_option("--size", m_Options.size, Say(Text::OptionSize))->type_name("N")->take_last();
  AddOperand(decode, "TEXT", Text::OperandRecord, true);
}

void CommandLine::AddFile() {
  Command& file = Add(m_App, "file", Text::File, nullptr);
  AddOperand(Add(*file.app, "detect", Text::FileDetect, RunFileDetect), "FILE", Text::OperandFiles, true);
  Command& cat = Add(*file.app, "cat", Text::FileCat, RunFileCat);
  Command& convert = Add(*file.app, "convert", Text::FileConvert, RunFileConvert);
  for (Command* command : {&cat, &convert}) {
    AddChoice(*command->app, "--from", m_Options.from, EncodingNames(), Text::OptionFrom);
    AddOperand(*command, "FILE", Text::OperandFiles, true);
  }
  AddChoice(*convert.app, "--to", m_Options.to, EncodingNames(), Text::OptionTo);
  convert.app->add_option("-o,--output", m_Options.output, Say(Text::OptionConverted))
      ->type_name("FILE")
      ->take_last();
}

void CommandLine::AddUrl() {
  Command& url = Add(m_App, "url", Text::Url, nullptr);
  AddOperand(Add(*url.app, "split", Text::UrlSplit, RunUrlSplit), "URL", Text::OperandUrls, true);
  Command& encode = Add(*url.app, "encode", Text::UrlEncode, RunUrlEncode);
  AddFlag(*encode.app, "--reserved", m_Options.reserved, Text::OptionReserved);
  AddOperand(encode, "TEXT", Text::OperandTexts, true);
  AddOperand(Add(*url.app, "decode", Text::UrlDecode, RunUrlDecode), "TEXT", Text::OperandTexts, true);
}

Command& CommandLine::AddPane(const char* name, Text description, Run run) {
  Command& pane = Add(m_App, name, description, run);
  AddOperand(pane, "FILE", Text::OperandPane);
  pane.operands.clear();  // without one it is the input
  pane.app->add_option("-o,--output", m_Options.output, Say(Text::OptionOutput))
      ->type_name("FILE")
      ->take_last();
  pane.app->footer(Say(Text::PaneLines));
  return pane;
}

void CommandLine::AddHttp() {
  Command& http = Add(m_App, "http", Text::Http, nullptr);
  Command& get = Add(*http.app, "get", Text::HttpGet, RunHttpGet);
  Command& post = Add(*http.app, "post", Text::HttpPost, RunHttpPost);
  AddText(*post.app, "-d,--data", m_Options.data, "TEXT", Text::OptionData);
  for (Command* command : {&get, &post}) {
    CLI::App& app = *command->app;
    const auto take = [this](const CLI::results_t& typed) {
      std::transform(typed.begin(), typed.end(), std::back_inserter(m_Options.headers), Unshielded);
      return true;
    };
    app.add_option("-H,--header", take, Say(Text::OptionHeader))->type_name("LINE")->expected(1)->take_all();
    AddText(app, "--user", m_Options.user, "NAME:PASSWORD", Text::OptionUser);
    AddText(app, "--timeout", m_Options.timeout, "N", Text::OptionTimeout);
    AddText(app, "--ca", m_Options.authority, "FILE", Text::OptionAuthority);
    AddText(app, "-o,--output", m_Options.output, "FILE", Text::OptionBody);
    AddFlag(app, "-v,--verbose", m_Options.verbose, Text::OptionVerbose);
    AddOperand(*command, "URL", Text::OperandUrl);
  }
}

void CommandLine::AddMetrics() {
  Command& metrics = Add(m_App, "metrics", Text::Metrics, nullptr);
  const auto add = [&](const char* name, Text description, Run run) -> Command& {
    Command& command = Add(*metrics.app, name, description, run);
    AddOperand(command, "FILE", Text::OperandMetrics);
    return command;
  };
  add("show", Text::MetricsShow, RunMetricsShow);
  add("check", Text::MetricsCheck, RunMetricsCheck);
  Command& repair = add("repair", Text::MetricsRepair, RunMetricsRepair);
  repair.app->add_option("-o,--output", m_Options.output, Say(Text::OptionOutput))
      ->type_name("FILE")
      ->take_last();
}

void CommandLine::AddSettings() {
  Command& settings = Add(m_App, "settings", Text::Settings, nullptr);
  const auto add = [&](const char* name, Text description, Run run) -> Command& {
    Command& command = Add(*settings.app, name, description, run);
    if (run != RunSettingsImport) AddFlag(*command.app, "--machine", m_Options.machine, Text::OptionMachine);
    return command;
  };
  // Operands that may be left out come behind those that may not.
  const auto addSection = [&](Command& command, bool optional) {
    AddOperand(command, "SECTION", optional ? Text::OperandSections : Text::OperandSection);
    if (optional) command.operands.pop_back();
  };
  addSection(add("list", Text::SettingsList, RunSettingsList), true);

  Command& get = add("get", Text::SettingsGet, RunSettingsGet);
  addSection(get, false);
  AddOperand(get, "ENTRY", Text::OperandEntry);

  Command& set = add("set", Text::SettingsSet, RunSettingsSet);
  AddChoice(*set.app, "--type", m_Options.type, {"string", "expand", "dword", "qword", "binary"},
            Text::OptionType);
  addSection(set, false);
  AddOperand(set, "ENTRY", Text::OperandEntry);
  AddOperand(set, "VALUE", Text::OperandValue);

  Command& unset = add("unset", Text::SettingsUnset, RunSettingsUnset);
  AddFlag(*unset.app, "--all", m_Options.all, Text::OptionAll);
  addSection(unset, false);
  AddOperand(unset, "ENTRY", Text::OperandEntry);
  unset.operands.pop_back();

  Command& exported = add("export", Text::SettingsExport, RunSettingsExport);
  AddOperand(exported, "FILE", Text::OperandFile);
  addSection(exported, true);
  AddOperand(add("import", Text::SettingsImport, RunSettingsImport), "FILE", Text::OperandFile);

  Command& watch = add("watch", Text::SettingsWatch, RunSettingsWatch);
  AddFlag(*watch.app, "--once", m_Options.once, Text::OptionOnce);
  watch.app->add_option("--seconds", m_Options.seconds, Say(Text::OptionSeconds))
      ->type_name("N")
      ->take_last();
  addSection(watch, true);
  add("path", Text::SettingsPath, RunSettingsPath);
}

void CommandLine::AddCommon(CLI::App& app) {
  AddChoice(app, "--lang", m_Options.language, {"en", "ar"}, Text::OptionLanguage);
  AddFlag(app, "--json", m_Options.json, Text::OptionJson);
  app.add_option("--today", m_Options.today, Say(Text::OptionToday))->type_name("YYYY-MM-DD")->take_last();
}

void CommandLine::AddReading(CLI::App& app) {
  AddChoice(app, "--order", m_Options.order, {"dmy", "ymd"}, Text::OptionOrder);
  AddFlag(app, "--hijri", m_Options.hijri, Text::OptionHijri);
}

void CommandLine::AddOperand(Command& command, const char* name, Text description, bool many) {
  const auto take = [this](const CLI::results_t& typed) {
    std::transform(typed.begin(), typed.end(), std::back_inserter(m_Options.operands), Unshielded);
    return true;
  };
  CLI::Option* operand = command.app->add_option(name, take, Say(description))->type_name("");
  if (many) operand->expected(1, CLI::detail::expected_max_vector_size)->allow_extra_args();
  command.operands.push_back(operand);
}

void CommandLine::AddChoice(CLI::App& app, const char* name, std::string& value,
                            const std::vector<std::string>& words, Text description) {
  std::string shown;
  for (const std::string& word : words) (shown += shown.empty() ? "" : "|") += word;
  app.add_option(name, value, Say(description))->type_name(shown)->take_last()->check(OneOf(words));
}

void CommandLine::AddFlag(CLI::App& app, const char* name, bool& value, Text description) {
  app.add_flag(name, value, Say(description));
}

void CommandLine::AddText(CLI::App& app, const char* name, std::string& value, const char* type,
                          Text description) {
  const auto take = [&value](const CLI::results_t& typed) {
    value = Unshielded(typed.back());
    return true;
  };
  app.add_option(name, take, Say(description))->type_name(type)->take_last();
}

// What the parser found wrong, in the user's language.
std::string Complaint(const CommandLine& line, const CLI::ParseError& error) {
  std::string what = error.what();
  if (!line.LeftOver().empty()) return Say(Text::NotExpected, {Unshielded(line.LeftOver().front())});
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error))
    return Say(Text::ValueMissing, {what.substr(0, what.find(':'))});
  return what;
}

std::string MoreAbout(const Command* command) {
  std::string path = "qel";
  if (command && command->app->get_parent()->get_parent())
    (path += ' ') += command->app->get_parent()->get_name();
  if (command) (path += ' ') += command->app->get_name();
  return Say(Text::MoreAbout, {path});
}

std::string NamesOfCommands(const CLI::App& app) {
  std::string names;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
    (names += names.empty() ? "" : ", ") += command->get_name();
  return names;
}

std::string WhatIsMissing(const CommandLine& line) {
  const Command* const command = line.Given();
  if (!command) return Say(Text::NoCommand, {NamesOfCommands(line.App())});
  if (!command->run) return Say(Text::NoCommand, {NamesOfCommands(*command->app)});
  for (const CLI::Option* operand : command->operands)
    if (operand->count() == 0) return Say(Text::OperandMissing, {operand->get_name()});
  return {};
}

}  // namespace

Request ReadCommandLine(std::vector<std::string> arguments, const std::string& language) {
  Request request;
  request.options.language = language;
  SpeakArabic(LanguageAskedFor(arguments, language) == "ar");
  CommandLine line(request.options);
  try {
    line.Parse(std::move(arguments));
    SpeakArabic(request.options.language == "ar");
    request.complaint = WhatIsMissing(line);
    if (request.complaint.empty()) request.run = line.Given()->run;
  } catch (const CLI::CallForHelp&) {
    request.help = line.Help();
  } catch (const CLI::CallForVersion&) {
    request.run = RunVersion;
  } catch (const CLI::ParseError& error) {
    request.complaint = Complaint(line, error);
  }
  if (!request.complaint.empty()) request.complaint += "\n" + MoreAbout(line.Given());
  return request;
}

}  // namespace Cli
