#include "settings_store.h"

#include "platform/platform.h"

StoreReport DescribeSettingsStore(bool machine) {
  return ReportOnStore(machine);
}
