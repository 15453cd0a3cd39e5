// File choosers: the legacy filter text, and CFileDialog's request and answer
// through the platform.
#include "vglobal/compat/file_dialog.h"

#include <gtest/gtest.h>

#include "support/scripted_platform.h"
#include "vglobal/choosers.h"

namespace {

using vglobal::FileFilter;
using vglobal::ParseLegacyFilter;

TEST(LegacyFilter, ReadsLabelsAndPatternsAsTheSuiteWritesThem) {
  EXPECT_EQ(
      ParseLegacyFilter(L"Programs (*.exe)|*.exe|All Files (*.*)|*.*||"),
      (std::vector<FileFilter>{{L"Programs (*.exe)", {L"*.exe"}}, {L"All Files (*.*)", {L"*"}}}));
  // Spaces around the bars, as the sample-list browser writes its filter.
  EXPECT_EQ(ParseLegacyFilter(L"Sample Lists (*.sld) | *.sld | All Files (*.*) | *.* ||"),
            (std::vector<FileFilter>{{L"Sample Lists (*.sld)", {L"*.sld"}},
                                     {L"All Files (*.*)", {L"*"}}}));
  EXPECT_EQ(ParseLegacyFilter(L"Data|*.raw; *.sld;;*.*"),
            (std::vector<FileFilter>{{L"Data", {L"*.raw", L"*.sld", L"*"}}}));
}

TEST(LegacyFilter, BadTextGivesWhatCouldBeRead) {
  EXPECT_TRUE(ParseLegacyFilter(nullptr).empty());
  EXPECT_TRUE(ParseLegacyFilter(L"").empty());
  EXPECT_TRUE(ParseLegacyFilter(L"|||").empty());
  EXPECT_TRUE(ParseLegacyFilter(L"A label without patterns").empty());
  // The list ends at the double bar, and at an entry without patterns.
  EXPECT_EQ(ParseLegacyFilter(L"A|*.a||B|*.b||").size(), 1u);
  EXPECT_EQ(ParseLegacyFilter(L"A|*.a|B| ; |C|*.c").size(), 1u);
  EXPECT_EQ(ParseLegacyFilter(L"A|*.a|Dangling").size(), 1u);
  const wchar_t unterminated[] = {L'A', L'\0', L'*', L'.', L'a', L'\0', L'B', L'\0', L'*'};
  EXPECT_EQ(vglobal::ParseNulSeparatedFilter(unterminated, std::size(unterminated)).size(), 1u);
}

TEST(FileDialog, AsksThePlatformWithTheCallersSettingsAndSplitsTheAnswer) {
  vglobal::testing::ScriptedPlatform platform;
  platform.fileAnswers.push_back(L"/data/methods/calibration.v2.meth");
  CFileDialog dialog(TRUE, L"meth", L"old.meth", OFN_FILEMUSTEXIST | OFN_HIDEREADONLY,
                     L"Methods (*.meth)|*.meth|All Files (*.*)|*.*||");
  dialog.m_ofn.lpstrTitle = L"Choose a Method";
  dialog.m_ofn.lpstrInitialDir = L"/data/methods";
  dialog.m_ofn.nFilterIndex = 2;
  ASSERT_EQ(dialog.DoModal(), IDOK);

  ASSERT_EQ(platform.fileRequests.size(), 1u);
  const vglobal::FileChooser& asked = platform.fileRequests[0];
  EXPECT_EQ(asked.title, L"Choose a Method");
  EXPECT_EQ(asked.folder, L"/data/methods");
  EXPECT_EQ(asked.fileName, L"old.meth");
  EXPECT_EQ(asked.defaultExtension, L"meth");
  EXPECT_EQ(asked.filters.size(), 2u);
  EXPECT_EQ(asked.filterIndex, 1);
  EXPECT_TRUE(asked.fileMustExist && asked.pathMustExist && !asked.save);

  EXPECT_EQ(dialog.GetPathName(), L"/data/methods/calibration.v2.meth");
  EXPECT_EQ(dialog.GetFileName(), L"calibration.v2.meth");
  EXPECT_EQ(dialog.GetFileExt(), L"meth");
  EXPECT_EQ(dialog.GetFileTitle(), L"calibration.v2");
  EXPECT_EQ(dialog.GetFolderPath(), L"/data/methods");
  EXPECT_STREQ(dialog.m_ofn.lpstrFile, L"/data/methods/calibration.v2.meth");
  EXPECT_EQ(dialog.m_ofn.nFileOffset, 14);
}

TEST(FileDialog, CancelOrAPathTooLongForTheCallersBufferChangesNothing) {
  {
    CFileDialog headless(TRUE, nullptr, L"keep.txt");
    EXPECT_EQ(headless.DoModal(), IDCANCEL);  // no chooser without a platform that has one
    EXPECT_TRUE(headless.GetPathName().IsEmpty());
    EXPECT_STREQ(headless.m_ofn.lpstrFile, L"keep.txt");
  }
  vglobal::testing::ScriptedPlatform platform;
  platform.fileAnswers.push_back(L"/a/path/longer/than/the/buffer.txt");
  CFileDialog dialog(FALSE);
  wchar_t small[8] = L"x.txt";
  dialog.m_ofn.lpstrFile = small;
  dialog.m_ofn.nMaxFile = 8;
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  EXPECT_STREQ(small, L"x.txt");
  EXPECT_TRUE(platform.fileRequests.at(0).save);
  EXPECT_TRUE(platform.fileRequests.at(0).overwritePrompt);

  std::wstring folder = L"/start";
  EXPECT_FALSE(vglobal::HeadlessPlatform().ChooseFolder(nullptr, L"Folder", folder));
  EXPECT_EQ(folder, L"/start");
}

}  // namespace
