#include "support/hijri_years.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

ListedYear Parse(const std::string& line) {
  using namespace std::chrono;
  ListedYear listed{};
  int y = 0;
  unsigned m = 0, d = 0;
  char months[13] = "";
  if (std::sscanf(line.c_str(), "%d,%d-%u-%u,%12[01]", &listed.year, &y, &m, &d, months) != 5) std::abort();
  listed.start = year(y) / month(m) / day(d);
  for (std::size_t i = 0; i < 12; ++i) listed.monthLengths[i + 1] = 29 + (months[i] == '1');
  return listed;
}

std::vector<ListedYear> Load() {
  std::ifstream file(QEL_TEST_DATA "/hijri_years.csv");
  std::vector<ListedYear> years;
  for (std::string line; std::getline(file, line);)
    if (line[0] != '#') years.push_back(Parse(line));
  if (years.size() != 194 || years.front().year != 1306) std::abort();
  return years;
}

}  // namespace

const std::vector<ListedYear>& ListedHijriYears() {
  static const std::vector<ListedYear> years = Load();
  return years;
}
