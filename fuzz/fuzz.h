// What the fuzz targets share.
#ifndef QEL_FUZZ_FUZZ_H
#define QEL_FUZZ_FUZZ_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

// Ends the program, which libFuzzer reports with the input, unless `holds`.
#define FUZZ_ASSERT(holds)                                             \
  do {                                                                 \
    if (!(holds)) {                                                    \
      std::fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #holds); \
      std::abort();                                                    \
    }                                                                  \
  } while (false)

// The input as wide text, two bytes a unit, so that every unit can turn up.
inline std::wstring Units(const std::uint8_t* data, std::size_t size) {
  std::wstring text;
  for (std::size_t i = 0; i + 1 < size; i += 2) text += static_cast<wchar_t>(data[i] | data[i + 1] << 8);
  return text;
}

// The input as wide text, one byte a unit: for readers of ASCII.
inline std::wstring AsciiUnits(const std::uint8_t* data, std::size_t size) {
  return std::wstring(data, data + size);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

#endif  // QEL_FUZZ_FUZZ_H
