// Window geometry of dialogs, their controls and plain windows, a dialog that resizes
// itself around a divider, and modeless dialogs, headless.
#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <vector>

#include "support/modeless_story.h"
#include "support/scripted_platform.h"
#include "vglobal/compat/dialog.h"

namespace {

using namespace vglobal;  // kinds and style bits
using Log = std::vector<std::string>;

enum : int { IDC_LIST = 5001, IDC_DETAILS, IDC_DIVIDER, IDC_COMMENT };

// 6 x 13 headless base units: the dialog is 300 x 260 pixels, the divider's top
// edge at 100 dialog units is 162.5, rounded to 163 pixels.
constexpr ControlTemplate kControls[] = {
    {IDC_LIST, ControlKind::ListBox, L"", 7, 7, 186, 80, kTabStop},
    {IDC_DETAILS, ControlKind::PushButton, L"Show Details >>", 7, 90, 60, 14, kTabStop},
    {IDOK, ControlKind::PushButton, L"OK", 143, 90, 50, 14, kDefault | kTabStop},
    {IDC_DIVIDER, ControlKind::Frame, L"", 0, 100, 200, 1, kEtchedHorz},
    {IDC_COMMENT, ControlKind::Edit, L"", 7, 110, 186, 40, kMultiline | kReadOnly},
};
constexpr DialogTemplate kTemplate{6200,      L"Audit Trail",      200, 160, 8,
                                   kControls, std::size(kControls)};

// A viewer that starts collapsed to the divider's top edge and toggles between that
// and its full height, as the audit-trail viewer does.
class CViewerDlg : public CDialog {
 public:
  explicit CViewerDlg(CWnd* parent = nullptr) : CDialog(kTemplate, parent) {
    On(IDC_DETAILS, BN_CLICKED, &CViewerDlg::OnDetails);
  }
  CRect full;
  int collapsedHeight = 0;
  bool expanded = false;
  Log log;

