// Who may rewrite a message before it is shown.
#ifndef QEL_MSG_TEXT_H
#define QEL_MSG_TEXT_H

#include "qel_cstring.h"

class IMsgTextHandler {
 public:
  virtual ~IMsgTextHandler() = default;

  // Rewrites `text` in place. Returns whether it did.
  virtual bool HandleText(CString& text) = 0;
};

#endif  // QEL_MSG_TEXT_H
