// Resource strings and dialog templates, found by 16-bit id through a chain of
// resource modules: the application's own module first, then each library module
// in the order they joined the chain.
//
// Contract:
// - A module is registered once with its string table (sorted by id) and its dialog
//   templates; the tables are static data and must outlive the process's use of them.
// - Lookups run on the user-interface thread; registration is guarded so that a
//   library constructor may register while another thread starts up.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "vglobal/compat/types.h"
#include "vglobal/export.h"

namespace vglobal {

struct StringEntry {
  UINT id;
  const wchar_t* text;
};

struct DialogTemplate;  // vglobal/compat/dialog_template.h
struct MenuTemplate;    // vglobal/compat/menu_template.h

// A bitmap resource: the bytes of a PNG file compiled into the module. The bytes
// are static data; nothing is decoded until the platform draws.
struct BitmapResource {
  UINT id;
  const unsigned char* png;
  std::size_t size;
};

// One module's resources: its string table (ascending ids), its dialog templates,
// its bitmaps and its menus.
struct ResourceTables {
  const wchar_t* moduleName = L"";
  const StringEntry* strings = nullptr;
  std::size_t stringCount = 0;
  const DialogTemplate* const* dialogs = nullptr;
  std::size_t dialogCount = 0;
  const BitmapResource* bitmaps = nullptr;
  std::size_t bitmapCount = 0;
  const MenuTemplate* const* menus = nullptr;
  std::size_t menuCount = 0;
};

// Registers the application's module: searched before every library module.
// Registering again replaces it; null removes it.
VGLOBAL_EXPORT void SetApplicationResources(const ResourceTables* tables);

// Looks a string up along the chain; nullopt when no module has it.
VGLOBAL_EXPORT std::optional<std::wstring_view> FindResourceString(UINT id);
// Looks a dialog template up along the chain; null when no module has it.
VGLOBAL_EXPORT const DialogTemplate* FindDialogTemplate(UINT id);
// Looks a bitmap up along the chain; null when no module has it.
VGLOBAL_EXPORT const BitmapResource* FindBitmapResource(UINT id);
// Looks a menu up along the chain; null when no module has it.
VGLOBAL_EXPORT const MenuTemplate* FindMenuTemplate(UINT id);

// The library's own resources (its string table and dialog templates).
VGLOBAL_EXPORT const ResourceTables& LibraryResources();

}  // namespace vglobal

// Counterparts of the extension-module record and of the resource-chain entry.
// The record is filled when the library is attached; every CDynLinkLibrary made
// over it adds the library's resources to the chain once more (the chain is
// searched in order, so a later entry for the same module finds nothing new).
struct VGLOBAL_EXPORT AFX_EXTENSION_MODULE {
  BOOL bInitialized = FALSE;
  const vglobal::ResourceTables* resources = nullptr;
};

VGLOBAL_EXPORT BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& module,
                                           const vglobal::ResourceTables& resources);
VGLOBAL_EXPORT void AfxTermExtensionModule(AFX_EXTENSION_MODULE& module);

class VGLOBAL_EXPORT CDynLinkLibrary {
 public:
  CDynLinkLibrary(AFX_EXTENSION_MODULE& module, BOOL bSystem = FALSE);
  ~CDynLinkLibrary();
  CDynLinkLibrary(const CDynLinkLibrary&) = delete;
  CDynLinkLibrary& operator=(const CDynLinkLibrary&) = delete;

  const vglobal::ResourceTables* resources() const { return resources_; }
  BOOL isSystem() const { return system_; }

 private:
  const vglobal::ResourceTables* resources_;
  BOOL system_;
};

// Number of entries in the process's resource chain (the application's module not
// counted): one per CDynLinkLibrary alive.
VGLOBAL_EXPORT std::size_t AfxResourceChainLength();
