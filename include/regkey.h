// Keys and values of the registry: thin objects over its functions.
//
//   TRegKey key(HKEY_CURRENT_USER, L"Software\\Acme", KEY_ALL_ACCESS, TRegKey::CreateOK);
//   key.SetValue(L"Width", 1024);
//   for (TRegValueIterator it(key); it; ++it) Show(TRegValue(it).GetName());
//
// Operations return the registry's own status: 0, or a code such as 2 (no such key or value), 5 (no right to it, or
// sub-keys below), 6 (no handle), 234 (room too small), 259 (no more items). Only the iterators' index operators
// raise. Sizes of data are bytes, two a unit of text on every platform. Names compare without case; null and the
// empty name stand for the key itself and for its default value. An object is used by one thread at a time.
#ifndef QEL_REGKEY_H
#define QEL_REGKEY_H

#include <memory>

#include "platform_types.h"
#include "qel_export.h"

class TRegKeyIterator;
class TRegValueIterator;

// An open key, its name, and the counts of what it held when it was opened.
class QEL_API TRegKey {
 public:
  enum TCreateOK : int { CreateOK = 0, OpenOnly = 1 };

  // Opens `keyName` below `baseKey` for `access` (a sum of KEY_...), with CreateOK making what is missing of its path.
  // On failure the handle is null and both counts are 0. The counts are also 0 when `access` does not allow them.
  TRegKey(HKEY baseKey, const wchar_t* keyName, unsigned long access, TCreateOK createOK);
  // Wraps a handle that is open already; the destructor closes it when `shouldClose`. One that cannot be asked for
  // its counts becomes null and stays open.
  TRegKey(HKEY aliasKey, bool shouldClose, const wchar_t* keyName);
  // The sub-key at the iterator's index. A null handle when there is none.
  TRegKey(const TRegKeyIterator& iter, unsigned long access);
  ~TRegKey();
  TRegKey(const TRegKey&) = delete;
  TRegKey& operator=(const TRegKey&) = delete;

  // The predefined keys, made at the first use by any thread; valid until the process destroys its statics. Those of performance and
  // dynamic data have no handle where the system keeps none, and that of class identifiers none without the right to
  // change it.
  static TRegKey& GetClassesRoot();
  static TRegKey& GetCurrentUser();
  static TRegKey& GetLocalMachine();
  static TRegKey& GetUsers();
  static TRegKey& GetPerformanceData();
  static TRegKey& GetCurrentConfig();
  static TRegKey& GetDynData();
  static TRegKey& GetClassesRootClsid();
  static TRegKey& ClassesRoot() { return GetClassesRoot(); }
  static TRegKey& CurrentUser() { return GetCurrentUser(); }
  static TRegKey& LocalMachine() { return GetLocalMachine(); }
  static TRegKey& Users() { return GetUsers(); }
  static TRegKey& PerformanceData() { return GetPerformanceData(); }
  static TRegKey& CurrentConfig() { return GetCurrentConfig(); }
  static TRegKey& DynData() { return GetDynData(); }
  static TRegKey& ClassesRootClsid() { return GetClassesRootClsid(); }

  operator HKEY() const noexcept { return m_Key; }
  const wchar_t* GetName() const noexcept { return m_Name ? m_Name : L""; }
  // As of the opening; what comes and goes later does not count.
  unsigned int GetSubkeyCount() const noexcept { return m_SubkeyCount; }
  unsigned int GetValueCount() const noexcept { return m_ValueCount; }

  // Sub-keys. DeleteKey refuses (5) a key with sub-keys; NukeKey deletes it with all below, stops at the first that
  // it cannot delete, and refuses (87) a null or empty name, which would be this key itself.
  long DeleteKey(const wchar_t* subKeyName);
  long NukeKey(const wchar_t* subKeyName);
  // The name of the sub-key at `index`, terminator included in `nameSize` units.
  long EnumKey(int index, wchar_t* name, int nameSize) const;

  // Values. `type`, `data` and `dataSize` may be null. `dataSize` is the room in bytes and becomes the size; with a
  // null `data` only the size is asked for. `nameSize` is the room in units and becomes the length. The data of text
  // types is UTF-16LE.
  long EnumValue(int index, wchar_t* name, unsigned int& nameSize, unsigned int* type, unsigned char* data,
                 unsigned int* dataSize) const;
  long QueryValue(const wchar_t* name, unsigned int* type, unsigned char* data, unsigned int* dataSize) const;
  // REG_DWORD.
  long SetValue(const wchar_t* name, unsigned int value) const;
  // For text types two bytes behind `dataSize` must be readable: a terminator that stands there is stored too.
  long SetValue(const wchar_t* name, unsigned int type, const unsigned char* data,
                unsigned int dataSize) const;
  long DeleteValue(const wchar_t* valueName) const;
  // The default value of `subKey` as text. `size` is the room in bytes, two a unit, and becomes the size with
  // terminator; `dataSize` does not count, `data` is written up to its terminator.
  long QueryDefValue(const wchar_t* subKey, wchar_t* value, unsigned int* size) const;
  long SetDefValue(const wchar_t* subKey, unsigned int type, const wchar_t* data, unsigned int dataSize);

  // What is in the key now; any output may be null. Sizes of names are units without terminator.
  long QueryInfo(wchar_t* className, unsigned int* classNameSize, unsigned int* subkeyCount,
                 unsigned int* maxSubkeySize, unsigned int* maxClassSize, unsigned int* valueCount,
                 unsigned int* maxValueNameSize, unsigned int* maxValueDataSize,
                 unsigned int* securityDescriptorSize) const;
  // Returns when all that was written is on the disk.
  long Flush() const;

