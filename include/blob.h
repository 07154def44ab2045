// A large object of a database: a memory stream whose bytes can be reached where they lie.
#ifndef QEL_BLOB_H
#define QEL_BLOB_H

#include "memory_stream.h"

class QEL_API TBlob : public TMemoryStream {
 public:
  TBlob() noexcept = default;
  TBlob(const TBlob&) = default;
  TBlob& operator=(const TBlob&) = default;
  ~TBlob() override;

  // GetCapacity() bytes, of which GetSize() are content; valid until the next change. Null without capacity.
  void* GetData() const { return Memory(); }
};

#endif  // QEL_BLOB_H
