#include "iappcontext.h"

#include <new>

#include "exceptions.h"

#define QEL_SOURCE L"src/iappcontext"

std::shared_ptr<IAppContext> IAppContext::m_AppContext;

// Owns the context for the process. Until it is told how to destroy, it does nothing: whoever runs the `new`
// expression still has the memory.
struct IAppContext::Deleter {
  void operator()(IAppContext* context) const {
    if (!m_Destroy) return;
    s_Releasing = true;
    m_Destroy(context);
  }

  // The registered context's deleter; null without a context, or when a host wrapped it itself.
  static Deleter* Registered() noexcept { return std::get_deleter<Deleter>(m_AppContext); }

  // Set once the process lets its context go: m_AppContext is then on its way out and must not be touched,
  // although destructors of other modules may still ask for it.
  static inline bool s_Releasing = false;

  Destroy m_Destroy = nullptr;
};

IAppContext::IAppContext() : m_TimeProvider(std::make_shared<TQelTimeProvider>()) {
  // Tested before `this` gets an owner, which would free the object a second time when this raises.
  QEL_REQUIRE(m_AppContext == nullptr, L"m_AppContext == nullptr");
  SetAppContext(std::shared_ptr<IAppContext>(this, Deleter()));
  SetDestroy(DestroyThisPart);
}

IAppContext::~IAppContext() {
  if (Deleter::s_Releasing || m_AppContext.get() != this) return;
  // A derived constructor raised: its `new` expression frees the memory.
  SetDestroy(nullptr);
  m_AppContext.reset();
}

void IAppContext::DestroyThisPart(IAppContext* context) {
  void* const whole = dynamic_cast<void*>(context);
  context->IAppContext::~IAppContext();
  ::operator delete(whole);
}

void IAppContext::SetDestroy(Destroy destroy) noexcept {
  if (Deleter* const deleter = Deleter::Registered()) deleter->m_Destroy = destroy;
}

std::shared_ptr<IAppContext> IAppContext::GetAppContext() {
  QEL_REQUIRE(IsValidAppContext(), L"m_AppContext != nullptr");
  return m_AppContext;
}

bool IAppContext::IsValidAppContext() noexcept {
  return !Deleter::s_Releasing && m_AppContext != nullptr;
}

void IAppContext::SetAppContext(std::shared_ptr<IAppContext> context) {
  QEL_REQUIRE(m_AppContext == nullptr, L"m_AppContext == nullptr");
  m_AppContext = std::move(context);
}

std::shared_ptr<ISysTimeProvider> IAppContext::GetTimeProvider() const {
  QEL_REQUIRE(m_TimeProvider != nullptr, L"m_TimeProvider != nullptr");
  return m_TimeProvider;
}

std::shared_ptr<ISysLogger> IAppContext::GetSysLogger() const {
  QEL_REQUIRE(m_SysLogger != nullptr, L"m_SysLogger != nullptr");
  return m_SysLogger;
}

std::shared_ptr<IAppSettings> IAppContext::GetAppSettings() const {
  QEL_REQUIRE(m_AppSettings != nullptr, L"m_AppSettings != nullptr");
  return m_AppSettings;
}

std::shared_ptr<Qel::UI::IAppTheme> IAppContext::GetAppTheme() const {
  QEL_REQUIRE(m_AppTheme != nullptr, L"m_AppTheme != nullptr");
  return m_AppTheme;
}

std::shared_ptr<IStatusViewer> IAppContext::GetStatusViewer() const {
  QEL_REQUIRE(m_StatusViewer != nullptr, L"m_StatusViewer != nullptr");
  return m_StatusViewer;
}

std::shared_ptr<IDebugValProvider> IAppContext::GetDbgValProvider() const {
  QEL_REQUIRE(m_DbgValProvider != nullptr, L"m_DbgValProvider != nullptr");
  return m_DbgValProvider;
}

std::shared_ptr<IPainter> IAppContext::GetProtectionKey() const {
  QEL_REQUIRE(m_ProtectionKey != nullptr, L"m_ProtectionKey != nullptr");
  return m_ProtectionKey;
}

std::shared_ptr<IAppEvents> IAppContext::GetAppEvents() const {
  QEL_REQUIRE(m_AppEvents != nullptr, L"m_AppEvents != nullptr");
  return m_AppEvents;
}

std::shared_ptr<ISysErrors> IAppContext::GetSysError() const {
  if (m_SysError) return m_SysError;
  struct Sink final : ISysErrors {};  // final: destroyed as what it is, without a virtual destructor
  static const auto s_Fallback = std::make_shared<Sink>();
  return s_Fallback;
}

std::shared_ptr<IAppUX> IAppContext::GetAppUX() const {
  QEL_REQUIRE(m_AppUX != nullptr, L"m_AppUX != nullptr");
  return m_AppUX;
}

std::shared_ptr<IEntryServices> IAppContext::GetEntryServices() const {
  QEL_REQUIRE(m_EntryServices != nullptr, L"m_EntryServices != nullptr");
  return m_EntryServices;
}

TProgramInfo& IAppContext::GetProgramInfo() {
  return m_ProgramInfo;
}

void IAppContext::SetAppSettings(std::shared_ptr<IAppSettings> settings) {
  m_AppSettings = std::move(settings);
}

void IAppContext::SetAppTheme(std::shared_ptr<Qel::UI::IAppTheme> theme) {
  m_AppTheme = std::move(theme);
}

void IAppContext::SetProtectionKey(std::shared_ptr<IPainter> key) {
  m_ProtectionKey = std::move(key);
}

void IAppContext::SetEntryServices(std::shared_ptr<IEntryServices> services) {
  m_EntryServices = std::move(services);
}

void IAppContext::SetTimeProvider(std::shared_ptr<ISysTimeProvider> provider) {
  m_TimeProvider = std::move(provider);
}

std::shared_ptr<ISysTimeProvider> GetTimeProvider() {
  return IAppContext::GetAppContext()->GetTimeProvider();
}
std::shared_ptr<ISysLogger> GetSysLogger() {
  return IAppContext::GetAppContext()->GetSysLogger();
}
std::shared_ptr<IStatusViewer> GetStatusViewer() {
  return IAppContext::GetAppContext()->GetStatusViewer();
}
std::shared_ptr<IDebugValProvider> GetDbgValProvider() {
  return IAppContext::GetAppContext()->GetDbgValProvider();
}
std::shared_ptr<IPainter> GetProtectionKey() {
  return IAppContext::GetAppContext()->GetProtectionKey();
}
std::shared_ptr<IAppEvents> GetAppEvents() {
  return IAppContext::GetAppContext()->GetAppEvents();
}
std::shared_ptr<IAppUX> GetAppUX() {
  return IAppContext::GetAppContext()->GetAppUX();
}
std::shared_ptr<IEntryServices> GetEntryServices() {
  return IAppContext::GetAppContext()->GetEntryServices();
}
TProgramInfo& GetProgInfo() {
  return IAppContext::GetAppContext()->GetProgramInfo();
}
