// Where a virtual operation stands in its class's table: modules compiled long ago call by that number.
#ifndef QEL_TESTS_SLOTS_H
#define QEL_TESTS_SLOTS_H

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

// The slot of a virtual member function, from 0. Reads the x86 layout of member pointers, which mingw shares:
// the first word is the offset into the table plus one.
template <class Member>
int SlotOf(Member member) {
  static_assert(sizeof(member) == 2 * sizeof(std::ptrdiff_t));
  std::ptrdiff_t words[2];
  std::memcpy(words, &member, sizeof(words));
  return words[0] % 2 == 1 ? static_cast<int>((words[0] - 1) / static_cast<std::ptrdiff_t>(sizeof(void*)))
                           : -1;
}

// Expects the operations in slots that follow one another from `slot` on.
template <class... Members>
void ExpectSlotsFrom(int slot, Members... members) {
  for (const int found : {SlotOf(members)...}) EXPECT_EQ(found, slot++);
}

// One of the operations of a class that share a name: Of<void(int)>(&Class::Name).
template <class Signature, class Class>
auto Of(Signature Class::*operation) {
  return operation;
}

#endif  // QEL_TESTS_SLOTS_H
