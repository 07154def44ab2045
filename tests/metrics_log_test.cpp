#include "metrics_log.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <regex>
#include <sstream>
#include <thread>
#include <vector>

#include "bugtrap.h"
#include "metrics_file.h"
#include "platform/platform.h"
#include "support/documents.h"
#include "support/fixed_clock.h"
#include "support/fresh_process.h"
#include "support/golden.h"
#include "support/metrics_folder.h"
#include "utf8.h"

namespace {

namespace fs = std::filesystem;

// A log whose insides can be reached.
class Log : public TBTLogFile {
 public:
  Log() : TBTLogFile(L"not used") {}
  using TBTLogFile::m_LastWrite;
  using TBTLogFile::Write;
};

bool Add(TBTLogFile& log, int level, const wchar_t* name = L"E") {
  TBTEvent event(static_cast<ABT_LOGLEVEL>(level), name);
  return log.AddEvent(event);
}

std::wstring Shown(const TBTEventValue& value) {
  std::wostringstream out;
  value.ToStream(out);
  return out.str();
}

// Groups digits and has a comma for a point: a host's locale that must not show.
struct Hostile : std::numpunct<wchar_t> {
  wchar_t do_decimal_point() const override { return L','; }
  wchar_t do_thousands_sep() const override { return L'.'; }
  std::string do_grouping() const override { return "\3"; }
};

}  // namespace

TEST(MetricsLogTest, TheFileIsAsTheReporterKnowsIt) {
  const MetricsFolder folder;
  std::string text;
  {
    Log log;
    TBTEvent event(ABT_INFO, L"Saved \"&\" closed");
    event[L"Time Taken (ms)"] = 1234567.0;
    event[L"1st"] = L"a<b & c>'d'\n";
    event[L"\u0627\u0633\u0645"] = std::wstring(L"\u0645\u062D\u0645\u062F");
    EXPECT_TRUE(log.AddEvent(event));
    EXPECT_TRUE(log.Close());
    EXPECT_FALSE(log.Close());
    EXPECT_EQ(TBTLogBase::m_TagLevel, 0);
    text = folder.Content(log.GetFilePath());
  }
  text = std::regex_replace(text, std::regex("[0-9]{6}-[0-9]{10}"), "TIME");
  text = std::regex_replace(text, std::regex("(<(computer|user|duration|SessionDutaion_s)>)[^<]*"), "$1?");
  text = std::regex_replace(text, std::regex("qel_tests(\\.exe)?<"), "PROGRAM<");
  EXPECT_EQ(text, GoldenText("metrics_log.xml"));
}

