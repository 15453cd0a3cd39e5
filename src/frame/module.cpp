// The library's entry: what happens when the library is loaded into a process and
// when it is unloaded, and VG_Init for client modules.
//
// The attach handler runs as the shared object's constructor with the highest
// priority of the library's own initialisers, so the library's resources are in the
// chain before any of its static objects is built. Resource-chain entries are owned
// by the chain for the life of the process and are never freed here.
#include "frame/module.h"

#include <cstdio>
#include <new>

#include "frame/help.h"
#include "frame/window_class.h"
#include "vglobal/compat/dialog.h"
#include "vglobal/frame.h"

namespace vglobal::frame {
namespace {

constexpr const wchar_t* kFontPreviewClass = L"CFontPreview";
const char kModuleIdentity = 0;

// Every dialog's Help button and F1 key open the dialog's topic in the suite's help.
void ShowDialogHelp(CDialog& dialog, UINT helpId) {
  ShowHtmlHelp(dialog.GetSafeHwnd(), HELP_CONTEXT, helpId, nullptr);
}

}  // namespace

AFX_EXTENSION_MODULE& LibraryModule() {
  static AFX_EXTENSION_MODULE module;
  return module;
}

const void* ModuleInstance() {
  return &kModuleIdentity;
}

BOOL ProcessAttach() {
  WindowClass fontPreview;
  fontPreview.name = kFontPreviewClass;
  fontPreview.style = CS_GLOBALCLASS | CS_HREDRAW | CS_VREDRAW;
  fontPreview.procedure = DefaultWindowProcedure;
  fontPreview.module = ModuleInstance();
  fontPreview.cursor = IDC_ARROW;
  fontPreview.background = WHITE_BRUSH;
  if (!RegisterWindowClass(fontPreview)) return FALSE;
  if (!AfxInitExtensionModule(LibraryModule(), LibraryResources())) return FALSE;
  // The chain owns the entry; when it cannot be had the library still works from
  // the application's chain, so attach succeeds.
  new (std::nothrow) CDynLinkLibrary(LibraryModule());
  SetDialogHelpHandler(&ShowDialogHelp);
  return TRUE;
}

BOOL ProcessDetach() {
  SetDialogHelpHandler(nullptr);
  UnregisterWindowClass(kFontPreviewClass, ModuleInstance());
  AfxTermExtensionModule(LibraryModule());
  return TRUE;
}

namespace {

__attribute__((constructor(101))) void OnLoad() {
  if (!ProcessAttach())
    std::fputs(
        "vglobal: the library could not attach to this process (window class "
        "\"CFontPreview\" or its module record could not be set up)\n",
        stderr);
}

__attribute__((destructor(101))) void OnUnload() {
  ProcessDetach();
}

}  // namespace
}  // namespace vglobal::frame

int VG_Init() {
  new (std::nothrow) CDynLinkLibrary(vglobal::frame::LibraryModule());
  return 1;
}
