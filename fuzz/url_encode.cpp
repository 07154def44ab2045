// Percent signs: one pass gives what the passes over the whole text give, one replacement after the other.
#include <string>
#include <string_view>

#include "fuzz.h"
#include "platform/platform.h"
#include "url.h"

namespace {

constexpr std::wstring_view kReserved = L"$&+,./:;=?@-_!*()'";
constexpr std::wstring_view kUnsafe = L" \"<>#{}|\\^~[]`";

std::wstring Hex(int value) {
  constexpr wchar_t kDigits[] = L"0123456789ABCDEF";
  return {L'%', kDigits[value >> 4 & 15], kDigits[value & 15]};
}

void ReplaceAll(std::wstring& text, wchar_t from, const std::wstring& to) {
  for (std::size_t at = text.find(from); at != text.npos; at = text.find(from, at + to.size()))
    text.replace(at, 1, to);
}

std::wstring Pair(wchar_t unit) {
  const wchar_t terminated[] = {unit, L'\0'};
  char bytes[3] = "";
  if (!WideCharToMultiByte(CP_UTF8, 0, terminated, -1, bytes, 3, nullptr, nullptr)) bytes[0] = bytes[1] = 0;
  return Hex(bytes[0]) + Hex(bytes[1]);
}

std::wstring EncodedByPasses(std::wstring text, bool reserved) {
  ReplaceAll(text, L'%', L"%25");
  for (const wchar_t ch : kReserved)
    if (reserved) ReplaceAll(text, ch, Hex(ch));
  for (const wchar_t ch : kUnsafe) ReplaceAll(text, ch, Hex(ch));
  for (wchar_t ch = 1; ch < 32; ++ch) ReplaceAll(text, ch, Hex(ch));
  ReplaceAll(text, 127, Hex(127));
  const auto passes = [](wchar_t ch) {
    return (ch >= L'0' && ch <= L'9') || (ch >= L'A' && ch <= L'Z') || (ch >= L'a' && ch <= L'z') ||
           ch == L'%' || kReserved.find(ch) != kReserved.npos;
  };
  for (std::size_t at = 0; at < text.size();) {
    if (passes(text[at])) {
      ++at;
      continue;
    }
    ReplaceAll(text, text[at], Pair(text[at]));
    at += 6;
  }
  return text;
}

// The value of "%XX" at `at`, or -1.
int ByteAt(const std::wstring& text, std::size_t at) {
  constexpr std::wstring_view kDigits = L"0123456789abcdefABCDEF";
  if (at + 3 > text.size() || text[at] != L'%') return -1;
  const std::wstring digits = text.substr(at + 1, 2);
  return digits.find_first_not_of(kDigits) == digits.npos ? std::stoi(digits, nullptr, 16) : -1;
}

wchar_t Joined(int first, int second) {
  const char bytes[] = {static_cast<char>(first), static_cast<char>(second), '\0'};
  wchar_t units[2];
  return MultiByteToWideChar(CP_UTF8, 0, bytes, -1, units, 2) ? units[0] : L'\0';
}

std::wstring DecodedInPlace(std::wstring text) {
  for (std::size_t at = text.find(L'%'); at != text.npos; at = text.find(L'%', at + 1)) {
    const int value = ByteAt(text, at);
    if (value < 0) continue;
    const auto ch = static_cast<wchar_t>(value);
    const bool alone = value < 31 || value == 127 || kUnsafe.find(ch) != kUnsafe.npos ||
                       kReserved.find(ch) != kReserved.npos;
    const int next = ByteAt(text, at + 3);
    if (alone)
      text.replace(at, 3, 1, ch);
    else if (next >= 0)
      text.replace(at, 6, 1, Joined(value, next));
  }
  return text;
}

void Check(const std::wstring& text) {
  const CString wide(text);
  for (const bool reserved : {false, true}) {
    const CString encoded = CURLEncode::Encode(wide, reserved);
    FUZZ_ASSERT(encoded.View() == EncodedByPasses(text, reserved));
    FUZZ_ASSERT(CURLEncode::Decode(encoded).View() == DecodedInPlace(std::wstring(encoded.View())));
  }
  FUZZ_ASSERT(CURLEncode::Decode(wide).View() == DecodedInPlace(text));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Check(AsciiUnits(data, size));
  Check(Units(data, size));
  std::wstring escapes;  // every byte as one, since few inputs find them
  for (std::size_t i = 0; i < size; ++i) escapes += Hex(data[i]);
  Check(escapes);
  return 0;
}
