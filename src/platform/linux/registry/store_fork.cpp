#include "store_fork.h"

#include <pthread.h>

#include "store.h"

namespace {

// A child that opened a connection beside the one it inherited would hold no locks: they belong to the parent, and
// to close the inherited one would drop those of the new.
void BeforeFork() {
  StoreLock().lock();
  Store::Forget();
}

void AfterFork() {
  StoreLock().unlock();
}

}  // namespace

void CloseStoresAtForks() {
  static const int s_Registered = pthread_atfork(BeforeFork, AfterFork, AfterFork);
  static_cast<void>(s_Registered);
}
