// The resource chain: the application's module, then one entry per live
// CDynLinkLibrary, searched in that order.
#include "vglobal/compat/resources.h"

#include <algorithm>
#include <mutex>
#include <vector>

#include "vglobal/compat/dialog.h"
#include "vglobal/compat/menu_template.h"

namespace vglobal {
namespace {

struct Chain {
  std::mutex mutex;
  const ResourceTables* application = nullptr;
  std::vector<const CDynLinkLibrary*> libraries;
};

Chain& TheChain() {
  static Chain* chain = new Chain;  // outlives every static destructor that may unlink
  return *chain;
}

std::optional<std::wstring_view> FindIn(const ResourceTables* t, UINT id) {
  if (!t || !t->strings) return std::nullopt;
  const StringEntry* end = t->strings + t->stringCount;
  const StringEntry* it =
      std::lower_bound(t->strings, end, id, [](const StringEntry& e, UINT v) { return e.id < v; });
  if (it == end || it->id != id || !it->text) return std::nullopt;
  return std::wstring_view(it->text);
}

const DialogTemplate* FindDialogIn(const ResourceTables* t, UINT id) {
  if (!t || !t->dialogs) return nullptr;
  for (std::size_t i = 0; i < t->dialogCount; ++i)
    if (t->dialogs[i] && t->dialogs[i]->id == id) return t->dialogs[i];
  return nullptr;
}

const BitmapResource* FindBitmapIn(const ResourceTables* t, UINT id) {
  if (!t || !t->bitmaps) return nullptr;
  for (std::size_t i = 0; i < t->bitmapCount; ++i)
    if (t->bitmaps[i].id == id && t->bitmaps[i].png) return &t->bitmaps[i];
  return nullptr;
}

const MenuTemplate* FindMenuIn(const ResourceTables* t, UINT id) {
  if (!t || !t->menus) return nullptr;
  for (std::size_t i = 0; i < t->menuCount; ++i)
    if (t->menus[i] && t->menus[i]->id == id) return t->menus[i];
  return nullptr;
}

// Visits the chain in search order and returns the first hit.
template <typename Result, typename Find>
Result Search(Find find) {
  Chain& c = TheChain();
  std::lock_guard lock(c.mutex);
  if (Result r = find(c.application)) return r;
  for (const CDynLinkLibrary* lib : c.libraries)
    if (Result r = find(lib->resources())) return r;
  return Result{};
}

}  // namespace

void SetApplicationResources(const ResourceTables* tables) {
  Chain& c = TheChain();
  std::lock_guard lock(c.mutex);
  c.application = tables;
}

std::optional<std::wstring_view> FindResourceString(UINT id) {
  return Search<std::optional<std::wstring_view>>(
      [id](const ResourceTables* t) { return FindIn(t, id); });
}

const DialogTemplate* FindDialogTemplate(UINT id) {
  return Search<const DialogTemplate*>(
      [id](const ResourceTables* t) { return FindDialogIn(t, id); });
}

const BitmapResource* FindBitmapResource(UINT id) {
  return Search<const BitmapResource*>(
      [id](const ResourceTables* t) { return FindBitmapIn(t, id); });
}

const MenuTemplate* FindMenuTemplate(UINT id) {
  return Search<const MenuTemplate*>([id](const ResourceTables* t) { return FindMenuIn(t, id); });
}

}  // namespace vglobal

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& module,
                            const vglobal::ResourceTables& resources) {
  module.resources = &resources;
  module.bInitialized = TRUE;
  return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& module) {
  module.bInitialized = FALSE;
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& module, BOOL bSystem)
    : resources_(module.resources), system_(bSystem) {
  vglobal::Chain& c = vglobal::TheChain();
  std::lock_guard lock(c.mutex);
  c.libraries.push_back(this);
}

CDynLinkLibrary::~CDynLinkLibrary() {
  vglobal::Chain& c = vglobal::TheChain();
  std::lock_guard lock(c.mutex);
  std::erase(c.libraries, this);
}

std::size_t AfxResourceChainLength() {
  vglobal::Chain& c = vglobal::TheChain();
  std::lock_guard lock(c.mutex);
  return c.libraries.size();
}
