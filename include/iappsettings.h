// The application's settings service and the two services behind it that give no folders (those are in
// appfolders.h). The application implements the abstract ones, fills an IAppSettings and registers it:
//
//   class TMySettings : public IAppSettings {
//    public:
//     TMySettings() { m_AppReg = std::make_shared<TMyReg>(); }
//   };
//   IAppContext::GetAppContext()->SetAppSettings(std::make_shared<TMySettings>());
//   IAppContext::GetAppContext()->GetAppSettings()->GetAppReg()->ReadInt(L"Window", L"Width", 800);
//
// The library only reads through these. Fill them while the application starts; nothing guards the getters against
// a later change. In every interface: slot order is ABI, the destructor stays last.
#ifndef QEL_IAPPSETTINGS_H
#define QEL_IAPPSETTINGS_H

#include <memory>

#include "appfolders.h"
#include "qel_cstring.h"
#include "qel_export.h"

// How the application reaches its database.
class QEL_API IDBSettings {
 public:
  virtual CString GetServer() = 0;
  virtual CString GetDatabase() = 0;
  // As the database's driver takes it.
  virtual CString GetConnectionString() = 0;
  virtual ~IDBSettings() = default;
};

// The application's own entries, in sections. Readers never fail: they give the default. Writers tell whether the
// entry is stored.
class QEL_API IAppReg {
 public:
  virtual int ReadInt(const wchar_t* section, const wchar_t* entry, int defaultValue) = 0;
  virtual bool WriteInt(const wchar_t* section, const wchar_t* entry, int value) = 0;
  virtual CString ReadText(const wchar_t* section, const wchar_t* entry, const wchar_t* defaultValue) = 0;
  virtual bool WriteText(const wchar_t* section, const wchar_t* entry, const wchar_t* value) = 0;
  // Exactly `size` bytes, else false with `data` unchanged.
  virtual bool ReadData(const wchar_t* section, const wchar_t* entry, void* data, int size) = 0;
  virtual bool WriteData(const wchar_t* section, const wchar_t* entry, const void* data, int size) = 0;
  virtual ~IAppReg() = default;
};

class QEL_API IAppSettings {
 public:
  // The service; never empty. Each raises TXAssertion "m_<member> != nullptr" while it is.
  virtual std::shared_ptr<IDBSettings> GetDBSettings() const;
  virtual std::shared_ptr<IAppFolders> GetAppFolders() const;
  virtual std::shared_ptr<IAppReg> GetAppReg() const;
  virtual ~IAppSettings() = default;

 protected:
  std::shared_ptr<IDBSettings> m_DBSettings;
  std::shared_ptr<IAppFolders> m_AppFolders;
  std::shared_ptr<IAppReg> m_AppReg;
};

#endif  // QEL_IAPPSETTINGS_H
