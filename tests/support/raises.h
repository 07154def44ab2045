// What a call raises: the exception itself or its text. It is deleted.
#ifndef QEL_TESTS_RAISES_H
#define QEL_TESTS_RAISES_H

#include <memory>
#include <string>

#include "exceptions.h"

struct DeleteException {
  void operator()(Qel::Sys::Exceptions::qel_exception* e) const { e->Delete(); }
};

// The exception that `body` raises, or null.
template <class Body>
std::unique_ptr<Qel::Sys::Exceptions::qel_exception, DeleteException> Raised(Body&& body) {
  try {
    body();
  } catch (Qel::Sys::Exceptions::qel_exception* e) {
    return std::unique_ptr<Qel::Sys::Exceptions::qel_exception, DeleteException>(e);
  }
  return nullptr;
}

// Its message, or "" when there is none.
template <class Body>
std::wstring RaisedBy(Body&& body) {
  const auto e = Raised(body);
  return e ? std::wstring(e->GetError()) : std::wstring();
}

#endif  // QEL_TESTS_RAISES_H
