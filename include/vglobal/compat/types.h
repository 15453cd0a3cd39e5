// The Windows scalar vocabulary that the legacy API is written in: integer types,
// handle types, the predefined settings roots, and the constants that callers pass
// and compare (message-box styles and answers, dialog end codes, help commands).
#pragma once

#include <cstddef>
#include <cstdint>

using BOOL = int;
using BYTE = unsigned char;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using DWORD_PTR = std::uintptr_t;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using COLORREF = DWORD;
using WCHAR = wchar_t;
using LPCWSTR = const wchar_t*;
using LPWSTR = wchar_t*;
using LPCTSTR = const wchar_t*;
using LPTSTR = wchar_t*;

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif

// Opaque handles. Core code never looks inside them; the platform layer gives
// them meaning.
struct HKEY__;
using HKEY = HKEY__*;
struct HWND__;
using HWND = HWND__*;
struct HINSTANCE__;
using HINSTANCE = HINSTANCE__*;
using HMODULE = HINSTANCE;

// Predefined roots of the settings store, with their Windows values.
#define HKEY_CLASSES_ROOT (reinterpret_cast<HKEY>(static_cast<std::uintptr_t>(0x80000000u)))
#define HKEY_CURRENT_USER (reinterpret_cast<HKEY>(static_cast<std::uintptr_t>(0x80000001u)))
#define HKEY_LOCAL_MACHINE (reinterpret_cast<HKEY>(static_cast<std::uintptr_t>(0x80000002u)))
#define HKEY_USERS (reinterpret_cast<HKEY>(static_cast<std::uintptr_t>(0x80000003u)))

// Access masks that callers pass to CVRegKey::Open.
constexpr DWORD KEY_QUERY_VALUE = 0x0001;
constexpr DWORD KEY_SET_VALUE = 0x0002;
constexpr DWORD KEY_CREATE_SUB_KEY = 0x0004;
constexpr DWORD KEY_ENUMERATE_SUB_KEYS = 0x0008;
constexpr DWORD KEY_NOTIFY = 0x0010;
constexpr DWORD KEY_READ = 0x20019;
constexpr DWORD KEY_WRITE = 0x20006;
constexpr DWORD KEY_ALL_ACCESS = 0xF003F;

// Dialog and message-box answers.
constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;
constexpr int IDABORT = 3;
constexpr int IDRETRY = 4;
constexpr int IDIGNORE = 5;
constexpr int IDYES = 6;
constexpr int IDNO = 7;
constexpr int IDHELP = 9;

// Message-box styles.
constexpr UINT MB_OK = 0x0000;
constexpr UINT MB_OKCANCEL = 0x0001;
constexpr UINT MB_ABORTRETRYIGNORE = 0x0002;
constexpr UINT MB_YESNOCANCEL = 0x0003;
constexpr UINT MB_YESNO = 0x0004;
constexpr UINT MB_RETRYCANCEL = 0x0005;
constexpr UINT MB_TYPEMASK = 0x000F;
constexpr UINT MB_ICONHAND = 0x0010;
constexpr UINT MB_ICONERROR = MB_ICONHAND;
constexpr UINT MB_ICONSTOP = MB_ICONHAND;
constexpr UINT MB_ICONQUESTION = 0x0020;
constexpr UINT MB_ICONEXCLAMATION = 0x0030;
constexpr UINT MB_ICONWARNING = MB_ICONEXCLAMATION;
constexpr UINT MB_ICONASTERISK = 0x0040;
constexpr UINT MB_ICONINFORMATION = MB_ICONASTERISK;
constexpr UINT MB_ICONMASK = 0x00F0;
constexpr UINT MB_APPLMODAL = 0x0000;
constexpr UINT MB_TASKMODAL = 0x2000;

// Classic help commands.
constexpr UINT HELP_CONTEXT = 0x0001;
constexpr UINT HELP_QUIT = 0x0002;
constexpr UINT HELP_INDEX = 0x0003;
constexpr UINT HELP_HELPONHELP = 0x0004;
constexpr UINT HELP_FINDER = 0x000B;
// HTML help commands.
constexpr UINT HH_DISPLAY_TOPIC = 0x0000;
constexpr UINT HH_HELP_CONTEXT = 0x000F;

constexpr int MAX_PATH = 260;
