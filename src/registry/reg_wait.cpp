#include "platform/platform.h"
#include "regtools.h"

long WaitForRegistryChange(const TRegKey& key, unsigned int milliseconds) {
  return WaitForKeyChange(key, milliseconds);
}
