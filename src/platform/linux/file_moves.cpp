#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <string>

#include "code_page.h"
#include "platform/linux/file_names.h"
#include "platform/platform.h"
#include "utf8.h"

namespace {

constexpr DWORD kInUse = 32;
constexpr DWORD kThere = 183;

BOOL Fail(DWORD code) {
  SetLastError(code);
  return 0;
}

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

// A file held open so that nobody else can begin to write it meanwhile.
class HeldFile {
 public:
  explicit HeldFile(const std::string& path)
      : m_Number(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;
  ~HeldFile() {
    if (m_Number >= 0) close(m_Number);
  }
  // 0, or why it cannot be.
  DWORD Hold() const {
    if (m_Number < 0) return CodeOfError(errno);
    return flock(m_Number, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK ? kInUse : 0;
  }

 private:
  const int m_Number;
};

// Without taking the place of another file; where the file system cannot promise that, after a look.
int Rename(const std::string& from, const std::string& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL) return errno;
  if (access(to.c_str(), F_OK) == 0) return EEXIST;
  return rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

}  // namespace

std::vector<std::wstring> FileNamesIn(const wchar_t* folder) {
  const std::string path = FindFile(folder).path;
  const std::unique_ptr<DIR, CloseFolder> list(opendir(path.c_str()));
  std::vector<std::wstring> names;
  while (const dirent* const entry = list ? readdir(list.get()) : nullptr) {
    struct stat found {};
    if (fstatat(dirfd(list.get()), entry->d_name, &found, 0) == 0 && S_ISREG(found.st_mode))
      names.push_back(Decode(CP_UTF8, entry->d_name));
  }
  return names;
}

bool MakePrivateFolder(const wchar_t* path) {
  constexpr mode_t kUserAlone = 0700;
  const std::string whole = Qel::ToUtf8(Qel::ToNativePath(path).View());
  for (std::size_t end = 0; end != whole.npos;) {
    end = whole.find('/', end + 1);
    mkdir(whole.substr(0, end).c_str(), kUserAlone);  // fails where it is there already
  }
  struct stat found {};
  return stat(whole.c_str(), &found) == 0 && S_ISDIR(found.st_mode);
}

BOOL MoveFileW(const wchar_t* from, const wchar_t* to) {
  const FilePlace source = FindFile(from), target = FindFile(to);
  if (source.missing) return Fail(source.missing);
  if (target.missing != 2) return Fail(target.missing ? target.missing : kThere);
  const HeldFile file(source.path);
  if (const DWORD code = file.Hold()) return Fail(code);
  const int error = Rename(source.path, target.path);
  return error ? Fail(CodeOfError(error)) : 1;
}

BOOL DeleteFileW(const wchar_t* path) {
  const FilePlace place = FindFile(path);
  if (place.missing) return Fail(place.missing);
  return unlink(place.path.c_str()) == 0 ? 1 : Fail(CodeOfError(errno));
}
