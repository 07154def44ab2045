#include <algorithm>
#include <filesystem>

#include "commands.h"
#include "json.h"
#include "metrics_file.h"
#include "output.h"
#include "settings.h"
#include "text.h"

namespace Cli {

namespace {

Text TextOf(TMetricsProblem problem) {
  switch (problem) {
    case TMetricsProblem::HeadCutOff:
      return Text::MetricsHeadCutOff;
    case TMetricsProblem::Unclosed:
      return Text::MetricsUnclosed;
    case TMetricsProblem::CutOff:
      return Text::MetricsCutOff;
    case TMetricsProblem::Damaged:
      return Text::MetricsDamaged;
    case TMetricsProblem::LeftOver:
      return Text::MetricsLeftOver;
    default:
      return Text::MetricsNone;
  }
}

bool HasNoHead(const TMetricsFile& file) {
  return file.problem == TMetricsProblem::NotMetrics || file.problem == TMetricsProblem::HeadCutOff;
}

JsonObject Problem(const TMetricsFile& file) {
  return JsonObject()
      .Add("line", file.line)
      .Add("column", file.column)
      .Add("text", Say(TextOf(file.problem)));
}

// {"file", "events", "dropped", "error"}, to which others may be added.
JsonObject Summary(const std::string& name, const TMetricsFile& file) {
  JsonObject object;
  object.Add("file", name).Add("events", static_cast<int>(file.events.size())).Add("dropped", file.dropped);
  if (file.problem == TMetricsProblem::None) return object.Add("error", nullptr);
  return object.Add("error", Problem(file));
}

void SayProblem(const std::string& name, const TMetricsFile& file) {
  if (file.problem == TMetricsProblem::None) return;
  const std::string where = Say(Text::AtLine, {InUserDigits(file.line), InUserDigits(file.column)});
  Complain(Joined({name, ": ", where, Say(TextOf(file.problem))}));
}

void SayStatus(const std::string& name, long status, const Options& options) {
  const std::string why = StatusText(status);
  if (options.json)
    Print(JsonObject().Add("file", name).Add("error", JsonObject().Add("text", why)).Line());
  else
    Complain(Joined({name, ": ", why}));
}

int NotRead(const std::string& name, long status, const Options& options) {
  SayStatus(name, status, options);
  return kUnreadable;
}

// "2020-04-27 13:43:48.500" for "200427-1343480500"; others as they are.
std::string TimeShown(const std::string& stamp) {
  constexpr std::string_view kForm = "000000-0000000000";
  const auto isForm = [](char form, char ch) { return form == '-' ? ch == '-' : ch >= '0' && ch <= '9'; };
  if (!std::equal(kForm.begin(), kForm.end(), stamp.begin(), stamp.end(), isForm)) return Plain(stamp);
  const std::string_view at(stamp);
  return Joined({"20", at.substr(0, 2), "-", at.substr(2, 2), "-", at.substr(4, 2), " ", at.substr(7, 2), ":",
                 at.substr(9, 2), ":", at.substr(11, 2), ".", at.substr(14, 3)});
}

// Long texts are cut: "--json" has all of them.
std::string ValueShown(const std::string& value) {
  constexpr int kMost = 60;
  const CString wide = Wide(value);
  if (wide.GetLength() <= kMost) return Plain(value);
  const bool splitsPair = (wide[kMost - 1] & 0xFC00) == 0xD800;
  return Plain(Utf8(wide.Left(splitsPair ? kMost - 1 : kMost))) + "…";
}

JsonObject Members(const std::vector<TMetricsEntry>& entries) {
  JsonObject object;
  for (const TMetricsEntry& entry : entries) object.Add(entry.name, entry.value);
  return object;
}

void PrintAsJson(const std::string& name, const TMetricsFile& file) {
  Print(Summary(name, file).Add("info", Members(file.info)).Line());
  for (const TMetricsEvent& event : file.events)
    Print(JsonObject()
              .Add("time", TimeShown(event.timestamp))
              .Add("level", event.level)
              .Add("name", event.name)
              .Add("duration", event.duration)
              .Add("properties", Members(event.properties))
              .Line());
}

void PrintAsTable(const TMetricsFile& file) {
  int info = 0, level = 0, duration = 0, name = 0;
  for (const TMetricsEntry& entry : file.info) info = std::max(info, Columns(entry.name));
  for (const TMetricsEntry& entry : file.info)
    Print(Joined({entry.name, Padding(entry.name, info), "  ", ValueShown(entry.value), "\n"}));
  for (const TMetricsEvent& event : file.events) {
    level = std::max(level, Columns(ValueShown(event.level)));
    duration = std::max(duration, Columns(ValueShown(event.duration)));
    name = std::max(name, Columns(ValueShown(event.name)));
  }
  for (const TMetricsEvent& event : file.events) {
    const std::string eventLevel = ValueShown(event.level), ms = ValueShown(event.duration);
    const std::string eventName = ValueShown(event.name);
    std::string line = Joined({TimeShown(event.timestamp), "  ", eventLevel, Padding(eventLevel, level), "  ",
                               Padding(ms, duration), ms, " ms  ", eventName});
    if (!event.properties.empty()) line += Padding(eventName, name);
    for (const TMetricsEntry& entry : event.properties)
      line += Joined({"  ", entry.name, "=", ValueShown(entry.value)});
    Print(line + "\n");
  }
}

// "host.repaired.xml" for "host.xml".
std::string NameOfCopy(const std::string& name) {
  constexpr std::string_view kEnd = ".xml";
  const std::size_t stem = name.ends_with(kEnd) ? name.size() - kEnd.size() : name.size();
  return name.substr(0, stem) + ".repaired.xml";
}

bool IsThere(const std::string& name) {
  std::error_code ignored;
  return std::filesystem::exists(std::u8string(name.begin(), name.end()), ignored);
}

int SayWhole(const std::string& name, const TMetricsFile& file, const Options& options) {
  Print(options.json
            ? Summary(name, file).Line()
            : Say(Text::MetricsWhole, {name, InUserDigits(static_cast<int>(file.events.size()))}) + "\n");
  return kDone;
}

int WriteCopy(const std::string& name, const std::string& copy, const Options& options) {
  TMetricsFile file;
  if (const long status = RepairMetricsFile(Wide(name), Wide(copy), file); status != 0) {
    SayStatus(copy, status, options);
    return kNotWritten;
  }
  if (!options.json) SayProblem(name, file);
  const std::string events = InUserDigits(static_cast<int>(file.events.size()));
  Print(options.json ? Summary(name, file).Add("copy", copy).Line()
                     : Say(Text::MetricsRepaired, {copy, events, InUserDigits(file.dropped)}) + "\n");
  return kDone;
}

}  // namespace

int RunMetricsShow(const Options& options) {
  const std::string& name = options.operands[0];
  TMetricsFile file;
  if (const long status = ReadMetricsFile(Wide(name), file); status != 0)
    return NotRead(name, status, options);
  if (options.json) {
    PrintAsJson(name, file);
  } else {
    PrintAsTable(file);
    SayProblem(name, file);
  }
  return HasNoHead(file) ? kUnreadable : kDone;
}

int RunMetricsCheck(const Options& options) {
  const std::string& name = options.operands[0];
  TMetricsFile file;
  if (const long status = ReadMetricsFile(Wide(name), file); status != 0)
    return NotRead(name, status, options);
  if (file.problem == TMetricsProblem::None) return SayWhole(name, file, options);
  if (options.json)
    Print(Summary(name, file).Line());
  else
    SayProblem(name, file);
  return HasNoHead(file) ? kUnreadable : kNo;
}

int RunMetricsRepair(const Options& options) {
  const std::string& name = options.operands[0];
  TMetricsFile file;
  if (const long status = ReadMetricsFile(Wide(name), file); status != 0)
    return NotRead(name, status, options);
  if (HasNoHead(file)) return RunMetricsCheck(options);
  if (!options.output.empty()) return WriteCopy(name, options.output, options);
  if (file.problem == TMetricsProblem::None) return SayWhole(name, file, options);
  const std::string copy = NameOfCopy(name);
  if (!IsThere(copy)) return WriteCopy(name, copy, options);
  const std::string there = Say(Text::MetricsThere, {copy});
  if (options.json)
    Print(JsonObject().Add("file", copy).Add("error", JsonObject().Add("text", there)).Line());
  else
    Complain(there);
  return kNotWritten;
}

}  // namespace Cli
