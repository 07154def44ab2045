// The registry as text, and a way to hear of its changes.
//
//   ExportRegistry(L"HKEY_CURRENT_USER\\Software\\Acme", L"C:\\acme.reg");
//   TRegImportReport report;
//   if (ImportRegistry(L"C:\\acme.reg", report) == 13) Show(report.line, report.column);
//
// The text is the registry's own, "Windows Registry Editor Version 5.00", in UTF-16LE with a signature, as the
// system's editor reads and writes it. Operations return the registry's status, 0 or the code of what failed. Any
// thread may call them. In paths of files "/" and "\" both separate.
// Keys are named from their root, in full or short: HKEY_CLASSES_ROOT HKCR, HKEY_CURRENT_USER HKCU,
// HKEY_LOCAL_MACHINE HKLM, HKEY_USERS HKU, HKEY_CURRENT_CONFIG HKCC.
#ifndef QEL_REGTOOLS_H
#define QEL_REGTOOLS_H

#include "qel_export.h"
#include "regkey.h"

// Writes the key with all below it to the file, which is replaced only when all is written. What others change at the
// same time may be in it or not. Besides the codes of keys and files: 161 no such root, 13 a key whose name has a line
// break, which the text cannot hold.
QEL_API long ExportRegistry(const wchar_t* key, const wchar_t* path);

enum class TRegImportProblem : int {
  None,
  NotRegistryText,  // not in UTF-16LE with signature, as old files ("REGEDIT4"), or another first line
  BadKey,           // not [root\key] or [-root\key], or a name that no key can have
  ValueWithoutKey,  // before the first key, or behind a key that is deleted
  BadName,          // neither "name"= nor @=
  BadValue,         // none of "text", dword:, hex:, hex(n): and -, or something behind it
  UnclosedText,     // a quotation mark without its partner
  NotApplied,       // in order, but the registry refused it
};

struct TRegImportReport {
  TRegImportProblem problem = TRegImportProblem::None;
  int line = 0;  // of the problem, from 1; 0 when it is of no line
  int column = 0;
  // What was done; all 0 on failure.
  int keys = 0, values = 0, deletedKeys = 0, deletedValues = 0;
};

// Does what the file says: makes keys, sets values, and deletes by [-key] and "name"=-, where what is missing counts
// as deleted. Nothing is done when any line is bad (13, told in `report`). On Linux nothing is done either when the
// registry refuses a line, all being one change for each of the trees of the user and of the machine; on Windows
// the lines before it stay done.
QEL_API long ImportRegistry(const wchar_t* path, TRegImportReport& report);

// Waits until something in the key or below it changes, by whom ever: 0; 258 when nothing did in so many milliseconds
// (0xFFFFFFFF: no limit). What changed since the last call for the same object counts too.
QEL_API long WaitForRegistryChange(const TRegKey& key, unsigned int milliseconds);

#endif  // QEL_REGTOOLS_H
