#include <unicode/uchar.h>
#include <unicode/ucol.h>
#include <unicode/ucoleitr.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/linux/utf16.h"
#include "platform/platform.h"

namespace {

constexpr DWORD kInvalidParameter = 87;

// The order of Windows over ICU's root order: hamza on alef, waw and ya is a mark on the letter, not a letter
// of its own, so that names are found however they were typed.
constexpr char16_t kRules[] = u"&\u0627<<\u0625<<\u0623<<\u0622 &\u0648<<\u0624 &\u064A<<\u0626";

// What one character weighs at the three levels of comparison; 0 has no say at that level.
struct Weight {
  std::uint32_t primary;    // the letter
  std::uint16_t secondary;  // its marks
  std::uint16_t tertiary;   // its case and form
};

// Stands for a character that is left to ICU: not in the table, of several weights, or merging with the
// letter before it.
constexpr Weight kForIcu = {0xFFFFFFFF, 0, 0};

// ASCII and the Arabic block: nearly all text that is ever compared.
constexpr std::size_t kSlots = 0x80 + 0x100;

constexpr std::size_t SlotOf(wchar_t unit) {
  const auto ch = static_cast<char32_t>(unit);
  if (ch < 0x80) return ch;
  return ch - 0x600 < 0x100 ? ch - 0x600 + 0x80 : kSlots;
}

constexpr char16_t UnitOfSlot(std::size_t slot) {
  return static_cast<char16_t>(slot < 0x80 ? slot : slot - 0x80 + 0x600);
}

// One more than the slots: the last entry stands for every other character.
using WeightTable = std::array<Weight, kSlots + 1>;

// Hamza and madda above and below: they merge with the alef, waw or ya before them.
constexpr bool MergesWithLetterBefore(char16_t unit) {
  return unit >= 0x653 && unit <= 0x655;
}

Weight WeightOf(const UCollator* collator, char16_t unit) {
  if (MergesWithLetterBefore(unit)) return kForIcu;
  UErrorCode status = U_ZERO_ERROR;
  UCollationElements* elements = ucol_openElements(collator, &unit, 1, &status);
  // A long weight comes as two elements, the second one marked by its two top tertiary bits.
  const auto first = static_cast<std::uint32_t>(ucol_next(elements, &status));
  auto second = static_cast<std::uint32_t>(ucol_next(elements, &status));
  const bool single = second == static_cast<std::uint32_t>(UCOL_NULLORDER);
  const bool isLong = !single && (second & 0xC0) == 0xC0;
  const bool more = isLong && ucol_next(elements, &status) != UCOL_NULLORDER;
  ucol_closeElements(elements);
  if (U_FAILURE(status) || more || !(single || isLong)) return kForIcu;
  if (single) second = 0;
  return {(first & 0xFFFF0000) | second >> 16,
          static_cast<std::uint16_t>((first & 0xFF00) | (second >> 8 & 0xFF)),
          static_cast<std::uint16_t>((first & 0x3F) << 8 | (second & 0x3F))};
}

// Everything a comparison needs, made once, when the first one asks, and shared by all threads from then on.
// It is never freed: statics of a host may still compare while the program ends.
struct Collation {
  UCollator* primary = nullptr;
  UCollator* tertiary = nullptr;  // both null when ICU's data is missing: then text is ordered by unit
  WeightTable exact;
  WeightTable folded;  // of the lower-case character

  static const Collation& Get() {
    static const auto* const collation = new Collation;
    return *collation;
  }

 private:
  Collation() {
    exact.fill(kForIcu);
    folded.fill(kForIcu);
    UErrorCode status = U_ZERO_ERROR;
    tertiary = ucol_openRules(kRules, -1, UCOL_OFF, UCOL_TERTIARY, nullptr, &status);
    primary = ucol_clone(tertiary, &status);
    if (U_FAILURE(status)) return;
    ucol_setStrength(primary, UCOL_PRIMARY);
    for (std::size_t slot = 0; slot < kSlots; ++slot) exact[slot] = WeightOf(tertiary, UnitOfSlot(slot));
    for (std::size_t slot = 0; slot < kSlots; ++slot) {
      folded[slot] = exact[SlotOf(static_cast<wchar_t>(u_foldCase(UnitOfSlot(slot), U_FOLD_CASE_DEFAULT)))];
    }
  }
};

enum class Answer { kLess = -1, kEqual = 0, kGreater = 1, kAskIcu };

// Walks the weights of one level that have a say.
class Walk {
 public:
  Walk(std::wstring_view text, const WeightTable& table)
      : m_At(text.data()), m_End(m_At + text.size()), m_Table(table) {}

  // The next weight that is not 0, or 0 at the end.
  template <class Field>
  std::uint32_t Next(Field Weight::*level) {
    while (m_At != m_End) {
      const std::uint32_t weight = m_Table[SlotOf(*m_At++)].*level;
      if (weight != 0) return weight;
    }
    return 0;
  }

