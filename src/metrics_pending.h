// The metrics files of earlier runs, for the crash reporter to send.
#ifndef QEL_METRICS_PENDING_H
#define QEL_METRICS_PENDING_H

#include <string>

// Moves the files of the program in `folder` to its sub-folder "Pending", which keeps the newest 100 of all programs.
// What cannot be moved stays, among others the files that running processes write.
void MoveToPending(const std::wstring& folder, const std::wstring& program);

#endif  // QEL_METRICS_PENDING_H
