#include "http_text.h"

#include <algorithm>
#include <cstring>

#include "platform/platform.h"

namespace {

constexpr std::size_t kMostReserved = std::size_t{1} << 22;  // units
constexpr std::size_t kMostAtOnce = 4096;                    // bytes, and never more units than that

// How many of the first bytes of `bytes` can be read without the others: all, or kMostAtOnce and somewhat less, so
// that no character is cut in two. A lead byte always begins a new character, whatever stands before it.
std::size_t SizeOfBlock(std::string_view bytes) {
  if (bytes.size() <= kMostAtOnce) return bytes.size();
  constexpr std::size_t kLongest = 4;
  const auto continues = [&](std::size_t at) {
    return (static_cast<unsigned char>(bytes[at]) & 0xC0) == 0x80;
  };
  std::size_t size = kMostAtOnce;
  while (size > kMostAtOnce - kLongest && continues(size)) --size;
  return continues(size) ? kMostAtOnce : size;
}

}  // namespace

void SplitHeaderLines(std::wstring_view block, Qel::List<CString>& lines) {
  while (!block.empty()) {
    const std::size_t end = std::min(block.find(L'\n'), block.size());
    if (end > 0) lines.append(CString(block.substr(0, end)));
    block.remove_prefix(std::min(end + 1, block.size()));
  }
}

void HttpContent::Reserve(std::size_t bytes) {
  m_Text.reserve(std::min(bytes, kMostReserved));
}

// Through a block that stays in the processor's cache: the text itself is written once.
void HttpContent::Append(const char* piece, std::size_t size) {
  const void* const zero = std::memchr(piece, 0, size);
  std::string_view bytes(piece,
                         zero ? static_cast<std::size_t>(static_cast<const char*>(zero) - piece) : size);
  while (!bytes.empty()) {
    wchar_t units[kMostAtOnce];
    const std::size_t block = SizeOfBlock(bytes);
    const int count =
        MultiByteToWideChar(CP_UTF8, 0, bytes.data(), static_cast<int>(block), units, kMostAtOnce);
    m_Text.append(units, static_cast<std::size_t>(count));
    bytes.remove_prefix(block);
  }
}
