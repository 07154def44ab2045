// The registry's text form: nothing is done for a text with a bad line, and what a good one made is made again by its
// own export.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "fuzz.h"
#include "regtools.h"
#include "support/registry_dump.h"
#include "support/temp_registry.h"
#include "utf8.h"

namespace {

constexpr const wchar_t* kRoots[] = {L"HKCU", L"HKLM", L"HKCR", L"HKCC"};

TRegKey Root(std::size_t index) {
  const HKEY keys[] = {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, HKEY_CLASSES_ROOT, HKEY_CURRENT_CONFIG};
  return {keys[index], L"", KEY_ALL_ACCESS, TRegKey::OpenOnly};
}

std::wstring Line(std::size_t root) {
  return L"\\" + std::to_wstring(root);
}

std::set<std::wstring> Everything() {
  std::set<std::wstring> lines;
  for (std::size_t i = 0; i < std::size(kRoots); ++i) lines.merge(RegistryDump(Root(i), Line(i)));
  return lines;
}

void Clear() {
  for (std::size_t i = 0; i < std::size(kRoots); ++i) {
    TRegKey root = Root(i);
    wchar_t name[16384];
    unsigned int length = std::size(name);
    while (root.EnumKey(0, name, 261) == 0) FUZZ_ASSERT(root.NukeKey(name) == 0);
    for (; root.EnumValue(0, name, length, nullptr, nullptr, nullptr) == 0; length = std::size(name))
      FUZZ_ASSERT(root.DeleteValue(name) == 0);
  }
}

std::string File(std::size_t index) {
  static const TempRegistry s_Registry;
  return s_Registry.Place() + "/" + std::to_string(index) + ".reg";
}

// The input, one byte a unit but for a few that stand for what else texts contain.
void WriteInput(const std::uint8_t* data, std::size_t size) {
  std::wstring text = L"Windows Registry Editor Version 5.00\r\n";
  if (size > 0 && data[0] == 0xFF) text.clear();
  for (const wchar_t unit : AsciiUnits(data, size)) text += unit < 0x80 ? unit : unit << 8 | 0x41;
  std::ofstream file(File(9), std::ios::binary);
  file << "\xFF\xFE";
  for (const wchar_t unit : text) file << static_cast<char>(unit & 0xFF) << static_cast<char>(unit >> 8);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  WriteInput(data, size);
  static const std::set<std::wstring> s_Nothing = Everything();
  TRegImportReport report;
  if (const long status = ImportRegistry(Qel::FromUtf8(File(9)), report)) {
    FUZZ_ASSERT(report.problem != TRegImportProblem::None);
    FUZZ_ASSERT(status == 13 ? report.line > 0 && report.column > 0 : report.keys == 0);
    FUZZ_ASSERT(Everything() == s_Nothing);
    return 0;
  }
  FUZZ_ASSERT(report.problem == TRegImportProblem::None);
  const std::set<std::wstring> made = Everything();
  if (made == s_Nothing) return 0;
  for (std::size_t i = 0; i < std::size(kRoots); ++i)
    FUZZ_ASSERT(ExportRegistry(kRoots[i], Qel::FromUtf8(File(i))) == 0);
  Clear();
  FUZZ_ASSERT(Everything() == s_Nothing);
  for (std::size_t i = 0; i < std::size(kRoots); ++i)
    FUZZ_ASSERT(ImportRegistry(Qel::FromUtf8(File(i)), report) == 0);
  FUZZ_ASSERT(Everything() == made);
  Clear();
  return 0;
}
