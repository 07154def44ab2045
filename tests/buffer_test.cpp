#include "buffer.h"

#include <gtest/gtest.h>

#include <cstring>
#include <exception>

namespace {

// Whether `body` throws the one message, as a pointer to the base.
template <class Body>
bool IsOutside(Body&& body) {
  try {
    body();
  } catch (std::exception* e) {
    EXPECT_STREQ(e->what(), "TBuffer: offset out of range");
    delete e;
    return true;
  }
  return false;
}

}  // namespace

TEST(BufferTest, ValuesLieLittleEndianAtAnyOffset) {
  TBuffer buffer(33);
  buffer.SetDWORD(1, 0x04030201);
  buffer.GetQWORD(5) = 0x0C0B0A0908070605;
  buffer.SetGUID(13, {0x100F0E0D, 0x1211, 0x1413, {21, 22, 23, 24, 25, 26, 27, 28}});
  for (unsigned i = 0; i < 29; ++i) EXPECT_EQ(buffer[i], i);
  const TBuffer copy(buffer.data(), 33);
  EXPECT_EQ(copy.GetDWORD(3), 0x06050403u);
  EXPECT_EQ(copy.GetQWORD(2), 0x0908070605040302u);
  EXPECT_EQ(std::memcmp(&copy.GetGUID(7), buffer.data() + 7, 16), 0);
}

TEST(BufferTest, WhatReachesBeyondTheBytesIsThrown) {
  TBuffer buffer(16);
  for (const unsigned first : {12u, 13u, 0xFFFFFFF0u, 0xFFFFFFFFu}) {
    const bool outside = first != 12;
    EXPECT_EQ(IsOutside([&] { buffer.GetDWORD(first); }), outside) << first;
    EXPECT_EQ(IsOutside([&] { buffer.SetQWORD(first - 4, 1); }), outside) << first;
    EXPECT_EQ(IsOutside([&] { buffer.GetGUID(first - 12); }), outside) << first;
  }
  EXPECT_TRUE(IsOutside([&] { buffer[16] = 1; }));
}

TEST(BufferTest, KeptOdditiesOfTheDumpAndOfTheTestForZeros) {
  const unsigned char bytes[] = {0x0A, 0, 0, 0xFF};
  const TBuffer buffer(bytes, 4);
  EXPECT_EQ(buffer.DumpString(), L" A  0  0 FF ");
  const struct {
    unsigned from, to;
    bool zeros;
  } rows[] = {{1, 2, true},  {0, 2, false}, {1, 3, false}, {3, 2, true},
              {3, 3, false}, {4, 9, true},  {2, 2, true},  {3, 0xFFFFFFFF, false}};
  for (const auto& row : rows)
    EXPECT_EQ(buffer.IsFilledByZeros(row.from, row.to), row.zeros) << row.from << row.to;
}
