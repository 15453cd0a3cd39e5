// The window vocabulary: rectangles, menus as data, and text layout in a CDC.
#include "vglobal/compat/window.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "support/test_dc.h"

namespace {

using vglobal::testing::TestDC;

// ---- rectangles -------------------------------------------------------------

TEST(Rect, IsHalfOpenAndNormalizes) {
  CRect r(10, 20, 0, 5);
  EXPECT_TRUE(r.IsRectEmpty());
  r.NormalizeRect();
  EXPECT_EQ(r, CRect(0, 5, 10, 20));
  EXPECT_TRUE(r.PtInRect(CPoint(0, 5)));
  EXPECT_FALSE(r.PtInRect(CPoint(10, 5)));
  EXPECT_FALSE(r.PtInRect(CPoint(0, 20)));
  EXPECT_TRUE(PtInRect(&r, CPoint(9, 19)));  // the free function of drop-position code
  EXPECT_FALSE(PtInRect(nullptr, CPoint(0, 5)));
  EXPECT_EQ(r.CenterPoint(), CPoint(5, 12));
  r.InflateRect(1, 2);
  r.OffsetRect(-1, -2);
  EXPECT_EQ(r, CRect(-2, 1, 10, 20));
}

TEST(Rect, IntersectionAndUnionIgnoreEmptyRectangles) {
  CRect out;
  EXPECT_TRUE(out.IntersectRect(CRect(0, 0, 10, 10), CRect(5, 5, 20, 20)));
  EXPECT_EQ(out, CRect(5, 5, 10, 10));
  EXPECT_FALSE(out.IntersectRect(CRect(0, 0, 10, 10), CRect(10, 0, 20, 10)));  // touching
  EXPECT_TRUE(out.IsRectNull());
  EXPECT_TRUE(out.UnionRect(CRect(), CRect(1, 1, 2, 2)));
  EXPECT_EQ(out, CRect(1, 1, 2, 2));
}

TEST(Rect, ExtremeCoordinatesWrapWithoutOverflow) {
  CRect r(INT_MIN, INT_MIN, INT_MAX, INT_MAX);
  EXPECT_EQ(r.Width(), -1);  // wrapped, as the 32-bit legacy arithmetic did
  EXPECT_EQ(r.CenterPoint(), CPoint(0, 0));
  r.OffsetRect(1, 1);
  EXPECT_EQ(r.right, INT_MIN);
}

// ---- menus ------------------------------------------------------------------

TEST(Menu, FindsCommandsInsidePopupsAndReportsPreviousStates) {
  CMenu bar;
  ASSERT_TRUE(bar.CreateMenu());
  CMenu tools;
  ASSERT_TRUE(tools.CreatePopupMenu());
  tools.AppendMenu(MF_STRING, 100, L"&Customize...");
  tools.AppendMenu(MF_SEPARATOR);
  tools.AppendMenu(MF_STRING | MF_GRAYED, 5000, L"Notepad");
  ASSERT_TRUE(bar.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(tools.Detach()), L"&Tools"));

  EXPECT_EQ(bar.GetMenuItemCount(), 1);
  EXPECT_EQ(bar.GetMenuItemID(0), 0xFFFFFFFFu);  // a pop-up
  CMenu* sub = bar.GetSubMenu(0);
  ASSERT_NE(sub, nullptr);
  EXPECT_EQ(sub->GetMenuItemID(1), 0u);  // a separator
  EXPECT_EQ(bar.EnableMenuItem(5000, MF_ENABLED), MF_GRAYED);
  EXPECT_EQ(bar.CheckMenuItem(100, MF_CHECKED), MF_UNCHECKED);
  EXPECT_EQ(bar.GetMenuState(100, MF_BYCOMMAND), MF_CHECKED);
  EXPECT_EQ(bar.CheckMenuItem(4242, MF_CHECKED), kMenuNoItem);

  wchar_t buffer[10];
  EXPECT_EQ(bar.GetMenuString(0, buffer, 10, MF_BYPOSITION), 6);
  EXPECT_EQ(std::wstring(buffer), L"&Tools");
  EXPECT_EQ(sub->GetMenuString(0, buffer, 10, MF_BYPOSITION), 9);  // cut to fit
  EXPECT_EQ(std::wstring(buffer), L"&Customiz");
}

TEST(Menu, RemovedPopupLivesOnDeletedPopupDies) {
  CMenu bar;
  bar.CreateMenu();
  CMenu a, b;
  a.CreatePopupMenu();
  b.CreatePopupMenu();
  HMENU ha = a.Detach(), hb = b.Detach();
  bar.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(ha), L"A");
  bar.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(hb), L"B");
  EXPECT_FALSE(bar.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(ha), L"again"));  // owned

  EXPECT_TRUE(bar.RemoveMenu(0, MF_BYPOSITION));
  EXPECT_TRUE(CMenu::IsMenu(ha));
  EXPECT_TRUE(bar.DeleteMenu(0, MF_BYPOSITION));
  EXPECT_FALSE(CMenu::IsMenu(hb));
  EXPECT_EQ(CMenu::FromHandle(hb), nullptr);
  EXPECT_EQ(bar.GetMenuItemCount(), 0);

  CMenu stale;
  EXPECT_FALSE(stale.Attach(hb));
  ASSERT_TRUE(a.Attach(ha));
  ASSERT_TRUE(bar.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(ha), L"A again"));
  EXPECT_FALSE(a.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(bar.m_hMenu), L"a cycle"));
}

