#include "px_format.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdint>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "support/golden.h"

using Qel::Sys::TString;
using Qel::Sys::Text::pxFormat;

namespace {

// The row's arguments, parted at blanks. There are always enough for every row: what a format does not ask
// for is not read.
template <class Value, class Parse>
std::vector<Value> Arguments(const GoldenRow& row, Parse parse) {
  std::vector<Value> values;
  std::istringstream stream(row["arguments"] == "-" ? "" : row["arguments"]);
  for (std::string word; stream >> word;) values.push_back(parse(word));
  values.resize(8);
  return values;
}

long double FromPattern(const std::string& pattern) {
  return std::bit_cast<double>(std::stoull(pattern, nullptr, 16));
}

// Whatever the locale of the run.
double ToDouble(const std::string& word) {
  double value = 0;
  std::from_chars(word.data(), word.data() + word.size(), value);
  return value;
}

std::wstring FromWord(const std::string& word) {
  return GoldenRow{"", {{"word", word}}}.Wide("word").value();
}

TString Formatted(const GoldenRow& row) {
  const std::wstring format = row.Wide("format").value();
  const wchar_t* const f = format.c_str();
  const std::string& types = row["types"];
  if (types == "longdouble") return pxFormat(f, FromPattern(row["arguments"]));
  if (types == "doubles") {
    const auto v = Arguments<double>(row, ToDouble);
    return pxFormat(f, v[0], v[1], v[2], v[3]);
  }
  if (types == "longlongs") {
    const auto v = Arguments<long long>(row, [](auto& word) { return std::stoll(word); });
    return pxFormat(f, v[0], v[1]);
  }
  if (types == "ints") {
    const auto v = Arguments<int>(row, [](auto& word) { return static_cast<int>(std::stoll(word)); });
    return pxFormat(f, v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]);
  }
  const auto v = Arguments<std::wstring>(row, FromWord);
  if (types == "texts") return pxFormat(f, v[0].c_str(), v[1].c_str(), v[2].c_str());
  return pxFormat(f, v[0].c_str(), std::stoi(v[1]), std::stoi(v[2]), std::stoi(v[3]));
}

}  // namespace

TEST(PxFormatTest, FormatsOfTheSuiteGiveWhatWindowsGives) {
  for (const auto& row : GoldenTable("px_format.tsv")) {
    SCOPED_TRACE(row["format"] + " " + row["arguments"]);
    ExpectAnswer(row, Spelled(Formatted(row).View()));
  }
}

