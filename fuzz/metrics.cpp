// The metrics log: whatever names and texts an event has, its file is well-formed and reads back, and what a host sees
// of it is what the file has.
#include <sstream>
#include <string>

#include "bugtrap.h"
#include "fuzz.h"
#include "metrics_head.h"
#include "metrics_log.h"
#include "xml_checker.h"

namespace {

std::string InFile(const TBTEvent& event, const std::wstring& info) {
  std::wostringstream out;
  TBTLogBase::m_TagLevel = 2;
  out << TBTLogBase::Tag(L"application", info.c_str()) << L"  </info>\n  <events>\n";
  event.ToStream(out);
  return kMetricsHead + utf16_to_utf8(out.str()) + "  </events>\n</metrics>\n";
}

}  // namespace

// Texts end at U+FFFF: the name, then keys and values in turn; a value of one unit is taken as numbers.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::wistringstream texts(Units(data, size));
  std::wstring name, key, value;
  std::getline(texts, name, L'\uFFFF');
  TBTEvent event(size % 2 ? ABT_INFO : static_cast<ABT_LOGLEVEL>(size), name);
  while (std::getline(texts, key, L'\uFFFF') && std::getline(texts, value, L'\uFFFF')) {
    event[key] = value;
    if (value.size() == 1) event[key + L"i"] = value[0], event[key + L"d"] = 1e300 / value[0];
  }
  const std::string file = InFile(event, name);
  FUZZ_ASSERT(XmlChecker::Accepts(file));
  const TMetricsFile read = ParseMetrics(file);
  FUZZ_ASSERT(read.problem == TMetricsProblem::None && read.events.size() == 1);
  FUZZ_ASSERT(read.events[0].name == utf16_to_utf8(name));
  FUZZ_ASSERT(RepairMetrics(file) == file);
  return 0;
}
