// The scan filter's text form: what the processing method writes must read back to the
// same filter, and no text, however broken, may crash the parser or slip through.
#include <gtest/gtest.h>

#include <locale>
#include <random>
#include <string>
#include <vector>

#include "vglobal/fileio/filter.h"

namespace {

CFilter MakeFilter(CFilter::Polarity polarity, CFilter::ScanMode mode, CFilter::ScanType type,
                   std::vector<CFilterMassRange> ranges) {
  CFilter f;
  f.SetPolarity(polarity);
  f.SetScanMode(mode);
  f.SetScanType(type);
  for (const CFilterMassRange& r : ranges) f.AddMassRange(r.Low, r.High);
  return f;
}

// Parses with the processing method's parser and arguments.
struct Parsed {
  int ok;
  CFilter filter;
  std::wstring error;
  int position;
};
Parsed Parse(const wchar_t* text) {
  CVC_FilterStruct parser(9, 2, 2);
  const int ok = parser.ParseFilterStructString(text, -1);
  return {ok, parser.ToCFilter(), parser.GetError().GetString(), parser.GetErrorPosition()};
}

// ---- The empty filter ----

TEST(FilterEmpty, DefaultFilterIsEmptyAndRendersAsEmptyText) {
  CFilter f;
  EXPECT_TRUE(f.IsEmpty());
  EXPECT_EQ(f.GetFilterString(-1, -1, 2), L"");
}

TEST(FilterEmpty, EmptyAndBlankTextParseToTheEmptyFilter) {
  for (const wchar_t* text : {L"", L"   ", L"\t "}) {
    Parsed p = Parse(text);
    EXPECT_EQ(p.ok, 1) << p.error;
    EXPECT_EQ(p.filter, CFilter());
    EXPECT_EQ(p.position, -1);
  }
  EXPECT_EQ(Parse(nullptr).ok, 1);
}

// ---- Rendering ----

TEST(FilterText, RendersEveryPartInGrammarOrder) {
  CFilter f = MakeFilter(CFilter::PolarityPositive, CFilter::ScanModeCentroid,
                         CFilter::ScanTypeFull, {{50, 500}});
  EXPECT_EQ(f.GetFilterString(-1, -1, 2), L"+ c Full ms [50.00-500.00]");
  f = MakeFilter(CFilter::PolarityNegative, CFilter::ScanModeProfile, CFilter::ScanTypeSRM,
                 {{100.5, 100.5}, {200, 210.25}});
  EXPECT_EQ(f.GetFilterString(-1, -1, 2), L"- p SRM ms2 [100.50,200.00-210.25]");
  EXPECT_EQ(MakeFilter(CFilter::PolarityAny, CFilter::ScanModeAny, CFilter::ScanTypeZoom, {})
                .GetFilterString(-1, -1, 2),
            L"Z ms");
  EXPECT_EQ(MakeFilter(CFilter::PolarityAny, CFilter::ScanModeAny, CFilter::ScanTypeAny, {{1, 2}})
                .GetFilterString(-1, -1, 2),
            L"[1.00-2.00]");
}

TEST(FilterText, FirstAndLastChooseTheRangesWritten) {
  CFilter f = MakeFilter(CFilter::PolarityPositive, CFilter::ScanModeAny, CFilter::ScanTypeSIM,
                         {{1, 1}, {2, 2}, {3, 3}});
  EXPECT_EQ(f.GetFilterString(-1, -1, 0), L"+ SIM ms [1,2,3]");
  EXPECT_EQ(f.GetFilterString(1, -1, 0), L"+ SIM ms [2,3]");
  EXPECT_EQ(f.GetFilterString(-1, 0, 0), L"+ SIM ms [1]");
  EXPECT_EQ(f.GetFilterString(1, 1, 0), L"+ SIM ms [2]");
  EXPECT_EQ(f.GetFilterString(0, 99, 0), L"+ SIM ms [1,2,3]");  // past the end: to the last
  EXPECT_EQ(f.GetFilterString(2, 1, 0), L"+ SIM ms");           // none between: no brackets
  EXPECT_EQ(f.GetFilterString(5, -1, 0), L"+ SIM ms");
}

TEST(FilterText, DecimalsAreClampedToZeroThroughNine) {
  CFilter f = MakeFilter(CFilter::PolarityAny, CFilter::ScanModeAny, CFilter::ScanTypeAny,
                         {{0.123456789012, 1}});
  EXPECT_EQ(f.GetFilterString(-1, -1, -3), L"[0-1]");
  EXPECT_EQ(f.GetFilterString(-1, -1, 4), L"[0.1235-1.0000]");
  EXPECT_EQ(f.GetFilterString(-1, -1, 40), L"[0.123456789-1.000000000]");
}

// A host program may install a locale whose decimal mark is a comma; the text form
// must not follow it.
TEST(FilterText, IgnoresTheProcessLocale) {
  struct CommaDecimal : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
  };
  struct CommaDecimalW : std::numpunct<wchar_t> {
    wchar_t do_decimal_point() const override { return L','; }
  };
  const std::locale saved = std::locale::global(
      std::locale(std::locale(std::locale::classic(), new CommaDecimal), new CommaDecimalW));
  CFilter f = MakeFilter(CFilter::PolarityPositive, CFilter::ScanModeAny, CFilter::ScanTypeAny,
                         {{12.5, 13.75}});
  const CString text = f.GetFilterString(-1, -1, 2);
  Parsed p = Parse(text);
  std::locale::global(saved);
  EXPECT_EQ(text, L"+ [12.50-13.75]");
  EXPECT_EQ(p.ok, 1);
  EXPECT_EQ(p.filter, f);
}

