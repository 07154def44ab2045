// Names one after the other in a buffer of the caller's, each terminated, with an empty one behind the last.
#ifndef QEL_REGISTRY_NAME_LIST_H
#define QEL_REGISTRY_NAME_LIST_H

#include <algorithm>
#include <climits>
#include <cwchar>

class NameList {
 public:
  NameList(wchar_t* buffer, unsigned int size)
      : m_Next(buffer),
        m_End(buffer + size),
        m_Remaining(static_cast<int>(std::min<unsigned int>(size, INT_MAX))) {}

  // Counts the name if the room that is left by the count is for more than `length` characters.
  // Kept: the count gives up `length` - 1 characters for the `length` + 1 that a name takes, because callers rely
  // on which names pass. So the count can run past the buffer: from there on names are counted and not written.
  void Add(const wchar_t* name, int length) {
    if (length >= m_Remaining) return;
    m_Remaining -= length - 1;
    m_Total += length + 1;
    m_Full = m_Full || m_End - m_Next < length + 2;
    if (m_Full) return;
    std::wmemcpy(m_Next, name, static_cast<std::size_t>(length));
    m_Next += length;
    *m_Next++ = L'\0';
  }

  // Ends the list. Returns the length of all that was counted.
  int Finish() {
    if (m_Next != m_End) *m_Next = L'\0';
    return m_Total + 1;
  }

 private:
  wchar_t* m_Next;
  wchar_t* m_End;
  int m_Remaining;
  int m_Total = 0;
  bool m_Full = false;
};

#endif  // QEL_REGISTRY_NAME_LIST_H
