// The process's registry of window classes. The library's start-up registers its
// window class "CFontPreview" here (with DefaultWindowProcedure, as nothing handles
// its windows' messages) and refuses to attach when it cannot; its shut-down removes
// it. Classes are found by name, without regard to case, and belong to the module
// that registered them.
//
// Registered on the user-interface thread (or by the library's constructor, before
// any thread of the application runs); lookups are guarded all the same.
#pragma once

#include <optional>
#include <string>

#include "vglobal/compat/gdi.h"
#include "vglobal/compat/types.h"

namespace vglobal {

using WindowProcedure = LRESULT (*)(HWND, UINT, WPARAM, LPARAM);

// Class styles and cursors with their Windows values (stock brushes: gdi.h).
constexpr UINT CS_VREDRAW = 0x0001;
constexpr UINT CS_HREDRAW = 0x0002;
constexpr UINT CS_GLOBALCLASS = 0x4000;
constexpr UINT IDC_ARROW = 32512;

struct WindowClass {
  std::wstring name;
  UINT style = 0;
  WindowProcedure procedure = nullptr;
  int classExtraBytes = 0;
  int windowExtraBytes = 0;
  const void* module = nullptr;  // the registering module
  UINT cursor = 0;               // a system cursor id; 0 for none
  int background = -1;           // a stock brush; -1 for none
  UINT icon = 0;                 // 0: no icon
  const wchar_t* menuName = nullptr;
};

// False when the name is empty or a class of that name (compared without regard to
// case) is registered already.
bool RegisterWindowClass(const WindowClass& windowClass);
// False when no class of that name was registered by that module.
bool UnregisterWindowClass(const std::wstring& name, const void* module);
std::optional<WindowClass> FindWindowClass(const std::wstring& name);

// A window procedure that handles nothing and answers 0.
LRESULT DefaultWindowProcedure(HWND, UINT, WPARAM, LPARAM);

}  // namespace vglobal
