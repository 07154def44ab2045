// What the functions of the registry answer; 0 is success.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_STATUS_H
#define QEL_PLATFORM_LINUX_REGISTRY_STATUS_H

#include "store_status.h"

constexpr LONG kNotFound = 2;
constexpr LONG kInvalidHandle = 6;
constexpr LONG kOutOfMemory = 14;
constexpr LONG kInvalidParameter = 87;
constexpr LONG kNotImplemented = 120;
constexpr LONG kBadPath = 161;
constexpr LONG kMoreData = 234;
constexpr LONG kTimeout = 258;
constexpr LONG kNoMoreItems = 259;
constexpr LONG kNoAccessToMemory = 998;
constexpr LONG kKeyDeleted = 1018;

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STATUS_H
