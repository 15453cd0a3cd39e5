// The qualitative side of the user's default processing method, kept in the current
// user's settings store below "Processing Setup\Defaults\Qual":
//   "Spectrum Enhancement"        CSpecEnhanceOptions
//   "Library Search Options"      CLibrarySearchOptions and the searched libraries
//   "Library Search Constraints"  CConstraints, with the sub-keys "ElementConstraints"
//                                 ("Individual Element %d") and "IonConstraints"
//                                 ("Constraint %d")
//
// Writers store a group of values only while the switch that enables it is on; readers
// look for every value whatever the switches say. A read after a write therefore often
// reports the section incomplete although every stored value was applied: 0 from a
// reader is a completeness mark, not an error.
//
// Contract: writers open their key creating it and ignore write results; readers open
// without creating, apply every value they find at once, leave a field whose value is
// missing as it was, never write, and return 1 only when every value they looked for
// was present. Nothing is shown to the user. The caller owns every record passed in;
// a null record makes a writer do nothing and a reader return 0.
#pragma once

#include "vglobal/compat/collections.h"
#include "vglobal/export.h"

class CConstraints;
class CLibrarySearchOptions;
class CSpecEnhanceOptions;

// "SpecEnabled", then, while it is on, "SpectrumMethod" and the values of that method
// only. The point counts of method 1 are stored as ints, truncated toward zero (a count
// no int can hold is stored as the nearest int; NaN as 0).
VGLOBAL_EXPORT void WriteSpecEnhancementInfo(CSpecEnhanceOptions* options);
// Reads all thirteen values; the point counts widen back to doubles.
VGLOBAL_EXPORT int ReadSpecEnhancementDefaultInfo(CSpecEnhanceOptions* options);

// The search options; the values behind a switch that is off, and the mode of the
// search type not chosen, are not stored. The searched libraries are not part of it.
VGLOBAL_EXPORT void WriteLibrarySearchInfo(CLibrarySearchOptions* options);
// The searched libraries, as the multi-string value "SearchLibraries".
VGLOBAL_EXPORT void WriteLibrarySearchList(CStringArray& libraries);
// Replaces `libraries` with the stored list; leaves it as it was when none is stored.
// Always returns 1: a method without a stored list simply searches no library.
VGLOBAL_EXPORT int ReadLibrarySearchList(CStringArray& libraries);
// Reads the seventeen search options, then replaces the record's search list with the
// stored one (empty when none is stored). The list does not enter the result.
VGLOBAL_EXPORT int ReadLibrarySearchDefaultInfo(CLibrarySearchOptions* options);

// The constraints. A list whose switch is on replaces the whole sub-key it lives in, so
// no element of an earlier, longer list survives; a list whose switch is off leaves its
// sub-key as it was.
VGLOBAL_EXPORT void WriteConstraintsInfo(CConstraints* constraints);
// Reads every value and both lists whatever the switches say. A missing element count
// leaves the element list alone and makes the result 0; a missing ion count leaves the
// ion list alone without affecting the result. An element symbol longer than two
// characters is refused: that element keeps its symbol and the result is 0. A stored
// count above 100,000 is taken for damage: its list is left alone and the result is 0.
VGLOBAL_EXPORT int ReadConstraintsDefaultInfo(CConstraints* constraints);
