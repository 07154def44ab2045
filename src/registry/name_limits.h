// How long names of the registry can be, in units.
#ifndef QEL_REGISTRY_NAME_LIMITS_H
#define QEL_REGISTRY_NAME_LIMITS_H

constexpr unsigned int kLongestKeyName = 255;
constexpr unsigned int kLongestValueName = 16383;

// Room to ask into, terminator included. For keys the system's own function wants more than its documents say.
constexpr unsigned int kKeyNameRoom = 261;
constexpr unsigned int kValueNameRoom = kLongestValueName + 1;

#endif  // QEL_REGISTRY_NAME_LIMITS_H
