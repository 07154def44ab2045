// Who the running program is: its version, and the version of the database that it has open.
#ifndef QEL_SYS_VERSION_H
#define QEL_SYS_VERSION_H

#include "qel_cstring.h"
#include "qel_export.h"

class QEL_API TQelSysVersion {
 public:
  // The identity of the suite that the library belongs to; IsSet() is false.
  TQelSysVersion();

  bool IsSet() const noexcept { return m_Set; }
  // "9.24.0.3044", the version that the suite's modules and its reports know. Not the library's package
  // version.
  CString GetAppVerInfo() const { return m_AppVersion; }
  // "Apr 27 2020".
  CString GetAppVerDate() const { return m_BuildDate; }

  // The version of the open database, -1 and -1 until it is set. Any two numbers are stored; IsSet() is then true.
  void SetDBVerInfo(int major, int minor) noexcept;
  // Raise TXAssertion "m_DBMajVer > 0" and "m_DBMinVer > 0" for a stored number that is not.
  // Kept: a minor version 0 counts as missing, because hosts rely on it to refuse half-made databases.
  int GetDBMajVer() const;
  int GetDBMinVer() const;
  // BuildVerNum of the two numbers that the application's context has, not of these. Raises as GetProgInfo and
  // the two getters, of which that of the major number comes first.
  CString GetDBVerString() const;

 private:
  bool m_Set = false;
  const wchar_t* m_AppVersion;
  const wchar_t* m_SecondVersion;
  CString m_BuildDate;
  int m_DBMajVer = -1;
  int m_DBMinVer = -1;
};

// Both numbers with at least four digits: BuildVerNum(9, 24) gives "0009.0024".
QEL_API CString BuildVerNum(int major, int minor);

// The identity of the program; the application overwrites it through its context.
struct QEL_API TProgramInfo {
  TQelSysVersion& GetSysVersion() noexcept { return Version; }
  const TQelSysVersion& GetSysVersion() const noexcept { return Version; }

  TQelSysVersion Version;
  CString ProgramName;
  CString ProgramTitle;
  CString CompanyName;
  bool DemoMode = false;
};

#endif  // QEL_SYS_VERSION_H
