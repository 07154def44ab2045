#include "commands.h"
#include "json.h"
#include "output.h"
#include "regtools.h"
#include "settings.h"
#include "text.h"

namespace Cli {

namespace {

CString WholeKeyOf(const std::string& section, const Options& options) {
  return CString(options.machine ? L"HKEY_LOCAL_MACHINE\\" : L"HKEY_CURRENT_USER\\") + KeyOf(section);
}

Text TextOf(TRegImportProblem problem) {
  switch (problem) {
    case TRegImportProblem::NotRegistryText:
      return Text::ImportNoText;
    case TRegImportProblem::BadKey:
      return Text::ImportBadKey;
    case TRegImportProblem::ValueWithoutKey:
      return Text::ImportNoKey;
    case TRegImportProblem::BadName:
      return Text::ImportBadName;
    case TRegImportProblem::UnclosedText:
      return Text::ImportUnclosed;
    default:
      return Text::ImportBadValue;
  }
}

int NotImported(const std::string& file, long status, const TRegImportReport& report,
                const Options& options) {
  const bool refused = report.problem == TRegImportProblem::NotApplied;
  std::string why = StatusText(status);
  if (!refused && report.problem != TRegImportProblem::None) why = Say(TextOf(report.problem));
  if (report.line > 0)
    why = Joined({Say(Text::AtLine, {InUserDigits(report.line), InUserDigits(report.column)}), why});
  if (options.json)
    Print(
        JsonObject()
            .Add("file", file)
            .Add("error", JsonObject().Add("line", report.line).Add("column", report.column).Add("text", why))
            .Line());
  else
    Complain(Joined({file, ": ", why}));
  return refused ? kStore : kUnreadable;
}

}  // namespace

int RunSettingsExport(const Options& options) {
  const std::string& file = options.operands[0];
  const std::string section = options.operands.size() > 1 ? SectionTyped(options.operands[1]) : "";
  Section stored;
  if (const long status = ReadSection(RootOf(options), section, stored); status != 0)
    return NotRead(status, section, options);
  const CString key = WholeKeyOf(section, options);
  if (const long status = ExportRegistry(key, Wide(file)); status != 0) {
    Complain(Joined({file, ": ", StatusText(status)}));
    return kNotWritten;
  }
  Print(options.json ? JsonObject().Add("file", file).Add("key", Utf8(key)).Line()
                     : Say(Text::Exported, {Utf8(key), file}) + "\n");
  return kDone;
}

int RunSettingsImport(const Options& options) {
  const std::string& file = options.operands[0];
  TRegImportReport report;
  const long status = ImportRegistry(Wide(file), report);
  if (status != 0) return NotImported(file, status, report, options);
  if (options.json)
    Print(JsonObject()
              .Add("file", file)
              .Add("keys", report.keys)
              .Add("values", report.values)
              .Add("deletedKeys", report.deletedKeys)
              .Add("deletedValues", report.deletedValues)
              .Line());
  else
    Print(Say(Text::Imported, {file, InUserDigits(report.keys), InUserDigits(report.values),
                               InUserDigits(report.deletedKeys), InUserDigits(report.deletedValues)}) +
          "\n");
  return kDone;
}

}  // namespace Cli
