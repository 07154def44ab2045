// List: a singly linked list that remembers where it was read last.
//
//   Qel::List<int> list;
//   list.append(5);
//   for (int i = 0; i < list.GetCount(); ++i) Use(list[i]);  // one step an element
//
// The paths and lines in what it raises are fixed: crash reports are grouped by them.
#ifndef QEL_LIST_H
#define QEL_LIST_H

#include "exceptions.h"
#include "list_base.h"

namespace Qel {

template <class T>
class List : public ListBase<T> {
 public:
  List() noexcept = default;
  List(List&&) noexcept = default;
  List& operator=(List&&) noexcept = default;
  ~List() = default;

  // An independent list with a copy of each value, in order.
  List(const List& other) : ListBase<T>() {
    for (const XNode<T>* node = other.head(); node; node = node->next) append(node->value);
  }
  // The same; when it raises, this list is unchanged.
  List& operator=(const List& other) {
    if (this != &other) *this = List(other);
    return *this;
  }

  // Adds a copy of `value` at the end and returns its address, valid until the element is removed. Raises
  // TXAssertion "n != 0", the list unchanged, when there is no memory.
  T* append(const T& value) {
    XNode<T>* const n = this->appendNode(value);
    QEL_REQUIRE_AT(n != nullptr, L"n != 0", L"include/list", 311);
    return &n->value;
  }

  // The element at `index`. Raises TXAssertion "index >= 0" for a negative index and "p != 0" for one not
  // below GetCount(). Writes the cursor, so readers of one list in several threads need the caller's lock.
  T& operator[](long index) const {
    QEL_REQUIRE_AT(index >= 0, L"index >= 0", L"include/list", 259);
    XNode<T>* const p = this->nodeAt(index);
    QEL_REQUIRE_AT(p != nullptr, L"p != 0", L"include/list", 270);
    return p->value;
  }
};

}  // namespace Qel

#endif  // QEL_LIST_H
