// The tables of a store; docs/formats.md explains them to administrators. A store of a newer kUserVersion is read and
// never written.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_STORE_SCHEMA_H
#define QEL_PLATFORM_LINUX_REGISTRY_STORE_SCHEMA_H

#include <cstdint>

constexpr int kApplicationId = 0x51454C52;  // "QELR"
constexpr int kUserVersion = 1;

// Rows of `key` that have no parent, made with the store.
enum RootKey : std::int64_t {
  kCurrentUserRoot = 1,
  kLocalMachineRoot = 1,
  kClassesRoot = 2,
  kCurrentConfigRoot = 3
};

// `name` as first written, in UTF-8 (a lone surrogate as its three bytes). `folded` is the upper-case form that names
// are found by, two bytes a unit, high byte first, so that its order as bytes is that of the units.
// Ids of keys are never given twice, not even by a store that replaces a damaged one: a handle knows its key by it.
// Values of a key are in the order of their creation by `id`. `data` is bytes as given, text as UTF-16LE.
// `event` holds what happened to the store itself, for whoever looks after it.
constexpr const char* kSchema = R"(
CREATE TABLE key(id INTEGER PRIMARY KEY AUTOINCREMENT, parent INTEGER NOT NULL, name TEXT NOT NULL,
                 folded BLOB NOT NULL, UNIQUE(parent, folded));
CREATE TABLE value(id INTEGER PRIMARY KEY, key INTEGER NOT NULL, name TEXT NOT NULL, folded BLOB NOT NULL,
                   type INTEGER NOT NULL, data BLOB NOT NULL, UNIQUE(key, folded));
CREATE TABLE event(id INTEGER PRIMARY KEY, time TEXT NOT NULL, text TEXT NOT NULL);
)";

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STORE_SCHEMA_H
