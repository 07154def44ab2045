#include "iappcontext.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <utility>

#include "program_options.h"
#include "support/fixed_clock.h"
#include "support/fresh_process.h"
#include "support/raises.h"
#include "support/slots.h"
#include "support/sys_format_guard.h"

namespace {

// Says on stderr that it goes, and finds no context while it does.
struct Witness {
  explicit Witness(char name) : m_Name(name) {}
  Witness(const Witness&) = delete;
  Witness& operator=(const Witness&) = delete;
  ~Witness() { std::fputc(IAppContext::IsValidAppContext() ? '?' : m_Name, stderr); }

 private:
  char m_Name;
};

struct WitnessedClock : TQelTimeProvider, Witness {
  using Witness::Witness;
};
struct WitnessedEntries : IEntryServices, Witness {
  using Witness::Witness;
  void OpenEntry(int) override {}
};

// A context with a member of its own, a destructor, and another base in front of IAppContext.
class WitnessedContext : private WitnessedClock, public IAppContext {
 public:
  explicit WitnessedContext(char name) : WitnessedClock(name), m_Member('m') {
    m_TimeProvider = std::make_shared<WitnessedClock>('t');
    m_EntryServices = std::make_shared<WitnessedEntries>('n');
  }
  void InitContext() override {}

 private:
  Witness m_Member;
};

class FailingContext : public TestContext {
 public:
  FailingContext() {
    m_Kept = GetAppContext();
    throw 1;
  }

 private:
  std::shared_ptr<IAppContext> m_Kept;
};

class SinkContext : public TestContext {
 public:
  void SetSysError(std::shared_ptr<ISysErrors> sink) { m_SysError = std::move(sink); }
};

}  // namespace

TEST(AppContextTest, BeforeTheApplicationStartsThereIsNoneAndThenOneForGood) {
  EXPECT_IN_FRESH_PROCESS({
    EXPECT_EQ(RaisedBy([] { GetSysLogger(); }), L"m_AppContext != nullptr");
    IAppContext::SetAppContext(nullptr);
    EXPECT_FALSE(IAppContext::IsValidAppContext());
    auto* const context = CreateAppContext<TestContext>();
    EXPECT_GE(GetTimeProvider()->GetTickCount().wYear, 2024);
    EXPECT_EQ(&GetProgInfo(), &context->GetProgramInfo());

    EXPECT_EQ(RaisedBy([] { CreateAppContext<TestContext>(); }), L"m_AppContext == nullptr");
    EXPECT_EQ(RaisedBy([] { new TestContext; }), L"m_AppContext == nullptr");
    for (const auto& other : {std::shared_ptr<IAppContext>(), IAppContext::GetAppContext()})
      EXPECT_EQ(RaisedBy([&] { IAppContext::SetAppContext(other); }), L"m_AppContext == nullptr");
    EXPECT_EQ(IAppContext::GetAppContext().get(), context);
  });
}

TEST(AppContextTest, AConstructorThatRaisesTakesTheRegistrationBack) {
  EXPECT_IN_FRESH_PROCESS({
    EXPECT_THROW(CreateAppContext<FailingContext>(), int);
    EXPECT_FALSE(IAppContext::IsValidAppContext());
    EXPECT_THROW(new FailingContext, int);
    EXPECT_FALSE(IAppContext::IsValidAppContext());
    EXPECT_EQ(IAppContext::GetAppContext().get(), CreateAppContext<TestContext>());
  });
}

TEST(AppContextTest, AnEmptySlotRaisesItsTest) {
  EXPECT_IN_FRESH_PROCESS({
    const IAppContext* const context = CreateAppContext<TestContext>();
    IAppContext::GetAppContext()->SetTimeProvider(nullptr);
    EXPECT_EQ(RaisedBy([&] { context->GetTimeProvider(); }), L"m_TimeProvider != nullptr");
    EXPECT_EQ(RaisedBy([&] { context->GetSysLogger(); }), L"m_SysLogger != nullptr");
    EXPECT_EQ(RaisedBy([&] { context->GetAppSettings(); }), L"m_AppSettings != nullptr");
    EXPECT_EQ(RaisedBy([&] { context->GetAppTheme(); }), L"m_AppTheme != nullptr");
    EXPECT_EQ(RaisedBy([&] { context->GetStatusViewer(); }), L"m_StatusViewer != nullptr");
    EXPECT_EQ(RaisedBy([&] { context->GetDbgValProvider(); }), L"m_DbgValProvider != nullptr");
    EXPECT_EQ(RaisedBy([&] { context->GetProtectionKey(); }), L"m_ProtectionKey != nullptr");
    EXPECT_EQ(RaisedBy([&] { context->GetAppEvents(); }), L"m_AppEvents != nullptr");
    EXPECT_EQ(RaisedBy([&] { context->GetAppUX(); }), L"m_AppUX != nullptr");
    EXPECT_EQ(RaisedBy([&] { context->GetEntryServices(); }), L"m_EntryServices != nullptr");
  });
}

TEST(AppContextTest, TheErrorSinkIsSharedUntilTheApplicationHasItsOwn) {
  EXPECT_IN_FRESH_PROCESS({
    auto* const context = CreateAppContext<SinkContext>();
    const auto shared = context->GetSysError();
    shared->SetLastError(L"disk full");
    EXPECT_EQ(context->GetSysError()->GetLastError(), L"disk full");
    const auto own = std::make_shared<ISysErrors>();
    context->SetSysError(own);
    EXPECT_EQ(context->GetSysError(), own);
    context->SetSysError(nullptr);
    EXPECT_EQ(context->GetSysError(), shared);
  });
}

