// Values below the user's root, written and read without the registry's functions; and processes that do so.
#ifndef QEL_TESTS_RAW_STORE_H
#define QEL_TESTS_RAW_STORE_H

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <mutex>
#include <new>
#include <string>
#include <utility>

#include "platform/linux/registry/store.h"

inline Store& UserStore() {
  return Store::Of(StorePlace::User);
}

// Result: the status of the first step that failed, or 0.
inline LONG Put(const std::string& name, const std::string& data, Store& store = UserStore()) {
  const std::lock_guard lock(StoreLock());
  if (const LONG status = store.BeginWrite()) return status;
  const std::string sql = "INSERT INTO value(key, name, folded, type, data) VALUES(1, '" + name +
                          "', CAST('" + name + "' AS BLOB), 1, CAST('" + data +
                          "' AS BLOB)) ON CONFLICT(key, folded) DO UPDATE SET data = excluded.data";
  const int code = Execute(store.Connection(), sql.c_str());
  if (code == SQLITE_OK) return store.Commit();
  store.Rollback();
  return store.Failed(code);
}

// Empty where there is none; "status N" where the store cannot be read.
inline std::string Get(const std::string& name, Store& store = UserStore()) {
  const std::lock_guard lock(StoreLock());
  if (const LONG status = store.Open()) return "status " + std::to_string(status);
  const Statement row =
      Prepare(store.Connection(), ("SELECT data FROM value WHERE name = '" + name + "'").c_str());
  const int code = row ? sqlite3_step(row.get()) : sqlite3_extended_errcode(store.Connection());
  if (code == SQLITE_DONE) return "";
  if (code != SQLITE_ROW) return "status " + std::to_string(store.Failed(code));
  return std::string(static_cast<const char*>(sqlite3_column_blob(row.get(), 0)),
                     static_cast<std::size_t>(sqlite3_column_bytes(row.get(), 0)));
}

// -1 where the store cannot be read.
inline std::int64_t Count(const char* sql, Store& store = UserStore()) {
  const std::lock_guard lock(StoreLock());
  std::int64_t count = -1;
  if (store.Open() == 0) store.Failed(ReadNumber(store.Connection(), sql, count));
  return count;
}

// A process that ends with what `body` gives.
template <class Body>
pid_t Start(Body body) {
  const pid_t child = fork();
  if (child == 0) _exit(body());
  return child;
}

inline int Wait(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Runs `body` without rights to what only the owner may touch. Result: what it gives.
template <class Body>
int WithoutRights(Body body) {
  return Wait(Start([&] {
    if (getuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) return 255;
    return body();
  }));
}

// What this process and those that it starts tell each other.
template <class Content>
Content& SharedByProcesses() {
  void* const memory =
      mmap(nullptr, sizeof(Content), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  return *new (memory) Content();
}

// Another process with the same store: it writes the value "a" when it is asked to.
class OtherProcess {
 public:
  // `opened`: it has the store open from now on, else from its first write.
  explicit OtherProcess(bool opened) {
    if (pipe(m_Ask) != 0 || pipe(m_Answer) != 0) std::abort();
    m_Child = Start([&] {
      close(m_Ask[1]);
      if (opened) Get("a");
      for (char data = 0; write(m_Answer[1], &data, 1) == 1 && read(m_Ask[0], &data, 1) == 1;)
        Put("a", std::string(1, data));
      return 0;
    });
    Hear();
  }
  OtherProcess(const OtherProcess&) = delete;
  OtherProcess& operator=(const OtherProcess&) = delete;
  ~OtherProcess() {
    for (const int handle : {m_Ask[0], m_Ask[1], m_Answer[0], m_Answer[1]}) close(handle);
    Wait(m_Child);
  }

  // Returns when it has been done.
  void Write(char data) const {
    if (write(m_Ask[1], &data, 1) == 1) Hear();
  }

 private:
  void Hear() const {
    char data = 0;
    if (read(m_Answer[0], &data, 1) != 1) std::abort();
  }

  int m_Ask[2] = {}, m_Answer[2] = {};
  pid_t m_Child = 0;
};

#endif  // QEL_TESTS_RAW_STORE_H
