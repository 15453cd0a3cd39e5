// Window message numbers and the word-packing helpers that go with wParam and
// lParam. Values are the Windows ones, so that numbers an application chose
// (WM_USER + n, WM_APP + n) and numbers it stored keep their meaning.
#pragma once

#include "vglobal/compat/types.h"

constexpr UINT WM_NULL = 0x0000;
constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT WM_COMMAND = 0x0111;
constexpr UINT WM_TIMER = 0x0113;
// wParam: the pop-up's HMENU; lParam: its position in the parent menu (low word) and
// whether it is the window menu (high word).
constexpr UINT WM_INITMENUPOPUP = 0x0117;
// The first numbers an application may use for its own messages: WM_USER and up
// within a window class, WM_APP and up across the application.
constexpr UINT WM_USER = 0x0400;
constexpr UINT WM_APP = 0x8000;

constexpr WORD LOWORD(DWORD_PTR value) {
  return static_cast<WORD>(value & 0xFFFF);
}
constexpr WORD HIWORD(DWORD_PTR value) {
  return static_cast<WORD>((value >> 16) & 0xFFFF);
}
constexpr DWORD MAKELONG(WORD low, WORD high) {
  return static_cast<DWORD>(low) | (static_cast<DWORD>(high) << 16);
}
constexpr WPARAM MAKEWPARAM(WORD low, WORD high) {
  return MAKELONG(low, high);
}
constexpr LPARAM MAKELPARAM(WORD low, WORD high) {
  return static_cast<LPARAM>(MAKELONG(low, high));
}

// The signature of a timer procedure (CWnd::SetTimer).
using TIMERPROC = void (*)(HWND window, UINT message, UINT_PTR id, DWORD time);