TEST(AppContextTest, SlotsAreFilledAndReplaced) {
  EXPECT_IN_FRESH_PROCESS({
    auto* const context = CreateAppContext<TestContext>();
    const auto key = std::make_shared<IPainter>();
    context->SetProtectionKey(key);
    EXPECT_EQ(GetProtectionKey(), key);
    const auto entries = std::make_shared<WitnessedEntries>('n');
    context->SetEntryServices(entries);
    EXPECT_EQ(GetEntryServices(), entries);
    context->SetEntryServices(nullptr);
    EXPECT_EQ(entries.use_count(), 1);
    EXPECT_TRUE(IAppEvents().BeforeDatabaseOpen() && IAppEvents().AfterDatabaseClose());
  });
}

// The derived part first, unless it was a bare `new`, then the slots from the last to the first.
TEST(AppContextTest, AtExitTheContextGoesWithAllThatItHolds) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto made = [] { CreateAppContext<WitnessedContext>('w'), std::exit(0); };
  const auto bare = [] { new WitnessedContext('w'), std::exit(0); };
  EXPECT_EXIT(made(), testing::ExitedWithCode(0), "mntw$");
  EXPECT_EXIT(bare(), testing::ExitedWithCode(0), "nt$");
}

#ifdef __x86_64__
TEST(AppContextTest, SlotsStandWhereModulesCallThem) {
  using C = IAppContext;
  ExpectSlotsFrom(0, &C::GetTimeProvider, &C::GetSysLogger, &C::GetAppSettings, &C::GetAppTheme,
                  &C::GetStatusViewer, &C::GetDbgValProvider, &C::GetProtectionKey, &C::GetAppEvents,
                  &C::GetSysError, &C::GetAppUX, &C::GetEntryServices, &C::GetProgramInfo, &C::SetAppSettings,
                  &C::SetAppTheme, &C::SetProtectionKey, &C::SetEntryServices, &C::SetTimeProvider,
                  &C::InitContext);
  EXPECT_EQ(SlotOf(&ISysTimeProvider::GetTickCount), 0);
  EXPECT_EQ(SlotOf(&ISysLogger::Flush), 4);
  EXPECT_EQ(SlotOf(&IStatusViewer::Step), 5);
  EXPECT_EQ(SlotOf(&IDebugValProvider::GetValue), 2);
  EXPECT_EQ(SlotOf(&IAppUX::Notify), 3);
}
#endif

TEST(SysVersionTest, DatabaseVersionsBelowOneCountAsMissing) {
  TProgramInfo info;
  TQelSysVersion& version = info.GetSysVersion();
  EXPECT_FALSE(version.IsSet());
  EXPECT_EQ(RaisedBy([&] { version.GetDBMajVer(); }), L"m_DBMajVer > 0");
  EXPECT_EQ(RaisedBy([&] { version.GetDBMinVer(); }), L"m_DBMinVer > 0");
  EXPECT_EQ(version.GetAppVerInfo(), L"9.24.0.3044");
  EXPECT_EQ(version.GetAppVerDate(), L"Apr 27 2020");
  const int rows[][2] = {{9, 0}, {0, 24}};
  for (const auto& [major, minor] : rows) {
    int told[2] = {};
    version.SetDBVerInfo(major, minor);
    EXPECT_EQ(RaisedBy([&] { told[0] = version.GetDBMajVer(); }), major ? L"" : L"m_DBMajVer > 0");
    EXPECT_EQ(RaisedBy([&] { told[1] = version.GetDBMinVer(); }), minor ? L"" : L"m_DBMinVer > 0");
    EXPECT_EQ(told[0], major);
    EXPECT_EQ(told[1], minor);
  }
}

TEST(ProgramOptionsTest, SettingTellsWhatWasSetBefore) {
  TProgramOptions options;
  EXPECT_EQ(options.SetOption(7, 0), 0);
  EXPECT_EQ(options.SetOption(7, 1), 0);
  EXPECT_EQ(options.SetOption(7, -1), 1);
  TProgramOptions copy = options;
  EXPECT_EQ(options.SetOption(7, 0), 1);  // once only, although set twice
  EXPECT_EQ(options.CheckOption(7), 0);
  EXPECT_EQ(copy.CheckOption(7), 1);
  options = std::move(copy);
  EXPECT_EQ(options.CheckOption(7) + copy.CheckOption(7), 2);  // a move copies
}

TEST(ProgramOptionsTest, InitLeavesExactlyTheStandardOptions) {
  const SysFormatGuard guard;
  TProgramOptions options;
  options.SetOption(7, 1);
  options.init();
  options.init();
  EXPECT_EQ(options.CheckOption(7), 0);
  int set = 0;
  for (int option = 0; option < 40000; ++option) set += options.CheckOption(option);
  EXPECT_EQ(set, 15);
  for (const int option :
       {1735, 4900, 4903, 4904, 4905, 4911, 4914, 4916, 4921, 4923, 4924, 4975, 4990, 4999, 32521})
    EXPECT_EQ(options.CheckOption(option), 1) << option;
  EXPECT_EQ(options.SetOption(4924, 1), 1);
  EXPECT_EQ(options.SetOption(4924, 0), 1);
  EXPECT_EQ(options.CheckOption(4924), 0);
  EXPECT_EQ(Qel::Sys::Settings::SysFormat.Option7, 6u);
}
