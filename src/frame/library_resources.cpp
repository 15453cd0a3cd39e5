// The library's own resources: its string table (kept as data in
// resources/strings/vglobal_strings.inc) and its dialog templates.
#include "vglobal/compat/dialog.h"
#include "vglobal/compat/resources.h"

#include "frame/under_construction.h"

namespace vglobal {
namespace {

const StringEntry kStrings[] = {
#include "strings/vglobal_strings.inc"
};

}  // namespace

// Built on first use: the library's constructor asks for these tables before the
// ordinary static objects of the library exist.
const ResourceTables& LibraryResources() {
  static const DialogTemplate* const dialogs[] = {
      &UnderConstructionTemplate(),
  };
  static const ResourceTables tables{L"vglobal", kStrings, std::size(kStrings), dialogs,
                                     std::size(dialogs)};
  return tables;
}

}  // namespace vglobal