 protected:
  BOOL OnInitDialog() override {
    CDialog::OnInitDialog();
    CenterWindow();
    GetWindowRect(&full);
    CRect divider;
    GetDlgItem(IDC_DIVIDER)->GetWindowRect(&divider);
    collapsedHeight = divider.top - full.top;
    SetWindowPos(nullptr, 0, 0, full.Width(), collapsedHeight, SWP_NOMOVE | SWP_NOZORDER);
    return TRUE;
  }
  void OnDetails() {
    expanded = !expanded;
    SetDlgItemText(IDC_DETAILS, expanded ? L"<< Hide Details" : L"Show Details >>");
    SetWindowPos(nullptr, 0, 0, full.Width(), expanded ? full.Height() : collapsedHeight,
                 SWP_NOMOVE | SWP_NOZORDER);
  }
  void OnClose() override {
    log.push_back("OnClose");
    CDialog::OnClose();
  }
  void OnDestroy() override { log.push_back("OnDestroy"); }
};

CRect WindowRectOf(const CWnd& w) {
  CRect r;
  w.GetWindowRect(&r);
  return r;
}

// ---- geometry -------------------------------------------------------------------

TEST(DialogGeometry, TemplateUnitsBecomePixelsAndTheDialogOpensCentred) {
  CDialog dlg(kTemplate);
  EXPECT_FALSE(dlg.GetWindowRect(nullptr));
  CRect none(1, 2, 3, 4);
  EXPECT_FALSE(dlg.GetWindowRect(&none));  // no window yet
  EXPECT_TRUE(none.IsRectNull());
  DialogDriver user(dlg);
  ASSERT_TRUE(user.Open());
  EXPECT_EQ(WindowRectOf(dlg), CRect(810, 410, 1110, 670));  // centred on 1920 x 1080
  CRect client;
  dlg.GetClientRect(&client);
  EXPECT_EQ(client, CRect(0, 0, 300, 260));
  CWnd* list = dlg.GetDlgItem(IDC_LIST);
  EXPECT_EQ(WindowRectOf(*list), CRect(821, 421, 1100, 551));  // halves round up
  list->GetClientRect(&client);
  EXPECT_EQ(client, CRect(0, 0, 279, 130));

  CRect units(0, 0, 4, 8);
  dlg.MapDialogRect(&units);
  EXPECT_EQ(units, CRect(0, 0, 6, 13));
  POINT p{0, 0};
  list->ClientToScreen(&p);
  EXPECT_EQ(CPoint(p), CPoint(821, 421));
  dlg.ScreenToClient(&p);
  EXPECT_EQ(CPoint(p), CPoint(11, 11));
}

TEST(DialogGeometry, ControlsMoveWithinTheDialogAndTheDialogCentresOnItsParent) {
  CWnd owner;
  owner.MoveWindow(100, 100, 400, 300);
  CDialog dlg(kTemplate, &owner);
  DialogDriver user(dlg);
  ASSERT_TRUE(user.Open());
  EXPECT_EQ(WindowRectOf(dlg).TopLeft(), CPoint(150, 120));

  CWnd* ok = dlg.GetDlgItem(IDOK);
  ok->MoveWindow(10, 20, 50, -5);  // a negative size is no size
  EXPECT_EQ(WindowRectOf(*ok), CRect(160, 140, 210, 140));
  EXPECT_TRUE(ok->SetWindowPos(nullptr, 30, 40, 0, 0, SWP_NOSIZE | SWP_HIDEWINDOW));
  EXPECT_EQ(WindowRectOf(*ok), CRect(180, 160, 230, 160));
  EXPECT_FALSE(ok->IsWindowVisible());
  ok->SetWindowPos(nullptr, 0, 0, 70, 20, SWP_NOMOVE | SWP_SHOWWINDOW);
  EXPECT_EQ(WindowRectOf(*ok), CRect(180, 160, 250, 180));
  EXPECT_TRUE(ok->IsWindowVisible());
  ok->CenterWindow();  // in the dialog's client area
  CRect inDialog = WindowRectOf(*ok);
  dlg.ScreenToClient(&inDialog);
  EXPECT_EQ(inDialog, CRect(115, 120, 185, 140));

  dlg.CenterWindow(nullptr);
  dlg.MoveWindow(-5000, 10, 300, 260);  // moved by code it may leave the screen
  EXPECT_EQ(WindowRectOf(dlg).left, -5000);
  dlg.CenterWindow();  // centring keeps it on the screen
  EXPECT_EQ(WindowRectOf(dlg).TopLeft(), CPoint(150, 120));

  user.Destroy();
  EXPECT_FALSE(dlg.SetWindowPos(nullptr, 0, 0, 1, 1, 0));
}

TEST(WindowGeometry, PlainWindowsNestInTheirParentsClientAreas) {
  CWnd top;
  top.MoveWindow(CRect(50, 60, 450, 360));
  struct Child : CWnd {
    explicit Child(CWnd* p) { parent_ = p; }
  } child(&top);
  child.MoveWindow(10, 20, 100, 50);
  EXPECT_EQ(WindowRectOf(child), CRect(60, 80, 160, 130));
  CRect r(0, 0, 10, 10);
  child.ClientToScreen(&r);
  EXPECT_EQ(r, CRect(60, 80, 70, 90));
  child.ScreenToClient(&r);
  EXPECT_EQ(r, CRect(0, 0, 10, 10));
  child.CenterWindow();
  EXPECT_EQ(WindowRectOf(child), CRect(200, 185, 300, 235));
}

TEST(DialogGeometry, ViewerCollapsesToItsDividerAndExpandsInPlace) {
  CViewerDlg dlg;
  DialogDriver user(dlg);
  ASSERT_TRUE(user.Open());
  EXPECT_EQ(dlg.collapsedHeight, 163);
  EXPECT_EQ(WindowRectOf(dlg), CRect(810, 410, 1110, 573));
  ASSERT_TRUE(user.Click(IDC_DETAILS));
  EXPECT_EQ(WindowRectOf(dlg), CRect(810, 410, 1110, 670));
  CString caption;
  dlg.GetDlgItemText(IDC_DETAILS, caption);
  EXPECT_EQ(caption, L"<< Hide Details");
  ASSERT_TRUE(user.Click(IDC_DETAILS));
  EXPECT_EQ(WindowRectOf(dlg), CRect(810, 410, 1110, 573));

  // The user drags the window elsewhere: the model follows, the size stays.
  EXPECT_TRUE(user.MoveWindow(CRect(600, 300, 900, 463)));
  ASSERT_TRUE(user.Click(IDC_DETAILS));
  EXPECT_EQ(WindowRectOf(dlg), CRect(600, 300, 900, 560));
}

// ---- modeless dialogs ----------------------------------------------------------

TEST(ModelessDialog, IsDrivenWhileOpenAndItsCloseButtonDestroysIt) {
  CViewerDlg dlg;
  ASSERT_TRUE(dlg.Create(0));
  EXPECT_FALSE(dlg.Create(0));  // open already
  EXPECT_TRUE(dlg.IsModeless());
  EXPECT_TRUE(dlg.IsWindowVisible());
  DialogDriver user(dlg);
  EXPECT_TRUE(user.Click(IDC_DETAILS));
  EXPECT_TRUE(dlg.expanded);
  EXPECT_TRUE(user.Close());
  EXPECT_EQ(dlg.log, (Log{"OnClose", "OnDestroy"}));
  EXPECT_FALSE(dlg.IsOpen());
  EXPECT_FALSE(dlg.IsModeless());
  EXPECT_FALSE(dlg.DestroyWindow());  // nothing left to destroy
}

TEST(ModelessDialog, EndDialogHidesAndOkDestroys) {
  CViewerDlg dlg;
  ASSERT_TRUE(dlg.Create(kTemplate));
  DialogDriver user(dlg);
  dlg.EndDialog(IDCANCEL);
  EXPECT_TRUE(dlg.IsOpen());
  EXPECT_FALSE(dlg.IsWindowVisible());
  EXPECT_EQ(dlg.GetEndCode(), IDCANCEL);
  EXPECT_FALSE(user.Click(IDC_DETAILS));  // a hidden window takes no input
  dlg.ShowWindow(SW_SHOW);
  EXPECT_TRUE(user.PressEnter());  // OK
  EXPECT_FALSE(dlg.IsOpen());
  EXPECT_EQ(dlg.GetEndCode(), IDOK);
  EXPECT_EQ(dlg.log, Log{"OnDestroy"});

  ASSERT_TRUE(dlg.Create(0));
  EXPECT_TRUE(dlg.DestroyWindow());
  EXPECT_FALSE(dlg.IsOpen());
  EXPECT_EQ(dlg.log.back(), "OnDestroy");
}

TEST(ModelessDialog, ModalDialogIsNotDestroyedAsAWindow) {
  CViewerDlg dlg;
  DialogDriver user(dlg);
  ASSERT_TRUE(user.Open());
  EXPECT_FALSE(dlg.DestroyWindow());
  EXPECT_TRUE(dlg.IsOpen());
  CDialog missing(31999u);
  EXPECT_FALSE(missing.Create(0));
  EXPECT_FALSE(missing.IsModeless());
}

// The tool window's story: opened beside the main window, its buttons tell the parent
// at once and hand work to the main window through the queue, and closing it says
// good-bye. Commands sent to it reach its buttons' routes.
TEST(ModelessDialog, TalksToItsParentAndTheMainWindowUntilItIsClosed) {
  vglobal::testing::ScriptedPlatform platform;
  story::MainWindow main;
  CWinApp app(L"Story");
  app.m_pMainWnd = &main;
  story::ToolWindow tool(&main);
  ASSERT_TRUE(tool.Create(0, &main));
  DialogDriver user(tool);

  ASSERT_TRUE(user.Click(story::IDC_RESET));
  ASSERT_TRUE(user.Click(story::IDC_PROCESS));
  EXPECT_EQ(main.log, Log{"reset 0"});  // the command waits for the queue
  platform.DrainPosted();
  EXPECT_EQ(main.log, (Log{"reset 0", "process"}));

  tool.SendMessage(WM_COMMAND, MAKEWPARAM(story::IDC_RESET, BN_CLICKED));
  EXPECT_EQ(main.log.back(), "reset 0");
  tool.SendMessage(WM_COMMAND, IDCANCEL);  // as the Close button: the window goes
  EXPECT_FALSE(tool.IsOpen());
  EXPECT_EQ(main.log.back(), "goodbye 1");
  EXPECT_EQ(tool.SendMessage(WM_COMMAND, IDCANCEL), 0);  // nothing left to close
}

}  // namespace
