// List boxes and list controls as the audit viewer and the sample-list browser use
// them, headless: tab stops in dialog units, scrolling by pages of rows, the
// extended styles, and columns fitted to their texts.
#include <gtest/gtest.h>

#include <iterator>

#include "vglobal/compat/dialog.h"
#include "vglobal/compat/image_list.h"
#include "vglobal/platform.h"

namespace {

using namespace vglobal;  // kinds and style bits

enum : int { IDC_AUDIT = 3101, IDC_PLAIN, IDC_SAMPLES };

// 6 x 13 headless base units. The list boxes are 65 pixels high: 4 rows of 13 fit
// inside their 1-pixel border. The list control is 240 x 130: below its 21-pixel
// heading, 7 rows of 15.
constexpr ControlTemplate kControls[] = {
    {IDC_AUDIT, ControlKind::ListBox, L"", 7, 7, 200, 40, kTabStop | kUseTabStops},
    {IDC_PLAIN, ControlKind::ListBox, L"", 7, 50, 100, 40, kTabStop},
    {IDC_SAMPLES, ControlKind::ListCtrl, L"", 7, 95, 160, 80, kTabStop | kMultiSelect},
};
constexpr DialogTemplate kTemplate{6200, L"Lists", 220, 190, 8, kControls, std::size(kControls)};

struct OpenLists : ::testing::Test {
  CDialog dlg{kTemplate};
  DialogDriver user{dlg};
  void SetUp() override { ASSERT_TRUE(user.Open()); }
  CListBox& Box(int id) { return *dlg.GetDlgItemAs<CListBox>(id); }
  CListCtrl& Table() { return *dlg.GetDlgItemAs<CListCtrl>(IDC_SAMPLES); }
  void Fill(CListBox& box, int rows) {
    for (int i = 0; i < rows; ++i) box.AddString(std::to_wstring(i).c_str());
  }
};

TEST_F(OpenLists, TabStopsInDialogUnitsFallOnTheDialogFontsPixels) {
  CListBox& audit = Box(IDC_AUDIT);
  const int stops[] = {76, 170};  // the audit viewer's: 114 and 255 pixels
  ASSERT_TRUE(audit.SetTabStops(2, stops));
  EXPECT_EQ(audit.NextTabStop(0), 114);
  EXPECT_EQ(audit.NextTabStop(113), 114);
  EXPECT_EQ(audit.NextTabStop(114), 255);  // a text reaching a stop goes to the next
  EXPECT_EQ(audit.NextTabStop(260), 288);  // past the last: every 48 pixels (32 units)
  const int reversed[] = {170, 76};
  audit.SetTabStops(2, reversed);
  EXPECT_EQ(audit.NextTabStop(0), 114);

  audit.SetTabStops(0, nullptr);
  EXPECT_EQ(audit.NextTabStop(0), 48);
  const int every = 10;
  audit.SetTabStops(1, &every);
  EXPECT_EQ(audit.NextTabStop(15), 30);

  EXPECT_FALSE(audit.SetTabStops(-1, stops));
  EXPECT_FALSE(audit.SetTabStops(2, nullptr));
  EXPECT_EQ(audit.GetTabStops(), std::vector<int>{10});
  EXPECT_EQ(Box(IDC_PLAIN).NextTabStop(0), -1);  // no kUseTabStops: tabs as they come
}

TEST(ListTabStops, FollowTheFontTheDialogIsShownIn) {
  struct WideFont : HeadlessPlatform {
    WideFont() { SetPlatform(this); }
    ~WideFont() override { SetPlatform(nullptr); }
    CSize DialogBaseUnits(int) override { return {8, 16}; }
  } platform;
  CDialog dlg(kTemplate);
  DialogDriver user(dlg);
  ASSERT_TRUE(user.Open());
  auto* audit = dlg.GetDlgItemAs<CListBox>(IDC_AUDIT);
  const int stops[] = {76, 170};
  audit->SetTabStops(2, stops);
  EXPECT_EQ(audit->NextTabStop(0), 152);
  EXPECT_EQ(audit->GetItemHeight(0), 16);
}

TEST_F(OpenLists, ListBoxTopIndexIsARowNumberThatNeverScrollsPastTheLastPage) {
  CListBox& box = Box(IDC_PLAIN);
  Fill(box, 10);
  EXPECT_EQ(box.GetItemHeight(0), 13);
  EXPECT_EQ(box.SetTopIndex(3), LB_OKAY);
  EXPECT_EQ(box.GetTopIndex(), 3);
  EXPECT_EQ(box.SetTopIndex(9), LB_OKAY);
  EXPECT_EQ(box.GetTopIndex(), 6);  // rows 6..9 fill the last page
  EXPECT_EQ(box.SetTopIndex(10), LB_ERR);
  EXPECT_EQ(box.SetTopIndex(-1), LB_ERR);
  EXPECT_EQ(box.GetTopIndex(), 6);

  box.InsertString(0, L"new");  // the same row number, so the rows shown move down
  EXPECT_EQ(box.GetTopIndex(), 6);
  box.DeleteString(10);
  box.DeleteString(9);  // 9 rows left: the last page starts at 5
  EXPECT_EQ(box.GetTopIndex(), 5);
  while (box.GetCount() > 4) box.DeleteString(0);
  EXPECT_EQ(box.GetTopIndex(), 0);  // every row fits

  // Selecting by code scrolls the row into view, as little as it takes.
  Fill(box, 6);
  box.SetCurSel(8);
  EXPECT_EQ(box.GetTopIndex(), 5);
  box.SetCurSel(6);
  EXPECT_EQ(box.GetTopIndex(), 5);
  box.SetCurSel(1);
  EXPECT_EQ(box.GetTopIndex(), 1);

  // Higher rows make smaller pages.
  EXPECT_EQ(box.SetItemHeight(0, 30), LB_OKAY);  // 2 rows a page
  box.SetTopIndex(9);
  EXPECT_EQ(box.GetTopIndex(), 8);
  EXPECT_EQ(box.SetItemHeight(0, 0), LB_ERR);
  EXPECT_EQ(box.SetItemHeight(0, 256), LB_ERR);
  EXPECT_EQ(box.GetItemHeight(0), 30);
}

TEST_F(OpenLists, ListBoxRowsAreAsHighAsTheirImages) {
  CImageList images;
  ASSERT_TRUE(images.Create(kCommandImagesBig, 24, 0, 0));
  CListBox& box = Box(IDC_PLAIN);
  box.SetImageList(&images);
  EXPECT_EQ(box.GetItemHeight(0), 24);
  Fill(box, 5);
  box.SetTopIndex(4);
  EXPECT_EQ(box.GetTopIndex(), 3);  // 2 rows a page
}

TEST_F(OpenLists, EnsureVisibleScrollsAListControlAsLittleAsItTakes) {
  CListCtrl& table = Table();
  table.InsertColumn(0, L"Sample", LVCFMT_LEFT, 100);
  for (int i = 0; i < 20; ++i) table.InsertItem(i, std::to_wstring(i).c_str());
  EXPECT_EQ(table.GetCountPerPage(), 7);
  EXPECT_TRUE(table.EnsureVisible(3, FALSE));
  EXPECT_EQ(table.GetTopIndex(), 0);  // shown already
  table.EnsureVisible(10, FALSE);
  EXPECT_EQ(table.GetTopIndex(), 4);  // now the bottom row
  table.EnsureVisible(5, TRUE);
  EXPECT_EQ(table.GetTopIndex(), 4);
  table.EnsureVisible(2, FALSE);
  EXPECT_EQ(table.GetTopIndex(), 2);
  table.EnsureVisible(19, FALSE);
  EXPECT_EQ(table.GetTopIndex(), 13);
  EXPECT_FALSE(table.EnsureVisible(20, FALSE));
  EXPECT_EQ(table.GetTopIndex(), 13);

  CRect row;
  ASSERT_TRUE(table.GetItemRect(14, &row, LVIR_BOUNDS));
  EXPECT_EQ(row, CRect(1, 37, 101, 52));  // the second row of the page
  ASSERT_TRUE(table.GetItemRect(12, &row, LVIR_BOUNDS));
  EXPECT_EQ(row, CRect(1, 7, 101, 22));  // above the page, under the headings
  EXPECT_FALSE(table.GetItemRect(20, &row, LVIR_BOUNDS));
  EXPECT_FALSE(table.GetItemRect(0, &row, 3));

  for (int i = 0; i < 5; ++i) table.DeleteItem(0);  // 15 rows: the last page starts at 8
  EXPECT_EQ(table.GetTopIndex(), 8);
  CImageList images;
  ASSERT_TRUE(images.Create(kCommandImagesBig, 24, 0, 0));
  table.SetImageList(&images, LVSIL_SMALL);  // rows of 26: 4 a page
  EXPECT_EQ(table.GetCountPerPage(), 4);
  EXPECT_EQ(table.GetTopIndex(), 8);
  table.DeleteAllItems();
  EXPECT_EQ(table.GetTopIndex(), 0);
}

TEST_F(OpenLists, ExtendedStyleMessageChangesOnlyTheBitsOfItsMask) {
  CListCtrl table;
  ASSERT_TRUE(table.SubclassDlgItem(IDC_SAMPLES, &dlg));
  EXPECT_EQ(table.SetExtendedStyle(LVS_EX_FULLROWSELECT), 0u);
  EXPECT_EQ(table.SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_GRIDLINES, LVS_EX_GRIDLINES),
            static_cast<LRESULT>(LVS_EX_FULLROWSELECT));
  EXPECT_EQ(table.GetExtendedStyle(), LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
  table.SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, 0);
  EXPECT_EQ(table.SendMessage(LVM_GETEXTENDEDLISTVIEWSTYLE),
            static_cast<LRESULT>(LVS_EX_GRIDLINES));
  table.SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT);  // mask 0: all
  EXPECT_EQ(table.GetExtendedStyle(), LVS_EX_FULLROWSELECT);
  user.Destroy();
  EXPECT_EQ(table.SetExtendedStyle(LVS_EX_GRIDLINES), 0u);  // detached
}

