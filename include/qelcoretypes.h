// Everything at once: what a host includes when it does not care for the single families.
#ifndef QEL_QELCORETYPES_H
#define QEL_QELCORETYPES_H

#include "app_services.h"
#include "calendar.h"
#include "cobject.h"
#include "date.h"
#include "digits.h"
#include "encoding.h"
#include "exceptions.h"
#include "format.h"
#include "html.h"
#include "iappcontext.h"
#include "list.h"
#include "list_base.h"
#include "msg_text.h"
#include "observer.h"
#include "platform_types.h"
#include "program_options.h"
#include "px_format.h"
#include "qel_cstring.h"
#include "qel_export.h"
#include "string_resources.h"
#include "strnewdup.h"
#include "sys_errors.h"
#include "sys_version.h"
#include "theme.h"
#include "tstring.h"
#include "utf8.h"
#include "xlist.h"

#endif  // QEL_QELCORETYPES_H
