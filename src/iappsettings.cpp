#include "iappsettings.h"

#include "exceptions.h"

#define QEL_SOURCE L"src/iappsettings"

std::shared_ptr<IDBSettings> IAppSettings::GetDBSettings() const {
  QEL_REQUIRE(m_DBSettings != nullptr, L"m_DBSettings != nullptr");
  return m_DBSettings;
}

std::shared_ptr<IAppFolders> IAppSettings::GetAppFolders() const {
  QEL_REQUIRE(m_AppFolders != nullptr, L"m_AppFolders != nullptr");
  return m_AppFolders;
}

std::shared_ptr<IAppReg> IAppSettings::GetAppReg() const {
  QEL_REQUIRE(m_AppReg != nullptr, L"m_AppReg != nullptr");
  return m_AppReg;
}
