// The services that an application offers to every module through its context (iappcontext.h). The
// application implements the abstract ones; the library fixes their operations and the order of the slots,
// and only calls.
//
// Texts are terminated and belong to the caller, who may free them after the call. Each service says itself
// which threads may call it; the library calls from the thread that called the library.
#ifndef QEL_APP_SERVICES_H
#define QEL_APP_SERVICES_H

#include "platform_types.h"
#include "qel_cstring.h"
#include "qel_export.h"

// In every interface below: slot order is ABI, the destructor stays last.

// The clock of all date values. Tests and replays put a fixed one into the context.
class QEL_API ISysTimeProvider {
 public:
  // The current local time, all fields of one instant.
  // Kept: no tick count, despite its name, because the applications' clocks implement it under this one.
  virtual SYSTEMTIME GetTickCount() = 0;
  virtual ~ISysTimeProvider() = default;
};

// The operating system's local clock; what a context starts with.
class QEL_API TQelTimeProvider : public ISysTimeProvider {
 public:
  SYSTEMTIME GetTickCount() override;
};

class QEL_API ISysLogger {
 public:
  virtual void LogError(const wchar_t* text) = 0;
  virtual void LogWarning(const wchar_t* text) = 0;
  virtual void LogInfo(const wchar_t* text) = 0;
  // `level` is the application's own scale.
  virtual void LogText(int level, const wchar_t* text) = 0;
  // Returns when everything logged so far is stored.
  virtual void Flush() = 0;
  virtual ~ISysLogger() = default;
};

// The display of a long operation's progress.
class QEL_API IStatusViewer {
 public:
  virtual void Show() = 0;
  virtual void Hide() = 0;
  virtual void SetText(const wchar_t* text) = 0;
  // Positions run from `first` to `last`, both included.
  virtual void SetRange(int first, int last) = 0;
  virtual void SetPos(int position) = 0;
  // Moves one position on.
  virtual void Step() = 0;
  virtual ~IStatusViewer() = default;
};

// Named values that a crash report or a support window shows; `index` is 0 to GetCount() - 1.
class QEL_API IDebugValProvider {
 public:
  virtual int GetCount() = 0;
  virtual CString GetName(int index) = 0;
  virtual CString GetValue(int index) = 0;
  virtual ~IDebugValProvider() = default;
};

// What happens around the opening and closing of the database. Every operation returns true unless
// overridden.
class QEL_API IAppEvents {
 public:
  virtual bool BeforeDatabaseOpen();
  virtual bool AfterDatabaseOpen();
  virtual bool BeforeDatabaseClose();
  virtual bool AfterDatabaseClose();
  virtual ~IAppEvents() = default;
};

// Messages to the user and questions.
class QEL_API IAppUX {
 public:
  enum class Answer { Yes, No, Cancel };

  virtual void OkBox(const wchar_t* text) = 0;
  virtual bool YesNoBox(const wchar_t* text) = 0;
  virtual Answer YesNoCancelBox(const wchar_t* text) = 0;
  // Tells without waiting for an answer.
  virtual void Notify(const wchar_t* text) = 0;
  virtual ~IAppUX() = default;
};

// Opens the accounting entry with this number for the user.
class QEL_API IEntryServices {
 public:
  virtual void OpenEntry(int number) = 0;
  virtual ~IEntryServices() = default;
};

// The copy-protection key. Its operations are known only to the module that provides it.
class QEL_API IPainter {
 public:
  virtual ~IPainter() = default;
};

#endif  // QEL_APP_SERVICES_H
