#include "platform/platform.h"

StoreReport ReportOnStore(bool machine) {
  StoreReport report;
  report.path = machine ? L"HKEY_LOCAL_MACHINE" : L"HKEY_CURRENT_USER";
  report.access = StoreReport::Access::Shared;
  report.integrity = L"ok";
  HKEY key = nullptr;
  report.whyNotWritten =
      RegOpenKeyExW(machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER, L"", 0, KEY_WRITE, &key);
  if (key) RegCloseKey(key);
  return report;
}
