#include "app_services.h"

#include "platform/platform.h"

SYSTEMTIME TQelTimeProvider::GetTickCount() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  return now;
}

bool IAppEvents::BeforeDatabaseOpen() {
  return true;
}
bool IAppEvents::AfterDatabaseOpen() {
  return true;
}
bool IAppEvents::BeforeDatabaseClose() {
  return true;
}
bool IAppEvents::AfterDatabaseClose() {
  return true;
}
