// The processing-method records: the element symbol field never holds more than it can.
#include <gtest/gtest.h>

#include "vglobal/fileio/proc_method.h"

namespace {

TEST(IndividualConstraintRecord, ElementSymbolHoldsAtMostTwoCharacters) {
  CIndividualConstraint e;
  EXPECT_EQ(e.Element(L"Na"), 1);
  EXPECT_EQ(e.Element(L"Nab"), 0);
  EXPECT_EQ(e.Element(), L"Na");
  // A text hiding characters behind a null character is refused too.
  EXPECT_EQ(e.Element(CString(L"K\0x", 3)), 0);
  EXPECT_EQ(e.Element(static_cast<const wchar_t*>(nullptr)), 1);
  EXPECT_EQ(e.Element(), L"");
}

}  // namespace
