// The one parser of printf directives, and the widths and precisions that come from
// the arguments.
#include "compat/format_directive.h"

#include <gtest/gtest.h>

#include <climits>

#include "vglobal/compat/cstring.h"

namespace {

using vglobal::fmt::Directive;
using vglobal::fmt::Length;
using vglobal::fmt::ParseDirective;

TEST(FormatDirective, ReadsEveryPartAndStopsAfterTheConversion) {
  Directive d;
  std::size_t pos = 0;
  ASSERT_TRUE(ParseDirective(L"-08.3I64d rest", pos, d));
  EXPECT_EQ(pos, 9u);
  EXPECT_EQ(d.flags, "-0");
  EXPECT_EQ(d.width, 8);
  EXPECT_EQ(d.precision, 3);
  EXPECT_EQ(d.length, Length::LongLong);
  EXPECT_EQ(d.conversion, L'd');

  Directive star;
  pos = 1;
  ASSERT_TRUE(ParseDirective(L"%*.*hs", pos, star));
  EXPECT_TRUE(star.widthStar && star.precisionStar);
  EXPECT_EQ(star.length, Length::Short);
  EXPECT_EQ(pos, 6u);

  Directive clamped;
  pos = 0;
  ASSERT_TRUE(ParseDirective(L"99999999999.f", pos, clamped));
  EXPECT_EQ(clamped.width, vglobal::fmt::kMaxDirectiveNumber);
  EXPECT_EQ(clamped.precision, 0);  // a '.' alone is precision 0
}

TEST(FormatDirective, SaysWhereAMalformedOneEnds) {
  Directive d;
  std::size_t pos = 0;
  EXPECT_FALSE(ParseDirective(L"5.2y!", pos, d));  // unknown conversion: just past it
  EXPECT_EQ(pos, 4u);
  pos = 0;
  EXPECT_FALSE(ParseDirective(L"-5l", pos, d));  // the text ends inside it
  EXPECT_EQ(pos, 3u);
  pos = 7;
  EXPECT_FALSE(ParseDirective(L"abc", pos, d));  // a start past the end reads nothing
  EXPECT_EQ(pos, 3u);
}

TEST(FormatDirective, StarArgumentsAreClampedWhateverTheirValue) {
  CString s;
  s.Format(L"[%*d]", LLONG_MIN, 7);  // a negative width left-aligns; its size is clamped
  EXPECT_EQ(s.GetLength(), vglobal::fmt::kMaxDirectiveNumber + 2);
  EXPECT_EQ(s.Left(2), L"[7");
  s.Format(L"[%.*s]", -1, L"whole");  // a negative precision is none
  EXPECT_EQ(s, L"[whole]");
}

}  // namespace