TEST(Menu, InsertByCommandGoesBeforeThatItemWhereverItIs) {
  CMenu popup;
  popup.CreatePopupMenu();
  popup.AppendMenu(MF_STRING, 1, L"one");
  popup.AppendMenu(MF_STRING, 3, L"three");
  EXPECT_TRUE(popup.InsertMenu(3, MF_BYCOMMAND | MF_STRING, 2, L"two"));
  EXPECT_TRUE(popup.InsertMenu(static_cast<UINT>(-1), MF_BYPOSITION, 4, L"four"));
  EXPECT_FALSE(popup.InsertMenu(99, MF_BYCOMMAND, 5, L"nowhere"));
  std::vector<UINT> ids;
  for (int i = 0; i < popup.GetMenuItemCount(); ++i) ids.push_back(popup.GetMenuItemID(i));
  EXPECT_EQ(ids, (std::vector<UINT>{1, 2, 3, 4}));
  EXPECT_TRUE(popup.ModifyMenu(2, MF_BYCOMMAND, 22, L"TWO"));
  CString text;
  popup.GetMenuString(22, text, MF_BYCOMMAND);
  EXPECT_EQ(text, L"TWO");
}

// ---- text layout --------------------------------------------------------

TEST(DrawText, BreaksBetweenWordsAndMeasuresWhatItWouldDraw) {
  TestDC dc;
  CRect r(0, 0, 60, 100);  // ten characters a line
  int height = dc.DrawText(L"the quick brown fox jumps", -1, &r, DT_WORDBREAK | DT_CALCRECT);
  EXPECT_EQ(height, 30);
  EXPECT_EQ(r, CRect(0, 0, 54, 30));  // "the quick" / "brown fox" / "jumps"
  EXPECT_TRUE(dc.drawn.empty());

  CRect narrow(0, 0, 30, 100);
  dc.DrawText(L"extraordinary day", -1, &narrow, DT_WORDBREAK | DT_CALCRECT);
  EXPECT_EQ(narrow.right, 13 * TestDC::kCharWidth);  // a long word widens the rectangle

  CRect box(10, 0, 70, 100);
  dc.DrawText(L"ab  cd\r\nx", -1, &box, DT_RIGHT);
  ASSERT_EQ(dc.drawn.size(), 2u);
  EXPECT_EQ(dc.drawn[0].text, L"ab  cd");
  EXPECT_EQ(dc.drawn[0].x, 70 - 36);
  EXPECT_EQ(dc.drawn[1].y, 10);
}

TEST(DrawText, ResolvesMnemonicsAndShortensWithEllipsis) {
  TestDC dc;
  CRect r(0, 0, 100, 20);
  dc.DrawText(L"&Save && exit", -1, &r, DT_SINGLELINE | DT_VCENTER);
  ASSERT_EQ(dc.drawn.size(), 1u);
  EXPECT_EQ(dc.drawn[0].text, L"Save & exit");
  EXPECT_EQ(dc.drawn[0].y, 5);
  dc.drawn.clear();
  dc.DrawText(L"a&b", -1, &r, DT_NOPREFIX | DT_SINGLELINE);
  EXPECT_EQ(dc.drawn[0].text, L"a&b");
  dc.drawn.clear();
  dc.DrawText(L"ab\tc\t", -1, &r, DT_EXPANDTABS | DT_SINGLELINE);
  EXPECT_EQ(dc.drawn[0].text, L"ab      c       ");

  CRect small(0, 0, 42, 10);  // seven characters
  dc.drawn.clear();
  dc.DrawText(L"C:\\Data\\Sample.raw", -1, &small, DT_SINGLELINE | DT_END_ELLIPSIS);
  EXPECT_EQ(dc.drawn[0].text, L"C:\\D...");
  EXPECT_EQ(dc.DrawText(nullptr, -1, &small, 0), 0);
  EXPECT_EQ(dc.DrawText(L"x", 1, nullptr, 0), 0);
}

// ---- documents --------------------------------------------------------------

TEST(Document, TitleFollowsThePathsFileName) {
  CDocument doc;
  doc.SetPathName(L"C:\\Methods\\quan.meth");
  EXPECT_EQ(doc.GetTitle(), L"quan.meth");
  doc.SetPathName(L"/srv/data/run 1.raw");
  EXPECT_EQ(doc.GetTitle(), L"run 1.raw");
  EXPECT_FALSE(doc.IsModified());
  doc.SetModifiedFlag();
  EXPECT_TRUE(doc.IsModified());
}

}  // namespace
