// One store file: found, made, opened in the best way that its surroundings allow, put aside when damaged, and
// kept durable. What its rows mean is the business of hive.h.
//
// Not locked: whoever uses a store holds StoreLock() from Open() or BeginWrite() until it is done.
#ifndef QEL_PLATFORM_LINUX_REGISTRY_STORE_H
#define QEL_PLATFORM_LINUX_REGISTRY_STORE_H

#include <sqlite3.h>

#include <cstdint>
#include <string>

#include "platform/platform.h"
#include "store_mutex.h"
#include "store_open.h"
#include "store_place.h"
#include "store_sqlite.h"
#include "store_state.h"

class Store {
 public:
  // The process's store of that place; nothing is opened yet.
  static Store& Of(StorePlace place);

  Store(const Store&) = delete;
  Store& operator=(const Store&) = delete;

  // Makes the content readable, reopening what a fork, a failure or a move of the file has closed. 0, or when no way
  // is left, 5 no right to read, 170 locked by others, 1016. A missing file reads as an empty store and stays missing; so the connection may be one to a
  // copy in memory.
  LONG Open();
  // What Open() made ready. Its statements are finalized when it is closed.
  sqlite3* Connection() const noexcept { return m_Opened.connection.get(); }
  // Another number: the connection is another one, and statements and copies made with the last are gone.
  std::uint64_t Generation() const noexcept { return m_Generation; }
  // The state of the content. Asked for before a transaction that reads; costs no read of the file where the WAL
  // index is mapped.
  StoreState State();
  // The short way of Open() and State(), for a read that memory can answer: true when both would find all as it was,
  // on that connection in that state. False tells nothing.
  bool StillReads(std::uint64_t generation, const StoreState& state) const noexcept;

  // Starts a short transaction that writes, making a missing store. 0, 5 no right to write or a store of a newer
  // version, 112 disk full, 170 locked by others for 5 seconds, 1016. May change the generation.
  LONG BeginWrite();
  // 0 when all is kept and durable as this store promises, or the codes above when nothing is.
  LONG Commit();
  void Rollback();
  // Whether what was seen in state `seen` still held when BeginWrite() got its lock, so that the own change is the
  // only one since. For the time between BeginWrite() and Commit().
  bool StillAt(const StoreState& seen) const { return seen == m_Begun; }
  // After Commit(): the state that it left, or one that nothing is ever in when somebody else came right behind it.
  const StoreState& OwnState() const noexcept { return m_Left; }
  // Between BeginWrite() and Commit() or Rollback(). A fork ends it too: the change is undone and Commit() fails.
  bool Writing() const noexcept { return m_Writing; }

  // Returns when all that was written is in the store's file itself and on the disk.
  LONG Flush();

  // The code for what SQLite answered on this connection. Where that is damage, the next Open() sees to it.
  LONG Failed(int sqlite);
  // The same without remembering.
  static LONG StatusOf(int sqlite) noexcept;

  // Lets go of the file; the next use looks for it afresh. An open transaction is undone.
  void Close();
  // The same for both stores. For tests, which move the folders.
  static void Forget();

 private:
  explicit Store(StorePlace place) : m_Place(place) {}

  bool MustReopen();
  void TakeConnection();
  LONG OpenToWrite();
  LONG Begin();
  bool HasMoved() const;
  bool MayWriteOn();
  void ChooseDurability();
  StoreState StateLeft();

  StorePlace m_Place;
  std::string m_File;
  OpenedStore m_Opened;
  WalIndex m_Index;
  Statement m_DataVersion, m_Begin, m_Commit;
  std::uint64_t m_Generation = 0;
  std::uint64_t m_OwnChanges = 0;
  StoreState m_Begun;  // inside a transaction that writes: the state it started from
  StoreState m_Left;   // that of the last own commit
  bool m_Writing = false;
  bool m_Synced = false;          // commits of this connection wait for the disk
  bool m_Damaged = false;         // SQLite said so
  std::int64_t m_NextLook = 0;    // when to see whether the file is still in its place
  std::int64_t m_LastSynced = 0;  // when a commit last waited for the disk
};

// Guards all stores and what is kept in memory of them. Taken again by the same thread within BeginKeyChanges.
StoreMutex& StoreLock();

#endif  // QEL_PLATFORM_LINUX_REGISTRY_STORE_H
