#include "nearest.h"

#include <algorithm>
#include <cstddef>

#include "text.h"

namespace Cli {

namespace {

bool Same(wchar_t a, wchar_t b) {
  return a == b || CString(a).CompareNoCase(CString(b)) == 0;
}

// Three rows of the table of all beginnings of both texts.
std::size_t Slips(const CString& a, const CString& b) {
  const std::wstring_view from = a.View(), to = b.View();
  std::vector<std::size_t> before(to.size() + 1), last(to.size() + 1), row(to.size() + 1);
  for (std::size_t j = 0; j <= to.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= from.size(); ++i) {
    std::swap(before, last);
    std::swap(last, row);
    row[0] = i;
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (Same(from[i - 1], to[j - 1]) ? 0 : 1);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
      if (i > 1 && j > 1 && Same(from[i - 1], to[j - 2]) && Same(from[i - 2], to[j - 1]))
        row[j] = std::min(row[j], before[j - 2] + 1);
    }
  }
  return row[to.size()];
}

}  // namespace

std::string Nearest(const std::string& typed, const std::vector<std::string>& names) {
  constexpr int kLongest = 255;  // the work grows by the product of both lengths
  const CString wanted = Wide(typed).Left(kLongest);
  std::size_t fewest = kLongest;
  std::string nearest;
  for (const std::string& name : names) {
    const CString known = Wide(name).Left(kLongest);
    const std::size_t slips = Slips(wanted, known);
    const auto longer = static_cast<std::size_t>(std::max(wanted.GetLength(), known.GetLength()));
    if (slips * 3 > longer || slips >= fewest) continue;
    fewest = slips;
    nearest = name;
  }
  return nearest;
}

}  // namespace Cli
