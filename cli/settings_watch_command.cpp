#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <utility>

#include "commands.h"
#include "json.h"
#include "output.h"
#include "refusal.h"
#include "regtools.h"
#include "settings.h"
#include "text.h"

namespace Cli {

namespace {

using Clock = std::chrono::steady_clock;

constexpr long kMissing = 2, kNothingChanged = 258, kKeyDeleted = 1018;
constexpr unsigned int kForEver = 0xFFFFFFFF;

// All entries by section and name.
using Content = std::map<std::pair<std::string, std::string>, Setting>;

long ReadContent(const Options& options, const std::string& section, Content& content) {
  std::vector<Section> sections;
  const long status = ReadSections(RootOf(options), section, sections);
  for (Section& one : sections)
    for (Setting& entry : one.entries) content[{one.name, entry.name}] = std::move(entry);
  return status == kMissing ? 0 : status;
}

// The section's key, or the nearest one around it that is there: only what exists can be waited for.
std::unique_ptr<TRegKey> NearestKey(HKEY root, CString path) {
  for (;;) {
    auto key = std::make_unique<TRegKey>(root, path, KEY_READ, TRegKey::OpenOnly);
    if (HKEY(*key)) return key;
    const std::size_t end = path.View().rfind(L'\\');
    if (end == path.View().npos) return std::make_unique<TRegKey>(root, false, L"");
    path = path.Left(static_cast<int>(end));
  }
}

void PrintChange(const char* mark, const std::string& section, const Setting& entry, const Options& options) {
  Print(options.json ? JsonRow(section, entry)
                     : Joined({mark, " [", Plain(section), "]  ", Row(entry), "\n"}));
}

void PrintRemoval(const std::string& section, const std::string& name, const Options& options) {
  if (options.json)
    Print(JsonObject().Add("section", section).Add("entry", name).Add("type", nullptr).Line());
  else
    Print(Joined({"- [", Plain(section), "]  ", EntryShown(name), "\n"}));
}

// Whether there was any difference.
bool PrintDifference(const Content& before, const Content& now, const Options& options) {
  for (const auto& [place, entry] : before)
    if (!now.contains(place)) PrintRemoval(place.first, place.second, options);
  for (const auto& [place, entry] : now) {
    const auto old = before.find(place);
    if (old == before.end())
      PrintChange("+", place.first, entry, options);
    else if (!(old->second == entry))
      PrintChange("~", place.first, entry, options);
  }
  return before != now;
}

class Deadline {
 public:
  explicit Deadline(std::optional<int> seconds) {
    if (seconds) m_End = Clock::now() + std::chrono::seconds(*seconds);
  }
  unsigned int MillisecondsLeft() const {
    if (!m_End) return kForEver;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*m_End - Clock::now()).count();
    return left > 0 ? static_cast<unsigned int>(left) : 0;
  }

 private:
  std::optional<Clock::time_point> m_End;
};

int Watch(const std::string& section, const Deadline& deadline, const Options& options) {
  std::optional<Content> before;
  bool seen = false;
  for (;;) {
    // Asked once before the content is read, the key tells of whatever comes after.
    const auto key = NearestKey(RootOf(options), KeyOf(section));
    WaitForRegistryChange(*key, 0);
    Content now;
    if (const long status = ReadContent(options, section, now); status != 0)
      return NotRead(status, section, options);
    if (!before)
      Complain(Say(Text::Watching));
    else
      seen = PrintDifference(*before, now, options) || seen;
    if (seen && options.once) return kDone;
    before = std::move(now);
    const long status = WaitForRegistryChange(*key, deadline.MillisecondsLeft());
    if (status == kNothingChanged) return seen ? kDone : kNo;
    if (status != 0 && status != kKeyDeleted) return NotRead(status, section, options);
  }
}

}  // namespace

int RunSettingsWatch(const Options& options) {
  std::optional<int> seconds;
  if (!options.seconds.empty()) {
    constexpr int kMost = 1000000;
    seconds = 0;
    if (const auto refusal = ReadCount(options.seconds, *seconds))
      return Refuse(options.seconds, *refusal, options);
    seconds = std::min(std::max(*seconds, 0), kMost);
  }
  return Watch(options.operands.empty() ? "" : SectionTyped(options.operands[0]), Deadline(seconds), options);
}

}  // namespace Cli