TEST_F(OpenLists, AutoSizeFitsTheWidestRowOrAlsoTheHeading) {
  CListCtrl& table = Table();  // headless: 6 pixels a character, 6 of margin each side
  table.InsertColumn(0, L"Sample");
  table.InsertColumn(1, L"Injection volume", LVCFMT_RIGHT, 50);
  table.InsertColumn(2, L"Vial", LVCFMT_LEFT, 50);
  EXPECT_EQ(table.GetColumnWidth(0), 48);  // -1 fits the heading
  for (const wchar_t* name : {L"QC-1", L"Calibration level 10", L"Blank"})
    table.SetItemText(table.InsertItem(9, name), 1, L"5");

  EXPECT_TRUE(table.SetColumnWidth(0, LVSCW_AUTOSIZE));
  EXPECT_EQ(table.GetColumnWidth(0), 132);
  table.SetColumnWidth(1, LVSCW_AUTOSIZE);
  EXPECT_EQ(table.GetColumnWidth(1), 18);  // the heading is cut
  table.SetColumnWidth(1, LVSCW_AUTOSIZE_USEHEADER);
  EXPECT_EQ(table.GetColumnWidth(1), 108);
  table.SetColumnWidth(1, LVSCW_AUTOSIZE);
  table.SetColumnWidth(2, LVSCW_AUTOSIZE_USEHEADER);
  EXPECT_EQ(table.GetColumnWidth(2), 238 - 132 - 18);  // the last column takes the rest
  for (int i = 0; i < 5; ++i) table.InsertItem(0, L"");
  table.SetColumnWidth(2, LVSCW_AUTOSIZE_USEHEADER);
  EXPECT_EQ(table.GetColumnWidth(2), 238 - 132 - 18 - 17);  // beside the scroll bar
  table.SetColumnWidth(2, LVSCW_AUTOSIZE);
  EXPECT_EQ(table.GetColumnWidth(2), 12);  // no texts: the margins

  CImageList images;
  ASSERT_TRUE(images.Create(kCommandImagesSmall, 16, 0, 0));
  table.SetImageList(&images, LVSIL_SMALL);
  table.SetColumnWidth(0, LVSCW_AUTOSIZE);
  EXPECT_EQ(table.GetColumnWidth(0), 132 + 16 + 4);  // the image and its gap

  EXPECT_FALSE(table.SetColumnWidth(0, -3));
  EXPECT_FALSE(table.SetColumnWidth(3, LVSCW_AUTOSIZE));
  EXPECT_EQ(table.GetColumnWidth(0), 152);
}

}  // namespace
