// Lets a test change SysFormat: starts from the defaults and puts back what was there.
#ifndef QEL_TESTS_SYS_FORMAT_GUARD_H
#define QEL_TESTS_SYS_FORMAT_GUARD_H

#include "format.h"

class SysFormatGuard {
 public:
  SysFormatGuard() { Qel::Sys::Settings::SysFormat = {}; }
  ~SysFormatGuard() { Qel::Sys::Settings::SysFormat = m_Saved; }
  SysFormatGuard(const SysFormatGuard&) = delete;
  SysFormatGuard& operator=(const SysFormatGuard&) = delete;

 private:
  const Qel::Sys::Settings::Format m_Saved = Qel::Sys::Settings::SysFormat;
};

#endif  // QEL_TESTS_SYS_FORMAT_GUARD_H
