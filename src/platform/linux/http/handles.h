// What the handles of HTTP stand for. A handle may be closed by another thread while a call works with what it stands
// for: that lives on until the call returns.
#ifndef QEL_PLATFORM_LINUX_HTTP_HANDLES_H
#define QEL_PLATFORM_LINUX_HTTP_HANDLES_H

#include <memory>

#include "platform/platform.h"

struct HttpObject {
  HttpObject() = default;
  HttpObject(const HttpObject&) = delete;
  HttpObject& operator=(const HttpObject&) = delete;
  virtual ~HttpObject() = default;
  // The handle is closed: what is under way ends.
  virtual void Cancel() {}
};

// Null, with the last error 8, when there is no room for another.
HINTERNET MakeHttpHandle(std::shared_ptr<HttpObject> object);
// Null, with the last error 6, when it is no open handle.
std::shared_ptr<HttpObject> FindHttpObject(HINTERNET handle);

// Null, with the last error 6 or 12018, when it is no handle of an object of this kind.
template <class Object>
std::shared_ptr<Object> FindHttp(HINTERNET handle) {
  const std::shared_ptr<HttpObject> object = FindHttpObject(handle);
  auto found = std::dynamic_pointer_cast<Object>(object);
  if (object && !found) SetLastError(12018);
  return found;
}

// The result of a call: its last error becomes `code` unless that is 0.
inline BOOL Answer(DWORD code) {
  if (code != 0) SetLastError(code);
  return code == 0;
}

#endif  // QEL_PLATFORM_LINUX_HTTP_HANDLES_H
