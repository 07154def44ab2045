// What the program knows of its two modules: how to make their services. The modules know nothing of each other.
#ifndef HOST_MODULES_H
#define HOST_MODULES_H

#include <qelcoretypes.h>

#include <memory>
#include <string>

#include "host_entries_export.h"  // made by CMake
#include "host_pane_export.h"

// entries_module.cpp: opens the entry with a number, and tells the user through the application's IAppUX.
HOST_ENTRIES_EXPORT std::shared_ptr<IEntryServices> MakeEntries();

// pane_module.cpp: shows what it is told as a pane of information, in RTF and HTML files in `folder` (UTF-8).
HOST_PANE_EXPORT std::shared_ptr<IAppUX> MakePane(const std::string& folder);

#endif  // HOST_MODULES_H
