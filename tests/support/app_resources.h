// The application's resource module of one test: in the chain while the object
// lives, gone afterwards, so tests never see each other's menus or bitmaps.
#pragma once

#include <cstddef>

#include "vglobal/compat/resources.h"

namespace vglobal::testing {

class ScopedAppResources {
 public:
  ScopedAppResources() { SetApplicationResources(&tables_); }
  template <std::size_t N>
  explicit ScopedAppResources(const MenuTemplate* const (&menus)[N]) {
    tables_.menus = menus;
    tables_.menuCount = N;
    SetApplicationResources(&tables_);
  }
  ~ScopedAppResources() { SetApplicationResources(nullptr); }
  ScopedAppResources(const ScopedAppResources&) = delete;
  ScopedAppResources& operator=(const ScopedAppResources&) = delete;

  // Changes show at once: the chain holds this object's tables.
  ResourceTables& tables() { return tables_; }

 private:
  ResourceTables tables_;
};

}  // namespace vglobal::testing
