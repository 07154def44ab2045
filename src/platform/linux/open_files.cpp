#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include "platform/linux/file_names.h"
#include "platform/linux/handle_table.h"
#include "platform/platform.h"

namespace {

constexpr DWORD kDenied = 5;
constexpr DWORD kBadHandle = 6;
constexpr DWORD kInUse = 32;
constexpr DWORD kThere = 80;
constexpr DWORD kBadArgument = 87;
constexpr DWORD kBadName = 123;
constexpr DWORD kBeforeStart = 131;
constexpr DWORD kWasThere = 183;

// The system's number of an open file, closed with its last holder.
class OpenFile {
 public:
  OpenFile(int number, DWORD access) : m_Number(number), m_Access(access) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() { close(m_Number); }

  int Number() const { return m_Number; }
  DWORD Access() const { return m_Access; }

 private:
  const int m_Number;
  const DWORD m_Access;
};

// Shared with a call under way, so that closing a handle meanwhile never lends its number to another file.
using File = std::shared_ptr<const OpenFile>;

// Handles of all threads. Never destroyed: a host may still write its log while the process ends.
struct Files {
  std::mutex lock;
  HandleTable<File> table{HandleKind::File};
};

Files& AllFiles() {
  static auto* const s_Files = new Files;
  return *s_Files;
}

template <class Result>
Result Fail(DWORD code, Result result) {
  SetLastError(code);
  return result;
}

// Null, with the last error, when it is no open file or was not opened for this.
File Find(HANDLE handle, DWORD access) {
  Files& files = AllFiles();
  const std::lock_guard lock(files.lock);
  const File* const file = files.table.Find(reinterpret_cast<std::uint64_t>(handle));
  if (!file) return Fail(kBadHandle, File());
  // cppcheck-suppress nullPointer ; it is not
  return (*file)->Access() & access || access == 0 ? *file : Fail(kDenied, File());
}

HANDLE HandleOf(File file) {
  Files& files = AllFiles();
  const std::lock_guard lock(files.lock);
  const std::uint64_t handle = files.table.Add(std::move(file));
  return handle ? reinterpret_cast<HANDLE>(handle) : Fail(4, INVALID_HANDLE_VALUE);
}

int FlagsOf(DWORD access, DWORD disposition) {
  const bool reads = access & GENERIC_READ, writes = access & GENERIC_WRITE;
  const int flags = O_CLOEXEC | O_NOCTTY | (writes ? reads ? O_RDWR : O_WRONLY : O_RDONLY);
  if (disposition == OPEN_EXISTING) return flags;
  return flags | O_CREAT | (disposition == CREATE_NEW ? O_EXCL : 0);
}

// 0, or why the place cannot be opened.
DWORD Refusal(const FilePlace& place, DWORD disposition) {
  const bool there = place.missing == 0;
  if (!there && (place.missing != 2 || disposition == OPEN_EXISTING)) return place.missing;
  return there && disposition == CREATE_NEW ? kThere : 0;
}

// 0, or why the file is not for this caller. What is no file, such as a terminal, is shared by all.
DWORD Take(const OpenFile& file, DWORD share) {
  struct stat found {};
  if (fstat(file.Number(), &found) != 0) return CodeOfError(errno);
  if (S_ISDIR(found.st_mode)) return kDenied;
  const bool writes = file.Access() & GENERIC_WRITE;
  if (writes && (AttributesOf(found) & FILE_ATTRIBUTE_READONLY)) return kDenied;
  if (file.Access() == 0 || !S_ISREG(found.st_mode)) return 0;
  const bool shared = !writes && (share & FILE_SHARE_READ);
  // Where the file system knows no locks, everybody gets in.
  const bool taken = flock(file.Number(), LOCK_NB | (shared ? LOCK_SH : LOCK_EX)) == 0;
  return !taken && errno == EWOULDBLOCK ? kInUse : 0;
}

// The name of no file: one that a separator follows, in a folder that is there.
bool NamesFolder(const std::string& path) {
  const std::size_t name = path.find_last_not_of('/') + 1;
  struct stat found {};
  return name > 0 && name < path.size() && stat(path.substr(0, name).c_str(), &found) == 0;
}

// Between the look at the name and the opening, others may have made or removed it.
DWORD CodeOfOpening(int error) {
  if (error == EEXIST) return kThere;
  return error == ENOENT ? 2 : CodeOfError(error);
}

}  // namespace

