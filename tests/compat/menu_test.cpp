// Menus: resources loaded by id, the exact edge answers of the menu functions the
// Tools menu is built with, command routing from a frame to the application, the
// update handlers that run before a pop-up opens, and pop-ups tracked headless.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/app_resources.h"
#include "support/scripted_platform.h"
#include "vglobal/compat/app.h"
#include "vglobal/compat/cmd_ui.h"
#include "vglobal/compat/frame_wnd.h"
#include "vglobal/compat/menu_template.h"
#include "vglobal/compat/resources.h"

namespace {

using vglobal::MenuItem;
using vglobal::MenuItemTemplate;
using vglobal::MenuPopup;
using vglobal::MenuSeparator;

constexpr UINT IDR_MAIN = 128, IDR_BROKEN = 129, IDR_PICTURE = 130;
constexpr UINT ID_OPEN = 100, ID_SAVE = 101, ID_EXIT = 102, ID_TOOLBAR = 200, ID_STATUS = 201,
               ID_ABOUT = 300, ID_CUSTOMIZE = 400;

constexpr MenuItemTemplate kFile[] = {MenuItem(L"&Open...\tCtrl+O", ID_OPEN),
                                      MenuItem(L"&Save", ID_SAVE, MF_GRAYED), MenuSeparator(),
                                      MenuItem(L"E&xit", ID_EXIT)};
constexpr MenuItemTemplate kView[] = {MenuItem(L"&Toolbar", ID_TOOLBAR, MF_CHECKED),
                                      MenuItem(L"&Status Bar", ID_STATUS)};
constexpr MenuItemTemplate kTools[] = {MenuItem(L"&Customize...", ID_CUSTOMIZE), MenuSeparator(),
                                       MenuItem(L"Notepad", 5000), MenuItem(L"Calc", 5001)};
constexpr MenuItemTemplate kBar[] = {MenuPopup(L"&File", kFile), MenuPopup(L"&View", kView),
                                     MenuPopup(L"&Tools", kTools), MenuItem(L"&About", ID_ABOUT)};
const MenuItemTemplate kLoop[] = {{L"&Again", 0, MF_POPUP, kLoop, 1}};
constexpr MenuItemTemplate kPicture[] = {MenuItem(L"x", 1, MF_BITMAP)};
constexpr vglobal::MenuTemplate kMain(IDR_MAIN, kBar), kBroken(IDR_BROKEN, kLoop),
    kPictureMenu(IDR_PICTURE, kPicture);
constexpr const vglobal::MenuTemplate* kMenus[] = {&kMain, &kBroken, &kPictureMenu};

class Menus : public ::testing::Test {
 protected:
  vglobal::testing::ScriptedPlatform platform_;
  vglobal::testing::ScopedAppResources resources_{kMenus};
};

std::vector<std::wstring> Texts(CMenu& menu) {
  std::vector<std::wstring> out;
  for (int i = 0; i < menu.GetMenuItemCount(); ++i) {
    CString text;
    menu.GetMenuString(static_cast<UINT>(i), text, MF_BYPOSITION);
    out.emplace_back(text.GetString());
  }
  return out;
}

TEST_F(Menus, LoadsAResourceAndRefusesWhatItCannotBuild) {
  CMenu bar;
  ASSERT_TRUE(bar.LoadMenu(IDR_MAIN));
  EXPECT_EQ(Texts(bar), (std::vector<std::wstring>{L"&File", L"&View", L"&Tools", L"&About"}));
  EXPECT_EQ(bar.GetMenuItemID(3), ID_ABOUT);
  CMenu* file = bar.GetSubMenu(0);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->GetMenuState(ID_SAVE, MF_BYCOMMAND), MF_GRAYED);
  EXPECT_EQ(bar.GetMenuState(ID_TOOLBAR, MF_BYCOMMAND), MF_CHECKED);
  EXPECT_EQ(file->GetMenuItemID(2), 0u);
  EXPECT_FALSE(bar.LoadMenu(IDR_MAIN));  // one menu is attached already

