// CMap's legacy iteration: every association once, removal while iterating, and
// positions that cannot be used any more are refused instead of followed.
#include <gtest/gtest.h>

#include <map>
#include <stdexcept>

#include "vglobal/compat/collections.h"

namespace {

using Map = CMap<CString, const wchar_t*, int, int>;

Map Numbers(int count) {
  Map map;
  for (int i = 0; i < count; ++i) map.SetAt(CString(std::to_wstring(i).c_str()), i);
  return map;
}

// How often each association was visited, the map left as it was.
std::map<int, int> Visits(const Map& map) {
  std::map<int, int> visits;
  CString key;
  int value = 0;
  for (POSITION pos = map.GetStartPosition(); pos != NULL;) {
    map.GetNextAssoc(pos, key, value);
    EXPECT_EQ(key, CString(std::to_wstring(value).c_str()));
    ++visits[value];
  }
  return visits;
}

TEST(MapPositions, VisitEveryAssociationOnceAndAnEmptyMapNone) {
  const std::map<int, int> visits = Visits(Numbers(200));
  ASSERT_EQ(visits.size(), 200u);
  for (const auto& [value, count] : visits) EXPECT_EQ(count, 1) << value;

  Map empty;
  EXPECT_EQ(empty.GetStartPosition(), nullptr);
  Map cleared = Numbers(3);
  cleared.RemoveAll();
  EXPECT_EQ(cleared.GetStartPosition(), nullptr);
}

TEST(MapPositions, RemovingTheAssociationJustVisitedKeepsIterationGoing) {
  Map map = Numbers(50);
  std::map<int, int> visits;
  CString key;
  int value = 0;
  for (POSITION pos = map.GetStartPosition(); pos != NULL;) {
    map.GetNextAssoc(pos, key, value);
    ++visits[value];
    if (value % 2 == 0) map.RemoveKey(key);
  }
  EXPECT_EQ(visits.size(), 50u);
  EXPECT_EQ(map.GetCount(), 25);
  EXPECT_EQ(Visits(map).size(), 25u);
  // Adding after many removals closes the gaps; what is there is still seen once.
  for (int i = 1; i < 50; i += 2) map.RemoveKey(CString(std::to_wstring(i).c_str()));
  map.SetAt(L"7", 7);
  EXPECT_EQ(Visits(map), (std::map<int, int>{{7, 1}}));
}

TEST(MapPositions, PositionsThatCannotBeFollowedAreRefusedAndChangeNothing) {
  Map map = Numbers(4);
  CString key(L"unchanged");
  int value = -1;
  auto refused = [&](POSITION pos) {
    const POSITION before = pos;
    EXPECT_THROW(map.GetNextAssoc(pos, key, value), std::invalid_argument);
    EXPECT_EQ(pos, before);
    EXPECT_EQ(key, L"unchanged");
    EXPECT_EQ(value, -1);
  };

  refused(NULL);
  refused(reinterpret_cast<POSITION>(std::uintptr_t{0x12345}));  // made up

  // The association a position stands on was removed.
  const POSITION start = map.GetStartPosition();
  CString first;
  int firstValue = 0;
  POSITION copy = start;
  map.GetNextAssoc(copy, first, firstValue);
  map.RemoveKey(first);
  refused(start);

  // From before the map was emptied, or before adding keys renumbered it.
  const POSITION beforeClear = map.GetStartPosition();
  map.RemoveAll();
  map.SetAt(L"0", 0);
  refused(beforeClear);
  map.SetAt(L"1", 1);
  map.RemoveKey(L"0");
  const POSITION beforeCompaction = map.GetStartPosition();
  map.SetAt(L"2", 2);
  refused(beforeCompaction);
}

}  // namespace
