// The codes that tell what became of the store.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_STORE_STATUS_H
#define QEL_PLATFORM_LINUX_REGISTRY_STORE_STATUS_H

#include "platform/platform.h"

constexpr LONG kAccessDenied = 5;
constexpr LONG kDiskFull = 112;
constexpr LONG kStoreBusy = 170;
constexpr LONG kStoreFailed = 1016;

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STORE_STATUS_H
