// Splitting text into rows of a width, counting and drawing them. Widths come from
// TestDC: 6 pixels a character, 10 a line.
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "support/test_dc.h"
#include "vglobal/util/string_split.h"

namespace {

using vglobal::testing::TestDC;
constexpr int kChar = TestDC::kCharWidth;

// Keeps the rows it is handed.
class RowRecorder : public VCStringSplitt {
 public:
  using VCStringSplitt::VCStringSplitt;
  std::vector<std::wstring> rows;
  void Display(CString& row) override { rows.push_back(row.str()); }
};

std::vector<std::wstring> Split(const wchar_t* text, const wchar_t* breakChars, int maxWidth) {
  TestDC dc;
  CString full(text), breaks(breakChars);
  RowRecorder splitter(full, breaks, &dc, maxWidth);
  splitter.DisplaySplitt();
  return splitter.rows;
}

using Rows = std::vector<std::wstring>;

TEST(StringSplit, LineBreaksEndRowsAndAreNotShown) {
  EXPECT_EQ(Split(L"one\r\ntwo\r\nthree", L" ", 100 * kChar), (Rows{L"one", L"two", L"three"}));
  EXPECT_EQ(Split(L"a\r\n\r\nb", L" ", 100 * kChar), (Rows{L"a", L"", L"b"}));
  // A bare line feed ends a row only when the row is too wide.
  EXPECT_EQ(Split(L"ab\ncd", L" ", 100 * kChar), (Rows{L"ab\ncd"}));
  EXPECT_EQ(Split(L"ab\ncd", L" ", 4 * kChar), (Rows{L"ab", L"cd"}));
}

TEST(StringSplit, BreakCharacterOrderDecidesWhereARowEnds) {
  // The space is tried first, so the row ends after it although a comma stands
  // further right; in the other order the comma wins.
  EXPECT_EQ(Split(L"one two,three", L" ,", 10 * kChar), (Rows{L"one ", L"two,three"}));
  EXPECT_EQ(Split(L"one two,three", L", ", 10 * kChar), (Rows{L"one two,", L"three"}));
  // Without any break character a row is cut where it stops fitting.
  EXPECT_EQ(Split(L"abcdefgh", L" ", 3 * kChar), (Rows{L"abc", L"def", L"gh"}));
}

TEST(StringSplit, ARowCutForWidthLosesNothingBeforeItsLineBreak) {
  EXPECT_EQ(Split(L"aaaa bbbb\r\ncc", L" ", 5 * kChar), (Rows{L"aaaa ", L"bbbb", L"cc"}));
  EXPECT_EQ(Split(L"ab\ncd", L" ", kChar), (Rows{L"a", L"b", L"c", L"d"}));
}

TEST(StringSplit, EndsOnWidthsNothingFits) {
  // Each character stands alone on its row; line breaks still end rows.
  for (int maxWidth : {kChar - 1, 0, -5, INT_MIN})
    EXPECT_EQ(Split(L"ab\r\nc", L"", maxWidth), (Rows{L"a", L"b", L"c"})) << maxWidth;
  EXPECT_EQ(Split(L"\r\n\n", L" ", -1), (Rows{L"", L""}));
  EXPECT_TRUE(Split(L"", L" ", 10).empty());
}

TEST(StringSplit, SplitsTheTextAsItWasWhenTheSplitBegan) {
  // A Display that rewrites its row and the text it is splitting.
  class Meddler : public RowRecorder {
   public:
    using RowRecorder::RowRecorder;
    void Display(CString& row) override {
      RowRecorder::Display(row);
      row = L"a much longer row than the one handed out";
      CString other(L"x");
      SetFullString(other);
    }
  };
  TestDC dc;
  CString full(L"one two three"), breaks(L" ");
  Meddler meddler(full, breaks, &dc, 4 * kChar);
  meddler.DisplaySplitt();
  EXPECT_EQ(meddler.rows, (Rows{L"one ", L"two ", L"thre", L"e"}));

  RowRecorder noContext(full, breaks, nullptr, 100);
  noContext.DisplaySplitt();
  EXPECT_TRUE(noContext.rows.empty());
}

TEST(StringDisplay, CountsWithoutDrawingWhenTheDrawingFlagIsClear) {
  TestDC dc;
  CString text(L"first\r\nsecond\r\nthird"), breaks(L" ");
  VCStringDisplay display(text, breaks, &dc, 100, 0, 0, 10, 1, FALSE, FALSE, 0);
  display.DisplaySplitt();
  EXPECT_EQ(display.Rows(), 3);
  EXPECT_TRUE(dc.drawn.empty());
  display.DisplaySplitt();
  EXPECT_EQ(display.Rows(), 3);  // each split counts afresh

  VCStringSplitt plain(text, breaks, &dc, 100);
  plain.DisplaySplitt();
  EXPECT_EQ(plain.Rows(), 0);
}

TEST(StringDisplay, DrawsFromTheFirstRowDownwards) {
  TestDC dc;
  CString text(L"r1\r\nr2\r\nr3\r\nr4"), breaks(L" ");
  VCStringDisplay display(text, breaks, &dc, 100, 5, 20, 12, 2, TRUE, FALSE, 0);
  display.DisplaySplitt();
  EXPECT_EQ(display.Rows(), 4);
  ASSERT_EQ(dc.drawn.size(), 3u);
  EXPECT_EQ(dc.drawn[0].text, L"r2");
  EXPECT_EQ(dc.drawn[0].x, 5);
  EXPECT_EQ(dc.drawn[0].y, 20);
  EXPECT_EQ(dc.drawn[2].text, L"r4");
  EXPECT_EQ(dc.drawn[2].y, 44);
}

TEST(StringDisplay, LimitComparesDistancesFromZero) {
  TestDC dc;
  CString text(L"a\r\nb\r\nc\r\nd"), breaks(L" ");
  // y grows downwards into negative numbers: -10 and -20 are above -25, -30 is not.
  VCStringDisplay display(text, breaks, &dc, 100, 0, -10, -10, 1, TRUE, TRUE, -25);
  display.DisplaySplitt();
  EXPECT_EQ(display.Rows(), 4);
  ASSERT_EQ(dc.drawn.size(), 2u);
  EXPECT_EQ(dc.drawn[1].y, -20);
}

TEST(StringDisplay, ExtremeCoordinatesWrapWithoutOverflow) {
  TestDC dc;
  CString text(L"a\r\nb"), breaks(L" ");
  VCStringDisplay down(text, breaks, &dc, 100, 0, INT_MAX, 10, 1, TRUE, TRUE, INT_MIN);
  down.DisplaySplitt();
  ASSERT_EQ(dc.drawn.size(), 2u);
  EXPECT_EQ(dc.drawn[1].y, INT_MIN + 9);
}

}  // namespace
