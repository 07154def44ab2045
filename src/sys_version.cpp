#include "sys_version.h"

#include "exceptions.h"

#define QEL_SOURCE L"src/iappsettings"

TQelSysVersion::TQelSysVersion()
    : m_AppVersion(L"9.24.0.3044"), m_SecondVersion(L"1.0"), m_BuildDate(L"Apr 27 2020") {}

void TQelSysVersion::SetDBVerInfo(int major, int minor) noexcept {
  m_DBMajVer = major;
  m_DBMinVer = minor;
}

int TQelSysVersion::GetDBMajVer() const {
  QEL_REQUIRE(m_DBMajVer > 0, L"m_DBMajVer > 0");
  return m_DBMajVer;
}

int TQelSysVersion::GetDBMinVer() const {
  QEL_REQUIRE(m_DBMinVer > 0, L"m_DBMinVer > 0");
  return m_DBMinVer;
}
