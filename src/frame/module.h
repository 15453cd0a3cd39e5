// Attaching the library to a process and detaching it. The shared library's
// constructor and destructor run these; they are callable on their own so that the
// sequence can be tested.
#pragma once

#include "vglobal/compat/resources.h"

namespace vglobal::frame {

// The library's extension-module record, filled at attach, released at detach.
AFX_EXTENSION_MODULE& LibraryModule();
// This module's identity in the window-class registry.
const void* ModuleInstance();

// Registers the "CFontPreview" window class, initialises the module record and adds
// one resource-chain entry. FALSE when the class or the record cannot be set up; a
// failed allocation of the chain entry does not make attach fail.
BOOL ProcessAttach();
// Unregisters "CFontPreview" for this module and releases the module record.
BOOL ProcessDetach();

}  // namespace vglobal::frame
