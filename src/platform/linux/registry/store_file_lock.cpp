#include "store_file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>

#include "store_place.h"
#include "store_status.h"

namespace {

constexpr timespec kPause{0, 1'000'000};
constexpr int kPauses = 5000;

}  // namespace

StoreFileLock::~StoreFileLock() {
  if (m_Handle >= 0) close(m_Handle);
}

LONG StoreFileLock::Take(const std::string& file) {
  m_Handle = open((file + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
  return m_Handle < 0 ? StatusOfError(errno) : Wait(LOCK_EX);
}

void StoreFileLock::Share(const std::string& file) {
  m_Handle = open((file + ".lock").c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
  if (m_Handle >= 0) Wait(LOCK_SH);
}

LONG StoreFileLock::Wait(int kind) {
  for (int i = 0; i < kPauses; ++i) {
    if (flock(m_Handle, kind | LOCK_NB) == 0) return 0;
    if (errno != EWOULDBLOCK && errno != EINTR) return StatusOfError(errno);
    nanosleep(&kPause, nullptr);
  }
  return kStoreBusy;
}
