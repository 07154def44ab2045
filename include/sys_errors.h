// The sink for the last error text of the process; the application context hands out the one instance.
#ifndef QEL_SYS_ERRORS_H
#define QEL_SYS_ERRORS_H

#include "qel_cstring.h"
#include "qel_export.h"

// Holds at most one text, none at first. No lock: threads that share it take turns.
class QEL_API ISysErrors {
 public:
  ISysErrors() = default;
  // Copied, never moved from: whoever still holds the other keeps its text.
  ISysErrors(const ISysErrors&) = default;
  ISysErrors& operator=(const ISysErrors&) = default;
  ~ISysErrors() = default;

  // Slot order is ABI.
  virtual CString GetLastError() { return m_LastError; }
  // Null counts as empty.
  virtual void SetLastError(const wchar_t* text) { m_LastError = text; }
  virtual void ClearErrors() { m_LastError.Empty(); }

 private:
  CString m_LastError;
};

#endif  // QEL_SYS_ERRORS_H
