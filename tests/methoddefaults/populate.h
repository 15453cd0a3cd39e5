// Fills every documented field of a processing-method record with a value of its own,
// so that a stored layout shows which field each value came from: two swapped fields
// show as swapped values.
#pragma once

#include <gtest/gtest.h>

#include <type_traits>

#include "vglobal/vglobal.h"

namespace vglobal::testing {

// Hands out distinct values: whole numbers 1, 2, 3 ..., reals 1000.25, 1001.25 ...,
// and texts named after their field.
class Seed {
 public:
  int Whole() { return ++whole_; }
  double Real() { return 1000.25 + real_++; }
  CString Text(const wchar_t* field) {
    return CString(field) + L"-" + CString(std::to_wstring(++text_));
  }

 private:
  int whole_ = 0;
  int real_ = 0;
  int text_ = 0;
};

// Gives every field of the record's field list a value of its own, in list order.
template <typename Record>
void Populate(Record& r, Seed& s) {
  Record::ForEachField([&](auto field) {
    using T = typename decltype(field)::Value;
    if constexpr (std::is_same_v<T, CString>)
      field.set(r, s.Text(field.wideName));
    else if constexpr (std::is_floating_point_v<T>)
      field.set(r, s.Real());
    else
      field.set(r, static_cast<T>(s.Whole()));
  });
}

// A populated level with `replicates` populated replicates.
inline CLevel PopulatedLevel(Seed& s, int replicates) {
  CLevel level;
  Populate(level, s);
  for (int i = 0; i < replicates; ++i) {
    CReplicate replicate;
    Populate(replicate, s);
    level.AddReplicate(replicate);
  }
  return level;
}

// Expects every field of the record's field list to be equal in `got` and `want`,
// naming each field that differs.
template <typename Record>
void ExpectSameFields(const Record& got, const Record& want) {
  Record::ForEachField(
      [&](auto field) { EXPECT_TRUE(field.get(got) == field.get(want)) << field.name; });
}

}  // namespace vglobal::testing
