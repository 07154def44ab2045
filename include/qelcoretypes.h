// Everything at once: what a host includes when it does not care for the single families.
#ifndef QEL_QELCORETYPES_H
#define QEL_QELCORETYPES_H

#include "cobject.h"
#include "digits.h"
#include "exceptions.h"
#include "format.h"
#include "platform_types.h"
#include "qel_cstring.h"
#include "qel_export.h"

#endif  // QEL_QELCORETYPES_H
