// Narrow text: every text in code page 1256 comes back from wide text as it was, and so does every text of
// whole characters from UTF-8.
#include "encoding.h"
#include "fuzz.h"
#include "utf8.h"

using Qel::Sys::Text::Encoding::ConvertA2W;
using Qel::Sys::Text::Encoding::ConvertW2A;

namespace {

bool ComesBackFrom1256(const std::string& narrow) {
  return ConvertW2A(ConvertA2W(narrow.c_str()).c_str()) == narrow;
}

bool ComesBackFromUtf8(const CString& wide) {
  const std::wstring_view units(wide, static_cast<std::size_t>(wide.GetLength()));  // a NUL is text too
  return Qel::FromUtf8(Qel::ToUtf8(units)) == wide;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  FUZZ_ASSERT(ComesBackFrom1256(bytes.c_str()));
  FUZZ_ASSERT(ComesBackFrom1256(ConvertW2A(Units(data, size).c_str())));
  FUZZ_ASSERT(ComesBackFromUtf8(Qel::FromUtf8(bytes)));
  // A lone surrogate is replaced once and for all.
  FUZZ_ASSERT(ComesBackFromUtf8(Qel::FromUtf8(Qel::ToUtf8(Units(data, size)))));
  return 0;
}
