// The application object and its profile store on the user's settings store.
#include <gtest/gtest.h>

#include <memory>
#include <numeric>
#include <vector>

#include "vglobal/compat/app.h"
#include "vglobal/platform.h"
#include "vglobal/settings.h"
#include "vglobal/settings_store.h"

namespace {

class NamedPlatform : public vglobal::HeadlessPlatform {
 public:
  CString ApplicationName() override { return name; }
  CString name = L"Platform Name";
};

class Profile : public ::testing::Test {
 protected:
  Profile() { vglobal::SetPlatform(&platform_); }
  ~Profile() override { vglobal::SetPlatform(nullptr); }

  // The bytes a profile binary value reads back as, or nullopt when the read fails.
  std::optional<std::vector<BYTE>> Binary(const wchar_t* section, const wchar_t* entry) {
    BYTE* data = reinterpret_cast<BYTE*>(1);
    UINT bytes = 99;
    if (!app_.GetProfileBinary(section, entry, &data, &bytes)) {
      EXPECT_EQ(data, nullptr);
      EXPECT_EQ(bytes, 0u);
      return std::nullopt;
    }
    std::unique_ptr<BYTE[]> owned(data);
    EXPECT_NE(data, nullptr);  // a block even for 0 bytes: the caller frees it
    return std::vector<BYTE>(data, data + bytes);
  }