// ---- Round trip ----

TEST(FilterRoundTrip, WhatTheMethodWritesReadsBackEqual) {
  const std::vector<CFilter> filters = {
      CFilter(),
      MakeFilter(CFilter::PolarityPositive, CFilter::ScanModeCentroid, CFilter::ScanTypeFull,
                 {{50, 500}}),
      MakeFilter(CFilter::PolarityNegative, CFilter::ScanModeProfile, CFilter::ScanTypeSIM,
                 {{123.45, 123.45}, {0, 0.01}, {999999.99, 1000000}}),
      MakeFilter(CFilter::PolarityAny, CFilter::ScanModeCentroid, CFilter::ScanTypeSRM, {}),
      MakeFilter(CFilter::PolarityAny, CFilter::ScanModeAny, CFilter::ScanTypeZoom, {{1.1, 2.2}}),
      MakeFilter(CFilter::PolarityPositive, CFilter::ScanModeAny, CFilter::ScanTypeAny, {}),
  };
  for (const CFilter& f : filters) {
    const CString text = f.GetFilterString(-1, -1, 2);
    Parsed p = Parse(text);
    ASSERT_EQ(p.ok, 1) << text.GetString() << ": " << p.error;
    EXPECT_EQ(p.filter, f) << text.GetString();
    EXPECT_EQ(p.filter.GetFilterString(-1, -1, 2), text);
  }
}

TEST(FilterRoundTrip, EveryTwoDecimalMassSurvives) {
  std::mt19937 random(20240611);
  std::uniform_int_distribution<long long> hundredths(0, 200000000);
  CFilter f;
  for (int i = 0; i < static_cast<int>(CFilter::kMaxMassRanges); ++i) {
    double a = static_cast<double>(hundredths(random)) / 100.0;
    double b = static_cast<double>(hundredths(random)) / 100.0;
    ASSERT_TRUE(f.AddMassRange(std::min(a, b), std::max(a, b)));
  }
  Parsed p = Parse(f.GetFilterString(-1, -1, 2));
  ASSERT_EQ(p.ok, 1) << p.error;
  EXPECT_EQ(p.filter, f);
}

TEST(FilterParse, AcceptsLooseSpacingAndSingleMasses) {
  Parsed p = Parse(L"  -   p\tZ   ms [5,6.5-7]  ");
  ASSERT_EQ(p.ok, 1) << p.error;
  EXPECT_EQ(p.filter, MakeFilter(CFilter::PolarityNegative, CFilter::ScanModeProfile,
                                 CFilter::ScanTypeZoom, {{5, 5}, {6.5, 7}}));
}

// ---- Bad text ----

struct BadText {
  const wchar_t* text;
  int position;             // where the error is reported
  const wchar_t* mentions;  // a word the message must contain
};

TEST(FilterParse, RejectsBadTextSayingWhatAndWhere) {
  const BadText cases[] = {
      {L"x", 0, L"unknown filter part"},
      {L"+ +", 2, L"polarity"},
      {L"c +", 2, L"polarity"},
      {L"Full ms c", 8, L"scan mode"},
      {L"Full ms SIM ms", 8, L"repeated"},
      {L"Full", 4, L"'ms'"},
      {L"SRM ms", 4, L"'ms2'"},
      {L"Full MS", 5, L"'ms'"},
      {L"+ full ms", 2, L"unknown"},
      {L"[", 1, L"expected a mass"},
      {L"[]", 0, L"empty"},
      {L"[1", 2, L"not closed"},
      {L"[1-]", 3, L"expected a mass"},
      {L"[2-1]", 1, L"low mass above"},
      {L"[1,,2]", 3, L"expected a mass"},
      {L"[1.]", 3, L"decimal point"},
      {L"[.5]", 1, L"expected a mass"},
      {L"[1e5]", 2, L"found 'e5]'"},
      {L"[-1]", 1, L"expected a mass"},
      {L"[1 ]", 2, L"found ' ]'"},
      {L"[1] +", 4, L"after the mass ranges"},
      {L"[1][2]", 3, L"after the mass ranges"},
      {L"[1;2]", 2, L"';2]'"},
      {L"[1000000001]", 1, L"out of range"},
      {L"[00000000000000000000000000000000000000001]", 1, L"too long"},
      {L"+ c\u00e9", 2, L"unknown"},
      {L"+ \x7f", 2, L"'?'"},
  };
  for (const BadText& c : cases) {
    Parsed p = Parse(c.text);
    EXPECT_EQ(p.ok, 0) << "accepted: " << c.text;
    EXPECT_EQ(p.position, c.position) << c.text << " -> " << p.error;
    EXPECT_NE(p.error.find(c.mentions), std::wstring::npos) << c.text << " -> " << p.error;
    EXPECT_NE(p.error.find(L"at character " + std::to_wstring(c.position)), std::wstring::npos)
        << p.error;
    EXPECT_EQ(p.filter, CFilter()) << c.text;
  }
}

