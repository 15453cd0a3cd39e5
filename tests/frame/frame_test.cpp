// The library frame: attach and detach, VG_Init, the string table, the help launcher.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>

#include "frame/help.h"
#include "frame/module.h"
#include "frame/window_class.h"
#include "vglobal/compat/cstring.h"
#include "vglobal/compat/dialog.h"
#include "vglobal/compat/dialog_template.h"
#include "vglobal/frame.h"
#include "vglobal/platform.h"

namespace {

TEST(LibraryAttach, LibraryStringsAreInTheChainFromLoadOn) {
  CString s;
  ASSERT_TRUE(s.LoadString(5201));
  EXPECT_EQ(s, L"Cannot invoke application %1.");
  ASSERT_TRUE(s.LoadString(5924));
  EXPECT_EQ(s, L"Failure loading string resource, ID = %d");
  ASSERT_TRUE(s.LoadString(5601));
  EXPECT_EQ(s, L"This feature has not yet been implemented!");
  EXPECT_TRUE(s.LoadString(9016));
  EXPECT_EQ(s, L"Programs (*.exe)|*.exe|All Files (*.*)|*.*||");
}

TEST(LibraryAttach, RegistersTheFontPreviewClassAndDetachRemovesIt) {
  ASSERT_TRUE(vglobal::FindWindowClass(L"CFontPreview").has_value());

  // A second attach while the class is registered must refuse.
  EXPECT_FALSE(vglobal::frame::ProcessAttach());

  EXPECT_TRUE(vglobal::frame::ProcessDetach());
  EXPECT_FALSE(vglobal::FindWindowClass(L"CFontPreview").has_value());
  EXPECT_FALSE(vglobal::frame::LibraryModule().bInitialized);

  // Another module's class of the same name makes attach fail, and detach of this
  // module does not remove that other class.
  int otherModule = 0;
  vglobal::WindowClass foreign;
  foreign.name = L"cfontpreview";
  foreign.module = &otherModule;
  ASSERT_TRUE(vglobal::RegisterWindowClass(foreign));
  EXPECT_FALSE(vglobal::frame::ProcessAttach());
  vglobal::frame::ProcessDetach();
  EXPECT_TRUE(vglobal::FindWindowClass(L"CFontPreview").has_value());
  ASSERT_TRUE(vglobal::UnregisterWindowClass(L"CFontPreview", &otherModule));

  std::size_t before = AfxResourceChainLength();
  ASSERT_TRUE(vglobal::frame::ProcessAttach());
  EXPECT_EQ(AfxResourceChainLength(), before + 1);
  EXPECT_TRUE(vglobal::frame::LibraryModule().bInitialized);
}

TEST(LibraryAttach, VgInitAddsAChainEntryAndAlwaysReturnsOne) {
  std::size_t before = AfxResourceChainLength();
  EXPECT_EQ(VG_Init(), 1);
  EXPECT_EQ(AfxResourceChainLength(), before + 1);
  CString s;
  EXPECT_TRUE(s.LoadString(5201));
}

TEST(HelpCommands, ClassicCommandsMapToContextRequests) {
  using vglobal::frame::MapHelpCommand;
  auto topic = MapHelpCommand(HELP_CONTEXT, 5236);
  ASSERT_TRUE(topic);
  EXPECT_EQ(topic->command, HH_HELP_CONTEXT);
  EXPECT_EQ(topic->data, 5236u);
  auto def = MapHelpCommand(HELP_CONTEXT, 0);
  ASSERT_TRUE(def);
  EXPECT_EQ(def->command, HH_DISPLAY_TOPIC);
  EXPECT_EQ(def->data, 0u);
  auto onHelp = MapHelpCommand(HELP_HELPONHELP, 77);
  ASSERT_TRUE(onHelp);
  EXPECT_EQ(onHelp->command, HH_HELP_CONTEXT);
  EXPECT_EQ(onHelp->data, 1u);
  auto finder = MapHelpCommand(HELP_FINDER, 0);
  ASSERT_TRUE(finder);
  EXPECT_EQ(finder->data, 2u);
  EXPECT_FALSE(MapHelpCommand(HELP_QUIT, 5));
  EXPECT_FALSE(MapHelpCommand(HELP_INDEX, 0));
}

// Records what would be opened, and says whether a viewer exists.
class HelpPlatform : public vglobal::HeadlessPlatform {
 public:
  bool viewer = true;
  int availabilityAsked = 0;
  std::vector<std::wstring> opened;

  bool HelpViewerAvailable() override {
    ++availabilityAsked;
    return viewer;
  }
  bool OpenWithDesktop(const std::wstring& target) override {
    opened.push_back(target);
    return true;
  }
};

class HelpLauncher : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = std::filesystem::temp_directory_path() /
              ("vglobal-help-" + std::to_string(::getpid()) + " x");
    std::filesystem::create_directories(folder_);
    std::ofstream(folder_ / "topics.map") << "# map\n"
                                             "default  index.html\n"
                                             "1        using_help.html\n"
                                             "2        contents.html\n"
                                             "5236     audit.html#add\n"
                                             "666      ../outside.html\n";
    vglobal::frame::ResetHelpBinding();
    vglobal::SetPlatform(&platform_);
  }
  void TearDown() override {
    vglobal::SetPlatform(nullptr);
    vglobal::frame::ResetHelpBinding();
    std::filesystem::remove_all(folder_);
  }
  std::wstring Folder() const { return folder_.wstring(); }
  std::wstring Url(const std::string& topic) const {
    std::string path = folder_.string();
    std::string encoded;
    for (char c : path) encoded += c == ' ' ? std::string("%20") : std::string(1, c);
    return CString(("file://" + encoded + "/" + topic).c_str()).str();
  }

  std::filesystem::path folder_;
  HelpPlatform platform_;
};

