#include "support/temp_registry.h"

#include <windows.h>

#include <stdexcept>
#include <vector>

namespace {

const struct {
  HKEY root;
  const char* name;
} kRoots[] = {
    {HKEY_LOCAL_MACHINE, "machine"},
    {HKEY_CLASSES_ROOT, "classes"},
    {HKEY_CURRENT_CONFIG, "config"},
    // Last: from then on all names lead below it.
    {HKEY_CURRENT_USER, "user"},
};

void Check(LONG status) {
  if (status != 0) throw std::runtime_error("no key for a registry: " + std::to_string(status));
}

void LeadBack() {
  for (const auto& root : kRoots) RegOverridePredefKey(root.root, nullptr);
}

// The roots lead back for the moment that it takes: every place is named from the user's own root.
void Lead(const std::string& place) {
  LeadBack();
  for (const auto& root : kRoots) {
    HKEY key = nullptr;
    const std::string name = place + "\\" + root.name;
    Check(RegCreateKeyExA(HKEY_CURRENT_USER, name.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                          nullptr));
    Check(RegOverridePredefKey(root.root, key));
    RegCloseKey(key);
  }
}

// The keys in use, the last one in force. What is left at the exit of a process, as one that ends within a test
// leaves it, is removed then.
struct Places {
  std::vector<std::string> names;
  int made = 0;

  ~Places() {
    while (!names.empty()) RemoveLast();
  }
  void RemoveLast() {
    LeadBack();
    RegDeleteTreeA(HKEY_CURRENT_USER, names.back().c_str());
    names.pop_back();
    if (!names.empty()) Lead(names.back());
  }
};

Places& InUse() {
  static Places s_Places;
  return s_Places;
}

std::string NewPlace() {
  return "Software\\QelTests-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++InUse().made);
}

}  // namespace

TempRegistry::TempRegistry() : m_Place(NewPlace()) {
  InUse().names.push_back(m_Place);
  Lead(m_Place);
}

TempRegistry::~TempRegistry() {
  InUse().RemoveLast();
}
