// One character of UTF-8 after the other.
#ifndef QEL_UTF8_CHARACTER_H
#define QEL_UTF8_CHARACTER_H

constexpr char32_t kReplacement = 0xFFFD;

// How many bytes follow a lead byte; -1 for a byte that begins nothing.
constexpr int TailLength(unsigned char lead) {
  if (lead < 0x80) return 0;
  if (lead < 0xC2 || lead > 0xF4) return -1;
  return lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
}

// Too long a form, a surrogate or beyond the last character: seen as soon as the second byte is known.
constexpr bool IsImpossible(unsigned char lead, unsigned char second) {
  return (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
         (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F);
}

// The character at `at`, which moves behind it. A broken sequence gives one replacement and ends before the
// first byte that cannot continue it, or behind the second byte when the first two already exclude each
// other.
constexpr char32_t NextOfUtf8(const char*& at, const char* end) {
  const auto lead = static_cast<unsigned char>(*at++);
  const int tail = TailLength(lead);
  if (tail == 0) return lead;
  if (tail < 0) return kReplacement;
  char32_t ch = lead & (0x3Fu >> tail);
  for (int i = 0; i < tail; ++i) {
    if (at == end || (static_cast<unsigned char>(*at) & 0xC0) != 0x80) return kReplacement;
    const auto continued = static_cast<unsigned char>(*at++);
    if (i == 0 && IsImpossible(lead, continued)) return kReplacement;
    ch = ch << 6 | (continued & 0x3Fu);
  }
  return ch;
}

#endif  // QEL_UTF8_CHARACTER_H
