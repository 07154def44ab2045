#include <gtest/gtest.h>

#include <array>
#include <string>
#include <thread>
#include <vector>

#include "platform/platform.h"
#include "support/golden.h"

namespace {

constexpr DWORD kUnset = 0xDEAD;

int IgnoringCase(const wchar_t* a, int lengthOfA, const wchar_t* b, int lengthOfB) {
  return CompareStringW(LOCALE_INVARIANT, NORM_IGNORECASE, a, lengthOfA, b, lengthOfB);
}

int LettersOnly(const wchar_t* a, int lengthOfA, const wchar_t* b, int lengthOfB) {
  return CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE | NORM_IGNORENONSPACE | NORM_IGNOREWIDTH, a,
                        lengthOfA, b, lengthOfB);
}

int Sign(int order) {
  return (order > 0) - (order < 0);
}

// What two texts are to each other, ignoring case, by their letters alone and exactly: -1, 0 or 1 each.
std::array<int, 3> OrdersOf(const std::wstring& a, const std::wstring& b) {
  return {IgnoringCase(a.c_str(), -1, b.c_str(), -1) - CSTR_EQUAL,
          LettersOnly(a.c_str(), -1, b.c_str(), -1) - CSTR_EQUAL, Sign(lstrcmpW(a.c_str(), b.c_str()))};
}

// ICU's order is another one for some punctuation and rare forms; the tables name the reason at each such
// row.
bool IsForWindowsOnly(const GoldenRow& row) {
  return row["windows_only"] != "-" && !RunsOnWindows();
}

}  // namespace

TEST(CollateTest, PairsSortAsRecordedFromBothSides) {
  for (const auto& row : GoldenTable("compare.tsv")) {
    if (IsForWindowsOnly(row)) continue;
    SCOPED_TRACE(row["a"] + " " + row["b"]);
    const std::wstring a = row.Wide("a").value();
    const std::wstring b = row.Wide("b").value();
    const auto [ignoringCase, lettersOnly, exact] = OrdersOf(a, b);
    ExpectAnswer(
        row, std::to_string(ignoringCase) + " " + std::to_string(lettersOnly) + " " + std::to_string(exact));
    EXPECT_EQ(OrdersOf(b, a), (std::array<int, 3>{-ignoringCase, -lettersOnly, -exact}));
  }
}

TEST(CollateTest, LengthsNullsAndCharactersWithoutWeightAnswerAsRecorded) {
  for (const auto& row : GoldenTable("compare_lengths.tsv")) {
    if (IsForWindowsOnly(row)) continue;
    SCOPED_TRACE(row.where);
    const auto a = row.Wide("a");
    const auto b = row.Wide("b");
    const wchar_t* const textA = a ? a->c_str() : nullptr;
    const wchar_t* const textB = b ? b->c_str() : nullptr;
    if (row["function"] == "exact") {
      ExpectAnswer(row, std::to_string(Sign(lstrcmpW(textA, textB))));
      continue;
    }
    SetLastError(kUnset);
    const auto compare = row["function"] == "ignoring case" ? IgnoringCase : LettersOnly;
    const int result = compare(textA, row.Int("length_a"), textB, row.Int("length_b"));
    const DWORD error = GetLastError();
    ExpectAnswer(row, (result == 0 ? "fail" : std::to_string(result - CSTR_EQUAL)) + " " +
                          (error == kUnset ? "-" : std::to_string(error)));
  }
}

// The order is made when the first comparison asks for it: here several ask at once.
TEST(CollateTest, ThreadsShareOneOrder) {
  std::array<int, 4> orders{};
  std::vector<std::thread> threads;
  for (int& order : orders) {
    threads.emplace_back(
        [&order] { order = LettersOnly(L"\u0623\u062D\u0645\u062F", -1, L"\u0627\u062D\u0645\u062F", -1); });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(orders, (std::array<int, 4>{CSTR_EQUAL, CSTR_EQUAL, CSTR_EQUAL, CSTR_EQUAL}));
}
