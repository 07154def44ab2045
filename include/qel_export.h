// QEL_API marks what the library exports; everything else stays hidden.
#ifndef QEL_QEL_EXPORT_H
#define QEL_QEL_EXPORT_H

#if defined(QEL_STATIC)
#define QEL_API
#elif defined(_WIN32) && defined(QEL_BUILDING)
#define QEL_API __declspec(dllexport)
#elif defined(_WIN32)
#define QEL_API __declspec(dllimport)
#else
#define QEL_API __attribute__((visibility("default")))
#endif

#define QEL_NOINLINE __attribute__((noinline))

#endif  // QEL_QEL_EXPORT_H
