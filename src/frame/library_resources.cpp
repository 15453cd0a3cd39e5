// The library's own resources: its string table (kept as data in
// resources/strings/vglobal_strings.inc), its dialog templates and its bitmaps (the
// PNG strips of resources/images, compiled in by cmake/embed_bitmaps.cmake).
#include "vglobal/compat/dialog.h"
#include "vglobal/compat/resources.h"

#include "frame/under_construction.h"

namespace vglobal {

// Generated: library_bitmaps.cpp in the build tree.
extern const BitmapResource kLibraryBitmaps[];
extern const std::size_t kLibraryBitmapsCount;

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
  static const ResourceTables tables{
      L"vglobal",         kStrings,        std::size(kStrings), dialogs,
      std::size(dialogs), kLibraryBitmaps, kLibraryBitmapsCount};
  return tables;
}

}  // namespace vglobal
