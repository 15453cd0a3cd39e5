// The control kinds beyond the classic ones, headless: toolbar buttons and their
// layout, spin buttons with a buddy, owner-drawn painting, images in lists, and
// controls made while a dialog is open.
#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <vector>

#include "support/test_dc.h"
#include "vglobal/compat/dialog.h"
#include "vglobal/compat/image_list.h"
#include "vglobal/compat/resources.h"

namespace {

using namespace vglobal;  // kinds and style bits
using Log = std::vector<std::string>;

enum : int { IDC_BAR = 3001, IDC_COUNT, IDC_SPIN, IDC_PREVIEW, IDC_LIST, IDC_TABLE, IDC_MADE };
enum : int { ID_OPEN = 4001, ID_SAVE, ID_BOLD, ID_PRINT };

// 6 x 13 headless base units: x pixels = dlu * 1.5, y pixels = dlu * 13 / 8.
constexpr ControlTemplate kControls[] = {
    {IDC_BAR, ControlKind::ToolBar, L"", 0, 0, 80, 16, 0},
    {IDC_COUNT, ControlKind::NumericEdit, L"5", 10, 40, 40, 12, kTabStop},
    {IDC_SPIN, ControlKind::SpinButton, L"", 0, 0, 8, 12, kAutoBuddy | kSetBuddyInt | kAlignRight},
    {IDC_PREVIEW, ControlKind::OwnerDrawn, L"", 60, 40, 60, 20, 0},
    {IDC_LIST, ControlKind::ListBox, L"", 10, 70, 60, 40, kTabStop},
    {IDC_TABLE, ControlKind::ListCtrl, L"", 80, 70, 80, 40, kTabStop},
    {IDOK, ControlKind::PushButton, L"OK", 120, 120, 40, 14, kDefault | kTabStop},
};
constexpr DialogTemplate kTemplate{6100, L"Kinds", 180, 140, 8, kControls, std::size(kControls)};

constexpr TBBUTTON Button(int image, int command, BYTE state = TBSTATE_ENABLED,
                          BYTE style = TBSTYLE_BUTTON) {
  return {image, command, state, style, {0, 0}, 0, 0};
}
constexpr TBBUTTON kSeparator{0, 0, TBSTATE_ENABLED, TBSTYLE_SEP, {0, 0}, 0, 0};

class CKindsDlg : public CDialog {
 public:
  CKindsDlg() : CDialog(kTemplate) {
    On(ID_OPEN, BN_CLICKED, &CKindsDlg::OnOpen);
    On(ID_BOLD, BN_CLICKED, &CKindsDlg::OnBold);
    On(IDC_SPIN, UDN_DELTAPOS, &CKindsDlg::OnDeltaposSpin);
    On(IDC_COUNT, EN_CHANGE, &CKindsDlg::OnChangeCount);
  }
  Log log;
  bool refuseSpin = false;
  std::wstring previewText = L"Aa";

