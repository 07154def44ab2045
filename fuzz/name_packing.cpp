// Lists of names: the count by a second, literal way of counting; the content is a part of what was counted, whole
// names from the first on, and stays within its buffer.
#include <string>
#include <vector>

#include "fuzz.h"
#include "registry/name_list.h"

namespace {

struct Counted {
  std::vector<std::wstring> names;  // that pass
  int result;
};

Counted Count(const std::vector<std::wstring>& names, int capacity) {
  Counted counted{{}, 0};
  for (const std::wstring& name : names) {
    const int n = static_cast<int>(name.size());
    if (!(n < capacity)) continue;
    counted.names.push_back(name);
    counted.result += n + 1;
    capacity -= n - 1;
  }
  counted.result += 1;
  return counted;
}

// The list that a buffer of `size` holds: names with their terminators, and one more terminator.
std::wstring Fitting(const Counted& counted, std::size_t size) {
  std::wstring list;
  for (const std::wstring& name : counted.names) {
    if (list.size() + name.size() + 2 > size) break;
    list += name;
    list += L'\0';
  }
  return size ? list + L'\0' : list;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const unsigned int room = data[0];
  std::vector<std::wstring> names;
  for (const std::uint8_t* at = data + 1; at != data + size; ++at) names.emplace_back(*at % 40, L'a');
  std::vector<wchar_t> buffer(room);  // exactly so large: the sanitizer sees what goes beyond
  NameList list(buffer.data(), room);
  for (const std::wstring& name : names) list.Add(name.data(), static_cast<int>(name.size()));
  const int result = list.Finish();
  const Counted counted = Count(names, static_cast<int>(room));
  const std::wstring fitting = Fitting(counted, room);
  FUZZ_ASSERT(result == counted.result);
  FUZZ_ASSERT(std::wstring(buffer.data(), fitting.size()) == fitting);
  FUZZ_ASSERT(result > static_cast<int>(room) || static_cast<int>(fitting.size()) == result);
  return 0;
}
