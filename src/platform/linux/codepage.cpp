#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <string_view>

#include "data/cp1256.h"
#include "platform/linux/utf16.h"
#include "platform/platform.h"
#include "utf8_character.h"

namespace {

constexpr DWORD kInvalidParameter = 87;
constexpr DWORD kBufferTooSmall = 122;
constexpr DWORD kInvalidFlags = 1004;

int Fail(DWORD code) {
  SetLastError(code);
  return 0;
}

// Takes the items of a conversion: writes them while they fit, or only counts them when there is no room at
// all.
template <class Item>
class Output {
 public:
  Output(Item* buffer, int room) : m_Buffer(buffer), m_Room(static_cast<std::size_t>(room)) {}

  bool IsQuery() const { return m_Room == 0; }
  std::size_t Room() const { return m_Room; }
  Item* Buffer() const { return m_Buffer; }
  // The first `count` items have been written into the buffer.
  void Skip(std::size_t count) { m_Count += count; }

  // All items or none, so that no character is cut in two. False when they do not fit.
  bool Put(const Item* items, std::size_t count) {
    if (!IsQuery()) {
      if (m_Room - m_Count < count) return false;
      std::copy_n(items, count, m_Buffer + m_Count);
    }
    m_Count += count;
    return true;
  }

  int Finish(bool complete) const { return complete ? static_cast<int>(m_Count) : Fail(kBufferTooSmall); }

 private:
  Item* m_Buffer;
  std::size_t m_Room;
  std::size_t m_Count = 0;
};

// Byte of every unit in two steps: the block of the unit's high byte, then its entry for the low byte. The
// blocks of ASCII to Arabic come first and in order, so these units are their own index. Pages without a byte
// share a block of nothing but "?".
class EncodeTable {
 public:
  static constexpr char32_t kOwnIndexEnd = 0x800;

  constexpr EncodeTable() {
    m_Bytes.fill('?');
    m_BlockOf.fill(kEmptyBlock);
    for (unsigned char block = 0; block < kOwnIndexBlocks; ++block) m_BlockOf[block] = block;
    for (unsigned byte = 0; byte < 256; ++byte) Set(cp1256::kUnitOfByte[byte], byte);
    for (const auto& fit : cp1256::kBestFits) Set(fit.unit, fit.byte);
  }

  constexpr char operator[](char16_t unit) const {
    return m_Bytes[m_BlockOf[unit >> 8] * 256u + (unit & 0xFF)];
  }
  // For units below kOwnIndexEnd.
  constexpr char AtOwnIndex(wchar_t unit) const { return m_Bytes[static_cast<char32_t>(unit)]; }

 private:
  static constexpr unsigned char kOwnIndexBlocks = kOwnIndexEnd >> 8;
  static constexpr unsigned char kEmptyBlock = 3;
  static constexpr std::size_t kBlocks = kOwnIndexBlocks + 5;

  constexpr void Set(char16_t unit, unsigned byte) {
    unsigned char& block = m_BlockOf[unit >> 8];
    if (block == kEmptyBlock) block = m_NextBlock++;
    m_Bytes[block * 256u + (unit & 0xFF)] = static_cast<char>(byte);
  }

