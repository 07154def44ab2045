#include "iappsettings.h"

#include <gtest/gtest.h>

#include <memory>

#include "support/fixed_clock.h"
#include "support/fresh_process.h"
#include "support/raises.h"
#include "support/slots.h"

namespace {

struct Database : IDBSettings {
  CString GetServer() override { return L"(local)"; }
  CString GetDatabase() override { return L"main"; }
  CString GetConnectionString() override { return L""; }
};

struct Settings : IAppSettings {
  void Fill() { m_DBSettings = std::make_shared<Database>(); }
};

}  // namespace

TEST(AppSettingsTest, AServiceThatIsMissingRaisesItsTest) {
  Settings settings;
  EXPECT_EQ(RaisedBy([&] { settings.GetDBSettings(); }), L"m_DBSettings != nullptr");
  EXPECT_EQ(RaisedBy([&] { settings.GetAppFolders(); }), L"m_AppFolders != nullptr");
  EXPECT_EQ(RaisedBy([&] { settings.GetAppReg(); }), L"m_AppReg != nullptr");
  settings.Fill();
  const Settings copy = settings;
  EXPECT_EQ(copy.GetDBSettings(), settings.GetDBSettings());
}

#ifdef __x86_64__
TEST(AppSettingsTest, SlotsStandWhereModulesCallThem) {
  EXPECT_EQ(SlotOf(&IAppSettings::GetDBSettings), 0);
  EXPECT_EQ(SlotOf(&IAppSettings::GetAppFolders), 1);
  EXPECT_EQ(SlotOf(&IAppSettings::GetAppReg), 2);
  EXPECT_EQ(SlotOf(&IDBSettings::GetConnectionString), 2);
  EXPECT_EQ(SlotOf(&IAppReg::WriteData), 5);
  EXPECT_EQ(SlotOf(&IAppFolders::InitFolders), 0);
}
#endif

TEST(SysVersionTest, NumbersOfAVersionHaveFourDigitsOrMore) {
  const struct {
    int major, minor;
    const wchar_t* text;
  } rows[] = {{9, 24, L"0009.0024"}, {12345, 1, L"12345.0001"}, {0, -1, L"0000.00-1"}};
  for (const auto& row : rows) EXPECT_EQ(BuildVerNum(row.major, row.minor), row.text);
}

TEST(SysVersionTest, TheDatabaseVersionIsThatOfTheContext) {
  EXPECT_IN_FRESH_PROCESS({
    TQelSysVersion other;
    other.SetDBVerInfo(1, 2);
    EXPECT_TRUE(other.IsSet());
    EXPECT_EQ(RaisedBy([&] { other.GetDBVerString(); }), L"m_AppContext != nullptr");
    CreateAppContext<TestContext>();
    EXPECT_EQ(RaisedBy([&] { other.GetDBVerString(); }), L"m_DBMajVer > 0");
    GetProgInfo().GetSysVersion().SetDBVerInfo(9, 0);
    EXPECT_EQ(RaisedBy([&] { other.GetDBVerString(); }), L"m_DBMinVer > 0");
    GetProgInfo().GetSysVersion().SetDBVerInfo(9, 24);
    EXPECT_EQ(other.GetDBVerString(), L"0009.0024");
  });
}
