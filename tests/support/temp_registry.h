// A registry of a test's own: empty, and gone with it.
#ifndef QEL_TESTS_TEMP_REGISTRY_H
#define QEL_TESTS_TEMP_REGISTRY_H

#include <string>

// While one lives, all roots of this process lead into it, and on Linux those of the processes that it starts. The
// last one made counts; the one before comes back when it ends. No settings of the person who runs the tests are
// read or written.
class TempRegistry {
 public:
  TempRegistry();
  ~TempRegistry();
  TempRegistry(const TempRegistry&) = delete;
  TempRegistry& operator=(const TempRegistry&) = delete;

  // On Linux the folder of the stores; on Windows the key below the user's root that stands in for the roots.
  const std::string& Place() const { return m_Place; }

 private:
  std::string m_Place;
};

#endif  // QEL_TESTS_TEMP_REGISTRY_H
