#include "strnewdup.h"

#include <algorithm>
#include <new>
#include <string_view>

namespace {

template <class Char>
Char* Duplicate(const Char* text, unsigned int size) {
  const auto copied = text ? std::basic_string_view<Char>(text) : std::basic_string_view<Char>();
  const std::size_t count = std::max<std::size_t>(size, copied.size() + 1);
  // Plain `operator delete` must do, so it is not `new Char[count]`.
  auto* const buffer = static_cast<Char*>(::operator new(count * sizeof(Char)));
  std::fill(std::copy(copied.begin(), copied.end(), buffer), buffer + count, Char());
  return buffer;
}

}  // namespace

char* strnewdup(const char* text, unsigned int size) {
  return Duplicate(text, size);
}
wchar_t* strnewdup(const wchar_t* text, unsigned int size) {
  return Duplicate(text, size);
}