TEST_F(HelpLauncher, OpensTheMappedTopicThroughTheDesktop) {
  EXPECT_EQ(ShowHtmlHelp(nullptr, HELP_CONTEXT, 5236, Folder().c_str()), 1);
  EXPECT_EQ(ShowHtmlHelp(nullptr, HELP_CONTEXT, 0, Folder().c_str()), 1);
  EXPECT_EQ(ShowHtmlHelp(nullptr, HELP_HELPONHELP, 0, Folder().c_str()), 1);
  EXPECT_EQ(ShowHtmlHelp(nullptr, HELP_FINDER, 0, Folder().c_str()), 1);
  ASSERT_EQ(platform_.opened.size(), 4u);
  EXPECT_EQ(platform_.opened[0], Url("audit.html#add"));
  EXPECT_EQ(platform_.opened[1], Url("index.html"));
  EXPECT_EQ(platform_.opened[2], Url("using_help.html"));
  EXPECT_EQ(platform_.opened[3], Url("contents.html"));
}

TEST_F(HelpLauncher, UnknownCommandsTopicsAndEscapingTopicsShowNothing) {
  EXPECT_EQ(ShowHtmlHelp(nullptr, HELP_QUIT, 5236, Folder().c_str()), 0);
  EXPECT_EQ(ShowHtmlHelp(nullptr, HELP_CONTEXT, 4242, Folder().c_str()), 0);
  EXPECT_EQ(ShowHtmlHelp(nullptr, HELP_CONTEXT, 666, Folder().c_str()), 0);
  EXPECT_EQ(ShowHtmlHelp(nullptr, HELP_CONTEXT, 5236, L"/no/such/help"), 0);
  EXPECT_TRUE(platform_.opened.empty());
}

TEST_F(HelpLauncher, AMissingViewerIsRememberedForTheProcess) {
  platform_.viewer = false;
  EXPECT_EQ(ShowHtmlHelp(nullptr, HELP_CONTEXT, 5236, Folder().c_str()), 0);
  platform_.viewer = true;
  EXPECT_EQ(ShowHtmlHelp(nullptr, HELP_CONTEXT, 5236, Folder().c_str()), 0);
  EXPECT_EQ(platform_.availabilityAsked, 1);
  EXPECT_TRUE(platform_.opened.empty());
}

TEST_F(HelpLauncher, NoFileMeansTheSuitesHelp) {
  ::setenv("ARVENIS_HELP_FILE", folder_.c_str(), 1);
  EXPECT_EQ(ShowHtmlHelp(nullptr, HELP_CONTEXT, 5236, nullptr), 1);
  EXPECT_EQ(ShowHtmlHelp(nullptr, HELP_CONTEXT, 5236, L""), 1);
  ::unsetenv("ARVENIS_HELP_FILE");
  EXPECT_EQ(platform_.opened.size(), 2u);
}

TEST_F(HelpLauncher, ADialogsHelpButtonOpensItsTopicInTheSuitesHelp) {
  static const vglobal::ControlTemplate controls[] = {
      {IDOK, vglobal::ControlKind::PushButton, L"OK", 10, 10, 50, 14, 0},
      {IDHELP, vglobal::ControlKind::PushButton, L"Help", 60, 10, 50, 14, 0},
  };
  static const vglobal::DialogTemplate tmpl{5236, L"Audit", 120, 30, 8, controls, 2};
  ::setenv("ARVENIS_HELP_FILE", folder_.c_str(), 1);
  CDialog dialog(tmpl);
  vglobal::DialogDriver driver(dialog);
  ASSERT_TRUE(driver.Open());
  EXPECT_TRUE(driver.PressHelp());
  ::unsetenv("ARVENIS_HELP_FILE");
  ASSERT_EQ(platform_.opened.size(), 1u);
  EXPECT_EQ(platform_.opened[0], Url("audit.html#add"));
}

TEST(ShippedHelp, EveryDialogContextIdHasATopic) {
  std::wstring shipped = CString(VGLOBAL_SOURCE_DIR "/resources/help/arvenis").str();
  for (DWORD_PTR id : {1, 2, 5014, 5236, 5237, 5301, 5391, 5392, 5395, 5912, 5915, 5917, 9022}) {
    auto topic = vglobal::frame::FindHelpTopic(shipped, {HH_HELP_CONTEXT, id});
    ASSERT_TRUE(topic) << id;
    EXPECT_TRUE(std::filesystem::exists(
        std::filesystem::path(VGLOBAL_SOURCE_DIR "/resources/help/arvenis") /
        CString(topic->c_str()).ToUtf8()))
        << id;
  }
}

}  // namespace