 private:
  const wchar_t* m_At;
  const wchar_t* m_End;
  const WeightTable& m_Table;
};

bool IsForIcu(std::uint32_t primary) {
  return primary == kForIcu.primary;
}

Answer Order(std::uint32_t a, std::uint32_t b) {
  return a < b ? Answer::kLess : Answer::kGreater;
}

// The letters. kAskIcu when such a character comes up to where the answer is known, or next behind that,
// where it could still merge with the letter that decided.
Answer ComparePrimary(std::wstring_view a, std::wstring_view b, const WeightTable& table) {
  Walk ofA(a, table);
  Walk ofB(b, table);
  while (true) {
    const std::uint32_t x = ofA.Next(&Weight::primary);
    const std::uint32_t y = ofB.Next(&Weight::primary);
    if (IsForIcu(x) || IsForIcu(y)) return Answer::kAskIcu;
    if (x != y) {
      const bool merges = IsForIcu(ofA.Next(&Weight::primary)) || IsForIcu(ofB.Next(&Weight::primary));
      return merges ? Answer::kAskIcu : Order(x, y);
    }
    if (x == 0) return Answer::kEqual;
  }
}

// Marks or forms, of texts whose letters are the same and all in the table.
template <class Field>
Answer CompareLevel(std::wstring_view a, std::wstring_view b, const WeightTable& table,
                    Field Weight::*level) {
  Walk ofA(a, table);
  Walk ofB(b, table);
  while (true) {
    const std::uint32_t x = ofA.Next(level);
    const std::uint32_t y = ofB.Next(level);
    if (x != y) return Order(x, y);
    if (x == 0) return Answer::kEqual;
  }
}

// From the table alone: letters, then marks, then forms.
Answer CompareByTable(std::wstring_view a, std::wstring_view b, const WeightTable& table, bool primaryOnly) {
  const Answer primary = ComparePrimary(a, b, table);
  if (primary != Answer::kEqual || primaryOnly) return primary;
  const Answer secondary = CompareLevel(a, b, table, &Weight::secondary);
  return secondary != Answer::kEqual ? secondary : CompareLevel(a, b, table, &Weight::tertiary);
}

// Text as ICU wants it, without what Windows gives no weight: lone surrogates and noncharacters.
std::u16string TextForIcu(std::wstring_view text, bool ignoreCase) {
  std::u16string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    char32_t ch = NextCharacter(text, i);
    if (!U_IS_UNICODE_CHAR(ch)) continue;
    if (ignoreCase) ch = static_cast<char32_t>(u_foldCase(static_cast<UChar32>(ch), U_FOLD_CASE_DEFAULT));
    UChar units[U16_MAX_LENGTH];
    std::size_t count = 0;
    U16_APPEND_UNSAFE(units, count, ch);
    result.append(units, count);
  }
  return result;
}

Answer CompareByIcu(std::wstring_view a, std::wstring_view b, const UCollator* collator, bool ignoreCase) {
  const std::u16string x = TextForIcu(a, ignoreCase);
  const std::u16string y = TextForIcu(b, ignoreCase);
  if (!collator) return static_cast<Answer>((x > y) - (x < y));
  return static_cast<Answer>(ucol_strcoll(collator, x.data(), static_cast<std::int32_t>(x.size()), y.data(),
                                          static_cast<std::int32_t>(y.size())));
}

struct Strength {
  bool primaryOnly;
  bool ignoreCase;
};
constexpr Strength kInvariantIgnoringCase = {false, true};
constexpr Strength kUserIgnoringMarks = {true, false};
constexpr Strength kExact = {false, false};

// Minus one, 0 or 1.
int Compare(std::wstring_view a, std::wstring_view b, Strength strength) {
  const auto differ = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
  if (differ.first == a.end() && differ.second == b.end()) return 0;
  const auto common = static_cast<std::size_t>(differ.first - a.begin());
  const Collation& collation = Collation::Get();
  const WeightTable& table = strength.ignoreCase ? collation.folded : collation.exact;
  Answer answer = CompareByTable(a.substr(common), b.substr(common), table, strength.primaryOnly);
  if (answer == Answer::kAskIcu) {
    const UCollator* collator = strength.primaryOnly ? collation.primary : collation.tertiary;
    answer = CompareByIcu(a, b, collator, strength.ignoreCase);
  }
  return static_cast<int>(answer);
}

std::wstring_view TextOf(const wchar_t* text, int length) {
  return length < 0 ? std::wstring_view(text) : std::wstring_view(text, static_cast<std::size_t>(length));
}

int Fail(DWORD code) {
  SetLastError(code);
  return 0;
}

}  // namespace

int CompareStringW(LCID locale, DWORD flags, const wchar_t* a, int lengthOfA, const wchar_t* b,
                   int lengthOfB) {
  const bool invariant = locale == LOCALE_INVARIANT && flags == NORM_IGNORECASE;
  const bool user =
      locale == LOCALE_USER_DEFAULT && flags == (NORM_IGNORECASE | NORM_IGNORENONSPACE | NORM_IGNOREWIDTH);
  if (!a || !b || !(invariant || user)) return Fail(kInvalidParameter);
  const Strength strength = invariant ? kInvariantIgnoringCase : kUserIgnoringMarks;
  return Compare(TextOf(a, lengthOfA), TextOf(b, lengthOfB), strength) + CSTR_EQUAL;
}

int lstrcmpW(const wchar_t* a, const wchar_t* b) {
  if (!a || !b) return (a != nullptr) - (b != nullptr);
  return Compare(a, b, kExact);
}
