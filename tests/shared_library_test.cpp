// What can only go wrong between a host and the shared library: exceptions, memory, exported data and virtual
// calls that cross the border. This program links nothing of the library's but what every host links.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "qelcoretypes.h"

#define QEL_SOURCE L"tests/shared_library"

using namespace Qel::Sys::Exceptions;
using Qel::Sys::DateTime::Date;
using Qel::Sys::Settings::Format;
using Qel::Sys::Settings::SysFormat;

namespace {

struct FixedClock : ISysTimeProvider {
  SYSTEMTIME GetTickCount() override { return {2024, 3, 4, 7, 10, 20, 30, 400}; }
};

class HostContext : public IAppContext {
 public:
  explicit HostContext(std::wstring company) : m_Company(std::move(company)) {
    m_TimeProvider = std::make_shared<FixedClock>();
  }
  void InitContext() override { GetProgramInfo(); }
  const std::wstring& Company() const { return m_Company; }

 private:
  std::wstring m_Company;
};

// The text of what the library raises, caught as `Caught`; the exception is deleted.
template <class Caught, class Body>
std::wstring CaughtAs(Body&& body) {
  try {
    body();
  } catch (Caught* e) {
    const std::wstring text(static_cast<qel_exception*>(e)->GetError());
    e->Delete();
    return text;
  }
  return {};
}

void MonthThirteen() {
  Date(1, 13, 2024);
}

}  // namespace

TEST(SharedLibraryTest, WhatTheLibraryRaisesIsCaughtByEveryNameItHas) {
  const std::wstring text = L"( month > 0) && (month < 13)";
  EXPECT_EQ(CaughtAs<TXAssertion>(MonthThirteen), text);
  EXPECT_EQ(CaughtAs<qel_exception>(MonthThirteen), text);
  EXPECT_EQ(CaughtAs<CException>(MonthThirteen), text);
}

TEST(SharedLibraryTest, TheLibraryReportsWhatTheHostRaises) {
  CString report;
  EXPECT_FALSE(Qel::Report([] { QEL_RAISE(file_exception, L"a.log", L"Cannot open"); },
                           [&](const CString& text) { report = text; }));
  EXPECT_GE(report.Find(L"Cannot open"), 0);
  EXPECT_GE(report.Find(L"file_exception"), 0);
  EXPECT_GE(report.Find(L"tests/shared_library"), 0);
}

TEST(SharedLibraryTest, TheLibraryReadsTheSettingsThatTheHostWrites) {
  SysFormat.DateFmt = Format::DF_YYYYMMDD;
  SysFormat.RoundPrec = Format::RP_5;
  EXPECT_EQ(Qel::Sys::Math::Round::RoundVal(12.6), 15.0);
  EXPECT_STREQ(Qel::Sys::Text::Conversion::ToString(Date(7, 3, 2024)), L"2024-03-07");
}

TEST(SharedLibraryTest, TheHostWalksAListAndAsksBeyondIt) {
  Qel::List<Date> days;
  for (unsigned short day = 1; day <= 3; ++day) days.append(Date(day, 3, 2024));
  int sum = 0;
  for (long i = 0; i < days.GetCount(); ++i) sum += days[i].Day();
  EXPECT_EQ(sum, 6);
  EXPECT_EQ(CaughtAs<TXAssertion>([&] { days[3]; }), L"p != 0");
}

TEST(SharedLibraryTest, TheLibraryCallsTheContextOfTheHost) {
  EXPECT_EQ(CaughtAs<TXAssertion>([] { GetTimeProvider(); }), L"m_AppContext != nullptr");
  const HostContext* context = CreateAppContext<HostContext>(L"شركة");
  EXPECT_EQ(Date(), Date(7, 3, 2024));
  EXPECT_EQ(context->Company(), L"شركة");
  EXPECT_EQ(CaughtAs<TXAssertion>([] { GetSysLogger(); }), L"m_SysLogger != nullptr");
}