  CMenu other;
  EXPECT_FALSE(other.LoadMenu(999));
  EXPECT_FALSE(other.LoadMenu(IDR_BROKEN));  // a pop-up that holds itself
  EXPECT_FALSE(other.LoadMenu(IDR_PICTURE));
  EXPECT_EQ(other.m_hMenu, nullptr);
  EXPECT_EQ(other.GetMenuItemCount(), -1);
}

TEST_F(Menus, AnswerAtTheEdgesAsTheWindowsMenuFunctionsDo) {
  CMenu bar;
  bar.LoadMenu(IDR_MAIN);
  wchar_t buffer[10] = L"unchanged";
  EXPECT_EQ(bar.GetMenuString(2, buffer, 10, MF_BYPOSITION), 6);
  EXPECT_EQ(bar.GetMenuString(0, nullptr, 10, MF_BYPOSITION), 5);  // length only
  EXPECT_EQ(bar.GetMenuString(0, buffer, 0, MF_BYPOSITION), 5);
  EXPECT_EQ(std::wstring(buffer), L"&Tools");  // untouched by the two above
  EXPECT_EQ(bar.GetMenuString(0, buffer, 1, MF_BYPOSITION), 0);
  EXPECT_EQ(buffer[0], L'\0');
  EXPECT_EQ(bar.GetMenuString(ID_OPEN, buffer, 10, MF_BYCOMMAND), 9);  // cut at 9
  EXPECT_EQ(std::wstring(buffer), L"&Open...\t");
  EXPECT_EQ(bar.GetMenuString(4, buffer, 10, MF_BYPOSITION), 0);  // no such item

  EXPECT_EQ(bar.GetMenuItemID(0), 0xFFFFFFFFu);  // a pop-up
  EXPECT_EQ(bar.GetMenuItemID(4), 0xFFFFFFFFu);
  EXPECT_EQ(bar.GetMenuItemID(-1), 0xFFFFFFFFu);
  EXPECT_EQ(bar.GetSubMenu(3), nullptr);  // a command
  EXPECT_EQ(bar.GetSubMenu(-1), nullptr);
  EXPECT_FALSE(bar.AppendMenu(MF_OWNERDRAW, 7, reinterpret_cast<const wchar_t*>(0x1234)));
  EXPECT_FALSE(bar.ModifyMenu(3, MF_BYPOSITION | MF_BITMAP, 7, nullptr));
  EXPECT_EQ(bar.GetMenuItemCount(), 4);
}

// The Tools menu is refilled by finding "Tools" among the top-level items from the
// end (texts read into ten characters, "&" dropped) and removing the items after
// the pop-up's last separator.
TEST_F(Menus, ToolsMenuRefillKeepsItemsUpToTheLastSeparator) {
  CMenu bar;
  bar.LoadMenu(IDR_MAIN);
  CMenu* tools = nullptr;
  for (int i = bar.GetMenuItemCount() - 1; i >= 0 && !tools; --i) {
    wchar_t text[10];
    bar.GetMenuString(static_cast<UINT>(i), text, 10, MF_BYPOSITION);
    std::wstring name(text);
    std::erase(name, L'&');
    if (name == L"Tools") tools = bar.GetSubMenu(i);
  }
  ASSERT_NE(tools, nullptr);
  while (tools->GetMenuItemCount() > 2 && tools->GetMenuItemID(tools->GetMenuItemCount() - 1) != 0)
    EXPECT_TRUE(tools->RemoveMenu(static_cast<UINT>(tools->GetMenuItemCount() - 1), MF_BYPOSITION));
  tools->AppendMenu(MF_STRING, 5000, L"Editor");
  EXPECT_EQ(Texts(*tools), (std::vector<std::wstring>{L"&Customize...", L"", L"Editor"}));
}

