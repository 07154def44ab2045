// XList: a singly linked list that remembers where it was read last.
//
//   Qel::XList<int> list;
//   list.append(5);
//   for (int i = 0; i < list.GetCount(); ++i) Use(list[i]);  // one step an element
//
// As Qel::List. The paths and lines in what it raises are fixed: crash reports are grouped by them.
// Kept: a negative index is just one more missing element here, because its reports have always read so.
#ifndef QEL_XLIST_H
#define QEL_XLIST_H

#include "exceptions.h"
#include "list_base.h"

namespace Qel {

template <class T>
class XList : public ListBase<T> {
 public:
  XList() noexcept = default;
  XList(XList&&) noexcept = default;
  XList& operator=(XList&&) noexcept = default;
  ~XList() = default;

  // An independent list with a copy of each value, in order.
  XList(const XList& other) : ListBase<T>() {
    for (const XNode<T>* node = other.head(); node; node = node->next) append(node->value);
  }
  // The same; when it raises, this list is unchanged.
  XList& operator=(const XList& other) {
    if (this != &other) *this = XList(other);
    return *this;
  }

  // Adds a copy of `value` at the end and returns its address, valid until the element is removed. Raises
  // TXAssertion "n != 0", the list unchanged, when there is no memory.
  T* append(const T& value) {
    XNode<T>* const n = this->appendNode(value);
    QEL_REQUIRE_AT(n != nullptr, L"n != 0", L"include/xlist", 301);
    return &n->value;
  }

  // The element at `index`. Raises TXAssertion "p != 0" for an index that is negative or not below
  // GetCount(). Writes the cursor, so readers of one list in several threads need the caller's lock.
  T& operator[](long index) const {
    XNode<T>* const p = this->nodeAt(index);
    QEL_REQUIRE_AT(p != nullptr, L"p != 0", L"include/xlist", 281);
    return p->value;
  }
};

}  // namespace Qel

#endif  // QEL_XLIST_H
