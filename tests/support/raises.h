// What a call raises, as text; the exception is deleted.
#ifndef QEL_TESTS_RAISES_H
#define QEL_TESTS_RAISES_H

#include <string>

#include "exceptions.h"

// The message of the exception that `body` raises, or "" when it raises none.
template <class Body>
std::wstring RaisedBy(Body&& body) {
  try {
    body();
  } catch (Qel::Sys::Exceptions::qel_exception* e) {
    const std::wstring text(e->GetError());
    e->Delete();
    return text;
  }
  return {};
}

#endif  // QEL_TESTS_RAISES_H
