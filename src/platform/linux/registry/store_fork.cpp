#include "store_fork.h"

#include <pthread.h>

#include <new>

#include "store.h"

namespace {

// A child that opened a connection beside the one it inherited would hold no locks: they belong to the parent, and
// to close the inherited one would drop those of the new.
void BeforeFork() {
  StoreLock().lock();
  Store::Forget();
}

void AfterForkInParent() {
  StoreLock().unlock();
}

// The lock's owner is a thread of the parent, so that nobody here could release it.
void AfterForkInChild() {
  new (&StoreLock()) std::recursive_mutex;
}

}  // namespace

void CloseStoresAtForks() {
  static const int s_Registered = pthread_atfork(BeforeFork, AfterForkInParent, AfterForkInChild);
  static_cast<void>(s_Registered);
}
