// Fitting names and paths to a number of characters or a width, and text blocks to
// a rectangle. Widths come from TestDC: 6 pixels a character, 10 a line.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/test_dc.h"
#include "vglobal/util/text_fit.h"

namespace {

using vglobal::testing::TestDC;
constexpr int kChar = TestDC::kCharWidth;

// AbbreviateName on a buffer with guard characters after the terminator, which must
// survive whatever the call does.
std::wstring Abbreviate(const std::wstring& path, int maxChars, bool atLeastName = true) {
  std::vector<wchar_t> buffer(path.begin(), path.end());
  buffer.push_back(L'\0');
  buffer.insert(buffer.end(), 4, L'#');
  AbbreviateName(buffer.data(), maxChars, atLeastName);
  EXPECT_EQ(std::wstring(buffer.end() - 4, buffer.end()), L"####") << path << " " << maxChars;
  return buffer.data();
}

// Every kind of head, and the short and odd paths where index arithmetic goes wrong.
// clang-format off
const wchar_t* const kSamplePaths[] = {
    L"", L"a", L"C:", L"\\\\", L"\\\\srv", L"\\\\srv\\", L"C:\\", L"/", L"//x/y", L"\\x", L"a\\b",
    L"\\a\\b\\c\\d", L"\\\\\\x\\y\\z", L"C:\\dir1\\dir2\\file.txt", L"C:\\folder\\",
    L"\\\\server\\share\\dir\\sub\\file.txt", L"/home/user/data/a.raw", L"/home/user/"};
// clang-format on

std::wstring FitPath(const std::wstring& path, int width) {
  TestDC dc;
  CString text(path);
  FitPathToWidth(&dc, text, width);
  return text.str();
}

TEST(AbbreviateName, KeepsHeadAndNameThenNameThenCutName) {
  const std::wstring path = LR"(C:\dir1\dir2\file.txt)";
  EXPECT_EQ(Abbreviate(path, 21), path);
  EXPECT_EQ(Abbreviate(path, 400), path);
  EXPECT_EQ(Abbreviate(path, 20), LR"(C:\dir1\...\file.txt)");
  for (int limit = 8; limit <= 19; ++limit)
    EXPECT_EQ(Abbreviate(path, limit), L"file.txt") << limit;
  EXPECT_EQ(Abbreviate(path, 6), L"fil...");
  EXPECT_EQ(Abbreviate(path, 6, false), L"");
  EXPECT_EQ(Abbreviate(path, 3), L"...");
}

TEST(AbbreviateName, HeadIsTheShareOrTheFirstFolderOfASlashPath) {
  const std::wstring share = LR"(\\server\share\dir\sub\file.txt)";
  EXPECT_EQ(Abbreviate(share, 29), LR"(\\server\share\...\file.txt)");
  EXPECT_EQ(Abbreviate(share, 26), L"file.txt");
  EXPECT_EQ(Abbreviate(L"/home/user/data/file.txt", 23), L"/home/.../data/file.txt");
  EXPECT_EQ(Abbreviate(L"/home/user/data/file.txt", 22), L"/home/.../file.txt");
}

TEST(AbbreviateName, NoLimitReadsOrWritesOutsideThePath) {
  for (const std::wstring path : kSamplePaths)
    for (int limit = -3; limit <= static_cast<int>(path.size()) + 1; ++limit)
      for (bool atLeastName : {false, true}) {
        const std::wstring out = Abbreviate(path, limit, atLeastName);
        if (limit >= static_cast<int>(path.size()))
          EXPECT_EQ(out, path);
        else
          EXPECT_LE(static_cast<int>(out.size()), std::max(limit, 0)) << path << " " << limit;
      }
  AbbreviateName(nullptr, 5, TRUE);
}

TEST(FitStringToWidth, KeepsTheLongestStartThatFitsWithItsEllipsis) {
  TestDC dc;
  auto fit = [&](const wchar_t* in, int width) {
    CString text(in);
    FitStringToWidth(&dc, text, width);
    return text.str();
  };
  EXPECT_EQ(fit(L"abcdef", 5 * kChar), L"ab...");
  EXPECT_EQ(fit(L"abcdef", 6 * kChar - 1), L"ab...");
  // Exactly as wide as the width is shortened, one pixel more is not.
  EXPECT_EQ(fit(L"abcdef", 6 * kChar), L"abc...");
  EXPECT_EQ(fit(L"abcdef", 6 * kChar + 1), L"abcdef");
  EXPECT_EQ(fit(L"abcdef", 2), L"...");
  EXPECT_EQ(fit(L"abcdef", -10), L"...");
  EXPECT_EQ(fit(L"", 0), L"");
  CString untouched(L"abc");
  FitStringToWidth(nullptr, untouched, 0);
  EXPECT_EQ(untouched, L"abc");
}

TEST(FitPathToWidth, DrivePathGrowsItsHeadFolderByFolder) {
  const std::wstring path = LR"(C:\dir1\dir2\file.txt)";  // 21 characters
  EXPECT_EQ(FitPath(path, 21 * kChar + 1), path);
  EXPECT_EQ(FitPath(path, 21 * kChar), LR"(C:\dir1\...\file.txt)");
  EXPECT_EQ(FitPath(path, 20 * kChar), LR"(C:\...\file.txt)");
  EXPECT_EQ(FitPath(path, 15 * kChar), LR"(\...\file.txt)");  // without the drive
  EXPECT_EQ(FitPath(path, 13 * kChar), LR"(\...\file.txt)");
  EXPECT_EQ(FitPath(path, 13 * kChar - 1), L"file.txt");
  EXPECT_EQ(FitPath(path, 8 * kChar - 1), L"file...");
  EXPECT_EQ(FitPath(path, 1), L"...");
}

TEST(FitPathToWidth, RootedPathsJoinRootAndNextFolder) {
  const std::wstring share = LR"(\\server\share\dir\file.txt)";  // 27 characters
  EXPECT_EQ(FitPath(share, 25 * kChar), LR"(\\server\...\file.txt)");
  EXPECT_EQ(FitPath(share, 27 * kChar), LR"(\\servershare\...\file.txt)");
  EXPECT_EQ(FitPath(LR"(\top\dir\sub\f)", 14 * kChar), LR"(\topdir\...\f)");
}

TEST(FitPathToWidth, SlashPathKeepsItsRootLikeADrive) {
  const std::wstring path = L"/home/user/file.txt";  // 19 characters
  EXPECT_EQ(FitPath(path, 19 * kChar), L"/home/.../file.txt");
  EXPECT_EQ(FitPath(path, 18 * kChar), L"/.../file.txt");
  EXPECT_EQ(FitPath(L"/home/user/dir/", 14 * kChar), L"/.../dir/");
}

TEST(FitPathToWidth, ResultIsWithinTheWidthOrABareEllipsis) {
  for (const std::wstring path : kSamplePaths)
    for (int width = -1; width <= static_cast<int>(path.size() + 2) * kChar; ++width) {
      const std::wstring out = FitPath(path, width);
      if (path.empty() || static_cast<int>(path.size()) * kChar < width) {
        EXPECT_EQ(out, path);
        continue;
      }
      EXPECT_TRUE(static_cast<int>(out.size()) * kChar <= width || out == L"...")
          << path << " at " << width << " gave " << out;
    }
}

TEST(GetDisplayName, OmitsTheCurrentFolderIgnoringCase) {
  CString result;
  const CString path(LR"(C:\work\a.txt)");
  EXPECT_EQ(GetDisplayName(result, path, -1, LR"(c:\WORK\)", 8, TRUE, TRUE), 1);
  EXPECT_EQ(result, L"a.txt");
  // Not omitted: the flag is off, no folder is given, or the length given is longer
  // than the folder text (which must not be read past).
  auto shown = [&](const wchar_t* folder, int omit) {
    GetDisplayName(result, path, -1, folder, 8, omit, TRUE);
    return result;
  };
  EXPECT_EQ(shown(LR"(C:\work\)", FALSE), path);
  EXPECT_EQ(shown(nullptr, TRUE), path);
  EXPECT_EQ(shown(LR"(C:\wo)", TRUE), path);
}

TEST(GetDisplayName, AbbreviatesToTheLimitAndToAPathBuffer) {
  CString result;
  GetDisplayName(result, LR"(C:\dir1\dir2\file.txt)", 20, nullptr, 0, FALSE, TRUE);
  EXPECT_EQ(result, LR"(C:\dir1\...\file.txt)");
  GetDisplayName(result, LR"(C:\dir1\dir2\file.txt)", 6, nullptr, 0, FALSE, FALSE);
  EXPECT_EQ(result, L"");

  // Longer than a path buffer: abbreviated as for the longest display name, even when
  // the whole path or a larger limit is asked for.
  const std::wstring longPath = LR"(C:\data\)" + std::wstring(300, L'd') + LR"(\run.raw)";
  for (int limit : {-1, 1000}) {
    GetDisplayName(result, longPath.c_str(), limit, nullptr, 0, FALSE, TRUE);
    EXPECT_EQ(result, LR"(C:\data\...\run.raw)") << limit;
  }
  std::wstring many = LR"(C:\data)";
  for (int i = 0; i < 40; ++i) many += LR"(\folder)";
  many += LR"(\run.raw)";
  GetDisplayName(result, many.c_str(), -1, nullptr, 0, FALSE, TRUE);
  EXPECT_LE(result.GetLength(), MAX_PATH - 1);
  EXPECT_EQ(result.Left(11), LR"(C:\data\...)");
  EXPECT_EQ(result.Right(8), LR"(\run.raw)");
}

TEST(FitTextBlockToRect, KeepsLineBreaksWhenItFitsAndFlattensThemBeforeCutting) {
  TestDC dc;
  CString fits(L"one\r\ntwo"), flows(L"a\nb\r\nc");
  EXPECT_EQ(FitTextBlockToRect(&dc, fits, CRect(0, 0, 60, 20)), 20);
  EXPECT_EQ(fits, L"one\r\ntwo");
  EXPECT_EQ(FitTextBlockToRect(&dc, flows, CRect(0, 0, 60, 10)), 10);
  EXPECT_EQ(flows, L"a b  c");  // each break character became a space, no "..."
}

TEST(FitTextBlockToRect, CutsAtTheEndUntilTheBlockFits) {
  TestDC dc;
  CString text(L"aaaa bbbb cccc dddd");
  EXPECT_EQ(FitTextBlockToRect(&dc, text, CRect(0, 0, 5 * kChar, 20)), 20);
  EXPECT_EQ(text, L"aaaa bbbb...");
}

TEST(FitTextBlockToRect, StopsAtTheEllipsisWhenNothingFits) {
  TestDC dc;
  CString text(L"some text\nthat cannot fit");
  EXPECT_EQ(FitTextBlockToRect(&dc, text, CRect(0, 0, 100, 5)), 10);
  EXPECT_EQ(text, L"...");
  CString empty;
  FitTextBlockToRect(&dc, empty, CRect(0, 10, 100, 0));
  EXPECT_EQ(empty, L"");
}

}  // namespace
