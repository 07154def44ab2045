// The running program's file.
#ifndef QEL_PROGRAM_FILE_H
#define QEL_PROGRAM_FILE_H

#include <string>

// Its name without its path, "host.exe"; and without what stands from the last point on, "host".
std::wstring ProgramFileName();
std::wstring ProgramName();

#endif  // QEL_PROGRAM_FILE_H
