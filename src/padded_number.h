// Numbers of fixed forms such as dates: decimal digits with leading zeros, the same whatever the locale.
#ifndef QEL_PADDED_NUMBER_H
#define QEL_PADDED_NUMBER_H

namespace Qel::Sys::Text {

// Writes `value` with at least `width` digits at `out` and returns the end. Needs max(width, 10) places.
template <class Char>
inline Char* WritePadded(Char* out, unsigned value, int width) {
  int digits = 1;
  for (unsigned rest = value / 10; rest != 0; rest /= 10) ++digits;
  if (digits < width) digits = width;
  for (Char* place = out + digits; place != out; value /= 10) {
    *--place = static_cast<Char>('0' + value % 10);
  }
  return out + digits;
}

}  // namespace Qel::Sys::Text

#endif  // QEL_PADDED_NUMBER_H
