// A disk that is full after a given number of bytes, as SQLite sees it.
#ifndef QEL_TESTS_FULL_DISK_H
#define QEL_TESTS_FULL_DISK_H

#include <cstdint>

// While one lives, files that SQLite opens grow by no more than `bytes` together.
class FullDisk {
 public:
  explicit FullDisk(std::int64_t bytes);
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;
  ~FullDisk();

  // How many bytes would have done for the first growth that was refused; 0 when none was.
  static std::int64_t Needed();
  // How often SQLite has waited for the disk.
  static int Syncs();
};

#endif  // QEL_TESTS_FULL_DISK_H
