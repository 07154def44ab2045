#include "exceptions.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "support/frames.h"
#include "support/raises.h"
#include "support/slots.h"
#include "sys_errors.h"
#include "utf8.h"

#define QEL_SOURCE L"tests/exceptions"

using namespace Qel::Sys::Exceptions;
using boost::stacktrace::stacktrace;

namespace {

// A call stack of that many frames, made of addresses that mean nothing.
stacktrace StackOf(std::size_t frames) {
  std::array<const void*, 20> addresses;
  static const char s_Places[20] = {};
  for (std::size_t i = 0; i < frames; ++i) addresses[i] = &s_Places[i];
  return stacktrace::from_dump(addresses.data(), frames * sizeof(void*));
}

// The frames that a report lists, in either form.
std::vector<std::string> Frames(const CString& report) {
  std::vector<std::string> frames;
  int start = 0;
  while (start >= 0) {
    CString line = report.Tokenize(L"\n", start);
    line.Replace(L"</b>", L"");
    if (line.Find(L'#') == 0) frames.push_back(Qel::ToUtf8(line));
  }
  return frames;
}

// The start of every line, for comparing numbers alone.
std::string Numbers(const CString& report) {
  std::string numbers;
  for (const auto& frame : Frames(report)) numbers += frame.substr(0, frame.find(' ') + 1);
  return numbers;
}

QEL_NOINLINE void RaiseAtDepth(int depth) {
  if (depth == 0) QEL_RAISE(CurrencyNotFoundException);
  RaiseAtDepth(depth - 1);
  asm volatile("");  // no tail call
}

QEL_NOINLINE void RequirePositive(int number) {
  QEL_REQUIRE(number > 0, L"number > 0");
  asm volatile("");
}

}  // namespace

TEST(ExceptionsTest, EachKindAddsItsTextToTheMessage) {
  const wchar_t* const memory[] = {L"", L"Out of Memory", L"Can't lock memory", L"Can't release memory", L""};
  const wchar_t* const parameter[] = {L"", L"Invalid Parameter", L"Missing Parameter",
                                      L"Parameter Out Of Range", L""};
  for (int kind = 0; kind < 5; ++kind) {
    SCOPED_TRACE(kind);
    EXPECT_EQ(RaisedBy([&] { QEL_RAISE(memory_exception, static_cast<MRX_TYPE>(kind)); }),
              std::wstring(L"Memory Exception: ") + memory[kind]);
    EXPECT_EQ(RaisedBy([&] { QEL_RAISE(parameter_exception, static_cast<PMX_TYPE>(kind)); }),
              std::wstring(L"Parameter Exception: ") + parameter[kind]);
  }
}

TEST(ExceptionsTest, TheMessageIsWhatTheSiteGave) {
  const CString parserText(L"2+");
  EXPECT_EQ(RaisedBy([] { QEL_RAISE(date_exception, L"no date"); }), L"no date");
  EXPECT_EQ(RaisedBy([&] { QEL_RAISE(ParserValidationException, parserText); }), L"2+");
  EXPECT_EQ(RaisedBy([] { QEL_RAISE(CurrencyNotFoundException); }), L"Currency not found");
  EXPECT_EQ(RaisedBy([] { QEL_RAISE(file_exception, L"a.log", L"Error creating/opening file:\n"); }),
            L"Error creating/opening file:\n: a.log");
  EXPECT_EQ(RaisedBy([] { QEL_RAISE(qel_exception, nullptr); }), L"");
}

TEST(ExceptionsTest, BothReportsAreExact) {
  const stacktrace trace = StackOf(3);
  const std::unique_ptr<qel_exception> e(
      new memory_exception(MRX_CANT_LOCK, L"src/blob", "bool List<int>::Lock()", 42, trace));
  const CString frame = CString(L"#1 ") + Qel::FromUtf8(boost::stacktrace::to_string(trace[2])) + L"\n";
  EXPECT_EQ(e->GetErrorDetails(),
            L"Error Message:\n-----------------\nMemory Exception: Can't lock memory\n\n"
            L"Exception Class:\n------------------\nclass Qel::Sys::Exceptions::memory_exception\n\n"
            L"Location:\n=======\n"
            L"Function:\n-----------\nbool List<int>::Lock()\n\n"
            L"File:\n-----\nsrc/blob\n"
            L"Line:42\n\n"
            L"Stack Trace:\n========\n" +
                frame);
  EXPECT_EQ(e->GetErrorDetailsAsHTML(),
            L"<p dir=\"ltr\">Exception Type: <b>class Qel::Sys::Exceptions::memory_exception</b>"
            L"Error Message: <b>Memory Exception: Can't lock memory</b>\n\n"
            L"<b><u>Exception Location</u>\n</b>"
            L"Function: <b>bool List<int>::Lock()</b>\n"
            L"File: <b>src/blob</b>\n"
            L"Line: <b>42</b>\n\n"
            L"<font color=\"#C0C0C0\"><b><u>Stack Trace</u>\n</b>" +
                frame + L"\n</font></p>");
}

