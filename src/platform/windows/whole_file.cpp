#include <algorithm>
#include <string>

#include "platform/platform.h"

namespace {

LONG LastStatus() {
  return static_cast<LONG>(GetLastError());
}

class File {
 public:
  explicit File(HANDLE handle) : m_Handle(handle) {}
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File() { Close(); }

  operator HANDLE() const { return m_Handle; }
  bool IsOpen() const { return m_Handle != INVALID_HANDLE_VALUE; }
  void Close() {
    if (IsOpen()) CloseHandle(m_Handle);
    m_Handle = INVALID_HANDLE_VALUE;
  }

 private:
  HANDLE m_Handle;
};

}  // namespace

LONG ReadWholeFile(const wchar_t* path, std::vector<BYTE>& content, std::size_t most) {
  content.clear();
  // A log may be read while its program writes it.
  const File file(CreateFileW(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                              0, nullptr));
  if (!file.IsOpen()) return LastStatus();
  LARGE_INTEGER size;
  if (!GetFileSizeEx(file, &size)) return LastStatus();
  if (static_cast<ULONGLONG>(size.QuadPart) > most) return ERROR_FILE_TOO_LARGE;
  content.resize(static_cast<std::size_t>(size.QuadPart));
  DWORD got = 0;
  if (!content.empty() && !ReadFile(file, content.data(), static_cast<DWORD>(content.size()), &got, nullptr))
    return LastStatus();
  content.resize(got);
  return 0;
}

LONG WriteWholeFile(const wchar_t* path, const BYTE* data, std::size_t size) {
  if (!path) return ERROR_PATH_NOT_FOUND;
  const std::wstring temporary = std::wstring(path) + L".new-" + std::to_wstring(GetCurrentProcessId());
  // What a process of that number has left is written over.
  File file(CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                        nullptr));
  if (!file.IsOpen()) return LastStatus();
  DWORD written = 0;
  LONG status = 0;
  if (!WriteFile(file, data, static_cast<DWORD>(size), &written, nullptr) || !FlushFileBuffers(file))
    status = LastStatus();
  file.Close();
  if (status == 0 &&
      !MoveFileExW(temporary.c_str(), path, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
    status = LastStatus();
  if (status != 0) DeleteFileW(temporary.c_str());
  return status;
}
