#include <gtest/gtest.h>

#include <map>
#include <string>

#include "hcalendar.h"
#include "hijri_shifts.h"
#include "regconfig.h"
#include "regkey.h"
#include "support/temp_registry.h"

using namespace Qel::Sys::DateTime;
using Fault = THijriShiftFault;

TEST(HijriLoadTest, GoodEntriesAreEnteredAndTheOthersReturnedWithTheReason) {
  const struct {
    const wchar_t* entry;
    int shift;
    Fault fault;
  } rows[] = {
      {L"1445-09", 1, Fault::None},
      {L"1306-12", -2, Fault::None},
      {L"1499-02", 2, Fault::None},
      {L"1445-01", -1, Fault::None},
      {L"1446-01", 1, Fault::LateStartOfYear},
      {L"1445-10", 3, Fault::ShiftOutside},
      {L"1445-11", -3, Fault::ShiftOutside},
      {L"1305-12", 1, Fault::YearOutside},
      {L"1500-01", 1, Fault::YearOutside},
      {L"1445-13", 1, Fault::NotAMonth},
      {L"1445-00", 1, Fault::NotAMonth},
      {L"1445-9", 1, Fault::NotAMonth},
      {L"1445-+2", 1, Fault::NotAMonth},
      {L"1445/02", 1, Fault::NotAMonth},
      {L"\u0661445-02", 1, Fault::NotAMonth},
      {L"", 1, Fault::NotAMonth},
  };
  const TempRegistry registry;
  const long before = HijriShiftList().GetCount();
  TQelReg settings;
  std::map<std::wstring, Fault> expected = {{L"1447-02", Fault::NotAnInteger},
                                            {L"1447-03", Fault::NotAnInteger}};
  settings.WriteString(L"HijriShift", L"1447-02", L"1");
  unsigned char bytes[] = {1, 0, 0, 0, 0, 0, 0, 0};
  settings.WriteData(L"HijriShift", L"1447-03", bytes, sizeof bytes);
  for (const auto& row : rows) {
    ASSERT_TRUE(settings.WriteInteger(L"HijriShift", row.entry, row.shift));
    if (row.fault != Fault::None) expected[row.entry] = row.fault;
  }
  std::map<std::wstring, Fault> skipped;
  for (const auto& entry : LoadHijriDateShifts()) skipped[entry.entry.GetString()] = entry.fault;
  EXPECT_EQ(skipped, expected);
  EXPECT_EQ(THCalendar::GetHijriDateShift(9, 1445), 1);
  EXPECT_EQ(THCalendar::GetHijriDateShift(12, 1306), -2);
  EXPECT_EQ(THCalendar::GetHijriDateShift(2, 1499), 2);
  EXPECT_EQ(THCalendar::GetHijriDateShift(1, 1445), -1);
  EXPECT_EQ(HijriShiftList().GetCount(), before + 4);

  // Read again, a 0 takes a correction back and leaves no entry of its own.
  settings.WriteInteger(L"HijriShift", L"1445-09", 0);
  for (int again = 0; again < 2; ++again) {
    LoadHijriDateShifts();
    EXPECT_EQ(THCalendar::GetHijriDateShift(9, 1445), 0);
    EXPECT_EQ(HijriShiftList().GetCount(), before + 3);
  }
  for (const auto& [month, year] : {std::pair(12, 1306), {2, 1499}, {1, 1445}})
    THCalendar::SetHijriDateShift(month, year, 0);
}

TEST(HijriLoadTest, ReadingMakesNothing) {
  const TempRegistry registry;
  EXPECT_TRUE(LoadHijriDateShifts().empty());
  EXPECT_EQ(TRegKey(HKEY_CURRENT_USER, L"Software\\qelmarsoft", KEY_READ, TRegKey::OpenOnly), nullptr);
}
