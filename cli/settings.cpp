#include "settings.h"

#include <algorithm>

#include "json.h"
#include "nearest.h"
#include "output.h"
#include "refusal.h"
#include "settings_store.h"
#include "text.h"

namespace Cli {

namespace {

constexpr long kMissing = 2, kBadArgument = 87;

int Absent(const std::string& input, const Refusal& refusal, const Options& options) {
  if (options.json)
    Print(JsonObject().Add("input", input).Add("error", AsJson(refusal)).Line());
  else
    Complain(refusal.text);
  return kNo;
}

// "X, Y and more" of what there is, for somebody who does not know the names.
std::string SomeOf(const std::vector<std::string>& names) {
  constexpr std::size_t kMost = 8;
  std::string some;
  for (std::size_t i = 0; i < std::min(names.size(), kMost); ++i)
    some = some.empty() ? Plain(names[i]) : Say(Text::Listed, {some, Plain(names[i])});
  return names.size() > kMost ? Say(Text::AndMore, {some}) : some;
}

// What to try in place of a name that is not there.
std::string Advice(const std::string& typed, const std::vector<std::string>& names, Text whenNone) {
  const std::string nearest = Nearest(typed, names);
  if (!nearest.empty()) return Say(Text::DidYouMean, {Plain(nearest)});
  return names.empty() ? Say(whenNone) : Say(Text::ThereIs, {SomeOf(names)});
}

}  // namespace

int NoSuchEntry(const Section& section, const std::string& entry, const Options& options) {
  std::vector<std::string> names;
  for (const Setting& setting : section.entries) names.push_back(EntryShown(setting.name));
  const std::string text = Say(Text::TwoClauses, {Say(Text::NoSuchEntry, {section.name, EntryShown(entry)}),
                                                  Advice(entry, names, Text::NothingInSection)});
  return Absent(entry, {"entry", 1, text}, options);
}

int NoSuchSection(const std::string& section, const Options& options) {
  std::vector<Section> all;
  ReadSections(RootOf(options), "", all);
  std::vector<std::string> names;
  for (const Section& known : all)
    if (!known.name.empty()) names.push_back(known.name);
  const std::string text = section.empty()
                               ? Say(Text::NothingStored)
                               : Say(Text::TwoClauses, {Say(Text::NoSuchSection, {Plain(section)}),
                                                        Advice(section, names, Text::NothingStored)});
  return Absent(section, {"section", 1, text}, options);
}

int NotRead(long status, const std::string& section, const Options& options) {
  if (status == kMissing) return NoSuchSection(section, options);
  Complain(StatusText(status));
  return status == kBadArgument ? kUsage : kStore;
}

int NotStored(long status, const Options& options) {
  long reason = status != 0 ? status : DescribeSettingsStore(options.machine).whyNotWritten;
  if (reason == 0) reason = kBadArgument;  // the store takes writes, so it was the name
  Complain(Say(Text::NotStored, {StoreStatusText(reason)}));
  return reason == kBadArgument ? kUsage : kStore;
}

std::string StatusText(long status) {
  const struct {
    long status;
    Text text;
  } known[] = {
      {kMissing, Text::StatusNoFile}, {3, Text::StatusNoFolder},           {5, Text::StatusNoRight},
      {32, Text::StatusShared},       {kBadArgument, Text::StatusBadName}, {112, Text::StatusDiskFull},
      {170, Text::StatusLocked},      {1016, Text::StatusBroken}};
  for (const auto& row : known)
    if (row.status == status) return Say(row.text);
  return Say(Text::StatusOther, {std::to_string(status)});
}

std::string StoreStatusText(long status) {
  constexpr long kNoRight = 5;
  return status == kNoRight ? Say(Text::StatusNoWriting) : StatusText(status);
}

}  // namespace Cli
