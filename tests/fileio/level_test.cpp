// The level records and the component's lists: resizing keeps what was there,
// indices outside a list are refused, and sorting by amount is stable.
#include "vglobal/fileio/level.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>

#include "vglobal/fileio/component.h"

namespace {

CLevel Level(const wchar_t* name, double amount) {
  CLevel level;
  level.LevelName(name);
  level.BaseAmount(amount);
  return level;
}

std::wstring Names(const CComponentIO& c, bool qc = false) {
  std::wstring out;
  const int n = qc ? c.NumQCLevels() : c.NumCalLevels();
  for (int i = 0; i < n; ++i) {
    if (!out.empty()) out += L' ';
    out += (qc ? c.GetQCLevel(i) : c.GetCalLevel(i)).LevelName().str();
  }
  return out;
}

TEST(Level, ResizingKeepsTheFirstReplicatesAndNegativeEmpties) {
  CLevel level;
  level.NumReplicates(3);
  level[0].Height(1.5);
  level.NumReplicates(1);
  EXPECT_EQ(level.NumReplicates(), 1);
  EXPECT_EQ(level[0].Height(), 1.5);
  level.NumReplicates(2);
  EXPECT_EQ(level[1].Height(), CReplicate().Height());
  level.NumReplicates(-4);
  EXPECT_EQ(level.NumReplicates(), 0);
}

TEST(Level, IndexOutsideTheListThrows) {
  CLevel level;
  level.NumReplicates(1);
  EXPECT_THROW(level[1], std::out_of_range);
  EXPECT_THROW(level[-1], std::out_of_range);
  CComponentIO c;
  EXPECT_THROW(c.GetCalLevel(0), std::out_of_range);
  EXPECT_THROW(c.GetQCLevel(-1), std::out_of_range);
  EXPECT_THROW(c.GetSurrogateLevel(0), std::out_of_range);
  EXPECT_THROW(c.GetMIPair(0), std::out_of_range);
  EXPECT_THROW(c[0], std::out_of_range);
}

TEST(ComponentLists, AddReturnsTheIndexAndCopiesOfTheComponentAreDeep) {
  CComponentIO c;
  EXPECT_EQ(c.AddCalLevel(Level(L"a", 1)), 0);
  EXPECT_EQ(c.AddCalLevel(Level(L"b", 2)), 1);
  EXPECT_EQ(c.AddQCLevel(Level(L"q", 3)), 0);
  EXPECT_EQ(c.AddSurrogateLevel(Level(L"s", 4)), 0);
  EXPECT_EQ(c.AddMIPair(CMIPair(100.5, 40.0)), 0);
  EXPECT_EQ(c.AddMassRange(CMassRange(50.0, 60.0)), 0);

  CComponentIO copy = c;
  copy.GetCalLevel(0).LevelName(L"changed");
  copy[0].HighMass(70.0);
  EXPECT_EQ(c.GetCalLevel(0).LevelName(), L"a");
  EXPECT_EQ(c[0].HighMass(), 60.0);
  EXPECT_EQ(copy.NumSurrogateCalLevels(), 1);
  EXPECT_EQ(copy.GetMIPair(0).Mass(), 100.5);
}

TEST(ComponentLists, SortByAmountIsStable) {
  CComponentIO c;
  for (auto [name, amount] : {std::pair{L"c1", 10.0},
                              {L"a1", 1.0},
                              {L"c2", 10.0},
                              {L"b", 5.0},
                              {L"a2", 1.0},
                              {L"c3", 10.0}})
    c.AddCalLevel(Level(name, amount));
  c.SortCalLevelPairs();
  EXPECT_EQ(Names(c), L"a1 a2 b c1 c2 c3");
}

TEST(ComponentLists, AmountsThatAreNotNumbersSortLastInTheirOrder) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  CComponentIO c;
  for (auto [name, amount] :
       {std::pair{L"n1", nan}, {L"x", 3.0}, {L"n2", nan}, {L"inf", HUGE_VAL}, {L"neg", -1.0}})
    c.AddQCLevel(Level(name, amount));
  c.SortQCLevelPairs();
  EXPECT_EQ(Names(c, true), L"neg x inf n1 n2");
}

TEST(ComponentLists, EachSortTouchesOnlyItsOwnList) {
  CComponentIO c;
  c.AddCalLevel(Level(L"c9", 9));
  c.AddCalLevel(Level(L"c1", 1));
  c.AddQCLevel(Level(L"q9", 9));
  c.AddQCLevel(Level(L"q1", 1));
  c.SortQCLevelPairs();
  EXPECT_EQ(Names(c), L"c9 c1");
  EXPECT_EQ(Names(c, true), L"q1 q9");
}

}  // namespace