  vglobal::UseMemorySettingsStores stores_;
  NamedPlatform platform_;
  CWinApp app_{L"Workbench"};
};

TEST_F(Profile, ValuesRoundTripBitExactUnderTheApplicationKey) {
  std::vector<BYTE> big(64 * 1024);
  std::iota(big.begin(), big.end(), BYTE{7});  // every byte value, zeros included
  ASSERT_TRUE(app_.WriteProfileBinary(L"Toolbars", L"Big", big.data(), UINT(big.size())));
  ASSERT_TRUE(app_.WriteProfileBinary(L"Toolbars", L"Empty", nullptr, 0));
  ASSERT_TRUE(app_.WriteProfileString(L"Toolbars", L"Name", L"Réglages\tµ"));
  ASSERT_TRUE(app_.WriteProfileInt(L"Toolbars", L"Count", -3));

  EXPECT_EQ(Binary(L"Toolbars", L"Big"), big);
  EXPECT_EQ(Binary(L"Toolbars", L"Empty"), std::vector<BYTE>{});
  EXPECT_EQ(app_.GetProfileString(L"Toolbars", L"Name", L"x"), CString(L"Réglages\tµ"));
  EXPECT_EQ(static_cast<int>(app_.GetProfileInt(L"Toolbars", L"Count", 5)), -3);

  // Where they are: below Software\Ostrel\<application name>\<section>.
  CVRegKey key(HKEY_CURRENT_USER, L"Software\\Ostrel\\Workbench\\Toolbars", 0, 0);
  int count = 0;
  EXPECT_TRUE(key.ReadInt(L"Count", &count));
  EXPECT_EQ(count, -3);
}

TEST_F(Profile, MissingOrMistypedValuesGiveTheCallersDefault) {
  ASSERT_TRUE(app_.WriteProfileString(L"S", L"Text", L"12"));
  ASSERT_TRUE(app_.WriteProfileInt(L"S", L"Number", 12));

  EXPECT_EQ(app_.GetProfileInt(L"S", L"Text", 7), 7u);  // a string is not an int
  EXPECT_EQ(app_.GetProfileString(L"S", L"Number", L"d"), CString(L"d"));
  EXPECT_FALSE(Binary(L"S", L"Number"));
  EXPECT_EQ(app_.GetProfileInt(L"S", L"Absent", 4), 4u);
  EXPECT_EQ(app_.GetProfileInt(L"Absent section", L"Number", 4), 4u);
  EXPECT_EQ(app_.GetProfileString(L"S", L"Absent"), CString());
  EXPECT_FALSE(Binary(L"S", L"Absent"));
  EXPECT_FALSE(app_.GetProfileBinary(L"S", L"Number", nullptr, nullptr));
}

TEST_F(Profile, ASectionWithBackslashesIsAKeyPath) {
  ASSERT_TRUE(app_.WriteProfileInt(L"Arvenis Customizable Toolbars\\Bar 1", L"Rows", 2));
  CVRegKey key(HKEY_CURRENT_USER,
               L"Software\\Ostrel\\Workbench\\Arvenis Customizable Toolbars\\Bar 1", 0, 0);
  EXPECT_TRUE(key.IsValid());
  // A path with an empty step names no key: a clear failure, nothing written.
  EXPECT_FALSE(app_.WriteProfileInt(L"A\\\\B", L"Rows", 2));
  EXPECT_EQ(app_.GetProfileInt(L"A\\\\B", L"Rows", 9), 9u);
}

TEST_F(Profile, NullValueDeletesTheEntryAndNullEntryTheSection) {
  ASSERT_TRUE(app_.WriteProfileString(L"S\\Inner", L"A", L"1"));
  ASSERT_TRUE(app_.WriteProfileString(L"S\\Inner", L"B", L"2"));
  EXPECT_TRUE(app_.WriteProfileString(L"S\\Inner", L"A", nullptr));
  EXPECT_EQ(app_.GetProfileString(L"S\\Inner", L"A", L"gone"), CString(L"gone"));
  EXPECT_EQ(app_.GetProfileString(L"S\\Inner", L"B"), CString(L"2"));
  EXPECT_TRUE(app_.WriteProfileString(L"S\\Inner", nullptr, nullptr));
  EXPECT_FALSE(
      CVRegKey(HKEY_CURRENT_USER, L"Software\\Ostrel\\Workbench\\S\\Inner", 0, 0).IsValid());
  EXPECT_TRUE(CVRegKey(HKEY_CURRENT_USER, L"Software\\Ostrel\\Workbench\\S", 0, 0).IsValid());
  EXPECT_TRUE(app_.WriteProfileString(L"Never written", nullptr, nullptr));
}

TEST_F(Profile, TheNameComesFromThePlatformUnlessTheApplicationSetsOne) {
  CWinApp unnamed;
  EXPECT_EQ(AfxGetApp(), &unnamed);  // the last one made is in force
  EXPECT_EQ(unnamed.GetProfileName(), CString(L"Platform Name"));
  ASSERT_TRUE(unnamed.WriteProfileInt(L"S", L"V", 1));
  EXPECT_TRUE(CVRegKey(HKEY_CURRENT_USER, L"Software\\Ostrel\\Platform Name\\S", 0, 0).IsValid());

  unnamed.SetProfileName(L"Renamed");
  EXPECT_EQ(unnamed.GetProfileInt(L"S", L"V", 0), 0u);
  // A name that would reach into another application's key is refused.
  unnamed.SetProfileName(L"Other\\Arvenis");
  EXPECT_FALSE(unnamed.WriteProfileInt(L"S", L"V", 1));
  unnamed.SetProfileName(L"");
  platform_.name = L"";
  EXPECT_FALSE(unnamed.WriteProfileInt(L"S", L"V", 1));
  EXPECT_FALSE(app_.WriteProfileInt(L"", L"V", 1));
  EXPECT_FALSE(app_.WriteProfileInt(L"S", L"", 1));
}

TEST(Application, TheLibraryAnswersWhenTheProgramHasNoApplicationObject) {
  CWinApp* fallback = AfxGetApp();
  ASSERT_NE(fallback, nullptr);
  {
    CWinApp own(L"Own");
    CWnd main;
    own.m_pMainWnd = &main;
    EXPECT_EQ(AfxGetApp(), &own);
    EXPECT_EQ(AfxGetMainWnd(), &main);
  }
  EXPECT_EQ(AfxGetApp(), fallback);
  EXPECT_EQ(AfxGetMainWnd(), nullptr);
}

}  // namespace