TEST(MetricsLogTest, ErrorsWaitForTenOthersOrTenSecondsAndTheRestIsWrittenAtOnce) {
  const MetricsFolder folder;
  TBTLogFile::SetLogLevel(ABT_ERROR);  // kept: lost, the log sets its own
  std::wstring unclosed;
  {
    Log log;
    unclosed = log.GetFilePath();
    Add(log, ABT_ERROR);
  }
  EXPECT_EQ(ParseMetrics(folder.Content(unclosed)).problem, TMetricsProblem::Unclosed);
  EXPECT_EQ(ParseMetrics(folder.Content(unclosed)).events.size(), 1u);
  Log log;
  EXPECT_EQ(TBTLogFile::GetLevel(), ABT_VERBOSE);
  const auto written = [&] { return ParseMetrics(folder.Content(log.GetFilePath())).events.size(); };
  for (int i = 0; i < 10; ++i) EXPECT_TRUE(Add(log, i % 2));
  EXPECT_EQ(written(), 0u);
  EXPECT_TRUE(Add(log, 1));
  EXPECT_EQ(written(), 11u);
  TMetricsFile live;  // read while it is written
  EXPECT_EQ(ReadMetricsFile(log.GetFilePath().c_str(), live), 0);
  const struct {
    int level;
    double seconds;  // since the last write; below 0, as many as there are
    std::size_t written;
  } rows[] = {{1, 10.9, 11}, {1, 11.1, 13}, {1, -1, 13}, {2, 0, 15},
              {0, 0, 15},    {5, 0, 17},    {6, 20, 17}, {7, 0, 17}};
  for (const auto& row : rows) {
    const auto passed = std::chrono::duration<double>(row.seconds);
    if (row.seconds >= 0)
      log.m_LastWrite =
          TDurationCounter(TDurationCounter::Clock::now() -
                           std::chrono::duration_cast<TDurationCounter::Clock::duration>(passed));
    EXPECT_EQ(Add(log, row.level), row.level <= 5);
    EXPECT_EQ(written(), row.written) << row.level;
  }
  TBTLogFile::SetLogLevel(ABT_WARNING);
  EXPECT_FALSE(Add(log, ABT_INFO, L"dropped"));
  EXPECT_TRUE(Add(log, ABT_ERROR));
  EXPECT_TRUE(log.Close());
  EXPECT_FALSE(Add(log, ABT_ERROR));
  const TMetricsFile file = ParseMetrics(folder.Content(log.GetFilePath()));
  EXPECT_EQ(file.problem, TMetricsProblem::None);
  EXPECT_EQ(file.events.size(), 19u);
  EXPECT_EQ(file.events.back().name, "SessionEnd");  // which no level drops
}

TEST(MetricsLogTest, AnEventBeginsWhenItIsMadeAndLastsUntilItIsTaken) {
  const MetricsFolder folder;
  Log log;
  TBTEvent event(ABT_INFO, L"E");
  std::this_thread::sleep_for(std::chrono::milliseconds(30));
  const std::string taken = Qel::ToUtf8(TBTLogBase::GetTimeStamp(nullptr));
  EXPECT_TRUE(log.AddEvent(event));
  const TMetricsEvent written = ParseMetrics(folder.Content(log.GetFilePath())).events.at(0);
  EXPECT_LT(written.timestamp, taken);
  EXPECT_GE(std::stoi(written.duration), 20);
}

TEST(MetricsLogTest, ValuesKeepTheirKindAndShowItWhateverTheLocale) {
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Hostile));
  TBTEventValue value;
  EXPECT_EQ(value.GetKind(), BTV_STRING);
  const auto expect = [&](TBTValueKind kind, const wchar_t* text) {
    EXPECT_EQ(value.GetKind(), kind) << text;
    EXPECT_EQ(Shown(value), text);
  };
  expect(BTV_STRING, L"");
  value = 1234567, expect(BTV_INT, L"1234567");
  value = true, expect(BTV_INT, L"1");
  value = ABT_VERBOSE, expect(BTV_INT, L"5");
  value = 3000000000U, expect(BTV_INT64, L"3000000000");
  value = -5L, expect(BTV_INT64, L"-5");
  value = static_cast<short>(7), expect(BTV_INT64, L"7");
  value = ~std::size_t{0}, expect(BTV_INT64, L"9223372036854775807");
  value = 0.1, expect(BTV_DOUBLE, L"0.1");
  value = 1e-5, expect(BTV_DOUBLE, L"1e-05");
  value = 123456.0f, expect(BTV_DOUBLE, L"123456");
  value = L"<\u0645>", expect(BTV_STRING, L"&lt;\u0645&gt;");
  value = CString(L"c"), expect(BTV_STRING, L"c");
  value = static_cast<const wchar_t*>(nullptr), expect(BTV_STRING, L"");
  const auto now = TDurationCounter::Clock::now();
  value = TDurationCounter(now - std::chrono::hours(1));
  EXPECT_EQ(value.GetKind(), BTV_INT64);
  EXPECT_GE(std::stoll(Shown(value)), 3600000);
  EXPECT_GE(TDurationCounter(now - std::chrono::milliseconds(2999)).ElapsedSeconds(), 2);
  const auto assigned = value.GetTime();
  value = 1;
  EXPECT_GE(value.GetTime(), assigned);
  std::locale::global(before);
}

