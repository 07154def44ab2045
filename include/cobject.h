// The small polymorphic base under the exception family: objects live on the heap, are thrown as pointers and
// deleted by whoever catches them.
#ifndef QEL_COBJECT_H
#define QEL_COBJECT_H

#include "platform_types.h"
#include "qel_export.h"

class CArchive;
class CDumpContext;

struct CRuntimeClass {
  const char* m_lpszClassName;
};

class QEL_API CObject {
 public:
  // Slot order is ABI.
  // The class's name; "CObject" here. Lives as long as the library.
  virtual CRuntimeClass* GetRuntimeClass() const;
  virtual ~CObject() = default;
  // Do nothing; they hold their slots for classes that store, check or print themselves.
  virtual void Serialize(CArchive&) {}
  virtual void AssertValid() const {}
  virtual void Dump(CDumpContext&) const {}

 protected:
  CObject() = default;
  CObject(const CObject&) = default;
  CObject& operator=(const CObject&) = default;
};

class QEL_API CException : public CObject {
 public:
  // `autoDelete` says whether Delete() frees the object; false is for one that does not live on the heap.
  explicit CException(bool autoDelete = true) noexcept : m_AutoDelete(autoDelete) {}

  // Frees the object. The handler's last act; nothing of the object may be used afterwards.
  void Delete();

  // "CException" for the whole family.
  CRuntimeClass* GetRuntimeClass() const override;
  // Both leave an empty text in `buffer` (when it has room), 0 in `*help`, and return 0: the family's text
  // comes from GetError().
  virtual BOOL GetErrorMessage(wchar_t* buffer, unsigned size, unsigned* help) const;
  virtual BOOL GetErrorMessage(wchar_t* buffer, unsigned size, unsigned* help = nullptr);
  // Shows nothing and returns 0.
  virtual int ReportError(unsigned type = 0, unsigned id = 0);

 private:
  bool m_AutoDelete;
};

#endif  // QEL_COBJECT_H