class App : public CWinApp {
 public:
  App() : CWinApp(L"MenuTest") {
    OnCommand(ID_ABOUT, &App::OnAbout);
    OnCommand(ID_OPEN, &App::OnOpen);
  }
  std::vector<std::wstring> calls;
  void OnAbout() { calls.push_back(L"app about"); }
  void OnOpen() { calls.push_back(L"app open"); }
};

class MainFrame : public CFrameWnd {
 public:
  MainFrame() {
    OnCommand(ID_OPEN, &MainFrame::OnOpen);
    OnCommandRange(5000, 5020, &MainFrame::OnTool);
    OnUpdateCommandUI(ID_TOOLBAR, &MainFrame::OnUpdateToolbar);
    OnUpdateCommandUI(ID_OPEN, &MainFrame::OnUpdateOpen);
    OnUpdateCommandUIRange(5000, 5020, &MainFrame::OnUpdateTool);
  }
  std::vector<std::wstring> calls;
  bool toolbarShown = false;
  void OnOpen() { calls.push_back(L"frame open"); }
  void OnTool(UINT id) { calls.push_back(L"tool " + std::to_wstring(id)); }
  void OnUpdateToolbar(CCmdUI* ui) { ui->SetCheck(toolbarShown); }
  void OnUpdateOpen(CCmdUI* ui) { ui->SetText(L"&Open Method..."); }
  void OnUpdateTool(CCmdUI* ui) {
    // The first tool's handler drops the second: the walk must not skip the third.
    if (ui->m_nID == 5000 && ui->m_pMenu->GetMenuItemID(static_cast<int>(ui->m_nIndex) + 1) == 5001)
      ui->m_pMenu->RemoveMenu(5001, MF_BYCOMMAND);
    ui->SetRadio(ui->m_nID == 5002);
  }
};

TEST_F(Menus, CommandsReachTheFrameThenTheApplication) {
  App app;
  MainFrame frame;
  ASSERT_TRUE(frame.LoadFrame(IDR_MAIN));
  frame.SendMessage(WM_COMMAND, ID_OPEN);   // the frame's own handler wins
  frame.SendMessage(WM_COMMAND, ID_ABOUT);  // only the application has one
  frame.SendMessage(WM_COMMAND, 5007);      // a range
  frame.SendMessage(WM_COMMAND, ID_EXIT);   // nobody: nothing happens
  EXPECT_EQ(frame.calls, (std::vector<std::wstring>{L"frame open", L"tool 5007"}));
  EXPECT_EQ(app.calls, (std::vector<std::wstring>{L"app about"}));
}

TEST_F(Menus, UpdateHandlersRunBeforeAPopupOpensAndGrayCommandsNobodyTakes) {
  App app;
  MainFrame frame;
  ASSERT_TRUE(frame.LoadFrame(IDR_MAIN));
  CMenu* bar = frame.GetMenu();
  ASSERT_NE(bar, nullptr);
  CMenu* file = bar->GetSubMenu(0);
  vglobal::NotifyMenuOpening(frame, *file, 0);
  EXPECT_EQ(Texts(*file)[0], L"&Open Method...");
  EXPECT_EQ(file->GetMenuState(ID_OPEN, MF_BYCOMMAND), 0u);
  EXPECT_EQ(file->GetMenuState(ID_EXIT, MF_BYCOMMAND), MF_GRAYED);  // no handler anywhere

  CMenu* view = bar->GetSubMenu(1);
  vglobal::NotifyMenuOpening(frame, *view, 1);
  EXPECT_EQ(view->GetMenuState(ID_TOOLBAR, MF_BYCOMMAND), MF_UNCHECKED);
  frame.toolbarShown = true;
  vglobal::NotifyMenuOpening(frame, *view, 1);
  EXPECT_EQ(view->GetMenuState(ID_TOOLBAR, MF_BYCOMMAND), MF_CHECKED);

  CMenu* tools = bar->GetSubMenu(2);
  tools->AppendMenu(MF_STRING, 5002, L"Paint");
  vglobal::NotifyMenuOpening(frame, *tools, 2);
  EXPECT_EQ(Texts(*tools),
            (std::vector<std::wstring>{L"&Customize...", L"", L"Notepad", L"Paint"}));
  EXPECT_EQ(tools->GetMenuState(5002, MF_BYCOMMAND), MF_CHECKED | MFT_RADIOCHECK);
  EXPECT_EQ(tools->GetMenuState(5000, MF_BYCOMMAND), MF_UNCHECKED);
  EXPECT_EQ(tools->GetMenuState(ID_CUSTOMIZE, MF_BYCOMMAND), MF_GRAYED);
}

