// What only Linux lets a test do to a metrics log: a full disk, a kill at any moment, missing rights, and a judge of XML.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "metrics_file.h"
#include "metrics_log.h"
#include "support/fresh_process.h"
#include "support/linux/raw_store.h"
#include "support/metrics_folder.h"
#include "utf8.h"

namespace {

namespace fs = std::filesystem;

bool Add(TBTLogFile& log, const std::wstring& text) {
  TBTEvent event(ABT_WARNING, text);
  event[text] = text;
  return log.AddEvent(event);
}

bool XmllintAccepts(const fs::path& file) {
  return std::system(("xmllint --noout '" + file.string() + "'").c_str()) == 0;
}

fs::path Native(const TBTLogFile& log) {
  return Qel::ToUtf8(Qel::ToNativePath(log.GetFilePath().c_str()).View());
}

// Files of this process grow no further; a write that would stops there.
void SetDiskSize(rlim_t bytes) {
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit limit = {bytes, RLIM_INFINITY};
  setrlimit(RLIMIT_FSIZE, &limit);
}

}  // namespace

TEST(LinuxMetricsTest, AFullDiskCostsEventsAndNeverTheFile) {
  const MetricsFolder folder;
  EXPECT_IN_FRESH_PROCESS({
    const MetricsFolder own;
    SetDiskSize(100);
    TBTLogFile none(L"");
    EXPECT_FALSE(Add(none, L"x") || none.Close());
    EXPECT_EQ(none.GetFilePath(), L"");
    EXPECT_TRUE(fs::is_empty(own.Path()));
    SetDiskSize(RLIM_INFINITY);
    TBTLogFile log(L"");
    const fs::path file = Native(log);
    EXPECT_TRUE(Add(log, L"first"));
    const auto size = fs::file_size(file);
    for (const rlim_t room : {0U, 1U, 60U, 150U}) {
      SetDiskSize(size + room);
      EXPECT_FALSE(Add(log, L"lost"));
      EXPECT_EQ(fs::file_size(file), size) << room;
    }
    SetDiskSize(RLIM_INFINITY);
    EXPECT_TRUE(Add(log, L"second"));
    EXPECT_TRUE(log.Close());
    const TMetricsFile read = ParseMetrics(own.Content(log.GetFilePath()));
    EXPECT_EQ(read.problem, TMetricsProblem::None);
    ASSERT_EQ(read.events.size(), 3u);
    EXPECT_EQ(read.events[1].name, "second");
    TBTLogFile last(L"");
    SetDiskSize(fs::file_size(Native(last)) + 20);
    EXPECT_FALSE(last.Close());
    EXPECT_EQ(ParseMetrics(own.Content(last.GetFilePath())).problem, TMetricsProblem::Unclosed);
  });
}

TEST(LinuxMetricsTest, WithoutRightsNothingIsWrittenAndNothingBreaks) {
  const MetricsFolder folder;
  {
    const TBTLogFile log(L"");  // makes no folder of its own here
    EXPECT_NE(log.GetFilePath(), L"");
  }
  chmod(folder.Path().c_str(), 0555);
  EXPECT_EQ(WithoutRights([] {
              TBTLogFile log(L"");
              return log.GetFilePath().empty() && !Add(log, L"x") && !log.Close() ? 0 : 1;
            }),
            0);
}

TEST(LinuxMetricsTest, TheUsersOwnFolderIsForTheUserAlone) {
  EXPECT_IN_FRESH_PROCESS({
    const TempFolder home;
    setenv("XDG_STATE_HOME", (home.Path() / "a" / "b").c_str(), 1);
    const TBTLogFile log(L"");
    EXPECT_TRUE(fs::exists(Native(log)));
    for (const char* made : {"a", "a/b", "a/b/QelMetrics"})
      EXPECT_EQ(fs::status(home.Path() / made).permissions(), fs::perms::owner_all) << made;
    unsetenv("XDG_STATE_HOME");
    setenv("HOME", "/h", 1);
    EXPECT_EQ(BT_GetMetricsFilePath(), L"/h/.local/state\\QelMetrics");
  });
}

TEST(LinuxMetricsTest, HostileTextsMakeGoodXml) {
  const MetricsFolder folder;
  TBTLogFile log(L"");
  std::wstring all;
  for (wchar_t unit = 0; unit < 0x3000; ++unit) all += unit;
  for (const wchar_t unit : {0xD800, 0xDFFF, 0xDC00, 0xFDD0, 0xFFFD, 0xFFFE, 0xFFFF, 0x1F600, 0x110000})
    (all += unit) += unit;
  const std::wstring texts[] = {all,
                                L"]]>",
                                L"<![CDATA[",
                                L"--><!--",
                                L"&#0;&amp;",
                                L"\r\n\r",
                                std::wstring(1 << 20, L'\x1B'),
                                std::wstring(1 << 20, L'&')};
  for (const std::wstring& text : texts) EXPECT_TRUE(Add(log, text));
  for (wchar_t unit = 1; unit < 0xFFFF; unit = static_cast<wchar_t>(unit + 13))
    EXPECT_TRUE(Add(log, {unit, L'a'}));
  EXPECT_TRUE(log.Close());
  EXPECT_TRUE(XmllintAccepts(Native(log)));
  const TMetricsFile file = ParseMetrics(folder.Content(log.GetFilePath()));
  EXPECT_EQ(file.problem, TMetricsProblem::None) << file.line << ":" << file.column;
  EXPECT_EQ(file.events[1].properties.front().value, "]]>");
  EXPECT_EQ(file.events[7].properties.front().value, std::string(1 << 20, '&'));
}

TEST(LinuxMetricsTest, AKilledProgramLeavesAFileThatCanBeClosed) {
  const MetricsFolder folder;
  for (int i = 0; i < 10; ++i) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = Start([&] {
      TBTLogFile log(L"");
      for (int event = 0;; ++event) {
        Add(log, L"\u0645 & " + std::wstring(50000, L'x'));
        if (event == i && write(ready[1], "x", 1) != 1) return 1;
      }
    });
    char byte;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    kill(child, SIGKILL);
    Wait(child);
    close(ready[0]);
    close(ready[1]);
    for (const auto& entry : fs::directory_iterator(folder.Path())) {
      if (!entry.is_regular_file()) continue;
      const CString path = Qel::FromUtf8(entry.path().string());
      EXPECT_FALSE(XmllintAccepts(entry.path()));
      TMetricsFile broken, whole;
      ASSERT_EQ(RepairMetricsFile(path, path, broken), 0);
      EXPECT_TRUE(broken.problem == TMetricsProblem::Unclosed || broken.problem == TMetricsProblem::CutOff);
      EXPECT_GT(broken.events.size(), static_cast<std::size_t>(i));
      EXPECT_TRUE(XmllintAccepts(entry.path()));
      EXPECT_EQ(ReadMetricsFile(path, whole), 0);
      EXPECT_EQ(whole.problem, TMetricsProblem::None);
      EXPECT_EQ(whole.events.size(), broken.events.size());
    }
  }
}