  std::array<unsigned char, 256> m_BlockOf{};
  std::array<char, kBlocks * 256> m_Bytes{};
  unsigned char m_NextBlock = kOwnIndexBlocks;
};

constexpr EncodeTable kByteOfUnit;

// A literal can bring an element that is no single unit.
constexpr bool IsPair(wchar_t element) {
  return static_cast<char32_t>(element) > 0xFFFF;
}

// Every file and record goes through the two loops below: they know that the room does, and take some
// characters at a time.

void DecodeAll(const char* bytes, std::size_t count, wchar_t* out) {
  const auto unit = [bytes](std::size_t i) {
    return static_cast<wchar_t>(cp1256::kUnitOfByte[static_cast<unsigned char>(bytes[i])]);
  };
  std::size_t i = 0;
  for (; i + 4 <= count; i += 4) {
    out[i] = unit(i);
    out[i + 1] = unit(i + 1);
    out[i + 2] = unit(i + 2);
    out[i + 3] = unit(i + 3);
  }
  for (; i < count; ++i) out[i] = unit(i);
}

// Stops at an element that is no single unit. Returns how many were encoded.
std::size_t EncodeUnits(const wchar_t* text, std::size_t count, char* out) {
  constexpr std::size_t kStride = 8;
  const auto haveOwnIndex = [](const wchar_t* eight) {
    char32_t all = 0;
    for (std::size_t i = 0; i < kStride; ++i) all |= static_cast<char32_t>(eight[i]);
    return all < EncodeTable::kOwnIndexEnd;
  };
  std::size_t done = 0;
  while (true) {
    for (; count - done >= kStride && haveOwnIndex(text + done); done += kStride) {
      for (std::size_t i = 0; i < kStride; ++i) out[done + i] = kByteOfUnit.AtOwnIndex(text[done + i]);
    }
    if (done == count || IsPair(text[done])) return done;
    out[done] = kByteOfUnit[static_cast<char16_t>(text[done])];
    ++done;
  }
}

int Decode1256(const char* bytes, std::size_t length, Output<wchar_t> out) {
  if (out.IsQuery()) return static_cast<int>(length);
  const std::size_t count = std::min(length, out.Room());
  DecodeAll(bytes, count, out.Buffer());
  out.Skip(count);
  return out.Finish(count == length);
}

int Encode1256(const wchar_t* text, std::size_t length, Output<char> out) {
  std::size_t done = 0;
  if (!out.IsQuery()) done = EncodeUnits(text, std::min(length, out.Room()), out.Buffer());
  out.Skip(done);
  bool fits = true;
  for (; done < length && fits; ++done) {
    const char byte = kByteOfUnit[static_cast<char16_t>(text[done])];
    fits = IsPair(text[done]) ? out.Put("?", 1) && out.Put("?", 1) : out.Put(&byte, 1);
  }
  return out.Finish(fits);
}

bool PutUtf8(Output<char>& out, char32_t ch) {
  const auto tail = [ch](int shift) { return static_cast<char>(0x80 | (ch >> shift & 0x3F)); };
  const auto lead = [ch](unsigned mark, int shift) { return static_cast<char>(mark | ch >> shift); };
  if (ch < 0x80) {
    const char bytes[] = {static_cast<char>(ch)};
    return out.Put(bytes, 1);
  }
  if (ch < 0x800) {
    const char bytes[] = {lead(0xC0, 6), tail(0)};
    return out.Put(bytes, 2);
  }
  if (ch < 0x10000) {
    const char bytes[] = {lead(0xE0, 12), tail(6), tail(0)};
    return out.Put(bytes, 3);
  }
  const char bytes[] = {lead(0xF0, 18), tail(12), tail(6), tail(0)};
  return out.Put(bytes, 4);
}

int EncodeUtf8(const wchar_t* text, std::size_t length, Output<char> out) {
  const std::wstring_view units(text, length);
  bool fits = true;
  for (std::size_t i = 0; i < length && fits;) {
    const char32_t ch = NextCharacter(units, i);
    const bool lone = IsLeadSurrogate(ch) || IsTrailSurrogate(ch);
    fits = PutUtf8(out, lone || ch > 0x10FFFF ? kReplacement : ch);
  }
  return out.Finish(fits);
}

bool PutUnits(Output<wchar_t>& out, char32_t ch) {
  if (ch < 0x10000) {
    const wchar_t unit = static_cast<wchar_t>(ch);
    return out.Put(&unit, 1);
  }
  const wchar_t pair[] = {static_cast<wchar_t>(0xD7C0 + (ch >> 10)),
                          static_cast<wchar_t>(0xDC00 | (ch & 0x3FF))};
  return out.Put(pair, 2);
}

// The first eight bytes when all are ASCII.
bool DecodeEightAscii(const char* bytes, wchar_t* out) {
  std::uint64_t all = 0;
  std::memcpy(&all, bytes, sizeof all);
  if ((all & 0x8080808080808080) != 0) return false;
  for (std::size_t i = 0; i < sizeof all; ++i) out[i] = static_cast<unsigned char>(bytes[i]);
  return true;
}

// The characters of two bytes at the start, Arabic ones among them. Returns where the first other one is.
const char* DecodePairs(const char* bytes, const char* end, wchar_t*& out) {
  for (; end - bytes >= 2; bytes += 2) {
    const auto lead = static_cast<unsigned char>(bytes[0]), second = static_cast<unsigned char>(bytes[1]);
    if (lead < 0xC2 || lead > 0xDF || (second & 0xC0) != 0x80) break;
    *out++ = static_cast<wchar_t>((lead & 0x1F) << 6 | (second & 0x3F));
  }
  return bytes;
}

// Whole answers of servers come here: there is room for a unit a byte, and no character makes more. Returns how many
// units came out.
std::size_t DecodeAllUtf8(const char* bytes, const char* end, wchar_t* out) {
  wchar_t* const start = out;
  while (bytes != end) {
    if (end - bytes >= 8 && DecodeEightAscii(bytes, out)) {
      bytes += 8;
      out += 8;
      continue;
    }
    bytes = DecodePairs(bytes, end, out);
    if (bytes == end) break;
    PutUnitsOf(NextOfUtf8(bytes, end), [&](char16_t unit) { *out++ = unit; });
  }
  return static_cast<std::size_t>(out - start);
}

int DecodeUtf8(const char* bytes, std::size_t length, Output<wchar_t> out) {
  const char* const end = bytes + length;
  if (out.Room() >= length) return static_cast<int>(DecodeAllUtf8(bytes, end, out.Buffer()));
  bool fits = true;
  while (bytes != end && fits) fits = PutUnits(out, NextOfUtf8(bytes, end));
  return out.Finish(fits);
}

// Whether the arguments that both directions share can be used; else the last error is set.
bool Accepts(UINT codePage, DWORD flags, const void* text, int length, const void* out, int room) {
  const bool known = codePage == kArabicCodePage || codePage == CP_UTF8 || codePage == CP_THREAD_ACP;
  if (!known || !text || length == 0 || room < 0 || (room > 0 && !out)) return Fail(kInvalidParameter) != 0;
  if (flags != 0) return Fail(kInvalidFlags) != 0;
  return true;
}

}  // namespace

int MultiByteToWideChar(UINT codePage, DWORD flags, const char* bytes, int length, wchar_t* out, int room) {
  if (!Accepts(codePage, flags, bytes, length, out, room)) return 0;
  const std::size_t count = length < 0 ? std::strlen(bytes) + 1 : static_cast<std::size_t>(length);
  return codePage == CP_UTF8 ? DecodeUtf8(bytes, count, {out, room}) : Decode1256(bytes, count, {out, room});
}

int WideCharToMultiByte(UINT codePage, DWORD flags, const wchar_t* text, int length, char* out, int room,
                        const char* defaultChar, BOOL* usedDefault) {
  if (defaultChar || usedDefault) return Fail(kInvalidParameter);
  if (!Accepts(codePage, flags, text, length, out, room)) return 0;
  const std::size_t count = length < 0 ? std::wcslen(text) + 1 : static_cast<std::size_t>(length);
  return codePage == CP_UTF8 ? EncodeUtf8(text, count, {out, room}) : Encode1256(text, count, {out, room});
}