// A handler may replace the whole menu while its pop-up is being walked.
class Replacer : public CWnd {
 public:
  Replacer() { OnUpdateCommandUI(ID_OPEN, &Replacer::OnUpdateOpen); }
  CMenu bar;
  int updates = 0;
  void OnUpdateOpen(CCmdUI*) {
    ++updates;
    bar.DestroyMenu();
  }
};

TEST_F(Menus, AnUpdateHandlerThatDestroysTheMenuEndsTheWalk) {
  Replacer window;
  window.bar.LoadMenu(IDR_MAIN);
  CMenu* file = window.bar.GetSubMenu(0);
  vglobal::NotifyMenuOpening(window, *file, 0);
  EXPECT_EQ(window.updates, 1);
  EXPECT_EQ(window.bar.m_hMenu, nullptr);
}

TEST_F(Menus, APopupReturnsTheChoiceOrPostsItToTheOwner) {
  MainFrame frame;
  frame.toolbarShown = true;
  CMenu bar;
  bar.LoadMenu(IDR_MAIN);
  CMenu* view = bar.GetSubMenu(1);
  platform_.popupChoices = {ID_STATUS, 5003};
  EXPECT_EQ(view->TrackPopupMenu(TPM_RETURNCMD | TPM_RIGHTBUTTON, 10, 20, &frame), ID_STATUS);
  ASSERT_EQ(platform_.popups.size(), 1u);
  EXPECT_EQ(platform_.popups[0][0].state, MF_CHECKED);  // shown after the update handler

  EXPECT_TRUE(view->TrackPopupMenu(0, 10, 20, &frame));
  EXPECT_TRUE(frame.calls.empty());  // posted, not yet delivered
  platform_.DrainPosted();
  EXPECT_EQ(frame.calls, (std::vector<std::wstring>{L"tool 5003"}));

  EXPECT_TRUE(view->TrackPopupMenu(0, 0, 0, &frame));  // dismissed
  EXPECT_EQ(platform_.DrainPosted(), 0u);
  EXPECT_FALSE(view->TrackPopupMenu(TPM_RETURNCMD, 0, 0, nullptr));
}

TEST_F(Menus, AFrameOwnsItsMenuUntilReplaced) {
  HMENU first, second;
  {
    CFrameWnd frame;
    CMenu a, b;
    a.LoadMenu(IDR_MAIN);
    b.CreateMenu();
    first = a.Detach();
    second = b.Detach();
    EXPECT_TRUE(frame.SetMenu(CMenu::FromHandle(first)));
    EXPECT_TRUE(frame.SetMenu(CMenu::FromHandle(second)));
    EXPECT_EQ(frame.GetMenu()->m_hMenu, second);
    EXPECT_FALSE(frame.SetMenu(&a));  // nothing attached to it any more
  }
  EXPECT_TRUE(CMenu::IsMenu(first));  // replaced: the caller's
  EXPECT_FALSE(CMenu::IsMenu(second));
  CMenu owner;
  EXPECT_TRUE(owner.Attach(first));
}

}  // namespace
