#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <string>

#include "platform/linux/file_names.h"
#include "platform/platform.h"

namespace {

LONG StatusOf(int error) {
  return static_cast<LONG>(CodeOfError(error));
}

class File {
 public:
  File(const std::string& path, int flags, mode_t mode = 0)
      : m_Number(open(path.c_str(), flags | O_CLOEXEC, mode)) {}
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File() { Close(); }

  bool IsOpen() const { return m_Number >= 0; }
  int Number() const { return m_Number; }
  bool Close() {
    const int closed = m_Number < 0 ? 0 : close(m_Number);
    m_Number = -1;
    return closed == 0;
  }

 private:
  int m_Number;
};

LONG WriteAll(const File& file, const BYTE* data, std::size_t size) {
  while (size > 0) {
    const ssize_t written = write(file.Number(), data, size);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return StatusOf(errno);
    data += written;
    size -= static_cast<std::size_t>(written);
  }
  return 0;
}

// A name that no other thread takes, and that no killed process of the same number left.
std::string NameBeside(const std::string& path) {
  static std::atomic<unsigned> s_Last = 0;
  std::string name;
  do name = path + ".new-" + std::to_string(getpid()) + "-" + std::to_string(++s_Last);
  while (access(name.c_str(), F_OK) == 0);
  return name;
}

LONG WriteBeside(const std::string& path, mode_t mode, const BYTE* data, std::size_t size) {
  const std::string temporary = NameBeside(path);
  File file(temporary, O_WRONLY | O_CREAT | O_EXCL, 0666);
  if (!file.IsOpen()) return StatusOf(errno);
  LONG status = WriteAll(file, data, size);
  if (status == 0 && mode != 0 && fchmod(file.Number(), mode) != 0) status = StatusOf(errno);
  if (status == 0 && fsync(file.Number()) != 0) status = StatusOf(errno);
  if (!file.Close() && status == 0) status = StatusOf(errno);
  if (status == 0 && rename(temporary.c_str(), path.c_str()) != 0) status = StatusOf(errno);
  if (status != 0) unlink(temporary.c_str());
  return status;
}

// The file that a link leads to: it is replaced, not the link.
std::string Target(const std::string& path) {
  char* const resolved = realpath(path.c_str(), nullptr);
  std::string target = resolved ? resolved : path;
  std::free(resolved);
  return target;
}

}  // namespace

LONG ReadWholeFile(const wchar_t* path, std::vector<BYTE>& content, std::size_t most) {
  const FilePlace place = FindFile(path);
  if (place.missing) return static_cast<LONG>(place.missing);
  const File file(place.path, O_RDONLY);
  if (!file.IsOpen()) return StatusOf(errno);
  content.clear();
  for (std::size_t filled = 0;;) {
    content.resize(std::max<std::size_t>(65536, filled * 2));
    const ssize_t got = read(file.Number(), content.data() + filled, content.size() - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return StatusOf(errno);
    filled += static_cast<std::size_t>(got);
    if (got == 0 || filled > most) content.resize(filled);
    if (got == 0) return 0;
    if (filled > most) return 223;
  }
}

LONG WriteWholeFile(const wchar_t* path, const BYTE* data, std::size_t size) {
  const auto [native, missing] = FindFile(path);
  if (missing == 2) return WriteBeside(native, 0, data, size);
  if (missing) return static_cast<LONG>(missing);
  struct stat found {};
  if (stat(native.c_str(), &found) != 0) return StatusOf(errno);
  if (access(native.c_str(), W_OK) != 0) return StatusOf(errno);
  if (S_ISREG(found.st_mode)) return WriteBeside(Target(native), found.st_mode & 07777, data, size);
  const File file(native, O_WRONLY);  // a device or a pipe has no content to lose
  return file.IsOpen() ? WriteAll(file, data, size) : StatusOf(errno);
}
