#include <algorithm>
#include <cstddef>
#include <string>

#include "commands.h"
#include "encoding.h"
#include "exceptions.h"
#include "output.h"
#include "pxsf.h"
#include "refusal.h"
#include "string_tools.h"
#include "text.h"
#include "text_file.h"

namespace Cli {

namespace {

constexpr int kMaxSize = 3997;  // a larger record ends the process
constexpr int kLengthDigits = 4;

// What the library takes the unit for; -1 when it refuses it, or would take it for the end.
int DigitOf(wchar_t unit) {
  if (unit == L'\0') return -1;
  const wchar_t text[] = {unit, L'\0'};
  try {
    return Qel::Sys::Text::GetHex(static_cast<unsigned char>(Qel::Sys::Text::Encoding::Convert2A(text)[0]));
  } catch (Qel::Sys::Exceptions::qel_exception* e) {
    e->Delete();
    return -1;
  }
}

Refusal NotHex(const CString& text, int index) {
  const std::string position = InUserDigits(index + 1);
  return {"digit", index + 1, Say(Text::NotHex, {Utf8(text.Mid(index, 1)), position})};
}

// Pairs of digits, blanks anywhere between them.
std::optional<Refusal> ReadBytes(const CString& text, std::string& bytes) {
  int high = -1, last = 0;
  for (int i = 0; i < text.GetLength(); ++i) {
    if (text[i] == L' ') continue;
    const int digit = DigitOf(text[i]);
    if (digit < 0) return NotHex(text, i);
    if (high >= 0) bytes += static_cast<char>(high * 16 + digit);
    high = high >= 0 ? -1 : digit;
    last = i + 1;
  }
  if (high >= 0) return Refusal{"half_byte", last, Say(Text::HalfByte, {InUserDigits(last)})};
  const int size = static_cast<int>(bytes.size());
  if (size <= kMaxSize) return std::nullopt;
  return Refusal{"size", 1, Say(Text::RecordTooLarge, {InUserDigits(size), InUserDigits(kMaxSize)})};
}

int Encode(const std::string& typed, const Options& options) {
  std::string bytes;
  if (const auto refusal = ReadBytes(Wide(typed), bytes)) return Refuse(typed, *refusal, options);
  const int size = static_cast<int>(bytes.size());
  const std::string text = Utf8(StructToString(bytes.data(), size));
  if (options.json)
    Print(JsonObject().Add("input", typed).Add("size", size).Add("text", text).Add("error", nullptr).Line());
  else
    Print(text + "\n");
  return kDone;
}

// The size that the text announces, or why it cannot be read.
std::optional<Refusal> ReadSize(const CString& text, int& size) {
  for (int i = 0; i < kLengthDigits; ++i) {
    const int digit = i < text.GetLength() ? DigitOf(text[i]) : 0;
    if (digit < 0) return NotHex(text, i);
    size = size * 16 + digit;
  }
  for (int i = kLengthDigits; i < kLengthDigits + 2 * size && i < text.GetLength(); ++i)
    if (DigitOf(text[i]) < 0) return NotHex(text, i);
  return std::nullopt;
}

// What is odd about a text that the library reads: one of the wrong length.
std::optional<Refusal> WrongLength(const CString& text, int size) {
  const int end = kLengthDigits + 2 * size, length = text.GetLength();
  if (length == end) return std::nullopt;
  const std::string announced = InUserDigits(size);
  const int position = std::min(length, end) + 1;
  if (length < end)
    return Refusal{"cut_off", position, Say(Text::RecordCutOff, {InUserDigits(position), announced})};
  return Refusal{"left_over", position, Say(Text::RecordLonger, {announced, InUserDigits(position)})};
}

int Decode(const std::string& typed, const Options& options) {
  const CString text = Wide(typed);
  int size = 0, wanted = 0;
  if (const auto refusal = ReadSize(text, size)) return Refuse(typed, *refusal, options);
  if (!options.size.empty()) {
    if (const auto refusal = ReadCount(options.size, wanted)) return Refuse(options.size, *refusal, options);
  }
  std::string bytes(static_cast<std::size_t>(size), '\0');
  // None was ever written, and its text would be made up almost wholly.
  if (size > kMaxSize)
    return Refuse(typed, {"size", 1, Say(Text::RecordTooLarge, {InUserDigits(size), InUserDigits(kMaxSize)})},
                  options);
  if (!StringToStruct(bytes.data(), options.size.empty() ? size : wanted, text))
    return Refuse(typed, {"size", 1, Say(Text::RecordSize, {InUserDigits(size), InUserDigits(wanted)})},
                  options);
  const auto odd = WrongLength(text, size);
  if (options.json) {
    JsonObject object;
    object.Add("input", typed).Add("size", size).Add("bytes", HexPairs(bytes));
    Print((odd ? object.Add("error", AsJson(*odd)) : object.Add("error", nullptr)).Line());
    return odd ? kUnreadable : kDone;
  }
  Print(HexPairs(bytes) + "\n");
  return odd ? Refuse(typed, *odd, options) : kDone;
}

}  // namespace

int RunStructEncode(const Options& options) {
  return RunOnEach(options, Encode);
}
int RunStructDecode(const Options& options) {
  return RunOnEach(options, Decode);
}

}  // namespace Cli
