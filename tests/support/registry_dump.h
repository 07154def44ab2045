// All that is in a key and below it, to compare trees.
#ifndef QEL_TESTS_REGISTRY_DUMP_H
#define QEL_TESTS_REGISTRY_DUMP_H

#include <set>
#include <string>
#include <vector>

#include "regkey.h"

// A line for each key, its path below `key` and a "\", and for each value, that, its name, type and bytes.
inline std::set<std::wstring> RegistryDump(const TRegKey& key, const std::wstring& path = L"") {
  std::set<std::wstring> lines = {path + L"\\"};
  for (TRegValueIterator it(key); it; ++it) {
    const TRegValue value(it);
    std::wstring line = path + L"\\" + value.GetName() + L"=" + std::to_wstring(value.GetDataType()) + L":";
    for (unsigned int i = 0; i < value.GetDataSize(); ++i)
      line += L"0123456789abcdef"[value.GetData()[i] >> 4],
          line += L"0123456789abcdef"[value.GetData()[i] & 15];
    lines.insert(line);
  }
  for (TRegKeyIterator it(key); it; ++it) {
    const TRegKey child(it, KEY_READ);
    lines.merge(RegistryDump(child, path + L"\\" + child.GetName()));
  }
  return lines;
}

#endif  // QEL_TESTS_REGISTRY_DUMP_H
