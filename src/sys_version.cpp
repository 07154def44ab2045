#include "sys_version.h"

#include <string>

#include "exceptions.h"
#include "iappcontext.h"

#define QEL_SOURCE L"src/iappsettings"

namespace {

// Filled from the left: a sign ends up between zeros and digits.
std::wstring FourDigits(int number) {
  constexpr std::size_t kWidth = 4;
  const std::wstring digits = std::to_wstring(number);
  return std::wstring(digits.size() < kWidth ? kWidth - digits.size() : 0, L'0') + digits;
}

}  // namespace

TQelSysVersion::TQelSysVersion()
    : m_AppVersion(L"9.24.0.3044"), m_SecondVersion(L"1.0"), m_BuildDate(L"Apr 27 2020") {}

void TQelSysVersion::SetDBVerInfo(int major, int minor) noexcept {
  m_Set = true;
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

CString TQelSysVersion::GetDBVerString() const {
  const TQelSysVersion& version = GetProgInfo().GetSysVersion();
  const int major = version.GetDBMajVer();
  return BuildVerNum(major, version.GetDBMinVer());
}

CString BuildVerNum(int major, int minor) {
  return FourDigits(major) + L"." + FourDigits(minor);
}
