#include "pxfile2.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "code_page.h"
#include "platform/platform.h"
#include "pxfile.h"

namespace {

constexpr std::size_t kMost = (std::size_t{1} << 30) - 1;
constexpr DWORD kTooLarge = 223;

// In the order in which they are tried.
constexpr TEncodingSignature kSignatures[] = {
    {{0xEF, 0xBB, 0xBF}, 3, L"UTF-8", 1},
    {{0xFE, 0xFF}, 2, L"UTF-16", 2},
    {{0xFF, 0xFE}, 2, L"UTF-16", 2},
    {{0x00, 0x00, 0xFE, 0xFF}, 4, L"UTF-32", 3},
    {{0x00, 0x00, 0xFF, 0xFE}, 4, L"UTF-32", 3},
    {{0x0E, 0xFE, 0xFF}, 3, L"SCSU", 4},
    {{0x2B, 0x2F, 0x76, 0x38}, 4, L"UTF-7", 5},
    {{0x2B, 0x2F, 0x76, 0x39}, 4, L"UTF-7", 5},
    {{0x2B, 0x2F, 0x76, 0x2B}, 4, L"UTF-7", 5},
    {{0x2B, 0x2F, 0x76, 0x2F}, 4, L"UTF-7", 5},
    {{0xDD, 0x73, 0x66, 0x73}, 4, L"UTF-EBCDIC", 6},
    {{0xFB, 0xEE, 0x28}, 3, L"BOCU-1", 7},
};
constexpr int kUtf8 = 1;
constexpr int kUtf16 = 2;

// The rest of the file. 0, or the system's code.
DWORD ReadAll(TPXFile& file, std::vector<BYTE>& bytes) {
  std::size_t filled = 0;
  for (const auto size = static_cast<std::size_t>(file.GetFileSize());;) {
    if (filled > kMost || size > kMost) return kTooLarge;
    if (filled == bytes.size())
      bytes.resize(std::max({size + 1, 2 * filled, std::size_t{4096}}));  // one more, to see the end
    const int count = file.Read(bytes.data() + filled, static_cast<unsigned>(bytes.size() - filled));
    filled += static_cast<std::size_t>(count);
    if (count > 0) continue;
    bytes.resize(filled);
    return file.GetErrorCode();
  }
}

std::wstring Units(std::vector<BYTE>& bytes, std::size_t from, bool highFirst) {
  const std::size_t count = (bytes.size() - from) / 2;
  BYTE* const first = bytes.data() + from;
  if (highFirst)
    for (std::size_t i = 0; i < count; ++i) std::swap(first[2 * i], first[2 * i + 1]);
  std::wstring text(count, L'\0');
  UnitsFromBytes(text.data(), count, first, static_cast<DWORD>(2 * count));
  return text;
}

std::wstring Decoded(std::vector<BYTE>& bytes, const TEncodingSignature* signature) {
  if (signature && signature->id == kUtf8) {
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    return Decode(CP_UTF8, text.substr(signature->length));
  }
  const bool known = signature && signature->id == kUtf16;
  return Units(bytes, known ? signature->length : 0, known && signature->bytes[0] == 0xFE);
}

}  // namespace

TPXFile2::TPXFile2(const wchar_t* fileName) {
  TPXFile file(fileName, FA_READ);
  m_FileName = CString(file.GetFileName());
  std::vector<BYTE> bytes;
  m_ErrorCode = file.GetErrorCode();
  if (m_ErrorCode == 0) m_ErrorCode = ReadAll(file, bytes);
  if (m_ErrorCode != 0) return;
  m_Signature = FindSignature(bytes.data(), bytes.size());
  m_Text = CString(Decoded(bytes, m_Signature));
}

int TPXFile2::ReadLine(CString& line) {
  line.Empty();
  if (m_Position == -1) return 0;
  line = m_Text.Tokenize(L"\r\n", m_Position);
  return line.GetLength();
}

const TEncodingSignature* TPXFile2::FindSignature(const void* data, std::size_t size) noexcept {
  for (const TEncodingSignature& each : kSignatures)
    if (size >= each.length && std::memcmp(data, each.bytes, each.length) == 0) return &each;
  return nullptr;
}
