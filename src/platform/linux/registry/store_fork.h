// A process that forks lets go of its stores first, and both halves open them again.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_STORE_FORK_H
#define QEL_PLATFORM_LINUX_REGISTRY_STORE_FORK_H

// From now on, for the life of the process.
void CloseStoresAtForks();

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STORE_FORK_H