TEST(FilterParse, FailureForgetsTheEarlierFilter) {
  CVC_FilterStruct parser(9, 2, 2);
  ASSERT_EQ(parser.ParseFilterStructString(L"+ c Full ms [1-2]", -1), 1);
  ASSERT_EQ(parser.ParseFilterStructString(L"+ c Full ms [1-", -1), 0);
  EXPECT_EQ(parser.ToCFilter(), CFilter());
  ASSERT_EQ(parser.ParseFilterStructString(L"-", -1), 1);
  EXPECT_EQ(parser.GetError(), L"");
  EXPECT_EQ(parser.GetErrorPosition(), -1);
}

TEST(FilterLimits, AtMostTheMaximumNumberOfMassRanges) {
  std::wstring text = L"[";
  for (std::size_t i = 0; i < CFilter::kMaxMassRanges; ++i) text += (i ? L",1" : L"1");
  EXPECT_EQ(Parse((text + L"]").c_str()).ok, 1);
  Parsed p = Parse((text + L",1]").c_str());
  EXPECT_EQ(p.ok, 0);
  EXPECT_NE(p.error.find(L"more than 1000 mass ranges"), std::wstring::npos) << p.error;

  CFilter full;
  for (std::size_t i = 0; i < CFilter::kMaxMassRanges; ++i) ASSERT_TRUE(full.AddMassRange(1, 2));
  EXPECT_FALSE(full.AddMassRange(1, 2));
  EXPECT_EQ(full.NumMassRanges(), static_cast<int>(CFilter::kMaxMassRanges));
}

TEST(FilterLimits, TextLongerThanTheLimitIsRefusedBeforeParsing) {
  std::wstring text(CFilter::kMaxFilterTextLength, L' ');
  EXPECT_EQ(Parse(text.c_str()).ok, 1);  // at the limit: blank, so the empty filter
  text += L' ';
  Parsed p = Parse(text.c_str());
  EXPECT_EQ(p.ok, 0);
  EXPECT_NE(p.error.find(L"longer than"), std::wstring::npos) << p.error;
}

TEST(FilterLimits, MassRangeOutsideTheListIsEmpty) {
  CFilter f =
      MakeFilter(CFilter::PolarityAny, CFilter::ScanModeAny, CFilter::ScanTypeAny, {{3, 4}});
  EXPECT_EQ(f.GetMassRange(0), (CFilterMassRange{3, 4}));
  EXPECT_EQ(f.GetMassRange(1), CFilterMassRange());
  EXPECT_EQ(f.GetMassRange(-1), CFilterMassRange());
}

// Mutations of good filter text and random characters: every outcome is either a
// filter that renders to text the parser accepts again, or a rejection that names a
// position inside the text and leaves the empty filter.
TEST(FilterFuzz, ArbitraryTextNeverCrashesAndResultsAreConsistent) {
  const std::wstring seeds[] = {L"+ c Full ms [50.00-500.00]", L"- p SRM ms2 [1,2-3.5]", L"Z ms",
                                L"[0.01-0.02,3]"};
  const std::wstring alphabet = L"+-cpFulmsSIMRZ2[],.-0123456789 \te\u00e9\x01";
  std::mt19937 random(7);
  auto pick = [&](std::size_t n) {
    return std::uniform_int_distribution<std::size_t>(0, n - 1)(random);
  };
  int accepted = 0;
  for (int round = 0; round < 20000; ++round) {
    std::wstring text = seeds[pick(std::size(seeds))];
    const std::size_t edits = 1 + pick(4);
    for (std::size_t e = 0; e < edits; ++e) {
      const wchar_t c = alphabet[pick(alphabet.size())];
      switch (pick(3)) {
        case 0:
          text.insert(text.begin() + static_cast<long>(pick(text.size() + 1)), c);
          break;
        case 1:
          if (!text.empty()) text.erase(pick(text.size()), 1);
          break;
        default:
          if (!text.empty()) text[pick(text.size())] = c;
          break;
      }
    }
    Parsed p = Parse(text.c_str());
    if (p.ok) {
      ++accepted;
      EXPECT_EQ(Parse(p.filter.GetFilterString(-1, -1, 9)).ok, 1) << text;
    } else {
      EXPECT_GE(p.position, 0) << text;
      EXPECT_LE(p.position, static_cast<int>(text.size())) << text;
      EXPECT_FALSE(p.error.empty()) << text;
      EXPECT_EQ(p.filter, CFilter()) << text;
    }
  }
  EXPECT_GT(accepted, 0);  // the mutations reach the accepting paths too
}

}  // namespace