TEST(MetricsLogTest, TagNamesKeepLettersAndDigits) {
  for (const auto& row : GoldenTable("fix_tag.tsv"))
    ExpectAnswer(row, Spelled(TBTLogBase::FixTagName(row.Wide("input").value().c_str())));
  const std::pair<const wchar_t*, const wchar_t*> rows[] = {
      {L"\u00AA\u00B2\u00B3\u00B5\u00B9\u00BA", L"______"},  // letters and digits that XML does not take
      {L"\U0001F600", L"__"},
      {L"\u2160", L"\u2160"},
      {nullptr, L""},
  };
  for (const auto& [text, name] : rows) EXPECT_EQ(TBTLogBase::FixTagName(text), name);
}

TEST(MetricsLogTest, PropertiesHaveNamesThatXmlTakes) {
  TBTEvent event(ABT_NONE, L"");
  for (const wchar_t* key : {L"", L"9a", L"\u0669a", L"a b", L"a_b"}) event[key] = key;
  std::wostringstream out;
  TBTLogBase::m_TagLevel = -3;  // no blanks below 0
  event.ToStream(out);
  EXPECT_EQ(TBTLogBase::spaces(), L"");
  TBTLogBase::m_TagLevel = 0;
  const std::wstring text = out.str();
  const std::size_t start = text.find(L"<Properties>\n") + 13;
  EXPECT_EQ(text.substr(start, text.find(L"</Properties>") - start),
            L"<_></_>\n<_9a>9a</_9a>\n<_\u0669a>\u0669a</_\u0669a>\n<a_b>a_b</a_b>\n");
}

TEST(MetricsLogTest, LinesAreIndentedByTheirDepth) {
  const SYSTEMTIME time = {2020, 4, 1, 27, 13, 43, 48, 500};
  EXPECT_EQ(TBTLogBase::GetTimeStamp(&time), L"200427-1343480500");
  EXPECT_EQ(TBTLogBase::GetTimeStamp(nullptr).size(), 17u);
  TBTLogBase::m_TagLevel = 2;
  EXPECT_EQ(TBTLogBase::spaces(), L"    ");
  EXPECT_EQ(TBTLogBase::Tag(L"x\n"), L"    x\n\n");
  EXPECT_EQ(TBTLogBase::Tag(L"n", L"&"), L"    <n>&amp;</n>\n");
  TBTEventValue value;
  value = 5;
  EXPECT_EQ(TBTLogBase::Tag(L"n", value), L"    <n>5</n>\n");
  TBTLogBase::m_TagLevel = 0;
  for (const auto& [level, name] : {std::pair(0, L"0:None"),
                                    {1, L"1:Error"},
                                    {2, L"2:Warning"},
                                    {3, L"3:Important"},
                                    {5, L"5:Verbose"},
                                    {7, L"9:Unknown"},
                                    {-1, L"9:Unknown"}})
    EXPECT_STREQ(TBTLogBase::GetLevelName(static_cast<ABT_LOGLEVEL>(level)), name);
}

TEST(MetricsLogTest, WhatXmlCannotHoldIsReplacedInTheFileAlone) {
  using namespace std::string_literals;
  const std::wstring text = L"\0\x1F\t\n\r\x7F\uFFFE"s + static_cast<wchar_t>(0xD800) + L"x" +
                            static_cast<wchar_t>(0xDC00) + L"\xD83D\xDE00";
  EXPECT_EQ(utf16_to_utf8(text + L'\xFFFF'), "\uFFFD\uFFFD\t\n\r\x7F\uFFFD\uFFFDx\uFFFD\U0001F600\uFFFD");
  std::wostringstream out;  // which on Windows takes U+FFFF for its end
  TBTLogBase::WriteEscaped(out, text + L"\"&'<>");
  EXPECT_EQ(out.str(), text + L"&quot;&amp;&apos;&lt;&gt;");
}

