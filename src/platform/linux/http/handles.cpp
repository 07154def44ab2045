#include "handles.h"

#include <mutex>

#include "platform/linux/handle_table.h"

namespace {

constexpr DWORD kInvalidHandle = 6;
constexpr DWORD kNoMemory = 8;

using Objects = HandleTable<std::shared_ptr<HttpObject>>;

std::mutex s_Lock;

Objects& Table() {
  // Never destroyed: a host may still close what it has while the process ends.
  static auto* const s_Table = new Objects(HandleKind::Http);
  return *s_Table;
}

std::uint64_t Number(HINTERNET handle) {
  return reinterpret_cast<std::uint64_t>(handle);
}

// Null when there is no such handle.
std::shared_ptr<HttpObject> Take(HINTERNET handle) {
  const std::lock_guard lock(s_Lock);
  std::shared_ptr<HttpObject> object;
  if (const auto* const found = Table().Find(Number(handle))) object = *found;
  Table().Remove(Number(handle));
  return object;
}

}  // namespace

HINTERNET MakeHttpHandle(std::shared_ptr<HttpObject> object) {
  const std::lock_guard lock(s_Lock);
  const std::uint64_t handle = Table().Add(std::move(object));
  if (handle == 0) SetLastError(kNoMemory);
  return reinterpret_cast<HINTERNET>(handle);
}

std::shared_ptr<HttpObject> FindHttpObject(HINTERNET handle) {
  const std::lock_guard lock(s_Lock);
  if (const std::shared_ptr<HttpObject>* const found = Table().Find(Number(handle))) return *found;
  SetLastError(kInvalidHandle);
  return nullptr;
}

BOOL WinHttpCloseHandle(HINTERNET handle) {
  const std::shared_ptr<HttpObject> object = Take(handle);
  if (object.use_count() > 1) object->Cancel();  // only a call under way has the other
  return Answer(object ? 0 : kInvalidHandle);
}

DWORD HttpError(void*) {
  return GetLastError();
}

void CloseRequest(void* request) {
  WinHttpCloseHandle(request);
}