 protected:
  void OnDrawItem(int id, LPDRAWITEMSTRUCT dis) override {
    log.push_back("draw " + std::to_string(id) + " " + std::to_string(dis->rcItem.right) + "x" +
                  std::to_string(dis->rcItem.bottom));
    dis->pDC->TextOut(2, 3, previewText.c_str(), static_cast<int>(previewText.size()));
  }
  void OnOpen() { log.push_back("open"); }
  void OnBold() { log.push_back("bold"); }
  void OnChangeCount() { log.push_back("EN_CHANGE count"); }
  void OnDeltaposSpin(NMHDR* hdr, LRESULT* result) {
    auto* ud = reinterpret_cast<NMUPDOWN*>(hdr);
    log.push_back("delta " + std::to_string(ud->iPos) + " " + std::to_string(ud->iDelta));
    *result = refuseSpin;
  }
};

struct OpenKinds : ::testing::Test {
  CKindsDlg dlg;
  DialogDriver user{dlg};
  void SetUp() override {
    ASSERT_TRUE(user.Open());
    dlg.log.clear();
  }
  template <typename T>
  T& Item(int id) {
    T* item = dlg.GetDlgItemAs<T>(id);
    EXPECT_NE(item, nullptr);
    return *item;
  }
  CRect ClientRectOf(int id) {
    CRect r;
    dlg.GetDlgItem(id)->GetWindowRect(&r);
    dlg.ScreenToClient(&r);
    return r;
  }
};

// ---- toolbar ------------------------------------------------------------------

TEST_F(OpenKinds, ToolbarLaysButtonsOutInRowsThatEndAtTheWrapBitOrTheRightEdge) {
  auto& bar = Item<CToolBarCtrl>(IDC_BAR);  // 120 pixels wide
  const TBBUTTON buttons[] = {
      Button(0, ID_OPEN), kSeparator,          Button(1, ID_SAVE, TBSTATE_ENABLED | TBSTATE_WRAP),
      Button(2, ID_BOLD), Button(3, ID_PRINT), Button(4, 4005),
      Button(5, 4006),    Button(6, 4007),     Button(7, 4008)};
  ASSERT_TRUE(bar.AddButtons(static_cast<int>(std::size(buttons)), buttons));
  CRect r;
  ASSERT_TRUE(bar.GetItemRect(1, &r));
  EXPECT_EQ(r, CRect(24, 0, 32, 22));  // separators are 8 wide
  ASSERT_TRUE(bar.GetItemRect(2, &r));
  EXPECT_EQ(r, CRect(32, 0, 56, 22));
  ASSERT_TRUE(bar.GetItemRect(3, &r));
  EXPECT_EQ(r, CRect(0, 22, 24, 44));  // after the wrap bit
  ASSERT_TRUE(bar.GetItemRect(7, &r));
  EXPECT_EQ(r, CRect(96, 22, 120, 44));  // fills the row to its last pixel
  ASSERT_TRUE(bar.GetItemRect(8, &r));
  EXPECT_EQ(r, CRect(0, 44, 24, 66));  // would pass the right edge
  EXPECT_EQ(bar.GetRows(), 3);

  POINT onSave{40, 10}, onSeparator{28, 10}, below{5, 100};
  EXPECT_EQ(bar.HitTest(&onSave), 2);
  EXPECT_EQ(bar.HitTest(&onSeparator), -1);
  EXPECT_EQ(bar.HitTest(&below), -1);

  EXPECT_TRUE(bar.HideButton(ID_SAVE));
  EXPECT_FALSE(bar.GetItemRect(2, &r));
  ASSERT_TRUE(bar.GetItemRect(3, &r));
  EXPECT_EQ(r, CRect(32, 0, 56, 22));  // the hidden button's wrap went with it

  bar.SetRows(2, TRUE, &r);
  EXPECT_EQ(bar.GetRows(), 2);
  EXPECT_TRUE(bar.SetButtonSize(CSize(32, 31)));
  EXPECT_EQ(bar.GetButtonSize(), 32u | (31u << 16));
  EXPECT_FALSE(bar.SetButtonSize(CSize(0, 31)));
  EXPECT_FALSE(bar.GetItemRect(99, &r));
}

TEST_F(OpenKinds, ToolbarButtonsSendTheirCommandsUnlessDisabled) {
  auto& bar = Item<CToolBarCtrl>(IDC_BAR);
  const TBBUTTON buttons[] = {Button(0, ID_OPEN), kSeparator,
                              Button(1, ID_BOLD, TBSTATE_ENABLED, TBSTYLE_CHECK)};
  bar.AddButtons(3, buttons);
  EXPECT_EQ(bar.CommandToIndex(ID_BOLD), 2);
  EXPECT_EQ(bar.CommandToIndex(0), -1);  // separators have no command
  EXPECT_TRUE(user.ClickItem(IDC_BAR, 0));
  EXPECT_TRUE(user.ClickItem(IDC_BAR, 2));
  EXPECT_TRUE(bar.IsButtonChecked(ID_BOLD));
  EXPECT_FALSE(user.ClickItem(IDC_BAR, 1));
  EXPECT_FALSE(user.ClickItem(IDC_BAR, 7));
  bar.EnableButton(ID_OPEN, FALSE);
  EXPECT_FALSE(bar.IsButtonEnabled(ID_OPEN));
  EXPECT_FALSE(user.ClickItem(IDC_BAR, 0));
  EXPECT_EQ(dlg.log, (Log{"open", "bold"}));

  TBBUTTON got{};
  EXPECT_TRUE(bar.DeleteButton(0));
  EXPECT_TRUE(bar.InsertButton(1, &buttons[0]));
  ASSERT_TRUE(bar.GetButton(1, &got));
  EXPECT_EQ(got.idCommand, ID_OPEN);
  EXPECT_FALSE(bar.InsertButton(9, &buttons[0]));
  EXPECT_FALSE(bar.GetButton(3, &got));
}

TEST_F(OpenKinds, ToolbarTakesStripImagesAndTipsFromTheResources) {
  static constexpr StringEntry kStrings[] = {{ID_OPEN, L"Opens a file\nOpen"},
                                             {ID_SAVE, L"Saves without a tip"}};
  static const ResourceTables kTables{L"test", kStrings, std::size(kStrings)};
  SetApplicationResources(&kTables);
  auto& bar = Item<CToolBarCtrl>(IDC_BAR);
  EXPECT_EQ(bar.AddBitmap(kDemoToolbarImageCount, kDemoToolbarImagesSmall), 0);
  EXPECT_EQ(bar.AddBitmap(kDemoToolbarImageCount, kDemoToolbarImagesSmall), kDemoToolbarImageCount);
  ASSERT_NE(bar.GetImageList(), nullptr);
  EXPECT_EQ(bar.GetImageList()->GetImageCount(), 2 * kDemoToolbarImageCount);
  EXPECT_EQ(bar.AddBitmap(kDemoToolbarImageCount, kDemoToolbarImagesBig), -1);  // 24 x 24
  EXPECT_EQ(bar.AddBitmap(3, kDemoToolbarImagesSmall), -1);  // the strip holds 18
  EXPECT_EQ(bar.AddBitmap(1, 31999), -1);

  const TBBUTTON buttons[] = {Button(1, ID_OPEN), Button(2, ID_SAVE), kSeparator};
  bar.AddButtons(3, buttons);
  EXPECT_EQ(bar.GetButtonTip(0), L"Open");
  EXPECT_EQ(bar.GetButtonTip(1), L"");
  EXPECT_EQ(bar.GetButtonTip(2), L"");
  bar.SetTipSource([](UINT command) { return CString(command == ID_SAVE ? L"Save" : L""); });
  EXPECT_EQ(bar.GetButtonTip(1), L"Save");
  SetApplicationResources(nullptr);
}

// ---- spin button --------------------------------------------------------------

TEST_F(OpenKinds, SpinButtonSitsInItsBuddyAndStepsTheNumberItShows) {
  // The buddy was 60 x 20 at (15, 65); the arrows take its right 12 pixels.
  EXPECT_EQ(ClientRectOf(IDC_COUNT), CRect(15, 65, 63, 85));
  EXPECT_EQ(ClientRectOf(IDC_SPIN), CRect(63, 65, 75, 85));
  auto& spin = Item<CSpinButtonCtrl>(IDC_SPIN);
  EXPECT_EQ(spin.GetBuddy(), dlg.GetDlgItem(IDC_COUNT));
  spin.SetRange32(0, 7);
  EXPECT_EQ(spin.GetPos32(), 5);  // read from the buddy's text

  EXPECT_TRUE(user.Spin(IDC_SPIN, 1));
  EXPECT_TRUE(user.Spin(IDC_SPIN, 4));  // stops at the top of the range
  CString text;
  dlg.GetDlgItemText(IDC_COUNT, text);
  EXPECT_EQ(text, L"7");
  EXPECT_EQ(dlg.log, (Log{"delta 5 1", "EN_CHANGE count", "delta 6 4", "EN_CHANGE count"}));

  dlg.refuseSpin = true;
  EXPECT_TRUE(user.Spin(IDC_SPIN, -1));
  EXPECT_EQ(spin.GetPos32(), 7);

  spin.SetRange32(10, 0);  // runs downwards: up lowers the number
  dlg.refuseSpin = false;
  user.Spin(IDC_SPIN, 2);
  EXPECT_EQ(spin.GetPos32(), 5);

  BOOL error = FALSE;
  dlg.SetDlgItemText(IDC_COUNT, L"many");
  EXPECT_EQ(spin.GetPos32(&error), 5);
  EXPECT_TRUE(error);
  spin.SetBuddy(&dlg);  // not one of the dialog's controls
  EXPECT_EQ(spin.GetBuddy(), nullptr);
}

// ---- owner-drawn --------------------------------------------------------------

TEST_F(OpenKinds, OwnerDrawnControlIsPaintedByTheDialogAndAsksForRepaints) {
  struct Recorder : DialogObserver {
    Log seen;
    void Opened() override {}
    void ControlChanged(int index, unsigned aspects) override {
      seen.push_back(std::to_string(index) + "/" + std::to_string(aspects));
    }
    void FocusChanged(int) override {}
    void TitleChanged() override {}
    void Ended(INT_PTR) override {}
    void Closing() override {}
  } recorder;
  dlg.SetObserver(&recorder);
  vglobal::testing::TestDC dc;
  EXPECT_TRUE(user.Paint(IDC_PREVIEW, dc));
  EXPECT_EQ(dlg.log, Log{"draw " + std::to_string(IDC_PREVIEW) + " 90x33"});
  ASSERT_EQ(dc.drawn.size(), 1u);
  EXPECT_EQ(dc.drawn[0].text, L"Aa");
  EXPECT_FALSE(user.Paint(IDC_LIST, dc));  // not owner-drawn

  Item<CStatic>(IDC_PREVIEW).Invalidate();
  EXPECT_EQ(recorder.seen, Log{"3/" + std::to_string(kAspectPaint)});
  dlg.SetObserver(nullptr);
}

TEST(OwnerDrawn, MemberDerivedFromCStaticDrawsWhenTheDialogLeavesItToIt) {
  struct CPreview : CStatic {
    int draws = 0;
    void DrawItem(LPDRAWITEMSTRUCT dis) override {
      ++draws;
      dis->pDC->TextOut(0, 0, L"x", 1);
    }
  };
  struct Dlg : CDialog {
    CPreview preview;
    Dlg() : CDialog(kTemplate) {}
    void DoDataExchange(CDataExchange* dx) override { DDX_Control(dx, IDC_PREVIEW, preview); }
  } dlg;
  DialogDriver user(dlg);
  ASSERT_TRUE(user.Open());
  vglobal::testing::TestDC dc;
  EXPECT_TRUE(user.Paint(IDC_PREVIEW, dc));
  EXPECT_EQ(dlg.preview.draws, 1);
  EXPECT_EQ(dc.drawn.size(), 1u);
}

// ---- images in lists ----------------------------------------------------------

TEST_F(OpenKinds, ListsKeepTheirImageListAndRowImages) {
  CImageList images;
  ASSERT_TRUE(images.Create(kCommandImagesSmall, 16, 0, 0));
  auto& list = Item<CListBox>(IDC_LIST);
  EXPECT_EQ(list.SetImageList(&images), nullptr);
  EXPECT_EQ(list.GetImageList(), &images);
  list.AddString(L"Open");
  EXPECT_EQ(list.GetItemImage(0), -1);
  EXPECT_EQ(list.SetItemImage(0, 1), LB_OKAY);
  EXPECT_EQ(list.GetItemImage(0), 1);
  EXPECT_EQ(list.SetItemImage(3, 1), LB_ERR);

  auto& table = Item<CListCtrl>(IDC_TABLE);
  EXPECT_EQ(table.SetImageList(&images, LVSIL_SMALL), nullptr);
  EXPECT_EQ(table.GetImageList(LVSIL_SMALL), &images);
  EXPECT_EQ(table.GetImageList(LVSIL_NORMAL), nullptr);
  EXPECT_EQ(table.SetImageList(&images, 7), nullptr);
  EXPECT_EQ(table.GetImageList(7), nullptr);
  table.InsertItem(0, L"Save", 2);
  EXPECT_EQ(table.GetItemImage(0), 2);
}

// ---- controls made at run time ------------------------------------------------

TEST_F(OpenKinds, ControlsMadeWhileOpenJoinTheDialogUntilItCloses) {
  struct Recorder : DialogObserver {
    std::vector<int> added;
    void Opened() override {}
    void ControlChanged(int, unsigned) override {}
    void FocusChanged(int) override {}
    void TitleChanged() override {}
    void Ended(INT_PTR) override {}
    void Closing() override {}
    void ControlAdded(int index) override { added.push_back(index); }
  } recorder;
  dlg.SetObserver(&recorder);
  CListBox made;
  ASSERT_TRUE(made.Create(kTabStop | kSort, CRect(10, 10, 110, 60), &dlg, IDC_MADE));
  EXPECT_EQ(recorder.added, std::vector<int>{7});
  EXPECT_EQ(dlg.GetDlgItem(IDC_MADE), &made);
  EXPECT_EQ(dlg.GetControlTemplateAt(7)->kind, ControlKind::ListBox);
  made.AddString(L"b");
  made.AddString(L"a");
  EXPECT_TRUE(user.Select(IDC_MADE, 1));
  EXPECT_EQ(made.GetCurSel(), 1);
  CRect r;
  made.GetWindowRect(&r);
  dlg.ScreenToClient(&r);
  EXPECT_EQ(r, CRect(10, 10, 110, 60));

  EXPECT_FALSE(made.Create(0, CRect(), &dlg, 99));  // attached already
  CButton wrongKind;
  EXPECT_FALSE(wrongKind.Create(L"x", 0, CRect(), &dlg, 98, ControlKind::ListBox));
  CStatic notADialog;
  CWnd plain;
  EXPECT_FALSE(notADialog.Create(L"x", 0, CRect(), &plain));

  user.Destroy();
  EXPECT_FALSE(made.IsAttached());
  EXPECT_EQ(made.GetCount(), LB_ERR);
  CEdit late;
  EXPECT_FALSE(late.Create(0, CRect(), &dlg, 97));  // the dialog is closed
}

TEST(ControlKinds, TemplateWithAKindThatDoesNotExistCannotOpen) {
  static constexpr ControlTemplate kBad[] = {
      {1, static_cast<ControlKind>(200), L"", 0, 0, 10, 10, 0}};
  static constexpr DialogTemplate kBadTemplate{6101, L"Bad", 50, 50, 0, kBad, 1};
  CDialog dlg(kBadTemplate);
  DialogDriver user(dlg);
  EXPECT_FALSE(user.Open());
  EXPECT_FALSE(dlg.IsOpen());
  EXPECT_EQ(dlg.GetDlgItem(1), nullptr);
}

}  // namespace
