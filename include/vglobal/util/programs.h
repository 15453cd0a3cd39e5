// Starting the suite's programs, handing arguments to a running one, opening manuals,
// and where the maker's other installed applications live.
//
// Contract of InvokeApp (both forms):
// - The command line is split by the rules the suite's programs have always read
//   theirs with (spaces separate, double quotes group, backslashes escape only quotes
//   and each other). A bare program name is looked up on PATH; a program part with
//   spaces and no quotes is resolved by trying each prefix that ends at a space,
//   shortest first. The program is started directly, never through a shell, in a
//   session of its own, in the caller's working folder, with no descriptors beyond
//   0 to 2.
// - minimized != 0 asks the program to start minimised: it finds ARVENIS_START_MINIMIZED=1
//   in its environment (StartedMinimized below). Programs started with minimized == 0
//   never see that variable, even when the caller itself was started minimised.
// - process: when given, it is cleared first and receives a handle of the started
//   program on success (null when nothing was started, as when the arguments went to
//   a running instance). The handle belongs to the caller, who ends it with
//   CloseProcess; ProcessId and WaitForProcess ask about it. When no place is given
//   the handle is closed at once. Closing never stops the program, and an ended
//   program is always collected: no zombie is left, whether or not anyone waits.
// - A program that cannot be started (missing, not executable, not a valid program)
//   is known when InvokeApp returns.
// - InvokeApp by id first looks for a running instance of the program (see
//   vglobal/util/instance_channel.h). When one answers, the arguments go to it
//   unquoted, as they were given, and nothing is started; with no arguments the
//   instance is only asked to come to the front.
// - Program 10005 is found through the machine-wide store: its string holds a section,
//   a key and a file name; the folder is the value <key> of the key
//   "Software\Ostrel\System Profile\<section>" (at most 259 characters are used),
//   "/opt/nistms/" when there is none, and the program is that folder followed by the
//   file name.
// - User-interface thread (InvokeApp by id may show a message box).
#pragma once

#include "vglobal/compat/cstring.h"
#include "vglobal/export.h"
#include "vglobal/processes.h"

// Starts the suite's program `programId` (a string id naming it) or hands the
// arguments to its running instance. 1 on success. On failure to start, the text of
// string 5201 with the command line is shown in a message box and the result is 0; a
// missing or empty program string gives 0 without a message.
VGLOBAL_EXPORT int InvokeApp(unsigned int programId, int minimized, void** process,
                             const wchar_t* arguments);

// Starts the command line `commandLine`, followed by a space and `arguments` as they
// are. No running instance is looked for. Returns the empty string on success, and
// the text of string 5201 with the command line on failure (never empty then).
VGLOBAL_EXPORT CString InvokeApp(CString commandLine, int minimized, void** process,
                                 const wchar_t* arguments);

// Opens the manual folder + string nameId + ".pdf" (the folder ends with its
// separator) with the desktop's opener. When the file cannot be examined, the text
// "Not able to open " and the file name goes to the main window's status bar, when
// there is one (vglobal::Platform::SetStatusBarText); never a message box.
VGLOBAL_EXPORT void OpenPDFManual(CString folder, unsigned int nameId);

// The string value `item` of the key "Software\Ostrel\Installed Version Info\<application>"
// in the machine-wide store. 1 with the value in `value`; 0 with `value` empty when
// application or item is empty, the key or value is missing or not a string, or the
// value is longer than 1023 characters (2048 bytes with its terminator, as UTF-16).
VGLOBAL_EXPORT int GetApplicationInfoFromInstalledVerionsInfo(CString application, CString item,
                                                              CString& value);
// The same with the application and item names loaded from the string table.
VGLOBAL_EXPORT int GetApplicationInfoFromInstalledVerionsInfo(unsigned int applicationId,
                                                              unsigned int itemId, CString& value);

namespace vglobal {

// For a program of the suite: whether it was asked to start minimised.
VGLOBAL_EXPORT bool StartedMinimized();

// kStartMinimizedVariable and ProcessWait: vglobal/processes.h.

// The process id of a handle from InvokeApp; 0 for anything that is not a live handle.
VGLOBAL_EXPORT int ProcessId(void* process);

// Waits until the program ends (block) or only looks (!block). On Exited, *exitCode
// (when given) holds its exit status, or 128 + the signal number when a signal ended
// it; asking again gives the same answer. Any thread, one at a time per handle.
VGLOBAL_EXPORT ProcessWait WaitForProcess(void* process, bool block, int* exitCode);

// Ends the handle (not the program). Null, or anything that is not a live handle, is
// ignored.
VGLOBAL_EXPORT void CloseProcess(void* process);

}  // namespace vglobal