  // Security descriptors and trees in files of the system's own form; 120 on Linux, which has neither.
  long GetSecurity(unsigned long info, void* descriptor, unsigned long* size) const;
  long SetSecurity(unsigned long info, void* descriptor);
  long LoadKey(const wchar_t* subKeyName, const wchar_t* fileName);
  long UnLoadKey(const wchar_t* subKeyName);
  long ReplaceKey(const wchar_t* subKeyName, const wchar_t* newFileName, const wchar_t* oldFileName);
  long Restore(const wchar_t* fileName, unsigned long options = 0);
  long Save(const wchar_t* fileName);

 private:
  void Open(HKEY baseKey, unsigned long access, bool create);
  void Close() noexcept;
  bool DescendToFirst(std::unique_ptr<TRegKey>& child) const;

  HKEY m_Key = nullptr;
  wchar_t* m_Name;  // owned, from strnewdup; null: empty
  unsigned int m_SubkeyCount = 0;
  unsigned int m_ValueCount = 0;
  bool m_ShouldClose;
};

// One value of a key. Type and size are those of the construction or of the last write through this object; data
// is fetched when it is first asked for. The key must outlive it.
class QEL_API TRegValue {
 public:
  // `name` is not copied and must outlive the object. A value that is missing has type and size 0.
  TRegValue(const TRegKey& key, const wchar_t* name);
  // The value at the iterator's index, with a name of its own. A name of more than 259 units reads as empty, with
  // type and size 0.
  explicit TRegValue(const TRegValueIterator& iter);
  TRegValue(const TRegValue&) = delete;
  TRegValue& operator=(const TRegValue&) = delete;

  const wchar_t* GetName() const noexcept { return m_Name; }
  unsigned int GetDataType() const noexcept { return m_DataType; }
  unsigned int GetDataSize() const noexcept { return m_DataSize; }

  // Fetches the data unless it is there. What cannot be read, or is shorter by now, is zeros.
  long RetrieveOnDemand() const;
  // GetDataSize() bytes, the same as text (always terminated; an odd last byte is a unit), and the first four as a
  // number, zeros where there are fewer. Valid until the next write through this object.
  const unsigned char* GetData() const;
  operator const wchar_t*() const;
  operator unsigned int() const;

  // Write the value; a failure changes nothing. The type becomes what was written.
  long Set(unsigned int value);                                          // REG_DWORD
  long Set(int value) { return Set(static_cast<unsigned int>(value)); }  // so that a literal 0 is a number
  // As TRegKey::SetValue.
  long Set(unsigned int type, const unsigned char* data, unsigned int size);
  // Kept: the units of `text` are counted and so many bytes are written, as REG_SZ: "abcd" stores "ab". Stored
  // values have this size, and programs compare it.
  long Set(const wchar_t* text);
  // Keep the type. A number is written with the current size, cut or filled up with zeros; a text with one byte
  // more than it has units.
  long operator=(unsigned int value);
  long operator=(int value) { return *this = static_cast<unsigned int>(value); }
  long operator=(const wchar_t* text);

  long Delete();

 private:
  long SetText(unsigned int type, const wchar_t* text, unsigned int bytesBeyondCount);

  const TRegKey& m_Key;
  const wchar_t* m_Name;
  std::unique_ptr<wchar_t[]> m_OwnedName;
  unsigned int m_DataType = 0;
  mutable std::unique_ptr<unsigned char[]> m_Data;  // null until it is needed; zeros behind the data
  unsigned int m_DataSize = 0;
  mutable std::unique_ptr<wchar_t[]> m_Text;  // the data as units, null until it is needed
};

// What both iterators are: an index that starts at 0, with the key that it counts in. The key must outlive it.
class QEL_API TRegIterator {
 public:
  const TRegKey& GetKey() const noexcept { return m_Key; }
  int GetIndex() const noexcept { return m_Index; }

  // Whether the index is below the count that the key had when it was opened.
  operator bool() const noexcept { return IsInside(m_Index); }
  // The new index; postfix, the old one.
  int operator++() noexcept { return ++m_Index; }
  int operator++(int) noexcept { return m_Index++; }
  int operator--() noexcept { return --m_Index; }
  int operator--(int) noexcept { return m_Index--; }
  void Reset() noexcept { m_Index = 0; }

 protected:
  TRegIterator(const TRegKey& key, unsigned int count) noexcept : m_Key(key), m_Count(count) {}
  bool IsInside(int index) const noexcept { return index >= 0 && index < static_cast<int>(m_Count); }

  const TRegKey& m_Key;
  int m_Index = 0;

 private:
  unsigned int m_Count;
};

// The sub-keys of a key.
class QEL_API TRegKeyIterator : public TRegIterator {
 public:
  explicit TRegKeyIterator(const TRegKey& key) noexcept : TRegIterator(key, key.GetSubkeyCount()) {}
  // Goes to `index` and returns it. Raises TXAssertion, the index unchanged, when there is no such sub-key.
  int operator[](int index);
};

// The values of a key, in no order that may be relied on.
class QEL_API TRegValueIterator : public TRegIterator {
 public:
  explicit TRegValueIterator(const TRegKey& key) noexcept : TRegIterator(key, key.GetValueCount()) {}
  // As above, for values.
  int operator[](int index);
};

#endif  // QEL_REGKEY_H
