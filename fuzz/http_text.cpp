// What a server sends, in pieces of any size: the content is what the platform makes of each piece when it is asked
// for the room first, and the header lines are those of a stream.
#include <algorithm>
#include <sstream>

#include "fuzz.h"
#include "http_text.h"
#include "platform/platform.h"

namespace {

std::wstring OfOnePiece(std::string piece) {
  piece = piece.c_str();
  if (piece.empty()) return {};
  const int size = static_cast<int>(piece.size());
  std::wstring text(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, piece.data(), size, nullptr, 0)),
                    L'\0');
  MultiByteToWideChar(CP_UTF8, 0, piece.data(), size, text.data(), static_cast<int>(text.size()));
  return text;
}

// Each piece is as long as its first byte says, times 67: the longest is read in several blocks.
void CheckContent(std::string bytes) {
  HttpContent content;
  content.Reserve(bytes.size());
  std::wstring expected;
  while (!bytes.empty()) {
    const std::string piece = bytes.substr(0, 1 + static_cast<unsigned char>(bytes[0]) * 67u);
    bytes.erase(0, piece.size());
    content.Append(piece.data(), piece.size());
    expected += OfOnePiece(piece);
  }
  FUZZ_ASSERT(content.Text() == expected);
}

void CheckLines(const std::wstring& block) {
  Qel::List<CString> lines;
  SplitHeaderLines(block, lines);
  std::wistringstream stream(block);
  long count = 0;
  for (std::wstring line; std::getline(stream, line);) {
    if (line.empty()) continue;
    FUZZ_ASSERT(count < lines.GetCount() && lines[count].View() == line);
    ++count;
  }
  FUZZ_ASSERT(count == lines.GetCount());
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  CheckContent(bytes);
  // A long piece, which few inputs are: the same over and over.
  std::string longer = "\xFF";
  while (size > 0 && longer.size() < 9000) longer += bytes;
  CheckContent(longer);
  CheckLines(AsciiUnits(data, size));
  return 0;
}
