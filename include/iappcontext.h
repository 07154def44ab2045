// The application's context: the one object through which every module of the process reaches the services
// that the application provides (app_services.h).
//
//   class TMyContext : public IAppContext {
//    public:
//     TMyContext() { m_SysLogger = std::make_shared<TMyLogger>(); }
//     void InitContext() override {}
//   };
//   CreateAppContext<TMyContext>();       // once, while the application starts
//   GetSysLogger()->LogInfo(L"ready");    // from then on, in any module
//
// A service that is missing is a fault of the program: its getter raises. Fill the slots while starting;
// afterwards the getters may be called from any thread, but nothing guards them against a setter.
#ifndef QEL_IAPPCONTEXT_H
#define QEL_IAPPCONTEXT_H

#include <memory>
#include <utility>

#include "app_services.h"
#include "qel_export.h"
#include "sys_errors.h"
#include "sys_version.h"
#include "theme.h"

class IAppSettings;

class QEL_API IAppContext {
 public:
  // The registered context. Raises TXAssertion "m_AppContext != nullptr" when there is none.
  static std::shared_ptr<IAppContext> GetAppContext();
  // Whether there is one; for code that may run before the application has started, or without any.
  static bool IsValidAppContext() noexcept;
  // Registers `context`, for the life of the process. A context does this itself when it is constructed.
  // Raises TXAssertion "m_AppContext == nullptr" when one is registered, whatever the argument.
  static void SetAppContext(std::shared_ptr<IAppContext> context);

  IAppContext(const IAppContext&) = delete;
  IAppContext& operator=(const IAppContext&) = delete;

  // Slot order is ABI.
  // The service in the slot; never empty. Each raises TXAssertion "m_<slot> != nullptr" when the slot is.
  virtual std::shared_ptr<ISysTimeProvider> GetTimeProvider() const;
  virtual std::shared_ptr<ISysLogger> GetSysLogger() const;
  virtual std::shared_ptr<IAppSettings> GetAppSettings() const;
  virtual std::shared_ptr<Qel::UI::IAppTheme> GetAppTheme() const;
  virtual std::shared_ptr<IStatusViewer> GetStatusViewer() const;
  virtual std::shared_ptr<IDebugValProvider> GetDbgValProvider() const;
  virtual std::shared_ptr<IPainter> GetProtectionKey() const;
  virtual std::shared_ptr<IAppEvents> GetAppEvents() const;
  // Never raises: an empty slot gives a sink that all contexts and callers share.
  virtual std::shared_ptr<ISysErrors> GetSysError() const;
  virtual std::shared_ptr<IAppUX> GetAppUX() const;
  virtual std::shared_ptr<IEntryServices> GetEntryServices() const;
  // The identity of the program, for the application to overwrite. Lives as long as the context.
  virtual TProgramInfo& GetProgramInfo();
  // Replace what the slot holds. An empty reference is stored, and the getter raises from then on.
  virtual void SetAppSettings(std::shared_ptr<IAppSettings> settings);
  virtual void SetAppTheme(std::shared_ptr<Qel::UI::IAppTheme> theme);
  virtual void SetProtectionKey(std::shared_ptr<IPainter> key);
  virtual void SetEntryServices(std::shared_ptr<IEntryServices> services);
  virtual void SetTimeProvider(std::shared_ptr<ISysTimeProvider> provider);
  // The application's own start-up. The library never calls it.
  virtual void InitContext() = 0;

 protected:
  // Registers the object, which must come from a plain `new`, and hands it to the process: nobody else
  // deletes it. Raises TXAssertion "m_AppContext == nullptr" when one is registered. A derived constructor
  // that raises takes the registration back.
  IAppContext();
  // Kept: not virtual, because the modules' slot numbers leave no room for it. An object of CreateAppContext
  // is destroyed as what it is. For a bare `new TMyContext` only this class's part is: the members of
  // TMyContext are freed without their destructors, and TMyContext may not be over-aligned.
  ~IAppContext();

  static std::shared_ptr<IAppContext> m_AppContext;

  TProgramInfo m_ProgramInfo;
  std::shared_ptr<ISysTimeProvider> m_TimeProvider;  // TQelTimeProvider at first; the others are empty
  std::shared_ptr<ISysLogger> m_SysLogger;
  std::shared_ptr<IAppSettings> m_AppSettings;
  std::shared_ptr<Qel::UI::IAppTheme> m_AppTheme;
  std::shared_ptr<IStatusViewer> m_StatusViewer;
  std::shared_ptr<IDebugValProvider> m_DbgValProvider;
  std::shared_ptr<IPainter> m_ProtectionKey;
  std::shared_ptr<IAppEvents> m_AppEvents;
  std::shared_ptr<ISysErrors> m_SysError;
  std::shared_ptr<IAppUX> m_AppUX;
  std::shared_ptr<IEntryServices> m_EntryServices;

 private:
  struct Deleter;
  using Destroy = void (*)(IAppContext*);

  static void DestroyThisPart(IAppContext* context);
  // How the registered context will be destroyed.
  static void SetDestroy(Destroy destroy) noexcept;

  template <class T, class... Arguments>
  friend T* CreateAppContext(Arguments&&... arguments);
};

// Makes the process's context and sees to it that its own destructor runs when the process ends. The result
// belongs to the process. Raises what T's constructor raises; then nothing is registered.
template <class T, class... Arguments>
T* CreateAppContext(Arguments&&... arguments) {
  T* const context = new T(std::forward<Arguments>(arguments)...);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdelete-non-virtual-dtor"  // the object is a T and nothing more
  IAppContext::SetDestroy([](IAppContext* whole) { delete static_cast<T*>(whole); });
#pragma GCC diagnostic pop
  return context;
}

// Short for IAppContext::GetAppContext() and the getter of the same name; raise what those raise.
QEL_API std::shared_ptr<ISysTimeProvider> GetTimeProvider();
QEL_API std::shared_ptr<ISysLogger> GetSysLogger();
QEL_API std::shared_ptr<IStatusViewer> GetStatusViewer();
QEL_API std::shared_ptr<IDebugValProvider> GetDbgValProvider();
QEL_API std::shared_ptr<IPainter> GetProtectionKey();
QEL_API std::shared_ptr<IAppEvents> GetAppEvents();
QEL_API std::shared_ptr<IAppUX> GetAppUX();
QEL_API std::shared_ptr<IEntryServices> GetEntryServices();
QEL_API TProgramInfo& GetProgInfo();

#endif  // QEL_IAPPCONTEXT_H
