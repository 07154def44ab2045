// What the crash reporter knows of the running program, for the metrics log that it collects.
//
//   SetBugTrapHooks({.GetAppName = [] { return std::wstring(L"Orders"); }});   // once, before the first event
//   BT_GetAppName()                                                            // "Orders"
//
// A host with a reporter of its own gives its answers; what it leaves out has the defaults below. No lock: set the
// hooks while the host starts.
#ifndef QEL_BUGTRAP_H
#define QEL_BUGTRAP_H

#include <string>
#include <string_view>

#include "qel_export.h"

// Each is called whenever its answer is needed. Null stands for the default.
struct TBugTrapHooks {
  using Answer = std::wstring (*)();
  Answer GetMetricsFilePath = nullptr;
  Answer GetAppName = nullptr;
  Answer GetAppVersion = nullptr;
  Answer GetAppBuild = nullptr;
  Answer GetAppConfig = nullptr;
  Answer GetAppId = nullptr;
  Answer GetAppSession = nullptr;
};

// Takes these from now on, and returns those before.
QEL_API TBugTrapHooks SetBugTrapHooks(const TBugTrapHooks& hooks);

// The folder of the metrics files, whether it is there or not. "QelMetrics" in $XDG_STATE_HOME, else in
// ~/.local/state; on Windows in the user's local application data. Empty when the user has no such place.
QEL_API std::wstring BT_GetMetricsFilePath();
// The title of the program that the application context knows, else its name, else the name of the running file.
QEL_API std::wstring BT_GetAppName();
// The version and the build date that the context's program has, else those of the suite.
QEL_API std::wstring BT_GetAppVersion();
QEL_API std::wstring BT_GetAppBuild();
// "Demo" for a program in its demo mode, else "Full".
QEL_API std::wstring BT_GetAppConfig();
// The name of the program that the context knows, else that of the running file.
QEL_API std::wstring BT_GetAppId();
// The same for the life of the process: a random GUID, "6F9619FF-8B86-4011-B42D-00CF4FC964FF".
QEL_API std::wstring BT_GetAppSession();

// The text in UTF-8 as an XML file can hold it: control characters other than TAB, line feed and carriage return,
// surrogates without their partner, U+FFFE and U+FFFF become U+FFFD.
QEL_API std::string utf16_to_utf8(std::wstring_view text);

#endif  // QEL_BUGTRAP_H
