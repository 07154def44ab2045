// Where the application's files lie, and where it writes those of the user.
//
//   class TMyFolders : public IAppFolders {
//    public:
//     void InitFolders() override { m_AppPath = L"C:\\Qelmar"; ... m_bInit = true; }
//   };
//   GetLogFilePath()   gives "C:\Users\me\Documents\Qelmar\9.0\Log", and the folder is there
//
// What the library puts between folders is "\" on every system; Qel::ToNativePath makes a path of the system's own.
#ifndef QEL_APPFOLDERS_H
#define QEL_APPFOLDERS_H

#include <boost/utility/string_ref.hpp>

#include "qel_cstring.h"
#include "qel_export.h"

class QEL_API IAppFolders {
 public:
  // The folders. A view holds until the object changes or goes. Each raises TXAssertion "m_bInit != false" until
  // InitFolders() has run.
  boost::basic_string_ref<wchar_t> GetAppPath() const { return GetPath(View(m_AppPath)); }
  boost::basic_string_ref<wchar_t> GetTemplatesPath() const { return GetPath(View(m_TemplatesPath)); }
  boost::basic_string_ref<wchar_t> GetSQLPath() const { return GetPath(View(m_SQLPath)); }
  boost::basic_string_ref<wchar_t> GetHTMLPath() const { return GetPath(View(m_HTMLPath)); }

  // Slot order is ABI.
  // The application's: fills the four paths and sets m_bInit.
  virtual void InitFolders() = 0;
  virtual ~IAppFolders() = default;

 protected:
  // `path`, once the paths are filled.
  boost::basic_string_ref<wchar_t> GetPath(boost::basic_string_ref<wchar_t> path) const;

  bool m_bInit = false;
  CString m_AppPath;
  CString m_TemplatesPath;
  CString m_SQLPath;
  CString m_HTMLPath;

 private:
  static boost::basic_string_ref<wchar_t> View(const CString& path) {
    return {path.GetString(), path.View().size()};
  }
};

// The suite's folder in the user's documents, "Qelmar\9.0"; it is made when it is missing. On Linux the documents are
// the desktop's folder for them, else "Documents" in the user's home, written as the system writes it. "C:\" when the
// system names no documents folder, empty when the path would have more than 259 units. Raises qel_exception "GetLogFilePath() Failed" when it names one without a path.
QEL_API CString GetPersonalPath();

// The folder "Log" in there, made when it is missing. Found once in a process; empty or raising as GetPersonalPath, and
// then the next call tries again. Any thread may call it.
QEL_API CString GetLogFilePath();
// The same into `buffer`, which has room for 260 units; a longer path is cut. False, and nothing done, for null.
QEL_API bool GetLogFilePath(wchar_t* buffer);

// Makes the folder and those above it that are missing. Whether it is there afterwards. "/" and "\" both separate.
QEL_API bool CreateDir(const wchar_t* path);

#endif  // QEL_APPFOLDERS_H
