// Files of metrics: any bytes are refused, or become a well-formed file that has nothing more to repair.
#include <string>

#include "fuzz.h"
#include "metrics_head.h"
#include "xml_checker.h"

namespace {

void Check(const std::string& content) {
  const TMetricsFile broken = ParseMetrics(content);
  const std::string repaired = RepairMetrics(content);
  const bool refused =
      broken.problem == TMetricsProblem::NotMetrics || broken.problem == TMetricsProblem::HeadCutOff;
  FUZZ_ASSERT(repaired.empty() == refused);
  if (refused) return;
  const TMetricsFile whole = ParseMetrics(repaired);
  FUZZ_ASSERT(XmlChecker::Accepts(repaired) && whole.problem == TMetricsProblem::None && whole.dropped == 0);
  FUZZ_ASSERT(whole.events.size() == broken.events.size() && whole.info.size() == broken.info.size());
  FUZZ_ASSERT((broken.problem == TMetricsProblem::None) == (repaired == content));
}

}  // namespace

// As it is, and behind a head, which few inputs find.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  Check(bytes);
  Check(kMetricsHead + ("  </info>\n  <events>\n" + bytes));
  return 0;
}
