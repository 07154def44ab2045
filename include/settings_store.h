// Where settings are kept, and how that place stands: for those who look after a machine.
//
//   const StoreReport report = DescribeSettingsStore(false);
//   report.access == StoreReport::Access::Missing     // nothing was ever stored
//   report.integrity                                  // "ok", or what is wrong
#ifndef QEL_SETTINGS_STORE_H
#define QEL_SETTINGS_STORE_H

#include <cstdint>
#include <string>
#include <vector>

#include "qel_export.h"

// The key of the suite's settings, below the root of the current user or of the machine.
inline constexpr const wchar_t* kSettingsKey = L"Software\\qelmarsoft\\Qelmar\\9.0";

struct StoreReport {
  // Copy: its surroundings allow no more than to read a copy of it.
  enum class Access { Missing, Shared, Copy, Unreadable };
  struct Event {
    std::wstring time;  // UTC, as 2026-11-23T01:37:51Z
    std::wstring text;
  };

  std::wstring path;  // the file; on Windows the name of the registry's tree
  Access access = Access::Missing;
  std::int32_t whyNotWritten = 0;  // 0 when it can be written, or made; else what writing answers
  int version = 0;                 // of its layout; 0 where there is none to be read, and on Windows
  std::wstring integrity;          // "ok", or the first thing that a check of the whole finds wrong
  std::vector<Event> events;       // what happened to it, oldest first
};

// The store of the current user, or that which all users of the machine share. To ask makes and repairs nothing. The
// check of the whole reads all of it. Any thread may ask.
QEL_API StoreReport DescribeSettingsStore(bool machine);

#endif  // QEL_SETTINGS_STORE_H
