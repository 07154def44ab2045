// The lock on all that is kept of the stores in a process.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_STORE_MUTEX_H
#define QEL_PLATFORM_LINUX_REGISTRY_STORE_MUTEX_H

#include <atomic>
#include <mutex>
#include <thread>

// A recursive mutex that a child may release after a fork: that of the library knows its owner by a number which the
// child's thread has not.
class StoreMutex {
 public:
  StoreMutex() = default;
  StoreMutex(const StoreMutex&) = delete;
  StoreMutex& operator=(const StoreMutex&) = delete;

  void lock() {
    const auto self = std::this_thread::get_id();
    // Only the own thread writes its own id there.
    if (m_Owner.load(std::memory_order_relaxed) != self) {
      m_Mutex.lock();
      m_Owner.store(self, std::memory_order_relaxed);
    }
    ++m_Depth;
  }
  void unlock() {
    if (--m_Depth != 0) return;
    m_Owner.store(std::thread::id(), std::memory_order_relaxed);
    m_Mutex.unlock();
  }

 private:
  std::mutex m_Mutex;
  std::atomic<std::thread::id> m_Owner;
  int m_Depth = 0;
};

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STORE_MUTEX_H
