#include <unicode/ucol.h>

#include <string>

#include "compare.h"
#include "string_tools.h"

namespace {

using namespace Qel::Sys::Text;

// Names as they stand beside one another in a customer list.
constexpr const wchar_t* kNames[] = {L"أحمد العلي", L"احمد الحسن", L"إبراهيم", L"محمد سعيد",
                                     L"محمود سعيد", L"مؤيد",       L"يوسف",    L"ليلى"};
constexpr unsigned kCount = 8;

// The same rules as ours: hamza on its carrier is a lesser difference.
UCollator* Peer(UCollationStrength strength) {
  UErrorCode status = U_ZERO_ERROR;
  const std::u16string rules = u"&\u0627<<\u0625<<\u0623<<\u0622 &\u0648<<\u0624 &\u064A<<\u0626";
  return ucol_openRules(rules.data(), static_cast<int32_t>(rules.size()), UCOL_OFF, strength, nullptr,
                        &status);
}

template <UCollationStrength Strength>
void Icu(benchmark::State& state) {
  static UCollator* const s_Collator = Peer(Strength);
  std::u16string names[kCount];
  for (unsigned i = 0; i < kCount; ++i) names[i].assign(kNames[i], kNames[i] + std::wcslen(kNames[i]));
  Cycle(state, [&](unsigned i) {
    const auto &a = names[i % kCount], &b = names[(i / kCount) % kCount];
    benchmark::DoNotOptimize(ucol_strcoll(s_Collator, a.data(), static_cast<int32_t>(a.size()), b.data(),
                                          static_cast<int32_t>(b.size())));
  });
}

void OursIgnoringCase(benchmark::State& state) {
  Cycle(state, [](unsigned i) {
    benchmark::DoNotOptimize(pxCompStrI(kNames[i % kCount], kNames[(i / kCount) % kCount]));
  });
}

void OursPrimary(benchmark::State& state) {
  Cycle(state, [](unsigned i) {
    benchmark::DoNotOptimize(StrCompare(kNames[i % kCount], kNames[(i / kCount) % kCount], -1));
  });
}

const bool kAdded = Compare("pxCompStrI, Arabic names", OursIgnoringCase,
                            {{"ucol_strcoll, tertiary", AtLeast(1.5), Icu<UCOL_TERTIARY>}}) &&
                    Compare("StrCompare, Arabic names", OursPrimary,
                            {{"ucol_strcoll, primary", AtLeast(1.5), Icu<UCOL_PRIMARY>}});

}  // namespace
