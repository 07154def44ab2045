#include "metrics_file.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const std::string kHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!--\n This report was automatically generated\n by QelBugTrap for Win32-x86 on 200427-1343480500\n "
    "-->\n\n"
    "<metrics version=\"1.6\">\n  <info>\n    <user>\u0645 &amp; n</user>\n  </info>\n  <events>\n";
const std::string kEnd = "  </events>\n</metrics>\n";

std::string Event(const std::string& name, const std::string& properties = "") {
  return "    <event>\n      <name>" + name +
         "</name>\n      <timestamp>200427-1343480500</timestamp>\n      <loglevel>4:Info</loglevel>\n"
         "      <duration>12</duration>\n      <Properties>\n" +
         properties + "      </Properties>\n    </event>\n";
}

std::string Property(const std::string& name, const std::string& value) {
  return "        <" + name + ">" + value + "</" + name + ">\n";
}

}  // namespace

TEST(MetricsFileTest, AWholeFileIsReadAsItWasWritten) {
  // A property whose lines look like those around it.
  const std::string text =
      kHead + Event("a", Property("event", "\n    &lt;event&gt;\n") + Property("_", "")) + kEnd;
  const TMetricsFile file = ParseMetrics(text);
  EXPECT_EQ(file.problem, TMetricsProblem::None) << file.line << ":" << file.column;
  EXPECT_EQ(file.line + file.column + file.dropped, 0);
  ASSERT_EQ(file.info.size(), 1u);
  EXPECT_EQ(file.info[0].name + "=" + file.info[0].value, "user=\u0645 & n");
  ASSERT_EQ(file.events.size(), 1u);
  const TMetricsEvent& event = file.events[0];
  EXPECT_EQ(event.name + "|" + event.timestamp + "|" + event.level + "|" + event.duration,
            "a|200427-1343480500|4:Info|12");
  ASSERT_EQ(event.properties.size(), 2u);
  EXPECT_EQ(event.properties[0].value, "\n    <event>\n");
  EXPECT_EQ(RepairMetrics(text), text);
}

TEST(MetricsFileTest, AFileThatEndsAnywhereIsClosedBehindItsLastWholeEvent) {
  const std::string first = Event("a", Property("\u0645", "\u0645")), second = Event("b");
  const std::string text = kHead + first + second + kEnd;
  const std::size_t afterFirst = kHead.size() + first.size(), afterSecond = afterFirst + second.size();
  for (std::size_t size = 0; size < text.size(); ++size) {
    SCOPED_TRACE(size);
    const std::string cut = text.substr(0, size);
    const TMetricsFile file = ParseMetrics(cut);
    if (size < kHead.size()) {
      EXPECT_EQ(file.problem, TMetricsProblem::HeadCutOff);
      EXPECT_EQ(RepairMetrics(cut), "");
      continue;
    }
    const std::string whole = kHead + (size >= afterFirst ? first : "") + (size >= afterSecond ? second : "");
    const std::string rest = cut.substr(whole.size());
    const bool torn = !kEnd.starts_with(rest);
    EXPECT_EQ(file.problem, torn ? TMetricsProblem::CutOff : TMetricsProblem::Unclosed);
    EXPECT_EQ(file.dropped, torn ? 1 : 0);
    EXPECT_EQ(RepairMetrics(cut), whole + kEnd);
  }
}

TEST(MetricsFileTest, WhatNoLogWritesIsNamedAndDropped) {
  using enum TMetricsProblem;
  const std::string a = Event("a"), b = Event("b");
  const struct {
    const char* name;
    std::string text;
    TMetricsProblem problem;
    int line, column, dropped;
    std::string repaired;
  } rows[] = {
      {"empty", "", HeadCutOff, 1, 1, 0, ""},
      {"other", "<xml/>", NotMetrics, 1, 2, 0, ""},
      {"no time", std::string(kHead).replace(kHead.find("2004"), 2, "--"), NotMetrics, 4, 33, 0, ""},
      {"behind the end", kHead + a + kEnd + "\n", LeftOver, 22, 1, 1, kHead + a + kEnd},
      {"torn and gone on", kHead + a + b.substr(0, 33) + b + kEnd, Damaged, 22, 5, 1, kHead + a + b + kEnd},
      {"zeros at the end", kHead + a + std::string(9, '\0'), Damaged, 20, 1, 1, kHead + a + kEnd},
      {"bad entity", kHead + Event("&#1;") + b + kEnd, Damaged, 13, 13, 1, kHead + b + kEnd},
      {"raw sign", kHead + Event("]]>") + b + kEnd, Damaged, 13, 13, 1, kHead + b + kEnd},
      {"bad byte", kHead + Event("\x80") + b + kEnd, Damaged, 13, 13, 1, kHead + b + kEnd},
      {"control", kHead + Event("\x01") + b + kEnd, Damaged, 13, 13, 1, kHead + b + kEnd},
      {"bad name", kHead + Event("a", Property("1", "")) + b + kEnd, Damaged, 18, 10, 1, kHead + b + kEnd},
      {"two damages, no end", kHead + "x\n" + a + "y\n" + b + "    <ev", Damaged, 12, 1, 3,
       kHead + a + b + kEnd},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const TMetricsFile file = ParseMetrics(row.text);
    EXPECT_EQ(file.problem, row.problem);
    EXPECT_EQ(file.line, row.line);
    EXPECT_EQ(file.column, row.column);
    EXPECT_EQ(file.dropped, row.dropped);
    EXPECT_EQ(RepairMetrics(row.text), row.repaired);
  }
}
