// Range lists typed by the user: tokenising, number reading, the list separator and
// copy safety.
#include "vglobal/util/range_parse.h"

#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "support/scoped_env.h"

namespace {

using vglobal::testing::ScopedEnv;

using Ranges = std::vector<std::pair<double, double>>;

Ranges RangesOf(const VDoubleRngParse& parser, int count) {
  Ranges ranges;
  for (int i = 0; i < count; ++i) ranges.emplace_back(parser.GetLow(i), parser.GetHigh(i));
  return ranges;
}

Ranges Parse(const wchar_t* text, int maximum = 3, const char* separator = ",") {
  ScopedEnv chosen("ARVENIS_LIST_SEPARATOR", separator);
  VDoubleRngParse parser(maximum);
  return RangesOf(parser, parser.Parse(text));
}

TEST(RangeParse, ItemsRangesAndNumbers) {
  const std::pair<const wchar_t*, Ranges> cases[] = {
      {L"1-2,5", {{1, 2}, {5, 5}}},
      {L" 1 - 2 , 5 ", {{1, 2}, {5, 5}}},
      {L",,1,,2,", {{1, 1}, {2, 2}}},
      {L"20-10", {{20, 10}}},  // kept as written, not swapped
      // '-' is only ever the range mark, also where it was meant as a sign.
      {L"-5", {{5, 5}}},
      {L"2--7", {{2, 7}}},
      {L"1e-3", {{1, 3}}},
      {L"abc", {{0, 0}}},
      {L"3.5kg", {{3.5, 3.5}}},
      {L"\t4-\t6", {{4, 6}}},  // only code 32 is removed; wcstod skips the tabs
      // Anything that is not a range list.
      {L"", {}},
      {L",,,", {}},
      {L"-", {}},
      {L"1-2-3", {}},
      {L"1,2-3-4", {}},
      {L"1,2,3,4", {}},
  };
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(Parse(text), expected) << CString(text).ToUtf8();
  }
}

TEST(RangeParse, FailedParseKeepsWhatItHadReadAndUnwrittenIndexesReadZero) {
  ScopedEnv chosen("ARVENIS_LIST_SEPARATOR", ",");
  VDoubleRngParse parser;
  ASSERT_EQ(parser.Parse(L"1-2,3-4"), 2);
  for (int i : {-1, 2, 3, INT_MAX, INT_MIN}) EXPECT_EQ(parser.GetLow(i), 0.0) << i;
  // Too many items: nothing is stored.
  EXPECT_EQ(parser.Parse(L"5,6,7,8"), 0);
  EXPECT_EQ(parser.GetLow(0), 1.0);
  // A malformed second item: the first is stored, the second keeps its old range.
  EXPECT_EQ(parser.Parse(L"8,9-1-2"), 0);
  EXPECT_EQ(parser.GetLow(0), 8.0);
  EXPECT_EQ(parser.GetHigh(0), 8.0);
  EXPECT_EQ(parser.GetLow(1), 3.0);
  EXPECT_EQ(parser.GetHigh(1), 4.0);
}

TEST(RangeParse, MaximumBoundsTheItems) {
  EXPECT_EQ(Parse(L"1", 0), Ranges{});
  EXPECT_EQ(Parse(L"1", INT_MIN), Ranges{});
  EXPECT_EQ(Parse(L"1,2", INT_MAX), (Ranges{{1, 1}, {2, 2}}));
  std::wstring many;
  for (int i = 0; i < 1000; ++i) many += L"7,";
  EXPECT_EQ(Parse(many.c_str(), 999), Ranges{});
  EXPECT_EQ(Parse(many.c_str(), 1000).size(), 1000u);
}

TEST(RangeParseSeparator, EnvironmentChoiceReadWhenMade) {
  // With ';' the ',' merely ends the number reading.
  EXPECT_EQ(Parse(L"1,5", 3, ";"), (Ranges{{1, 1}}));
  EXPECT_EQ(Parse(L"1;5", 3, ";"), (Ranges{{1, 1}, {5, 5}}));
  EXPECT_EQ(Parse(L"1\u00a75;6", 3, "\xc2\xa7;"), (Ranges{{1, 1}, {5, 5}}));
  {
    ScopedEnv classic("LC_ALL", "C");
    EXPECT_EQ(Parse(L"1,5", 3, ""), (Ranges{{1, 1}, {5, 5}}));  // empty: no choice
  }
  std::optional<VDoubleRngParse> parser;
  {
    ScopedEnv chosen("ARVENIS_LIST_SEPARATOR", "|");
    parser.emplace();
  }
  EXPECT_EQ(parser->Parse(L"1|2"), 2);
}

TEST(RangeParseSeparator, DecimalCommaLocaleSeparatesWithSemicolon) {
  // scripts/bootstrap generates this locale; without it the test would prove nothing.
  constexpr const char* kDecimalComma = "de_DE.UTF-8";
  ScopedEnv chosen("ARVENIS_LIST_SEPARATOR", nullptr);
  ScopedEnv all("LC_ALL", kDecimalComma);
  // The process runs in that locale too; numbers must still read with '.'.
  const std::string previous = std::setlocale(LC_ALL, nullptr);
  ASSERT_NE(std::setlocale(LC_ALL, kDecimalComma), nullptr)
      << "the " << kDecimalComma << " locale is missing: run scripts/bootstrap";
  const std::string decimal_point = std::localeconv()->decimal_point;
  VDoubleRngParse parser;
  const Ranges ranges = RangesOf(parser, parser.Parse(L"1.5;2,5-3.25"));
  std::setlocale(LC_ALL, previous.c_str());
  ASSERT_EQ(decimal_point, ",");
  EXPECT_EQ(ranges, (Ranges{{1.5, 1.5}, {2, 3.25}}));
}

}  // namespace
