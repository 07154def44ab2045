// What the two list templates share: a chain of nodes with a read cursor. Hosts use Qel::List or Qel::XList.
#ifndef QEL_LIST_BASE_H
#define QEL_LIST_BASE_H

#include <new>
#include <utility>

namespace Qel {

// One element of a list.
template <class T>
struct XNode {
  XNode(const T& v, XNode* n) : next(n), value(v) {}

  XNode* next;  // null at the tail
  T value;
};

// Owns its nodes, one allocation each. Indices are zero-based. Not thread-safe, not even for readers: every
// indexed access writes the cursor.
template <class T>
class ListBase {
 public:
  // Number of elements.
  int GetCount() const noexcept { return m_Count; }
  int count() const noexcept { return m_Count; }

  // The first element equal to `value`, or null. Valid until that element is removed.
  T* find(const T& value) const {
    XNode<T>* const node = findNode(value);
    return node ? &node->value : nullptr;
  }

  // Removes every element equal to `value`, which may be one of them, and returns how many there were.
  int remove(const T& value) {
    const T wanted = value;  // `value` may live in a node that goes
    resetCursor();
    int removed = 0;
    XNode<T>* last = nullptr;
    for (XNode<T>** link = &m_Head; *link;) {
      if ((*link)->value == wanted) {
        unlink(link, last);
        ++removed;
      } else {
        last = *link;
        link = &last->next;
      }
    }
    return removed;
  }

  // Removes every element.
  void flush() noexcept {
    // Emptied first, so that an element whose destructor looks at the list finds it so.
    XNode<T>* node = std::exchange(m_Head, nullptr);
    m_Tail = nullptr;
    m_Count = 0;
    resetCursor();
    while (node) delete std::exchange(node, node->next);
  }

 protected:
  ListBase() noexcept = default;
  ListBase(ListBase&& other) noexcept { takeOver(other); }
  ListBase& operator=(ListBase&& other) noexcept {
    if (this != &other) {
      flush();
      takeOver(other);
    }
    return *this;
  }
  ~ListBase() { flush(); }

  // Stores a copy of `value` behind the last element. Null, and nothing changed, when there is no memory.
  XNode<T>* appendNode(const T& value) {
    XNode<T>* const node = new (std::nothrow) XNode<T>(value, nullptr);
    if (!node) return nullptr;
    (m_Tail ? m_Tail->next : m_Head) = node;
    m_Tail = node;
    ++m_Count;
    return node;
  }

  XNode<T>* findNode(const T& value) const {
    XNode<T>* node = m_Head;
    while (node && !(node->value == value)) node = node->next;
    return node;
  }

  // The node at `index`, which becomes the cursor: going forward costs a step an element, going back starts
  // at the head again. Null, and the cursor untouched, when there is no such node.
  XNode<T>* nodeAt(long index) const noexcept {
    if (index < 0 || index >= m_Count) return nullptr;
    const bool ahead = m_Cursor && m_CursorIndex <= index;
    XNode<T>* node = ahead ? m_Cursor : m_Head;
    for (long steps = ahead ? index - m_CursorIndex : index; steps != 0; --steps) node = node->next;
    m_Cursor = node;
    m_CursorIndex = static_cast<int>(index);
    return node;
  }

  const XNode<T>* head() const noexcept { return m_Head; }

 private:
  void resetCursor() noexcept {
    m_Cursor = nullptr;
    m_CursorIndex = 0;
  }

  // Frees the node that `link` points to; `previous` is the one before it, null at the head.
  void unlink(XNode<T>** link, XNode<T>* previous) {
    XNode<T>* const node = *link;
    if (node == m_Tail) m_Tail = previous;
    *link = node->next;
    --m_Count;
    delete node;
  }

  void takeOver(ListBase& other) noexcept {
    m_Head = std::exchange(other.m_Head, nullptr);
    m_Tail = std::exchange(other.m_Tail, nullptr);
    m_Cursor = std::exchange(other.m_Cursor, nullptr);
    m_CursorIndex = std::exchange(other.m_CursorIndex, 0);
    m_Count = std::exchange(other.m_Count, 0);
  }

  XNode<T>* m_Head = nullptr;
  XNode<T>* m_Tail = nullptr;
  mutable XNode<T>* m_Cursor = nullptr;  // of the last successful access, null after a reset
  mutable int m_CursorIndex = 0;
  int m_Count = 0;
};

}  // namespace Qel

#endif  // QEL_LIST_BASE_H