TEST(PxFormatTest, FlagsWidthPrecisionAndLengthFollowTheRules) {
  const char narrow[] = "\xE3\xD1\xCD\xC8\xC7";
  const double infinite = std::numeric_limits<double>::infinity();
  const double notANumber = std::numeric_limits<double>::quiet_NaN();
  const struct {
    TString text;
    const wchar_t* expected;
  } rows[] = {
      {pxFormat(L"%+d % d %+ d|%-5d|%05d|%-05d|", 5, 5, 5, 5, -5, 5), L"+5  5 +5|5    |-0005|5    |"},
      {pxFormat(L"%05.3d|%.0d|%.3d|% 05d", 7, 0, -7, 3), L"  007||-007| 0003"},
      {pxFormat(L"%#x %#X %#o %#x|%#06x|%-#6x|%#.0o", 255, 255, 8, 0, 10, 10, 0),
       L"0xff 0XFF 010 0|0x000a|0xa   |0"},
      {pxFormat(L"%*d|%-*d|%*d|%.*d|%.*d", 5, 1, 5, 1, -5, 1, 3, 1, -3, 1), L"    1|1    |1    |001|1"},
      {pxFormat(L"%hhd %hd %hhu %hx %i %u", 300, 70000, 300, -1, -1, -1), L"44 4464 44 ffff -1 4294967295"},
      {pxFormat(L"%ld %lld %I32d %I64x %Iu %zu %td %jd", -70000L, 1LL << 40, 5, 1LL << 40, sizeof(int),
                sizeof(char), std::ptrdiff_t{-7}, std::intmax_t{5}),
       L"-70000 1099511627776 5 10000000000 4 1 -7 5"},
      {pxFormat(L"%lld %llu", std::numeric_limits<long long>::min(), -1LL),
       L"-9223372036854775808 18446744073709551615"},
      {pxFormat(L"%p", reinterpret_cast<void*>(0xABCD)), L"000000000000ABCD"},
      {pxFormat(L"%S|%hs|%.3S|%ls|%ws|%lS", narrow, narrow, narrow, L"a", L"b", L"c"),
       L"مرحبا|مرحبا|مرح|a|b|c"},
      {pxFormat(L"%C|%hc|%lc|%c|%5c|%-5c|", 0xE3, 0xE3, 0x645, 0x10645, 'a', 'b'), L"م|م|م|م|    a|b    |"},
      {pxFormat(L"%s|%S|%.2s|%.0s|%05s", nullptr, nullptr, nullptr, nullptr, L"ab"),
       L"(null)|(null)|(n||000ab"},
      {pxFormat(L"%e %.3e %#.0e %.0e", 0.0, 9.9996, 1.0, 2.5), L"0.000000e+00 1.000e+01 1.e+00 2e+00"},
      {pxFormat(L"%#g %#.3g %#.0g %#.0f %g %g", 1.0, 1.0, 1.0, 1.0, 100000.0, 1e6),
       L"1.00000 1.00 1. 1. 100000 1e+06"},
      {pxFormat(L"%010.3f|%+.1f|%.f|%.2f", -3.14159, 0.05, 2.5, 0.125), L"-00003.142|+0.1|2|0.12"},
      {pxFormat(L"%.3000g|%.*f|%.*s", 0.5, -1, 0.5, INT_MIN, L"all"), L"0.5|0.500000|all"},
      {pxFormat(L"%a %.3a %A %.0a %.1a %.1a", 1.0, 0.1, -0.0, 1.99, 1.03125, 1.09375),
       L"0x1.0000000000000p+0 0x1.99ap-4 -0X0.0000000000000P+0 0x2p+0 0x1.0p+0 0x1.2p+0"},
      {pxFormat(L"%a %#.0a %.15a", 5e-324, 1.0, 1.0),
       L"0x0.0000000000001p-1022 0x1.p+0 0x1.000000000000000p+0"},
      {pxFormat(L"%05f|%-5g|%+F|%G", infinite, infinite, infinite, -infinite), L"  inf|inf  |+INF|-INF"},
      {pxFormat(L"%g|%+e|%G", notANumber, notANumber, -notANumber), L"nan|+nan|-NAN(IND)"},
  };
  for (const auto& row : rows) EXPECT_EQ(std::wstring(row.text), row.expected);
}

// There is no terminator behind the three units that may be read; sanitizers see a look at more.
TEST(PxFormatTest, APrecisionBoundsWhatIsReadOfAText) {
  const std::vector<wchar_t> wide = {L'a', L'b', L'c'};
  const std::vector<char> narrow = {'d', 'e', 'f'};
  EXPECT_EQ(std::wstring(pxFormat(L"%.3s%.3hs", wide.data(), narrow.data())), L"abcdef");
}

TEST(PxFormatTest, TextOfMoreThan1999UnitsIsRefusedAndNeverCut) {
  const std::wstring longest(1999, L'a');
  const std::wstring tooLong(2000, L'a');
  EXPECT_EQ(std::wstring(pxFormat(L"%s", longest.c_str())), longest);
  EXPECT_EQ(std::wstring(pxFormat(longest.c_str())), longest);
  EXPECT_EQ(pxFormat(L"%1999d", 1).GetLength(), 1999);
  EXPECT_EQ(pxFormat(L"%.1997f", 1.0).GetLength(), 1999);
  const TString refused[] = {
      pxFormat(L"%s", tooLong.c_str()),
      pxFormat(tooLong.c_str()),
      pxFormat(L"%s%c", longest.c_str(), 'a'),
      pxFormat(L"%2000d", 1),
      pxFormat(L"%99999999999999999999d", 1),
      pxFormat(L"%*d", INT_MIN, 1),
      pxFormat(L"%.2000d", 1),
      pxFormat(L"%.1998f", 1.0),
      pxFormat(L"%#.2147483647g", 1.0),
      pxFormat(L"%.2147483647a", 1.0),
  };
  for (const TString& text : refused) EXPECT_EQ(text.GetLength(), 0) << &text - refused;
}

TEST(PxFormatTest, UnknownConversionsFailTheWholeText) {
  int written = 7;
  for (const wchar_t* format :
       {L"a%", L"a%y", L"a%5", L"a%l", L"a%n", L"a%Z", L"a%'d", L"a%1$d", L"a%.-3d", L"a%I128d", L"a%k"}) {
    EXPECT_EQ(pxFormat(format, &written).GetLength(), 0) << Spelled(format);
  }
  EXPECT_EQ(written, 7);
  EXPECT_EQ(pxFormat(nullptr).GetLength(), 0);
}
