#include "report.h"

#include <gtest/gtest.h>

#include <string>

#define QEL_SOURCE L"tests/report"

TEST(ReportTest, FailuresBecomeTextAndSuccessIsSaid) {
  CString report;
  const auto keep = [&](const CString& text) { report = text; };
  EXPECT_TRUE(Qel::Report([] {}, keep));
  EXPECT_EQ(report, L"");
  EXPECT_FALSE(Qel::Report([] { QEL_REQUIRE(false, L"count > 0"); }, keep));
  EXPECT_GE(report.Find(L"Error Message:\n-----------------\ncount > 0\n"), 0);
  EXPECT_GE(report.Find(L"class Qel::Sys::Exceptions::TXAssertion"), 0);
}

// That nothing leaks is the sanitizer's to see.
TEST(ReportTest, WhatTheHandlerThrowsAndWhatIsNoneOfOursPassesThrough) {
  EXPECT_THROW(Qel::Report([] { QEL_RAISE(date_exception, L"x"); }, [](const CString&) { throw 1; }), int);
  EXPECT_THROW(Qel::Report([] { throw std::string("x"); }, [](const CString&) { ADD_FAILURE(); }),
               std::string);
}