TEST(ExceptionsTest, StackTextSkipsNumbersAndStops) {
  const struct {
    std::size_t frames;
    int skip, max;
    const char* numbers;
  } rows[] = {
      {3, -2, 8, "#1 "},   {20, -2, 8, "#1 #2 #3 #4 #5 #6 #7 #8 "},
      {2, -2, 8, ""},      {0, 0, 8, ""},
      {2, 0, 9, "#1 #2 "}, {3, 4, 6, "#5 #6 "},
      {3, 0, 0, "#1 "},  // Kept: the limit is tested after printing
  };
  for (const auto& row : rows)
    EXPECT_EQ(Numbers(StackTraceList(StackOf(row.frames), row.skip, row.max)), row.numbers);
  EXPECT_EQ(Numbers(StackTraceList(0, 2)), "#1 #2 ");
}

TEST(ExceptionsTest, TheFirstLineOfTheStackIsTheFunctionThatRaised) {
  const struct {
    const char* name;
    void (*function)(int);
    int argument;
  } rows[] = {{"RaiseAtDepth", RaiseAtDepth, 0},
              {"RaiseAtDepth", RaiseAtDepth, 30},
              {"RequirePositive", RequirePositive, 0}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const auto e = Raised([&] { row.function(row.argument); });
    ASSERT_TRUE(e);
    const auto plain = Frames(e->GetErrorDetails());
    ASSERT_FALSE(plain.empty());
    EXPECT_EQ(plain[0].substr(0, 3), "#1 ");
    EXPECT_TRUE(FrameIsIn(plain[0], row.name, row.function)) << plain[0];
    if (row.argument == 0) continue;
    EXPECT_EQ(Numbers(e->GetErrorDetails()), "#1 #2 #3 #4 #5 #6 #7 #8 ");
    EXPECT_EQ(Numbers(e->GetErrorDetailsAsHTML()), "#1 #2 #3 #4 #5 ");
    EXPECT_TRUE(FrameIsIn(plain[7], row.name, row.function)) << plain[7];
  }
}

TEST(ExceptionsTest, TheSiteIsRecorded) {
  const int line = __LINE__ + 1;
  const auto e = Raised([] { QEL_RAISE(guid_exception, L"x"); });
  EXPECT_EQ(e->GetFile(), L"tests/exceptions");
  EXPECT_EQ(e->GetLineNumber(), line);
  EXPECT_NE(e->GetFunctionName().find("TheSiteIsRecorded"), std::string::npos) << e->GetFunctionName();
}

TEST(ExceptionsTest, TheResourceExceptionIsATextAndNoMemberOfTheFamily) {
  const wchar_t* text = nullptr;
  try {
    ThrowResourceException();
  } catch (CException*) {
    ADD_FAILURE();
  } catch (wchar_t* thrown) {
    text = thrown;
  }
  EXPECT_STREQ(text, L"Resource Exception");
}

TEST(ExceptionsTest, TheBaseNamesTheFamilyAndHasNoTextOfItsOwn) {
  const auto e = Raised([] { RequirePositive(0); });
  EXPECT_STREQ(e->GetRuntimeClass()->m_lpszClassName, "CException");
  wchar_t buffer[] = L"before";
  unsigned help = 7;
  EXPECT_EQ(e->GetErrorMessage(buffer, 7, &help), 0);
  EXPECT_STREQ(buffer, L"");
  EXPECT_EQ(help, 0u);
  EXPECT_EQ(e->GetErrorMessage(nullptr, 0), 0);
  EXPECT_EQ(e->ReportError(), 0);
}

#ifdef __x86_64__
TEST(ExceptionsTest, SlotsStandWhereModulesCallThem) {
  using Message = BOOL(wchar_t*, unsigned, unsigned*);
  using ConstMessage = BOOL(wchar_t*, unsigned, unsigned*) const;
  // The destructor takes two slots in this layout, 1 and 2.
  ExpectSlotsFrom(0, &CObject::GetRuntimeClass);
  ExpectSlotsFrom(3, &CObject::Serialize, &CObject::AssertValid, &CObject::Dump,
                  Of<ConstMessage>(&CException::GetErrorMessage), Of<Message>(&CException::GetErrorMessage),
                  &CException::ReportError, &qel_exception::GetError, &qel_exception::GetErrorDetails,
                  &qel_exception::GetErrorDetailsAsHTML);
  ExpectSlotsFrom(0, &ISysErrors::GetLastError, &ISysErrors::SetLastError, &ISysErrors::ClearErrors);
}
#endif

TEST(SysErrorsTest, HoldsTheLastTextUntilItIsCleared) {
  ISysErrors errors;
  EXPECT_EQ(errors.GetLastError(), L"");
  errors.SetLastError(L"first");
  ISysErrors other(std::move(errors));
  errors.SetLastError(L"second");
  EXPECT_EQ(other.GetLastError(), L"first");
  errors.SetLastError(nullptr);
  EXPECT_EQ(errors.GetLastError(), L"");
  other.ClearErrors();
  EXPECT_EQ(other.GetLastError(), L"");
}
