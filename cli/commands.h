// The commands, one source each. The settings (language, order, calendar) are in SysFormat when one runs. A
// command writes its results, says on the message stream what it could not read, and returns an exit code.
#ifndef QEL_CLI_COMMANDS_H
#define QEL_CLI_COMMANDS_H

#include "options.h"

namespace Cli {

int RunDate(const Options& options);
int RunDateAdd(const Options& options);
int RunDateDiff(const Options& options);
int RunCalendar(const Options& options);
int RunCalc(const Options& options);
int RunColor(const Options& options);
int RunColorLighten(const Options& options);
int RunColorDarken(const Options& options);
int RunColorMerge(const Options& options);
int RunColorHls(const Options& options);
int RunHijriList(const Options& options);
int RunHijriShift(const Options& options);
int RunHijriVerify(const Options& options);
int RunStructEncode(const Options& options);
int RunStructDecode(const Options& options);
int RunFileDetect(const Options& options);
int RunFileCat(const Options& options);
int RunFileConvert(const Options& options);
int RunUrlSplit(const Options& options);
int RunUrlEncode(const Options& options);
int RunUrlDecode(const Options& options);
int RunRtf(const Options& options);
int RunHtml(const Options& options);
int RunHttpGet(const Options& options);
int RunHttpPost(const Options& options);
int RunMetricsShow(const Options& options);
int RunMetricsCheck(const Options& options);
int RunMetricsRepair(const Options& options);
int RunSettingsList(const Options& options);
int RunSettingsGet(const Options& options);
int RunSettingsSet(const Options& options);
int RunSettingsUnset(const Options& options);
int RunSettingsExport(const Options& options);
int RunSettingsImport(const Options& options);
int RunSettingsWatch(const Options& options);
int RunSettingsPath(const Options& options);
int RunDoctor(const Options& options);
int RunError(const Options& options);
int RunVersion(const Options& options);

}  // namespace Cli

#endif  // QEL_CLI_COMMANDS_H
