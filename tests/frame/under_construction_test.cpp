// The "under construction" notice: which settings switch it off, and what OK and
// Cancel store.
#include <gtest/gtest.h>

#include <optional>

#include "frame/under_construction.h"
#include "support/scripted_platform.h"
#include "vglobal/compat/resources.h"
#include "vglobal/frame.h"
#include "vglobal/settings.h"
#include "vglobal/settings_store.h"

namespace {

using vglobal::DialogDriver;
using vglobal::kDoNotShowAgainId;
using vglobal::kDoNotShowValueName;

class UnderConstructionTest : public ::testing::Test {
 protected:
  void SetUp() override { vglobal::SetApplicationResources(&resources_); }
  void TearDown() override { vglobal::SetApplicationResources(nullptr); }

  static void Store(HKEY root, const wchar_t* section, int value) {
    CVRegKey key(root, section, 1, 1);
    ASSERT_TRUE(key.WriteInt(kDoNotShowValueName, value));
  }
  static std::optional<int> Stored(HKEY root, const wchar_t* section) {
    CVRegKey key(root, section, 0, 0);
    int value = 0;
    if (!key.ReadInt(kDoNotShowValueName, &value)) return std::nullopt;
    return value;
  }
  // The user ticks the box (or not) and presses OK or Cancel.
  void Answer(bool tick, int button) {
    platform_.scripts.push_back([tick, button](DialogDriver& user, CDialog& dialog) {
      EXPECT_EQ(dialog.IsDlgButtonChecked(kDoNotShowAgainId), 0u);
      if (tick) user.Click(kDoNotShowAgainId);
      user.Click(button);
    });
  }

  vglobal::UseMemorySettingsStores stores_;
  vglobal::testing::ScriptedPlatform platform_;

 private:
  const vglobal::DialogTemplate* const dialogs_[1] = {&vglobal::UnderConstructionTemplate()};
  const vglobal::ResourceTables resources_{L"test", nullptr, 0, dialogs_, 1};
};

TEST_F(UnderConstructionTest, NullSectionConsultsUserGlobalThenMachineGlobal) {
  Store(HKEY_CURRENT_USER, L"Global", 1);
  UnderConstruction();
  EXPECT_EQ(platform_.modalRuns, 0);

  Store(HKEY_CURRENT_USER, L"Global", 0);
  Store(HKEY_LOCAL_MACHINE, L"Global", 1);
  UnderConstruction(nullptr);
  EXPECT_EQ(platform_.modalRuns, 0);

  Store(HKEY_LOCAL_MACHINE, L"Global", 0);
  UnderConstruction(nullptr);
  EXPECT_EQ(platform_.modalRuns, 1);
}

TEST_F(UnderConstructionTest, MachineSwitchSuppressesEverySection) {
  Store(HKEY_LOCAL_MACHINE, L"Quan", 1);  // only "Global" counts on the machine
  UnderConstruction(L"Quan");
  EXPECT_EQ(platform_.modalRuns, 1);

  Store(HKEY_LOCAL_MACHINE, L"Global", 1);
  Store(HKEY_CURRENT_USER, L"Quan", 0);
  UnderConstruction(L"Quan");
  UnderConstruction(L"Never Seen");
  EXPECT_EQ(platform_.modalRuns, 1);
}

TEST_F(UnderConstructionTest, UnreadableSwitchCountsAsShow) {
  CVRegKey key(HKEY_CURRENT_USER, L"Tools", 1, 1);
  ASSERT_TRUE(key.WriteStr(kDoNotShowValueName, L"1"));  // not an int
  UnderConstruction(L"Tools");
  EXPECT_EQ(platform_.modalRuns, 1);
}

TEST_F(UnderConstructionTest, TickAndOkSwitchesOffTheGivenSectionOnly) {
  Answer(true, IDOK);
  UnderConstruction(L"Tools");
  EXPECT_EQ(Stored(HKEY_CURRENT_USER, L"Tools"), 1);
  EXPECT_EQ(Stored(HKEY_CURRENT_USER, L"Global"), std::nullopt);
  EXPECT_EQ(Stored(HKEY_LOCAL_MACHINE, L"Global"), std::nullopt);
  UnderConstruction(L"Tools");
  EXPECT_EQ(platform_.modalRuns, 1);

  Answer(false, IDOK);  // OK without the tick stores 0
  UnderConstruction(L"Reports");
  EXPECT_EQ(Stored(HKEY_CURRENT_USER, L"Reports"), 0);
}

TEST_F(UnderConstructionTest, CancelStoresNothingEvenWhenTicked) {
  Answer(true, IDCANCEL);
  UnderConstruction(L"Tools");
  EXPECT_EQ(platform_.modalRuns, 1);
  EXPECT_EQ(Stored(HKEY_CURRENT_USER, L"Tools"), std::nullopt);
}

TEST_F(UnderConstructionTest, NoticeShowsItsTitleAndText) {
  platform_.scripts.push_back([](DialogDriver&, CDialog& dialog) {
    CString title, text;
    dialog.GetWindowText(title);
    EXPECT_EQ(title, L"Hard Hat Area");
    dialog.GetDlgItemText(IDC_STATIC, text);
    EXPECT_EQ(text, L"This area is under construction.");
    dialog.GetDlgItemText(kDoNotShowAgainId, text);
    EXPECT_EQ(text, L"Do not show this dialog again");
    EXPECT_EQ(dialog.GetFocus(), dialog.GetDlgItem(kDoNotShowAgainId));
  });
  UnderConstruction();
  EXPECT_EQ(platform_.modalRuns, 1);
}

}  // namespace