TEST(MetricsLogTest, AnEventIsSavedOnceAndNotAfterTheLogIsGone) {
  const MetricsFolder folder;
  struct AtExit {
    ~AtExit() {
      const bool gone = !TBTLogFile::GetLogFile() && !TBTEvent(ABT_INFO, L"late").Save();
      std::error_code ignored;
      fs::remove_all(folder, ignored);
      std::_Exit(gone ? 0 : 2);
    }
    const fs::path folder;
  };
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto body = [&] {
    static const AtExit s_AtExit{folder.Path()};
    const auto* const log = TBTLogFile::GetLogFile().get();
    TBTLogFile::SetLogLevel(ABT_IMPORTANT);
    TBTEvent dropped(ABT_INFO, L"dropped"), kept(ABT_IMPORTANT, L"kept");
    if (dropped.Save() || !kept.Save() || kept.Save() || log != TBTLogFile::GetLogFile().get()) std::_Exit(4);
    dropped.SetLogLevel(ABT_ERROR);
    if (dropped.Save()) std::_Exit(5);  // what was filtered counts as saved
    std::exit(1);
  };
  EXPECT_EXIT(body(), testing::ExitedWithCode(0),
              RunsOnWindows() ? "" : "Error: GetLogFile\\(\\) called after destructor");
}

TEST(MetricsLogTest, FilesOfEarlierRunsWaitForTheReporterAndOpenOnesStay) {
  const MetricsFolder folder;
  const fs::path pending = folder.Path() / "Pending";
  fs::create_directory(pending);
  const auto make = [](const fs::path& path) { std::ofstream(path) << "x"; };
  const std::string program = "qel_tests_";
  for (int i = 0; i < 100; ++i)
    make(pending /
         ("zz_2001" + std::to_string(10 + i % 20) + "-" + std::to_string(1000000000 + i) + "_log.xml"));
  make(pending / "a_010101-0000000000_log.xml");  // the oldest, though its name comes first
  make(folder.Path() / (program + "200501-0000000000_log.xml"));
  for (const char* name : {"other_200501-0000000000_log.xml", "qel_tests_x_log.txt", "_log.xml"})
    make(folder.Path() / name);
  const Log open;
  const fs::path openName = fs::path(open.GetFilePath()).filename();
  const Log second;
  EXPECT_TRUE(fs::exists(pending / (program + "200501-0000000000_log.xml")));
  EXPECT_FALSE(fs::exists(pending / "a_010101-0000000000_log.xml"));
  EXPECT_EQ(std::distance(fs::directory_iterator(pending), {}), 100);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}),
            6);  // with both logs and the sub-folder
}

TEST(MetricsLogTest, TheReporterIsToldWhatTheApplicationSaysOfItself) {
  EXPECT_IN_FRESH_PROCESS({
    EXPECT_EQ(BT_GetAppName(), L"qel_tests");
    const std::wstring session = BT_GetAppSession();
    EXPECT_TRUE(std::regex_match(
        session, std::wregex(L"[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}")));
    EXPECT_EQ(BT_GetAppSession(), session);
    CreateAppContext<TestContext>();
    GetProgInfo().ProgramName = L"orders";
    EXPECT_EQ(BT_GetAppName() + BT_GetAppId(), L"ordersorders");
    GetProgInfo().ProgramTitle = L"Orders 9";
    EXPECT_EQ(BT_GetAppName() + BT_GetAppId(), L"Orders 9orders");
    GetProgInfo().DemoMode = true;
    EXPECT_EQ(BT_GetAppConfig(), L"Demo");
    const std::wstring path = BT_GetMetricsFilePath();
    EXPECT_TRUE(path.ends_with(L"QelMetrics")) << Spelled(path);
  });
}