HANDLE CreateFileW(const wchar_t* path, DWORD access, DWORD share, const void*, DWORD disposition, DWORD,
                   HANDLE) {
  if (!path || !*path) return Fail(DWORD{3}, INVALID_HANDLE_VALUE);
  if (disposition < CREATE_NEW || disposition > OPEN_ALWAYS) return Fail(kBadArgument, INVALID_HANDLE_VALUE);
  const FilePlace place = FindFile(path);
  if (const DWORD code = Refusal(place, disposition))
    return Fail(NamesFolder(place.path) ? kBadName : code, INVALID_HANDLE_VALUE);
  const int number = open(place.path.c_str(), FlagsOf(access, disposition), 0666);
  if (number < 0) return Fail(CodeOfOpening(errno), INVALID_HANDLE_VALUE);
  const auto file = std::make_shared<const OpenFile>(number, access);
  if (const DWORD code = Take(*file, share)) return Fail(code, INVALID_HANDLE_VALUE);
  // Only now: the content of a file that somebody else has open is theirs.
  if (disposition == CREATE_ALWAYS && ftruncate(number, 0) != 0 && errno != EINVAL)
    return Fail(CodeOfError(errno), INVALID_HANDLE_VALUE);
  SetLastError(disposition != OPEN_EXISTING && place.missing == 0 ? kWasThere : 0);
  return HandleOf(file);
}

BOOL ReadFile(HANDLE handle, void* buffer, DWORD size, DWORD* got, void*) {
  *got = 0;
  const File file = Find(handle, GENERIC_READ);
  if (!file) return 0;
  ssize_t count;
  do count = read(file->Number(), buffer, size);
  while (count < 0 && errno == EINTR);
  if (count < 0) return Fail(CodeOfError(errno), 0);
  *got = static_cast<DWORD>(count);
  return 1;
}

BOOL WriteFile(HANDLE handle, const void* data, DWORD size, DWORD* written, void*) {
  *written = 0;
  const File file = Find(handle, GENERIC_WRITE);
  if (!file) return 0;
  const auto* const bytes = static_cast<const char*>(data);
  for (DWORD done = 0; done < size;) {
    const ssize_t count = write(file->Number(), bytes + done, size - done);
    if (count < 0 && errno != EINTR) return Fail(CodeOfError(errno), 0);
    if (count > 0) done += static_cast<DWORD>(count);
  }
  *written = size;
  return 1;
}

BOOL SetFilePointerEx(HANDLE handle, LARGE_INTEGER distance, LARGE_INTEGER* position, DWORD origin) {
  const File file = Find(handle, 0);
  if (!file) return 0;
  if (origin > SEEK_END) return Fail(kBadArgument, 0);
  const off_t at = lseek(file->Number(), distance.QuadPart, static_cast<int>(origin));
  if (at < 0) return Fail(errno == EINVAL ? kBeforeStart : CodeOfError(errno), 0);
  if (position) position->QuadPart = at;
  return 1;
}

BOOL SetEndOfFile(HANDLE handle) {
  const File file = Find(handle, GENERIC_WRITE);
  if (!file) return 0;
  const off_t end = lseek(file->Number(), 0, SEEK_CUR);
  return end >= 0 && ftruncate(file->Number(), end) == 0 ? 1 : Fail(CodeOfError(errno), 0);
}

BOOL GetFileInformationByHandle(HANDLE handle, BY_HANDLE_FILE_INFORMATION* information) {
  const File file = Find(handle, 0);
  if (!file) return 0;
  struct stat found {};
  if (fstat(file->Number(), &found) != 0) return Fail(CodeOfError(errno), 0);
  const auto size = static_cast<std::uint64_t>(found.st_size);
  *information = {AttributesOf(found), static_cast<DWORD>(size >> 32), static_cast<DWORD>(size & 0xFFFFFFFF)};
  return 1;
}

HANDLE GetCurrentProcess() {
  return INVALID_HANDLE_VALUE;  // the same number in Windows
}

BOOL DuplicateHandle(HANDLE, HANDLE handle, HANDLE, HANDLE* copy, DWORD, BOOL, DWORD) {
  const File file = Find(handle, 0);
  const HANDLE made = file ? HandleOf(file) : INVALID_HANDLE_VALUE;
  *copy = made == INVALID_HANDLE_VALUE ? nullptr : made;
  return *copy ? 1 : 0;
}

BOOL CloseHandle(HANDLE handle) {
  if (handle == GetCurrentProcess()) return 1;
  Files& files = AllFiles();
  File last;  // closing may wait for the disk, and does so outside of the lock
  const std::lock_guard lock(files.lock);
  const auto number = reinterpret_cast<std::uint64_t>(handle);
  if (File* const file = files.table.Find(number)) last = std::move(*file);
  return files.table.Remove(number) ? 1 : Fail(kBadHandle, 0);
}
