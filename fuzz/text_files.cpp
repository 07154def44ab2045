// Files of any bytes: their lines are those that a slow reader finds, one unit at a time, and between the lines every
// way to ask for the position tells the same.
#include <sys/mman.h>
#include <unistd.h>

#include <string>

#include "fuzz.h"
#include "pxfile.h"
#include "pxfile2.h"
#include "utf8.h"

namespace {

// A file in memory, by a name that can be opened.
class MemoryFile {
 public:
  MemoryFile(const std::uint8_t* data, std::size_t size) : m_Number(memfd_create("fuzz", MFD_CLOEXEC)) {
    FUZZ_ASSERT(write(m_Number, data, size) == static_cast<ssize_t>(size));
  }
  ~MemoryFile() { close(m_Number); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  CString Path() const {
    return Qel::FromUtf8("/proc/" + std::to_string(getpid()) + "/fd/" + std::to_string(m_Number));
  }

 private:
  const int m_Number;
};

bool EndsLine(wchar_t unit) {
  return unit == L'\r' || unit == L'\n';
}

// The next line, one unit at a time; `at` moves behind its end.
std::wstring SlowLine(const std::wstring& units, std::size_t& at) {
  std::wstring line;
  while (at < units.size()) {
    const wchar_t unit = units[at++];
    if (unit == 0xFEFF)
      line.clear();
    else if (!EndsLine(unit))
      line += unit;
    else if (!line.empty())
      break;
  }
  return line;
}

void CheckLines(const MemoryFile& memory, const std::uint8_t* data, std::size_t size) {
  const std::wstring units = Units(data, size);
  TPXFile file(memory.Path(), FA_READ);
  CString line;
  std::size_t at = 0;
  for (std::wstring expected = SlowLine(units, at); !expected.empty(); expected = SlowLine(units, at)) {
    // Other ways to the same place now and then, chosen by what was read.
    if (at % 5 == 0) file.GetFileHandle();
    FUZZ_ASSERT(file.ReadLine(line) == static_cast<int>(expected.size()) && line.View() == expected);
    const bool atEnd = at == units.size() && !EndsLine(units.back());
    const int position = static_cast<int>(atEnd ? size : 2 * at);
    FUZZ_ASSERT(file.GetPos() == position && file.Eof() == atEnd);
    if (at % 3 == 0) FUZZ_ASSERT(file.Seek(0, 1) == position);
    std::uint8_t next = 0;
    if (at % 7 == 0 && file.Read(&next, 1) == 1)
      FUZZ_ASSERT(next == data[position] && file.Seek(-1, 1) == position);
  }
  FUZZ_ASSERT(file.ReadLine(line) == 0 && line.IsEmpty() && file.Eof() && file.GetErrorCode() == 0);
}

std::wstring SlowText(const std::uint8_t* data, std::size_t size) {
  const auto at = [&](std::size_t i) { return i < size ? data[i] : 0x100; };
  if (at(0) == 0xEF && at(1) == 0xBB && at(2) == 0xBF)
    return std::wstring(Qel::FromUtf8({reinterpret_cast<const char*>(data) + 3, size - 3}).View());
  std::wstring text;
  const bool highFirst = at(0) == 0xFE && at(1) == 0xFF,
             marked = highFirst || (at(0) == 0xFF && at(1) == 0xFE);
  for (std::size_t i = marked ? 2 : 0; i + 1 < size; i += 2)
    text += static_cast<wchar_t>(highFirst ? data[i] << 8 | data[i + 1] : data[i] | data[i + 1] << 8);
  return text;
}

void CheckWhole(const MemoryFile& memory, const std::uint8_t* data, std::size_t size) {
  TPXFile2 file(memory.Path());
  CString line;
  std::wstring expected;
  for (const wchar_t unit : SlowText(data, size) + L"\n") {
    if (!EndsLine(unit)) {
      expected += unit;
    } else if (!expected.empty()) {
      FUZZ_ASSERT(!file.Eof() && file.ReadLine(line) == static_cast<int>(expected.size()) &&
                  line.View() == expected);
      expected.clear();
    }
  }
  FUZZ_ASSERT(!file.Eof() && file.ReadLine(line) == 0 && file.Eof() && line.IsEmpty());
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const MemoryFile memory(data, size);
  CheckLines(memory, data, size);
  CheckWhole(memory, data, size);
  return 0;
}
