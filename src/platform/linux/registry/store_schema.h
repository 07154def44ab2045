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
// `sub_keys` and `value_count` are kept by the triggers: whoever opens a key asks for both, however many they are.
// Values of a key are in the order of their creation by `id`. `data` is bytes as given, text as UTF-16LE.
// `event` holds what happened to the store itself, for whoever looks after it.
constexpr const char* kSchema = R"(
CREATE TABLE key(id INTEGER PRIMARY KEY AUTOINCREMENT, parent INTEGER NOT NULL, name TEXT NOT NULL,
                 folded BLOB NOT NULL, sub_keys INTEGER NOT NULL DEFAULT 0, value_count INTEGER NOT NULL DEFAULT 0,
                 UNIQUE(parent, folded));
CREATE TABLE value(id INTEGER PRIMARY KEY, key INTEGER NOT NULL, name TEXT NOT NULL, folded BLOB NOT NULL,
                   type INTEGER NOT NULL, data BLOB NOT NULL, UNIQUE(key, folded));
CREATE TABLE event(id INTEGER PRIMARY KEY, time TEXT NOT NULL, text TEXT NOT NULL);
CREATE TRIGGER key_added AFTER INSERT ON key
  BEGIN UPDATE key SET sub_keys = sub_keys + 1 WHERE id = NEW.parent; END;
CREATE TRIGGER key_removed AFTER DELETE ON key
  BEGIN UPDATE key SET sub_keys = sub_keys - 1 WHERE id = OLD.parent; END;
CREATE TRIGGER value_added AFTER INSERT ON value
  BEGIN UPDATE key SET value_count = value_count + 1 WHERE id = NEW.key; END;
CREATE TRIGGER value_removed AFTER DELETE ON value
  BEGIN UPDATE key SET value_count = value_count - 1 WHERE id = OLD.key; END;
)";
// Counts again what the triggers keep, after rows came in another way.
constexpr const char* kRecount = R"(
UPDATE key SET sub_keys = (SELECT count(*) FROM key AS child WHERE child.parent = key.id),
               value_count = (SELECT count(*) FROM value WHERE value.key = key.id);
)";

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STORE_SCHEMA_H
